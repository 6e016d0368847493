#pragma once

#include <QObject>
#include <memory>

#include "Desktop/Options.h"
#include "Desktop/PortalSettings.h"
#include "Kit/Environment.h"
#include "Paint/Appearance.h"
#include "Paint/PaintResources.h"

namespace kelmar::desktop {

/// How all widgets look: in the user's rendering mode, the desktop's colours and its font.
class Look final : public QObject {
    Q_OBJECT

public:
    /// `settings` must outlive the look.
    Look(const PortalSettings& settings, SchemeChoice scheme);

    void setRenderingMode(kit::RenderingMode mode);
    [[nodiscard]] kit::RenderingMode renderingMode() const { return renderingMode_; }
    [[nodiscard]] paint::Appearance appearance() const;
    [[nodiscard]] Motion motion() const { return settings_.preferences().leastMotion(); }
    /// Valid until `changed`, during which the former ones are still there.
    [[nodiscard]] const paint::PaintResources& resources() const { return *resources_; }

signals:
    void changed();

private:
    void takePreferences();
    [[nodiscard]] paint::Scheme scheme() const;

    const PortalSettings& settings_;
    SchemeChoice scheme_;
    kit::RenderingMode renderingMode_ = kit::RenderingMode::fullColor;
    std::unique_ptr<paint::PaintResources> resources_;
};

}  // namespace kelmar::desktop
