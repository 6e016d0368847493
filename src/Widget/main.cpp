#include <iostream>
#include <string>

#include "Shared/PlannerFiles.h"
#include "System/Folder.h"
#include "System/HomeFolder.h"
#include "Widget/ExtensionServer.h"

namespace {

using namespace kelmar;

void sendLine(const std::string& line) {
    std::cout << line << '\n' << std::flush;
}

}  // namespace

/// The extension: answers the host's requests on standard input until it ends. Standard error is
/// its log.
int main() {
    std::ios::sync_with_stdio(false);
    const std::string home = system::homeFolder() + '/';
    const system::SystemClock clock;
    const auto calendar = system::makeCalendar({}, {});
    const system::LocaleTexts localeTexts({}, {});
    const system::GettextLocalization localization({}, system::catalogueFolder());
    const system::DiskFolder plannerFolder(home + std::string(shared::plannerFolderPath));
    system::DiskFolder tickedFolder(home + std::string(shared::tickedFolderPath));
    widget::HostAppLink appLink(sendLine);
    const widget::Surroundings surroundings{.clock = clock,
                                            .calendar = *calendar,
                                            .localeTexts = localeTexts,
                                            .localization = localization,
                                            .plannerFolder = plannerFolder,
                                            .tickedFolder = tickedFolder,
                                            .appLink = appLink};
    widget::ExtensionServer server(surroundings, appLink, sendLine);
    for (std::string line; std::getline(std::cin, line);) {
        server.receive(line);
    }
    return 0;
}
