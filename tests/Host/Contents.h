#pragma once

#include <string>
#include <utility>
#include <vector>

#include "Kit/Timeline.h"

/// Timelines whose entries say one text each.
namespace kelmar::host {

inline system::Date at(double seconds) {
    return system::Date::since1970(seconds);
}

inline kit::Entry entry(double date, const std::string& text) {
    return {at(date), {.content = kit::Text{.text = text, .font = {}, .color = kit::primary}}};
}

inline kit::Timeline timeline(std::vector<kit::Entry> entries,
                              kit::ReloadPolicy policy = kit::ReloadNever{}) {
    return {std::move(entries), policy};
}

inline std::string textOf(const kit::Entry& entry) {
    const auto* const text = std::get_if<kit::Text>(&entry.view.content.node);
    return text != nullptr ? text->text : "no text";
}

}  // namespace kelmar::host
