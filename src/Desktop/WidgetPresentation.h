#pragma once

#include <QString>
#include <string>

#include "Desktop/DesktopParts.h"
#include "Desktop/WidgetWindow.h"
#include "Host/WidgetId.h"
#include "Kit/Descriptor.h"
#include "Layout/Layout.h"

namespace kelmar::desktop {

/// How this desktop presents its widgets: under the names that the extension gives them, in the
/// look of the desktop, with the content that the host has for them.
class WidgetPresentation {
public:
    explicit WidgetPresentation(const DesktopParts& parts) : parts_(parts) {}

    /// From which side the content is written.
    void setDirection(layout::Direction direction) { parts_.direction = direction; }

    /// False as well while the extension has not said yet what it offers.
    [[nodiscard]] bool isOffered(const std::string& kind) const;
    /// The kind itself where the extension gives it no name.
    [[nodiscard]] QString name(const std::string& kind) const;
    /// How old the content is, if it is outdated; else nothing.
    [[nodiscard]] QString age(host::WidgetId id) const;

    void dress(WidgetWindow& window) const;
    /// An empty card while the extension has never answered.
    void fill(WidgetWindow& window, host::WidgetId id) const;

private:
    [[nodiscard]] const kit::WidgetDescriptor* offer(const std::string& kind) const;

    DesktopParts parts_;
};

}  // namespace kelmar::desktop
