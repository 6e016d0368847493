#pragma once

#include <QObject>
#include <future>
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
    /// `settings` must outlive the look. `desktopFonts` are the application's own, for as long as
    /// the settings name no others.
    Look(const PortalSettings& settings, SchemeChoice scheme,
         std::shared_future<paint::FontSet> desktopFonts);

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

    [[nodiscard]] paint::FontSet fonts() const;

    const PortalSettings& settings_;
    SchemeChoice scheme_;
    std::shared_future<paint::FontSet> desktopFonts_;
    kit::RenderingMode renderingMode_ = kit::RenderingMode::fullColor;
    std::unique_ptr<paint::PaintResources> resources_;
};

}  // namespace kelmar::desktop
