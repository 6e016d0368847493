#include "DemoPlanner/StudyTimer.h"

#include <algorithm>

namespace kelmar::demo {

namespace {

constexpr system::Seconds shortBreak = 5 * 60;
constexpr system::Seconds longBreak = 10 * 60;
/// From this length on a session has earned the long break.
constexpr system::Seconds longStudy = 45 * 60;

const char* stateName(StudyTimer::Phase phase) {
    switch (phase) {
        case StudyTimer::Phase::ready:
            return "ready";
        case StudyTimer::Phase::paused:
            return "paused";
        case StudyTimer::Phase::running:
        case StudyTimer::Phase::ringing:
            return "running";
    }
    return "";
}

}  // namespace

void StudyTimer::advance(system::Date now) {
    if (phase == Phase::running && endAt && *endAt <= now) {
        phase = Phase::ringing;
        secsLeft = 0;
    }
}

void StudyTimer::turnOn(system::Date now, const StudySubject& nextSubject) {
    switch (phase) {
        case Phase::ready:
            subject = isBreak ? StudySubject{} : nextSubject;
            run(now);
            return;
        case Phase::paused:
            run(now);
            return;
        case Phase::ringing:
            if (isBreak) {
                makeReady(false, studyLength);
            } else {
                makeReady(true, total >= longStudy ? longBreak : shortBreak);
            }
            return;
        case Phase::running:
            return;
    }
}

void StudyTimer::turnOff(system::Date now) {
    if (phase == Phase::running && endAt) {
        phase = Phase::paused;
        secsLeft = std::clamp(*endAt - now, 0.0, total);
        endAt.reset();
    }
}

void StudyTimer::start(system::Date now, std::int64_t minutes) {
    studyLength = static_cast<system::Seconds>(minutes * 60);
    makeReady(false, studyLength);
    subject = StudySubject{};
    run(now);
}

void StudyTimer::run(system::Date now) {
    phase = Phase::running;
    endAt = now + secsLeft;
}

void StudyTimer::makeReady(bool forBreak, system::Seconds length) {
    phase = Phase::ready;
    isBreak = forBreak;
    total = length;
    secsLeft = length;
    endAt.reset();
}

shared::WidgetData::Timer StudyTimer::snapshot(system::Date now,
                                               const StudySubject& nextSubject) const {
    const bool namesNext = phase == Phase::ready && !isBreak;
    const StudySubject& shown = namesNext ? nextSubject : subject;
    shared::WidgetData::Timer timer;
    timer.state = stateName(phase);
    timer.ringing = phase == Phase::ringing;
    timer.total = total;
    timer.secsLeft =
        phase == Phase::running && endAt ? std::clamp(*endAt - now, 0.0, total) : secsLeft;
    timer.endAt = endAt;
    timer.isBreak = isBreak;
    timer.className = isBreak ? "Break" : shown.className.empty() ? "Free study" : shown.className;
    timer.classColor = isBreak                    ? "#10B981"
                       : shown.classColor.empty() ? "#64748B"
                                                  : shown.classColor;
    timer.sessionTitle = isBreak ? "" : shown.title;
    timer.presets = {25, 50, 15};
    return timer;
}

}  // namespace kelmar::demo
