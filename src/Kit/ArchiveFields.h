#pragma once

#include "Kit/ActionFields.h"
#include "Kit/DrawingFields.h"
#include "Kit/Fields.h"
#include "Kit/Intent.h"
#include "Kit/ModifierFields.h"
#include "Kit/StackFields.h"
#include "Kit/Timeline.h"

/// The JSON form of everything in an archive: of the views in the headers included here, and of
/// what goes with them.
namespace kelmar::kit {

template <>
struct Fields<Intent> {
    static constexpr std::tuple all{
        Field{"name", &Intent::name},
        Field{"parameters", &Intent::parameters},
    };
};

template <>
struct Fields<DrawnEntry> {
    static constexpr std::tuple all{
        Field{"content", &DrawnEntry::content},
        Field{"background", &DrawnEntry::background},
        Field{"widgetUrl", &DrawnEntry::widgetUrl},
    };
};

}  // namespace kelmar::kit
