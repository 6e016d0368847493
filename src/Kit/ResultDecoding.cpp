#include "Kit/MessageReading.h"
#include "Kit/Protocol.h"

namespace kelmar::kit {

namespace {

Timeline readTimeline(const JsonValue& json) {
    auto timeline = readAs<Timeline>(json);
    if (timeline.entries.empty()) {
        json["entries"].refuse("at least one entry");
    }
    return timeline;
}

}  // namespace

system::Result<Bundle> decodeBundle(std::string_view json) {
    return parseAndRead<Bundle>(json, readAs<Bundle>);
}

system::Result<Entry> decodeEntry(std::string_view json) {
    return parseAndRead<Entry>(json, readAs<Entry>);
}

system::Result<Timeline> decodeTimeline(std::string_view json) {
    return parseAndRead<Timeline>(json, readTimeline);
}

system::Result<ControlValue> decodeControlValue(std::string_view json) {
    return parseAndRead<ControlValue>(json, readAs<ControlValue>);
}

system::Result<std::vector<std::string>> decodeFindings(std::string_view json) {
    return parseAndRead<std::vector<std::string>>(
        json, [](const JsonValue& result) { return readAs<Findings>(result).sentences; });
}

}  // namespace kelmar::kit
