#include "Widget/PlannerWidgets.h"

#include <algorithm>

#include "Widget/DueTodayWidget.h"

namespace kelmar::widget {

PlannerWidgets::PlannerWidgets(const Surroundings& surroundings) {
    widgets_.push_back(dueTodayWidget(surroundings));
}

kit::Bundle PlannerWidgets::bundle() const {
    kit::Bundle bundle;
    for (const BundledWidget& widget : widgets_) {
        bundle.widgets.push_back(widget.descriptor);
    }
    return bundle;
}

const BundledWidget* PlannerWidgets::widget(std::string_view kind) const {
    const auto found = std::ranges::find_if(
        widgets_, [&](const BundledWidget& widget) { return widget.descriptor.kind == kind; });
    return found == widgets_.end() ? nullptr : &*found;
}

}  // namespace kelmar::widget
