#pragma once

#include "Shared/WidgetData.h"
#include "Widget/Snapshots.h"

/// What the Study Timer widget and the control both have to know of the planner's timer.
namespace kelmar::widget {

/// What the timer does. The planner may come to have further states: they are `other`.
enum class TimerState { running, paused, ready, other };

[[nodiscard]] TimerState stateOf(const shared::WidgetData::Timer& timer);

/// The timer of a snapshot; nothing where there is none to show, because there is no snapshot,
/// nobody is signed in, or the planner has told of no timer.
[[nodiscard]] const shared::WidgetData::Timer* shownTimer(const Snapshot& snapshot);

}  // namespace kelmar::widget
