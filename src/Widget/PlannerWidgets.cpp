#include "Widget/PlannerWidgets.h"

#include <algorithm>

#include "Widget/DueTodayWidget.h"
#include "Widget/ScheduleWidget.h"
#include "Widget/StreakWidget.h"
#include "Widget/StudyTimerWidget.h"
#include "Widget/SystemVersion.h"

namespace kelmar::widget {

namespace {

constexpr std::string_view firstVersionWithControls = "26.0.0";

bool knowsControls(std::string_view systemVersion) {
    const auto version = SystemVersion::parse(systemVersion);
    return version && *version >= *SystemVersion::parse(firstVersionWithControls);
}

}  // namespace

PlannerWidgets::PlannerWidgets(const Surroundings& surroundings) : control_(surroundings) {
    widgets_.push_back(dueTodayWidget(surroundings));
    widgets_.push_back(scheduleWidget(surroundings));
    widgets_.push_back(studyTimerWidget(surroundings));
    widgets_.push_back(streakWidget(surroundings));
}

kit::Bundle PlannerWidgets::bundle(std::string_view systemVersion) const {
    kit::Bundle bundle;
    for (const BundledWidget& widget : widgets_) {
        bundle.widgets.push_back(widget.descriptor);
    }
    if (knowsControls(systemVersion)) {
        bundle.controls.push_back(control_.descriptor());
    }
    return bundle;
}

const BundledWidget* PlannerWidgets::widget(std::string_view kind) const {
    const auto found = std::ranges::find_if(
        widgets_, [&](const BundledWidget& widget) { return widget.descriptor.kind == kind; });
    return found == widgets_.end() ? nullptr : &*found;
}

const StudyTimerControl* PlannerWidgets::control(std::string_view kind) const {
    return kind == StudyTimerControl::kind ? &control_ : nullptr;
}

}  // namespace kelmar::widget
