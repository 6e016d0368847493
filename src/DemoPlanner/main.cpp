#include <QApplication>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unistd.h>

#include "DemoPlanner/Options.h"
#include "DemoPlanner/PlannerDisk.h"
#include "DemoPlanner/PlannerService.h"
#include "DemoPlanner/PlannerWindow.h"
#include "DemoPlanner/SchemeHandler.h"
#include "DemoPlanner/SingleInstance.h"
#include "DemoPlanner/WallClockTimer.h"
#include "Shared/PlannerFiles.h"
#include "System/HomeFolder.h"

namespace kelmar::demo {

namespace {

using system::Result;

constexpr int failureStatus = 1;

/// One line on standard error, whatever a URL has put into it.
void log(std::string_view line) {
    std::string text = "kelmar-planner-demo: ";
    for (const char character : line) {
        text += static_cast<unsigned char>(character) < ' ' ? ' ' : character;
    }
    std::fprintf(stderr, "%s\n", text.c_str());
}

int report(const Result<std::string>& outcome) {
    if (!outcome) {
        log(outcome.failure().reason);
        return failureStatus;
    }
    std::printf("%s\n", outcome->c_str());
    return 0;
}

int report(const Result<system::Done>& outcome) {
    if (!outcome) {
        log(outcome.failure().reason);
        return failureStatus;
    }
    return 0;
}

StartRequest requestOf(const Options& options) {
    if (options.task == Options::Task::quit) {
        return {StartRequest::Kind::quit, {}};
    }
    if (!options.url.empty()) {
        return {StartRequest::Kind::openUrl, options.url};
    }
    return {options.task == Options::Task::runInBackground ? StartRequest::Kind::stayInBackground
                                                           : StartRequest::Kind::show,
            {}};
}

/// The planner with its window, from its start to its end.
class Application {
public:
    explicit Application(PlannerDisk& disk)
        : own_(system::makeCalendar({}, {})),
          gregorian_(system::makeCalendar("en_US@calendar=gregorian", {})),
          service_(disk, clock_, Calendars{*own_, *gregorian_}, log),
          timer_([this] { wake(); }) {
        settle();
    }

    void handle(const StartRequest& request) {
        switch (request.kind) {
            case StartRequest::Kind::show:
                window().present();
                break;
            case StartRequest::Kind::stayInBackground:
                break;
            case StartRequest::Kind::openUrl:
                if (const std::optional<DeepLink> link = service_.open(request.url)) {
                    window().showOpening(*link, request.url);
                }
                break;
            case StartRequest::Kind::quit:
                QApplication::quit();
                break;
        }
        settle();
    }

private:
    PlannerWindow& window() {
        if (!window_) {
            window_ = std::make_unique<PlannerWindow>(service_, *own_, [this] { settle(); });
        }
        return *window_;
    }

    void wake() {
        const StudyTimer::Phase before = service_.planner().state().timer.phase;
        service_.wake();
        if (before != service_.planner().state().timer.phase) {
            QApplication::beep();
        }
        settle();
    }

    /// Brings the window and the next awakening in line with the planner.
    void settle() {
        timer_.set(service_.nextChange());
        if (window_) {
            window_->refresh();
        }
    }

    system::SystemClock clock_;
    std::unique_ptr<system::Calendar> own_;
    std::unique_ptr<system::Calendar> gregorian_;
    PlannerService service_;
    WallClockTimer timer_;
    std::unique_ptr<PlannerWindow> window_;
};

int run(int& count, char** arguments, const Options& options, PlannerDisk& disk,
        SingleInstance& instance) {
    // No style or theme of the desktop is worth what loading it costs a program that mostly waits.
    QApplication::setDesktopSettingsAware(false);
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
        qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(count, arguments);
    QApplication::setApplicationName("kelmar-planner-demo");
    QApplication::setDesktopFileName("kelmar-planner-demo");
    // Once started in the background it stays there when its window is closed.
    const StartRequest request = requestOf(options);
    QApplication::setQuitOnLastWindowClosed(request.kind == StartRequest::Kind::show);
    Application planner(disk);
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
        log(disk.failure().reason);
        return failureStatus;
    }
    Result<std::unique_ptr<SingleInstance>> instance = SingleInstance::claim(folder);
    if (!instance) {
        log(instance.failure().reason);
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
    const Options& options = std::get<Options>(read);
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
