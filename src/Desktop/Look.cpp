#include "Desktop/Look.h"

#include <QGuiApplication>
#include <QPalette>
#include <utility>

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

}  // namespace

Look::Look(const PortalSettings& settings, SchemeChoice scheme,
           std::shared_future<paint::FontSet> desktopFonts)
    : settings_(settings),
      scheme_(scheme),
      desktopFonts_(std::move(desktopFonts)),
      resources_(std::make_unique<paint::PaintResources>(desktopFonts_)) {
    connect(&settings, &PortalSettings::changed, this, &Look::takePreferences);
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

void Look::takePreferences() {
    const paint::FontSet fonts = this->fonts();
    std::unique_ptr<paint::PaintResources> former;
    const double textScale = settings_.preferences().textScale;
    if (fonts != resources_->fonts() || textScale != resources_->textScale()) {
        former =
            std::exchange(resources_, std::make_unique<paint::PaintResources>(fonts, textScale));
    }
    emit changed();
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
