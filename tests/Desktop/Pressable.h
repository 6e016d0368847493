#pragma once

#include <QPoint>
#include <optional>
#include <string>

#include "Kit/Timeline.h"

/// A widget to press, in its medium size.
namespace kelmar::desktop {

inline constexpr QPoint button(36, 36);
inline constexpr QPoint link(96, 36);
inline constexpr QPoint besideAll(100, 120);

inline kit::View field() {
    return kit::Frame{
        .lengths = {.width = 40, .height = 40, .maxWidth = {}, .maxHeight = {}},
        .alignment = {},
        .child = kit::View(kit::Shape{.fill = kit::Color::rgb(1, 0, 0), .stroke = {}})};
}

inline const kit::Intent press{.name = "Press", .parameters = {}};

/// A button and a link of 40 points in the top left corner, 20 points apart.
inline kit::DrawnEntry entry(const std::optional<std::string>& widgetUrl = std::nullopt) {
    const kit::View row = kit::HStack{
        .alignment = kit::VerticalAlignment::top,
        .spacing = 20,
        .children = {
            kit::Button{.intent = press, .label = "Mark it done", .child = field()},
            kit::Link{.url = "probe://linked",
                      .child = kit::View(kit::Accessible{.label = "Open it", .child = field()})}}};
    return {.content = kit::Frame{.lengths = {.width = {},
                                              .height = {},
                                              .maxWidth = kit::infinity,
                                              .maxHeight = kit::infinity},
                                  .alignment = {kit::HorizontalAlignment::leading,
                                                kit::VerticalAlignment::top},
                                  .child = row},
            .background = kit::Color::rgb(0, 0, 1),
            .widgetUrl = widgetUrl};
}

}  // namespace kelmar::desktop
