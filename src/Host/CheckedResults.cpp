#include "Host/CheckedResults.h"

#include <fmt/format.h>
#include <optional>
#include <string>

#include "Kit/Archive.h"
#include "Kit/Protocol.h"

namespace kelmar::host {
namespace {

std::optional<system::Failure> faultOf(const kit::Entry& entry, std::string_view urlScheme) {
    const auto url = kit::foreignUrl(entry.view, urlScheme);
    if (!url) {
        return std::nullopt;
    }
    return system::Failure{fmt::format("{} is no URL of {}:", *url, urlScheme)};
}

}  // namespace

system::Result<kit::Entry> checkedEntry(std::string_view json, std::string_view urlScheme) {
    auto entry = kit::decodeEntry(json);
    if (!entry) {
        return entry;
    }
    if (auto fault = faultOf(*entry, urlScheme)) {
        return *std::move(fault);
    }
    return entry;
}

system::Result<kit::Timeline> checkedTimeline(std::string_view json, std::string_view urlScheme) {
    auto timeline = kit::decodeTimeline(json);
    if (!timeline) {
        return timeline;
    }
    for (const auto& entry : timeline->entries) {
        if (auto fault = faultOf(entry, urlScheme)) {
            return *std::move(fault);
        }
    }
    return timeline;
}

}  // namespace kelmar::host
