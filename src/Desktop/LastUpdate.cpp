#include "Desktop/LastUpdate.h"

#include "System/LocaleTexts.h"

namespace kelmar::desktop {

QString lastUpdateText(system::Seconds age, const system::Localization& texts) {
    // In the language of the sentence that it stands in, which is English where there is no
    // catalogue, and need not be that of the user's dates. Nothing is kept: this is rarely wanted.
    const system::LocaleTexts dates(texts.text("en"), "");
    return QString::fromStdString(texts.text("Last updated {}", dates.timeAgo(age)));
}

}  // namespace kelmar::desktop
