#pragma once

#include "System/Calendar.h"
#include "System/Clock.h"
#include "System/Folder.h"
#include "System/LocaleTexts.h"
#include "System/Localization.h"
#include "Widget/AppLink.h"

namespace kelmar::widget {

/// Everything outside itself that the extension touches. Whoever makes it keeps the parts alive.
struct Surroundings {
    const system::Clock& clock;
    const system::Calendar& calendar;
    const system::LocaleTexts& localeTexts;
    const system::Localization& localization;
    const system::Folder& plannerFolder;
    system::Folder& tickedFolder;
    AppLink& appLink;
};

}  // namespace kelmar::widget
