#include "Desktop/Look.h"

#include <QGuiApplication>
#include <QPalette>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <utility>

#include "Desktop/OwnTextScale.h"
#include "Kit/Metrics.h"
#include "System/Fatal.h"

namespace kelmar::desktop {

namespace {

/// Where no portal says what the user prefers, the colour of ordinary windows does.
paint::Scheme schemeOfPalette() {
    constexpr int middleGrey = 128;
    return QGuiApplication::palette().color(QPalette::Window).lightness() < middleGrey
               ? paint::Scheme::dark
               : paint::Scheme::light;
}

/// Where the desktop names no size.
constexpr double usualMenuSize = 13;
/// Beyond these, in pixels, it is a mistake, and menus must stay usable.
constexpr double leastMenuSize = 9;
constexpr double greatestMenuSize = 48;

double pixels(double points) {
    constexpr double pixelsPerInch = 96;  // On other screens Qt magnifies everything.
    constexpr double pointsPerInch = 72;
    return points * pixelsPerInch / pointsPerInch;
}

}  // namespace

Look::Look(const PortalSettings& settings, SchemeChoice scheme,
           std::shared_future<paint::FontSet> desktopFonts)
    : settings_(settings),
      scheme_(scheme),
      desktopFonts_(std::move(desktopFonts)),
      resources_(std::make_unique<paint::PaintResources>(desktopFonts_)) {
    connect(&settings, &PortalSettings::changed, this, &Look::takePreferences);
    connect(&screens_, &ScreenWatch::changed, this, &Look::takeScreens);
}

void Look::setRenderingMode(kit::RenderingMode mode) {
    if (mode != renderingMode_) {
        renderingMode_ = mode;
        emit changed();
    }
}

paint::Appearance Look::appearance() const {
    return {.scheme = scheme(),
            .renderingMode = renderingMode_,
            .accent = settings_.preferences().accent};
}

kit::Environment Look::environment(kit::Family family) const {
    // Larger texts leave room for fewer of them, and the extension decides which.
    const double textScale = resources_->textScale();
    const kit::Size room = kit::contentSize(family);
    return {.family = family,
            .contentSize = {room.width / textScale, room.height / textScale},
            .renderingMode = renderingMode_};
}

QFont Look::font(double size, kit::FontWeight weight) const {
    const double scaled = size * resources_->textScale();
    return resources_->fonts().font(kit::Font::system(scaled, weight),
                                    static_cast<int>(std::lround(scaled)));
}

QFont Look::menuFont() const {
    const std::optional<double> points = settings_.preferences().fontSize;
    return font(points ? std::clamp(pixels(*points), leastMenuSize, greatestMenuSize)
                       : usualMenuSize);
}

int Look::heldLength(int usual) const {
    return static_cast<int>(std::lround(usual * resources_->textScale()));
}

void Look::takePreferences() {
    const paint::FontSet fonts = this->fonts();
    std::unique_ptr<paint::PaintResources> former;
    const double textScale = this->textScale();
    if (fonts != resources_->fonts() || textScale != resources_->textScale()) {
        former =
            std::exchange(resources_, std::make_unique<paint::PaintResources>(fonts, textScale));
    }
    emit changed();
}

/// They may get another scale while the program runs.
void Look::takeScreens() {
    if (textScale() != resources_->textScale()) {
        takePreferences();
    }
}

double Look::textScale() const {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return ownTextScale(settings_.preferences().textScale,
                        screen == nullptr ? 1 : screen->devicePixelRatio());
}

paint::FontSet Look::fonts() const {
    const std::optional<QString>& family = settings_.preferences().fontFamily;
    return family ? paint::FontSet(*family) : desktopFonts_.get();
}

paint::Scheme Look::scheme() const {
    switch (scheme_) {
        case SchemeChoice::followDesktop:
            return settings_.preferences().scheme.value_or(schemeOfPalette());
        case SchemeChoice::light:
            return paint::Scheme::light;
        case SchemeChoice::dark:
            return paint::Scheme::dark;
    }
    system::fatal("a choice of scheme beyond the enumeration");
}

}  // namespace kelmar::desktop
