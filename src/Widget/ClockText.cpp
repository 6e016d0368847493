#include "Widget/ClockText.h"

#include <algorithm>
#include <fmt/format.h>

namespace kelmar::widget {

std::string clockText(std::int64_t seconds) {
    const std::int64_t shown = std::max<std::int64_t>(seconds, 0);
    const std::int64_t hours = shown / 3600;
    const std::int64_t minutes = shown / 60 % 60;
    if (hours == 0) {
        return fmt::format("{}:{:02}", minutes, shown % 60);
    }
    return fmt::format("{}:{:02}:{:02}", hours, minutes, shown % 60);
}

}  // namespace kelmar::widget
