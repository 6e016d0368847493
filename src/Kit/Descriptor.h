#pragma once

#include <string>
#include <vector>

#include "Kit/Environment.h"
#include "Kit/Intent.h"

namespace kelmar::kit {

/// How a widget presents itself in a gallery. The kind is its identity.
struct WidgetDescriptor {
    std::string kind;
    std::string displayName;
    std::string description;
    std::vector<Family> families;

    bool operator==(const WidgetDescriptor&) const = default;
};

struct ControlDescriptor {
    std::string kind;
    std::string displayName;
    std::string description;

    bool operator==(const ControlDescriptor&) const = default;
};

/// What an extension offers, in gallery order.
struct Bundle {
    std::vector<WidgetDescriptor> widgets;
    std::vector<ControlDescriptor> controls;

    bool operator==(const Bundle&) const = default;
};

/// What a control shows: a toggle with a label, a symbol and the intent that flips it. The intent's
/// Bool parameter carries the value asked for.
struct ControlValue {
    bool running = false;
    std::string text;
    std::string symbol;
    Intent intent;

    bool operator==(const ControlValue&) const = default;
};

}  // namespace kelmar::kit
