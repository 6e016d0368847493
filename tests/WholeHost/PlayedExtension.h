#pragma once

#include <deque>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Host/ExtensionProcess.h"
#include "Widget/ExtensionServer.h"
#include "tests/Support/TestSurroundings.h"

/// The real extension on a machine whose clock, time zone and files a test sets. What it is asked
/// is answered when the test has the machine run.
namespace kelmar::testing {

/// What a new process finds.
struct Machine {
    system::Date now;
    std::string timeZone;
    std::string snapshot;
};

/// One process: it reads the machine's clock all the time, but its time zone only once.
class PlayedProcess {
public:
    explicit PlayedProcess(const Machine& machine)
        : machine_(machine), test_("en_US", machine.timeZone) {}

    void take(std::string_view line) { waiting_.emplace_back(line); }
    /// Answers what it was asked; whether there was anything.
    bool run() {
        test_.clock.set(machine_.now);
        test_.plannerFolder.put(shared::snapshotName, machine_.snapshot);
        const auto lines = std::exchange(waiting_, {});
        for (const auto& line : lines) {
            server_.receive(line);
        }
        return !lines.empty();
    }

    host::ExtensionListener* listener = nullptr;
    std::vector<std::string> said;

private:
    void say(const std::string& line) {
        said.push_back(line);
        if (listener != nullptr) {
            listener->lineCame(line);
        }
    }

    const Machine& machine_;
    TestSurroundings test_;
    widget::SendLine send_ = [this](const std::string& line) { say(line); };
    widget::HostAppLink appLink_{send_};
    widget::Surroundings surroundings_{.clock = test_.clock,
                                       .calendar = *test_.calendar,
                                       .localeTexts = test_.localeTexts,
                                       .localization = test_.localization,
                                       .plannerFolder = test_.plannerFolder,
                                       .tickedFolder = test_.tickedFolder,
                                       .appLink = appLink_};
    widget::ExtensionServer server_{surroundings_, appLink_, send_};
    std::deque<std::string> waiting_;
};

class PlayedLauncher final : public host::ExtensionLauncher {
public:
    explicit PlayedLauncher(const Machine& machine) : machine_(machine) {}

    [[nodiscard]] std::unique_ptr<host::ExtensionProcess> launch(
        host::ExtensionListener& listener) override {
        auto& process = processes_.emplace_back(machine_);
        process.listener = &listener;
        return std::make_unique<Handle>(process);
    }
    /// Whether any process had something to answer.
    bool run() {
        bool hasRun = false;
        for (auto& process : processes_) {
            hasRun = process.run() || hasRun;
        }
        return hasRun;
    }
    [[nodiscard]] std::size_t starts() const { return processes_.size(); }

private:
    class Handle final : public host::ExtensionProcess {
    public:
        explicit Handle(PlayedProcess& process) : process_(process) {}
        void write(std::string_view line) override { process_.take(line); }
        [[nodiscard]] bool isOutdated() const override { return false; }
        void end(host::Ending /*ending*/) override { process_.listener = nullptr; }

    private:
        PlayedProcess& process_;
    };

    const Machine& machine_;
    std::list<PlayedProcess> processes_;
};

}  // namespace kelmar::testing
