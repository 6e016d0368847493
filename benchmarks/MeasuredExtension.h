#pragma once

#include <cstddef>
#include <string>

#include "Kit/Metrics.h"
#include "Kit/Protocol.h"
#include "System/Folder.h"
#include "Widget/ExtensionServer.h"
#include "tests/Support/TestSurroundings.h"

namespace kelmar::benchmarks {

/// The extension without its process: a server over surroundings of its own, and what it answers.
class MeasuredExtension {
public:
    MeasuredExtension(testing::TestSurroundings& test, system::Folder& tickedFolder)
        : test_(test),
          surroundings_{.clock = test.clock,
                        .calendar = *test.calendar,
                        .localeTexts = test.localeTexts,
                        .localization = test.localization,
                        .plannerFolder = test.plannerFolder,
                        .tickedFolder = tickedFolder,
                        .appLink = appLink_} {}

    /// From the line that asks for a timeline to the line that answers.
    const std::string& answer(const std::string& request) {
        test_.plannerFolder.forgetCalls();
        server_.receive(request);
        return answer_;
    }

private:
    testing::TestSurroundings& test_;
    std::string answer_;
    widget::SendLine keep_ = [this](const std::string& line) { answer_ = line; };
    widget::HostAppLink appLink_{keep_};
    widget::Surroundings surroundings_;
    widget::ExtensionServer server_{surroundings_, appLink_, keep_};
};

/// The line that asks for a widget's timeline.
[[nodiscard]] inline std::string timelineRequest(const std::string& kind, kit::Family family) {
    return kit::encodeRequest(
        {.id = 1,
         .body = kit::EntryRequest{
             .entryKind = kit::EntryKind::timeline,
             .widgetKind = kind,
             .environment = {.family = family, .contentSize = kit::contentSize(family)}}});
}

}  // namespace kelmar::benchmarks
