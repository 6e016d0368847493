#include "Widget/Links.h"

#include <fmt/format.h>

#include "System/Url.h"

namespace kelmar::widget {

std::string assignmentUrl(std::string_view assignmentId) {
    return fmt::format("kelmarplanner://assignment/{}",
                       system::encodeUrlPath(assignmentId, system::Slash::kept));
}

std::string classUrl(std::string_view classId) {
    return fmt::format("kelmarplanner://class/{}",
                       system::encodeUrlPath(classId, system::Slash::kept));
}

std::string untickUrl(std::string_view assignmentId) {
    return fmt::format("kelmarplanner://untick/{}",
                       system::encodeUrlPath(assignmentId, system::Slash::encoded));
}

}  // namespace kelmar::widget
