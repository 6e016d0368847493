#include "Widget/ScheduleRows.h"

#include <fmt/format.h>

#include "System/Url.h"
#include "Widget/Building.h"
#include "Widget/HexString.h"
#include "Widget/Links.h"

namespace kelmar::widget {

namespace {

using kit::FontWeight;

bool isStudySession(const ScheduleBlock& block) {
    return block.kind == "study";
}

}  // namespace

std::string url(const ScheduleBlock& block) {
    if (isStudySession(block) && !block.assignmentId.empty()) {
        if (std::string url = assignmentUrl(block.assignmentId); system::isValidUrl(url)) {
            return url;
        }
    }
    if (block.classId && !block.classId->empty()) {
        if (std::string url = classUrl(*block.classId); system::isValidUrl(url)) {
            return url;
        }
    }
    return scheduleUrl;
}

ScheduleRows::ScheduleRows(kit::Color accent, kit::RenderingMode renderingMode,
                           const Surroundings& surroundings)
    : accent_(accent), renderingMode_(renderingMode), surroundings_(surroundings) {}

std::string ScheduleRows::range(const ScheduleBlock& block) const {
    return fmt::format("{} – {}", surroundings_.localeTexts.shortTime(block.start),
                       surroundings_.localeTexts.shortTime(block.end));
}

kit::Color ScheduleRows::color(const ScheduleBlock& block) const {
    return hexString(block.color).value_or(accent_);
}

kit::View ScheduleRows::row(const ScheduleBlock& block, Turn turn) const {
    const bool isNow = turn == Turn::now;
    const kit::Frame time{
        .lengths = {.width = 52},
        .alignment = {kit::HorizontalAlignment::trailing, kit::VerticalAlignment::center},
        .child = oneLine(surroundings_.localeTexts.shortTime(block.start),
                         kit::Font::system(10, FontWeight::medium).monospacedDigits(),
                         isNow ? accent_ : kit::secondary)};
    kit::Children pieces{time, colorBar(color(block), 16)};
    if (isStudySession(block)) {
        pieces.emplace_back(kit::Symbol{.name = block.done ? "checkmark.circle.fill" : "book",
                                        .font = kit::Font::system(9),
                                        .color = kit::secondary});
    }
    kit::Text title = oneLine(
        block.title, kit::Font::system(12, isNow ? FontWeight::semibold : FontWeight::regular),
        kit::primary);
    title.strikethrough = block.done;
    pieces.emplace_back(std::move(title));
    pieces.emplace_back(kit::Spacer{.minLength = 2});
    if (isNow) {
        pieces.push_back(nowBadge());
    }
    return kit::HStack{
        .alignment = kit::VerticalAlignment::center, .spacing = 7, .children = std::move(pieces)};
}

kit::View ScheduleRows::nowBadge() const {
    const bool isFullColor = renderingMode_ == kit::RenderingMode::fullColor;
    kit::View now = padded(
        5, 1,
        oneLine(surroundings_.localization.text("Now"), kit::Font::system(9, FontWeight::bold),
                isFullColor ? kit::white : kit::primary));
    if (isFullColor) {
        return onCapsule(accent_, std::move(now));
    }
    return kit::Overlay{
        .content =
            kit::Shape{.shape = kit::ShapeKind::capsule, .stroke = kit::primary, .lineWidth = 1},
        .child = std::move(now)};
}

kit::View ScheduleRows::titleAndRange(const ScheduleBlock& block) const {
    return kit::VStack{.alignment = kit::HorizontalAlignment::leading,
                       .spacing = 1,
                       .children = {kit::Text{.text = block.title,
                                              .font = kit::Font::system(13, FontWeight::semibold),
                                              .lineLimit = 2},
                                    kit::Text{.text = range(block),
                                              .font = kit::Font::system(10, FontWeight::medium),
                                              .color = kit::secondary}}};
}

kit::View ScheduleRows::smallLabel(const ScheduleBlock& block, Turn turn) const {
    const bool isNow = turn == Turn::now;
    const kit::Text caption{.text = surroundings_.localization.text(isNow ? "Now" : "Next"),
                            .font = kit::Font::system(9, FontWeight::bold),
                            .color = isNow ? accent_ : kit::secondary};
    const kit::HStack label{
        .alignment = kit::VerticalAlignment::top,
        .spacing = 6,
        .children = {colorBar(color(block), std::nullopt), titleAndRange(block)}};
    // At its ideal height the bar is as high as the words beside it.
    return kit::FixedSize{.vertical = true,
                          .child = kit::VStack{.alignment = kit::HorizontalAlignment::leading,
                                               .spacing = 3,
                                               .children = {caption, label}}};
}

}  // namespace kelmar::widget
