#pragma once

#include <string_view>
#include <vector>

#include "Kit/Descriptor.h"
#include "Widget/BundledWidget.h"
#include "Widget/StudyTimerControl.h"
#include "Widget/Surroundings.h"

namespace kelmar::widget {

/// The widget bundle: everything that the extension offers, in the order in which a gallery lists
/// it. `surroundings` must outlive it.
class PlannerWidgets {
public:
    explicit PlannerWidgets(const Surroundings& surroundings);

    /// What a host of some version is offered: it knows controls from version 26.0.0 on. A version
    /// that cannot be read gets none either.
    [[nodiscard]] kit::Bundle bundle(std::string_view systemVersion) const;
    [[nodiscard]] const std::vector<BundledWidget>& widgets() const { return widgets_; }
    /// Nothing for a kind that is no widget's.
    [[nodiscard]] const BundledWidget* widget(std::string_view kind) const;
    /// Nothing for a kind that is no control's.
    [[nodiscard]] const StudyTimerControl* control(std::string_view kind) const;

private:
    std::vector<BundledWidget> widgets_;
    StudyTimerControl control_;
};

}  // namespace kelmar::widget
