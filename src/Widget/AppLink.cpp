#include "Widget/AppLink.h"

#include <fmt/format.h>

#include "System/Url.h"

namespace kelmar::widget {

void tellApp(AppLink& appLink, const std::string& url, Completion completed) {
    if (!system::isValidUrl(url)) {
        completed();
        return;
    }
    appLink.open(url, std::move(completed));
}

void askApp(AppLink& appLink, std::string_view command, Completion completed) {
    tellApp(appLink, fmt::format("kelmarplanner://timer/{}", command), std::move(completed));
}

}  // namespace kelmar::widget
