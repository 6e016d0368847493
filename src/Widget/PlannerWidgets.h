#pragma once

#include <string_view>
#include <vector>

#include "Kit/Descriptor.h"
#include "Widget/BundledWidget.h"
#include "Widget/Surroundings.h"

namespace kelmar::widget {

/// The widget bundle: everything that the extension offers, in the order in which a gallery lists
/// it. `surroundings` must outlive it.
class PlannerWidgets {
public:
    explicit PlannerWidgets(const Surroundings& surroundings);

    [[nodiscard]] kit::Bundle bundle() const;
    /// Nothing for a kind that is not in the bundle.
    [[nodiscard]] const BundledWidget* widget(std::string_view kind) const;

private:
    std::vector<BundledWidget> widgets_;
};

}  // namespace kelmar::widget
