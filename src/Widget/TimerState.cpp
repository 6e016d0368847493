#include "Widget/TimerState.h"

namespace kelmar::widget {

TimerState stateOf(const shared::WidgetData::Timer& timer) {
    if (timer.state == "running") {
        return TimerState::running;
    }
    if (timer.state == "paused") {
        return TimerState::paused;
    }
    if (timer.state == "ready") {
        return TimerState::ready;
    }
    return TimerState::other;
}

const shared::WidgetData::Timer* shownTimer(const Snapshot& snapshot) {
    if (!snapshot || !snapshot->signedIn || !snapshot->timer) {
        return nullptr;
    }
    return &*snapshot->timer;
}

}  // namespace kelmar::widget
