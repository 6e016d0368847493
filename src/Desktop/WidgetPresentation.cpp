#include "Desktop/WidgetPresentation.h"

#include <algorithm>

#include "Desktop/LastUpdate.h"

namespace kelmar::desktop {

namespace {

const kit::DrawnEntry emptyCard{
    .content = kit::Spacer{}, .background = kit::tertiaryFill, .widgetUrl = std::nullopt};

}  // namespace

const kit::WidgetDescriptor* WidgetPresentation::offer(const std::string& kind) const {
    const auto& bundle = parts_.host.bundle();
    if (!bundle) {
        return nullptr;
    }
    const auto widget = std::ranges::find(bundle->widgets, kind, &kit::WidgetDescriptor::kind);
    return widget != bundle->widgets.end() ? &*widget : nullptr;
}

bool WidgetPresentation::isOffered(const std::string& kind) const {
    return offer(kind) != nullptr;
}

QString WidgetPresentation::name(const std::string& kind) const {
    const kit::WidgetDescriptor* widget = offer(kind);
    return QString::fromStdString(widget != nullptr ? widget->displayName : kind);
}

QString WidgetPresentation::age(host::WidgetId id) const {
    const auto since = parts_.host.outdatedSince(id);
    return since ? lastUpdateText(parts_.clock.now() - *since, parts_.texts) : QString();
}

void WidgetPresentation::dress(WidgetWindow& window) const {
    window.setCorners(parts_.compositor.isRunning() ? Corners::transparent : Corners::cutOut);
    window.setStacking(parts_.stacking.current());
    window.setAppearance(parts_.look.appearance());
    window.setMotion(parts_.look.motion());
}

void WidgetPresentation::fill(WidgetWindow& window, host::WidgetId id) const {
    const kit::Entry* entry = parts_.host.shownEntry(id);
    // Content comes over the empty card at once, as over any placeholder.
    const bool isShown = entry != nullptr && !parts_.host.showsPlaceholder(id);
    window.setContent(entry != nullptr ? entry->view : emptyCard,
                      isShown ? paint::Redaction::shown : paint::Redaction::redacted,
                      parts_.direction, parts_.look.resources());
}

}  // namespace kelmar::desktop
