#pragma once

#include <string>
#include <vector>

#include "Kit/Intent.h"
#include "Widget/Surroundings.h"
#include "Widget/TickIntents.h"
#include "Widget/TimerIntents.h"

namespace kelmar::widget {

enum class ParameterType { string, boolean, integer };

/// How an action presents itself to people who run it by hand.
struct IntentDescriptor {
    struct Parameter {
        std::string name;
        ParameterType type = ParameterType::string;
        std::string title;
    };

    std::string name;
    std::string title;
    std::vector<Parameter> parameters;
    bool isDiscoverable = true;  ///< Whether it is offered outside the widgets.
};

/// All actions of the extension.
[[nodiscard]] const std::vector<IntentDescriptor>& intentDescriptors();

/// Runs the action that an intent describes. `ended` runs exactly once, with a failure when there
/// is no such action, a parameter is missing or of another type, or the action itself failed.
void performIntent(const kit::Intent& intent, const Surroundings& surroundings, Outcome ended);

}  // namespace kelmar::widget
