#pragma once

#include <QFont>
#include <QObject>
#include <future>
#include <memory>

#include "Desktop/Options.h"
#include "Desktop/PortalSettings.h"
#include "Desktop/ScreenWatch.h"
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
    /// For what the extension makes the content of a widget of this size.
    [[nodiscard]] kit::Environment environment(kit::Family family) const;

    /// For texts of this program's own, in the desktop's font and larger where the user wants that.
    /// `size` is the usual one, in pixels.
    [[nodiscard]] QFont font(double size, kit::FontWeight weight = kit::FontWeight::regular) const;
    /// For menus and tooltips: of the size that the desktop has for them.
    [[nodiscard]] QFont menuFont() const;
    /// A length, in pixels, that has to hold texts of the usual size, for those of the user's.
    [[nodiscard]] int heldLength(int usual) const;

signals:
    void changed();

private:
    void takePreferences();
    void takeScreens();
    [[nodiscard]] double textScale() const;
    [[nodiscard]] paint::Scheme scheme() const;

    [[nodiscard]] paint::FontSet fonts() const;

    const PortalSettings& settings_;
    ScreenWatch screens_;
    SchemeChoice scheme_;
    std::shared_future<paint::FontSet> desktopFonts_;
    kit::RenderingMode renderingMode_ = kit::RenderingMode::fullColor;
    std::unique_ptr<paint::PaintResources> resources_;
};

}  // namespace kelmar::desktop
