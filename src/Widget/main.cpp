#include <iostream>
#include <string>
#include <sysexits.h>

#include "Shared/PlannerFiles.h"
#include "System/Confinement.h"
#include "System/Folder.h"
#include "System/HomeFolder.h"
#include "Widget/ExtensionServer.h"

#if defined(__SANITIZE_ADDRESS__)
/// The sanitizer's search for leaks would trace this process, which the confinement refuses. The
/// tests search the same code for them.
extern "C" const char* __asan_default_options() {  // NOLINT: the sanitizer's name
    return "detect_leaks=0";
}
#endif

namespace {

using namespace kelmar;

void sendLine(const std::string& line) {
    std::cout << line << '\n' << std::flush;
}

/// The folders in the home folder of the account.
struct PlannerFolders {
    std::string planner;
    std::string ticked;
};

PlannerFolders findFolders() {
    const std::string home = system::homeFolder() + '/';
    return {.planner = home + std::string(shared::plannerFolderPath),
            .ticked = home + std::string(shared::tickedFolderPath)};
}

system::Confinement confine(const PlannerFolders& folders, const std::string& catalogueFolder) {
    auto confinement = system::Confinement::enter(
        {.readable = {folders.planner, catalogueFolder}, .writable = {folders.ticked}});
    for (const std::string& gap : confinement.gaps())
        std::cerr << "kelmar-widgets-extension: not confined in full: " + gap + '\n';
    return confinement;
}

/// Answers until there is nothing more to answer; returns the exit status.
int serve(widget::ExtensionServer& server, const system::Confinement& confinement) {
    for (std::string line; std::getline(std::cin, line);) {
        if (confinement.isOutdated()) {
            std::cerr << "kelmar-widgets-extension: the planner's folder was made or replaced "
                         "after the start; ends, because only a new process can read it\n";
            return EX_TEMPFAIL;
        }
        server.receive(line);
    }
    return EX_OK;
}

}  // namespace

/// The extension: answers the host's requests on standard input until it ends. Standard error is
/// its log. Everything that needs more of the machine than answering does (the account database,
/// the choice of language) comes before the confinement, and the first byte of a stranger after it.
int main() {
    std::ios::sync_with_stdio(false);
    const PlannerFolders folders = findFolders();
    const std::string catalogueFolder = system::catalogueFolder();
    const system::GettextLocalization localization({}, catalogueFolder);
    const system::Confinement confinement = confine(folders, catalogueFolder);
    const system::SystemClock clock;
    const auto calendar = system::makeCalendar({}, {});
    if (const std::string trouble = system::timeZoneTrouble(); !trouble.empty())
        std::cerr << "kelmar-widgets-extension: " + trouble + '\n';
    const system::LocaleTexts localeTexts({}, {});
    const system::DiskFolder plannerFolder(folders.planner);
    system::DiskFolder tickedFolder(folders.ticked);
    widget::HostAppLink appLink(sendLine);
    const widget::Surroundings surroundings{.clock = clock,
                                            .calendar = *calendar,
                                            .localeTexts = localeTexts,
                                            .localization = localization,
                                            .plannerFolder = plannerFolder,
                                            .tickedFolder = tickedFolder,
                                            .appLink = appLink};
    widget::ExtensionServer server(surroundings, appLink, sendLine);
    return serve(server, confinement);
}
