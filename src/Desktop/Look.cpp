#include "Desktop/Look.h"

#include <QGuiApplication>
#include <QPalette>

#include "System/Fatal.h"

namespace kelmar::desktop {

namespace {

paint::FontSet fontsFor(const Preferences& preferences) {
    return preferences.fontFamily ? paint::FontSet(*preferences.fontFamily)
                                  : paint::FontSet::ofDesktop();
}

/// Where no portal says what the user prefers, the colour of ordinary windows does.
paint::Scheme schemeOfPalette() {
    constexpr int middleGrey = 128;
    return QGuiApplication::palette().color(QPalette::Window).lightness() < middleGrey
               ? paint::Scheme::dark
               : paint::Scheme::light;
}

}  // namespace

Look::Look(const PortalSettings& settings, SchemeChoice scheme)
    : settings_(settings),
      scheme_(scheme),
      resources_(std::make_unique<paint::PaintResources>(fontsFor(settings.preferences()),
                                                         settings.preferences().textScale)) {
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
    const paint::FontSet fonts = fontsFor(settings_.preferences());
    std::unique_ptr<paint::PaintResources> former;
    const double textScale = settings_.preferences().textScale;
    if (fonts != resources_->fonts() || textScale != resources_->textScale()) {
        former =
            std::exchange(resources_, std::make_unique<paint::PaintResources>(fonts, textScale));
    }
    emit changed();
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
