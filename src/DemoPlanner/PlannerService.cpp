#include "DemoPlanner/PlannerService.h"

#include <cmath>

#include "DemoPlanner/Match.h"
#include "DemoPlanner/StateCoding.h"
#include "Shared/SnapshotCoding.h"
#include "Shared/WidgetTicks.h"

namespace kelmar::demo {

namespace {

using shared::WidgetTicks;
using system::Done;
using system::Result;

}  // namespace

PlannerService::PlannerService(PlannerStorage& storage, const system::Clock& clock,
                               const Calendars& calendars, LogLine log)
    : storage_(storage),
      clock_(clock),
      calendars_(calendars),
      log_(std::move(log)),
      planner_(stateAtStart(), calendars) {
    planner_.advance(clock_.now());
    takeTicks();
}

PlannerState PlannerService::stateAtStart() const {
    PlannerState begun = PlannerState::begun(clock_.now(), calendars_.own);
    const Result<std::optional<std::string>> saved = storage_.loadState();
    if (!saved) {
        log_("The saved state cannot be read, so a new week begins: " + saved.failure().reason);
        return begun;
    }
    if (!*saved) {
        return begun;
    }
    Result<PlannerState> state = decodeState(**saved);
    if (!state) {
        log_("The saved state is unusable, so a new week begins: " + state.failure().reason);
        return begun;
    }
    return *std::move(state);
}

std::optional<DeepLink> PlannerService::open(std::string_view url) {
    const Result<Request> request = parsePlannerUrl(url);
    if (!request) {
        log_("Ignored " + std::string(url) + ": " + request.failure().reason);
        return std::nullopt;
    }
    return std::visit(Match{[](const DeepLink& link) { return std::optional<DeepLink>(link); },
                            [this](const Command& command) {
                                perform(command);
                                return std::optional<DeepLink>();
                            }},
                      *request);
}

void PlannerService::perform(const Command& command) {
    const system::Date now = clock_.now();
    planner_.advance(now);
    std::visit(Match{[this](const TakeTicks&) { takeTicks(); },
                     [this](const Untick& untick) { setDone(untick.id, false); },
                     [&](const TurnTimerOn&) { planner_.turnTimerOn(now); },
                     [&](const TurnTimerOff&) { planner_.turnTimerOff(now); },
                     [&](const StartTimer& start) { planner_.startTimer(now, start.minutes); }},
               command);
    publish();
}

void PlannerService::wake() {
    planner_.advance(clock_.now());
    publish();
}

std::optional<system::Date> PlannerService::nextChange() const {
    return planner_.nextChange(clock_.now());
}

void PlannerService::setDone(const std::string& id, bool done) {
    const system::Date now = clock_.now();
    planner_.advance(now);
    if (!planner_.setDone(id, done, now)) {
        log_("No assignment has the id " + id);
    }
    publish();
}

void PlannerService::setSignedIn(bool signedIn) {
    planner_.setSignedIn(signedIn);
    publish();
}

void PlannerService::setSchoolCalendarConnected(bool connected) {
    planner_.setSchoolCalendarConnected(connected);
    publish();
}

/// A tick stays pending, and its assignment hidden on the widgets, until they have a snapshot
/// without it: otherwise it would flash up in between.
void PlannerService::takeTicks() {
    const std::vector<std::string> taken = markTicked();
    if (!publish()) {
        return;
    }
    for (const std::string& name : taken) {
        storage_.renameTickFile(name, std::string(WidgetTicks::donePrefix) +
                                          name.substr(WidgetTicks::tickPrefix.size()));
    }
    clearDoneFiles();
}

/// The name of a tick file alone says which assignment was ticked, as it does for the widgets; a
/// file that is still being written counts too.
std::vector<std::string> PlannerService::markTicked() {
    std::vector<std::string> taken;
    for (const std::string& name : storage_.tickFiles()) {
        const std::optional<std::string> id = WidgetTicks::id(name, WidgetTicks::tickPrefix);
        if (!id) {
            continue;
        }
        if (!planner_.setDone(*id, true, clock_.now())) {
            log_("A tick names no assignment: " + *id);
        }
        taken.push_back(name);
    }
    return taken;
}

void PlannerService::clearDoneFiles() {
    for (const std::string& name : storage_.tickFiles()) {
        if (!WidgetTicks::id(name, WidgetTicks::donePrefix)) {
            continue;
        }
        const std::optional<std::string> text = storage_.readTickFile(name);
        const std::optional<WidgetTicks::Note> note =
            text ? WidgetTicks::decode(*text) : std::nullopt;
        if (!note || std::abs(clock_.now() - note->at) > doneAge) {
            storage_.removeTickFile(name);
        }
    }
}

bool PlannerService::publish() {
    if (published_ == planner_.state()) {
        return true;
    }
    published_.reset();
    const Result<Done> saved = storage_.saveState(encodeState(planner_.state()));
    if (!saved) {
        log_("The state was not saved: " + saved.failure().reason);
    }
    const Result<Done> shown =
        storage_.publish(shared::encodeSnapshot(planner_.snapshot(clock_.now())));
    if (!shown) {
        log_("The widgets were not told: " + shown.failure().reason);
    }
    if (saved && shown) {
        published_ = planner_.state();
    }
    return published_.has_value();
}

}  // namespace kelmar::demo
