#include <QApplication>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unistd.h>

#include "DemoPlanner/Activation.h"
#include "DemoPlanner/Application.h"
#include "DemoPlanner/Options.h"
#include "DemoPlanner/PlannerDisk.h"
#include "DemoPlanner/SchemeHandler.h"
#include "DemoPlanner/SingleInstance.h"
#include "Shared/PlannerFiles.h"
#include "System/HomeFolder.h"
#include "System/Journal.h"

namespace kelmar::demo {

namespace {

using system::Result;

constexpr int failureStatus = 1;

/// Levels of syslog, as the journal reads them (sd-daemon(3)).
constexpr std::string_view errorLevel = "<3>";
constexpr std::string_view warningLevel = "<4>";

/// One line on standard error, whatever a URL has put into it.
void log(std::string_view level, std::string_view line) {
    std::string text(system::isJournal(STDERR_FILENO) ? level : "");
    text += "kelmar-planner-demo: ";
    for (const char character : line) {
        text += static_cast<unsigned char>(character) < ' ' ? ' ' : character;
    }
    std::fprintf(stderr, "%s\n", text.c_str());
}

void logError(std::string_view line) {
    log(errorLevel, line);
}

void logWarning(std::string_view line) {
    log(warningLevel, line);
}

int report(const Result<std::string>& outcome) {
    if (!outcome) {
        logError(outcome.failure().reason);
        return failureStatus;
    }
    std::printf("%s\n", outcome->c_str());
    return 0;
}

int report(const Result<system::Done>& outcome) {
    if (!outcome) {
        logError(outcome.failure().reason);
        return failureStatus;
    }
    return 0;
}

StartRequest::Kind kindOf(const Options& options) {
    if (options.task == Options::Task::quit) {
        return StartRequest::Kind::quit;
    }
    if (!options.url.empty()) {
        return StartRequest::Kind::openUrl;
    }
    return options.task == Options::Task::runInBackground ? StartRequest::Kind::stayInBackground
                                                          : StartRequest::Kind::show;
}

StartRequest requestOf(const Options& options) {
    return {kindOf(options), options.url, givenActivationToken()};
}

int run(int& count, char** arguments, const Options& options, PlannerDisk& disk,
        SingleInstance& instance) {
    // No style or theme of the desktop is worth what loading it costs a program that mostly waits.
    QApplication::setDesktopSettingsAware(false);
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
        qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const StartRequest request = requestOf(options);
    const QApplication application(count, arguments);
    QApplication::setApplicationName("kelmar-planner-demo");
    QApplication::setDesktopFileName("kelmar-planner-demo");
    // Once started in the background it stays there when its window is closed.
    QApplication::setQuitOnLastWindowClosed(request.kind == StartRequest::Kind::show);
    Application planner(disk, logWarning);
    const auto listening =
        instance.listen([&](const StartRequest& asked) { planner.handle(asked); });
    if (!listening) {
        return report(listening);
    }
    planner.handle(request);
    return QApplication::exec();
}

int start(int& count, char** arguments, const Options& options) {
    const std::string folder = system::homeFolder() + "/" + std::string(shared::plannerFolderPath);
    if (options.task == Options::Task::quit && !std::filesystem::exists(folder)) {
        return 0;
    }
    Result<PlannerDisk> disk = PlannerDisk::open(folder);
    if (!disk) {
        logError(disk.failure().reason);
        return failureStatus;
    }
    Result<std::unique_ptr<SingleInstance>> instance = SingleInstance::claim(folder);
    if (!instance) {
        logError(instance.failure().reason);
        return failureStatus;
    }
    if (*instance == nullptr) {
        return report(SingleInstance::handOver(folder, requestOf(options)));
    }
    if (options.task == Options::Task::quit) {
        return 0;
    }
    PlannerDisk planner = *std::move(disk);
    return run(count, arguments, options, planner, **instance);
}

int runWith(int& count, char** arguments) {
    const auto read = readOptions(count, arguments);
    if (const auto* const status = std::get_if<int>(&read)) {
        return *status;
    }
    const auto& options = std::get<Options>(read);
    switch (options.task) {
        case Options::Task::registerHandler:
            return report(registerSchemeHandler(std::filesystem::read_symlink("/proc/self/exe")));
        case Options::Task::unregisterHandler:
            return report(unregisterSchemeHandler());
        case Options::Task::run:
        case Options::Task::runInBackground:
        case Options::Task::quit:
            break;
    }
    return start(count, arguments, options);
}

}  // namespace

}  // namespace kelmar::demo

int main(int count, char** arguments) {
    return kelmar::demo::runWith(count, arguments);
}
