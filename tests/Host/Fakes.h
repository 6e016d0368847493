#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Host/ExtensionProcess.h"
#include "Host/FileWatch.h"
#include "Host/Log.h"
#include "Host/Timers.h"
#include "Host/UrlOpener.h"
#include "Host/WallClockTimer.h"
#include "Kit/Protocol.h"

/// Surroundings that a test moves by hand.
namespace kelmar::host {

using namespace std::chrono_literals;

class RecordingLog final : public Log {
public:
    void write(LogLevel level, std::string_view line) override {
        lines.emplace_back(line);
        levels.push_back(level);
    }

    std::vector<std::string> lines;
    std::vector<LogLevel> levels;
};

/// Time that passes only in `advance`.
class ManualTimers final : public Timers {
public:
    [[nodiscard]] std::chrono::milliseconds elapsed() const override { return now_; }
    [[nodiscard]] std::unique_ptr<Timer> make(std::function<void()> fired) override {
        return std::make_unique<ManualTimer>(*this, std::move(fired));
    }

    /// Fires what falls due on the way, each at its moment.
    void advance(std::chrono::milliseconds time) {
        const auto end = now_ + time;
        while (auto* const timer = nextUntil(end)) {
            now_ = std::max(now_, *timer->due);
            timer->due.reset();
            timer->fired();
        }
        now_ = end;
    }
    /// What is due without any time passing.
    void runDue() { advance(0ms); }
    [[nodiscard]] int armed() const {
        return static_cast<int>(
            std::count_if(timers_.begin(), timers_.end(),
                          [](const auto* timer) { return timer->due.has_value(); }));
    }

private:
    struct ManualTimer final : Timer {
        ManualTimer(ManualTimers& anyOwner, std::function<void()> anyFired)
            : owner(anyOwner), fired(std::move(anyFired)) {
            owner.timers_.push_back(this);
        }
        ~ManualTimer() override { owner.timers_.remove(this); }
        ManualTimer(const ManualTimer&) = delete;
        ManualTimer& operator=(const ManualTimer&) = delete;
        void start(std::chrono::milliseconds delay) override { due = owner.now_ + delay; }
        void stop() override { due.reset(); }

        ManualTimers& owner;
        std::function<void()> fired;
        std::optional<std::chrono::milliseconds> due;
    };

    [[nodiscard]] ManualTimer* nextUntil(std::chrono::milliseconds end) const {
        ManualTimer* next = nullptr;
        for (auto* const timer : timers_) {
            if (timer->due && *timer->due <= end && (next == nullptr || *timer->due < *next->due)) {
                next = timer;
            }
        }
        return next;
    }

    std::chrono::milliseconds now_{1'000'000};
    std::list<ManualTimer*> timers_;
};

class ManualWallClockTimer final : public WallClockTimer {
public:
    void arm(std::optional<system::Date> date) override { armedFor = date; }
    void reach() {
        armedFor.reset();
        call(ClockEvent::dateReached);
    }
    void step() { call(ClockEvent::clockStepped); }

    std::optional<system::Date> armedFor;
};

class ManualFileWatch final : public FileWatch {
public:
    void watch(std::vector<std::string> anyPaths, std::function<void()> anyChanged) override {
        paths = std::move(anyPaths);
        changed = std::move(anyChanged);
    }

    std::vector<std::string> paths;
    std::function<void()> changed;
};

/// Opens nothing; a test completes what was asked for, in any order and with any outcome.
class RecordingUrlOpener final : public UrlOpener {
public:
    struct Call {
        std::string url;
        OpenOptions options;
        std::function<void(std::string)> completed;
    };
    void open(const std::string& url, OpenOptions options,
              std::function<void(std::string)> completed) override {
        calls.push_back({url, options, std::move(completed)});
    }
    [[nodiscard]] std::vector<std::string> urls() const {
        std::vector<std::string> all;
        for (const auto& call : calls) {
            all.push_back(call.url);
        }
        return all;
    }

    std::vector<Call> calls;
};

inline kit::Bundle oneWidget() {
    return {.widgets = {{"Clock", "", "", {}}}, .controls = {}};
}

/// A process that only exists in the test.
struct FakeProcess {
    ExtensionListener* listener = nullptr;
    std::vector<std::string> written;
    std::optional<Ending> ending;
    bool isOutdated = false;

    void say(std::string_view line) const {
        if (listener != nullptr) {
            listener->lineCame(line);
        }
    }
    void die(std::string how) {
        if (auto* const heard = std::exchange(listener, nullptr)) {
            heard->processEnded(std::move(how));
        }
    }
    /// The requests that came, the first being `initialize`.
    [[nodiscard]] std::vector<kit::Request> requests() const {
        std::vector<kit::Request> all;
        for (const auto& line : written) {
            const auto message = kit::decodeMessage(line);
            if (message && std::holds_alternative<kit::Request>(*message)) {
                all.push_back(std::get<kit::Request>(*message));
            }
        }
        return all;
    }
    /// Answers the request of that place in `requests`.
    void answer(std::size_t index, std::string_view json) const {
        say(kit::encodeResponse(*requests().at(index).id, json));
    }
    void answerWithError(std::size_t index, const std::string& message) const {
        say(kit::encodeError(requests().at(index).id, {kit::ErrorCode::actionFailed, message}));
    }
    void introduce(const kit::Bundle& bundle = oneWidget()) const {
        answer(0, kit::encodeBundle(bundle));
    }
    void askToOpen(std::int64_t id, const std::string& url) const {
        say(kit::encodeRequest({kit::MessageId(id), kit::OpenRequest{url, false, false}}));
    }
    /// The answers that came to what it asked for.
    [[nodiscard]] std::vector<kit::Response> responses() const {
        std::vector<kit::Response> all;
        for (const auto& line : written) {
            const auto message = kit::decodeMessage(line);
            if (message && std::holds_alternative<kit::Response>(*message)) {
                all.push_back(std::get<kit::Response>(*message));
            }
        }
        return all;
    }
};

class FakeLauncher final : public ExtensionLauncher {
public:
    [[nodiscard]] std::unique_ptr<ExtensionProcess> launch(ExtensionListener& listener) override {
        processes.emplace_back().listener = &listener;
        return std::make_unique<Handle>(processes.back());
    }
    [[nodiscard]] FakeProcess& last() { return processes.back(); }
    [[nodiscard]] std::size_t starts() const { return processes.size(); }

    std::list<FakeProcess> processes;

private:
    class Handle final : public ExtensionProcess {
    public:
        explicit Handle(FakeProcess& process) : process_(process) {}
        void write(std::string_view line) override { process_.written.emplace_back(line); }
        [[nodiscard]] bool isOutdated() const override { return process_.isOutdated; }
        void end(Ending ending) override {
            process_.listener = nullptr;
            process_.ending = ending;
        }

    private:
        FakeProcess& process_;
    };
};

}  // namespace kelmar::host
