#include "Desktop/Preferences.h"

#include <QDBusArgument>
#include <QStringList>
#include <algorithm>
#include <array>
#include <utility>

#include "Layout/TextScale.h"

namespace kelmar::desktop {

namespace {

std::optional<paint::Scheme> schemeOf(const QVariant& value) {
    switch (value.toUInt()) {
        case 1:
            return paint::Scheme::dark;
        case 2:
            return paint::Scheme::light;
        default:
            return std::nullopt;  // The desktop has no preference.
    }
}

/// Components outside 0 to 1 are how the portal says that there is no accent colour.
QColor accentOf(const QVariant& value) {
    if (value.metaType() != QMetaType::fromType<QDBusArgument>()) {
        return {};
    }
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != "(ddd)") {
        return {};
    }
    std::array<double, 3> components{};
    argument.beginStructure();
    for (double& component : components) {
        argument >> component;
    }
    argument.endStructure();
    const bool isColor = std::all_of(components.begin(), components.end(), [](double component) {
        return component >= 0 && component <= 1;
    });
    return isColor ? QColor::fromRgbF(static_cast<float>(components[0]),
                                      static_cast<float>(components[1]),
                                      static_cast<float>(components[2]))
                   : QColor();
}

Motion motionIf(bool mayMove) {
    return mayMove ? Motion::full : Motion::reduced;
}

/// Widgets' texts are small as they are: they only grow.
double textScaleOf(const QVariant& value) {
    bool isNumber = false;
    const double scale = value.toDouble(&isNumber);
    return isNumber && scale > 1 ? std::min(scale, layout::greatestTextScale) : 1;
}

struct NamedFont {
    std::optional<QString> family;
    std::optional<double> size;  ///< In points.
};

std::optional<double> sizeOf(double number) {
    return number > 0 ? std::optional(number) : std::nullopt;
}

/// "Noto Sans Bold 11", as Pango writes font descriptions.
NamedFont pangoFont(const QString& description) {
    static const QStringList styleWords{"Thin",     "Ultra-Light", "Extra-Light", "Light",
                                        "Regular",  "Medium",      "Semi-Bold",   "Bold",
                                        "Black",    "Heavy",       "Italic",      "Oblique",
                                        "Semibold", "SemiBold",    "Condensed",   "Book"};
    QStringList words = description.split(' ', Qt::SkipEmptyParts);
    NamedFont font;
    bool isNumber = false;
    const double number = words.value(words.size() - 1).toDouble(&isNumber);
    if (isNumber) {
        font.size = sizeOf(number);
        words.removeLast();
    }
    while (words.size() > 1 && styleWords.contains(words.last().remove(','))) {
        words.removeLast();
    }
    const QString family = words.join(' ').remove(',');
    if (!family.isEmpty()) {
        font.family = family;
    }
    return font;
}

/// "Noto Sans,10,-1,5,50,0,0,0,0,0", as Qt writes fonts.
NamedFont qtFont(const QString& description) {
    const QString family = description.section(',', 0, 0).trimmed();
    return {.family = family.isEmpty() ? std::nullopt : std::optional(family),
            .size = sizeOf(description.section(',', 1, 1).toDouble())};
}

void take(NamedFont font, Preferences& preferences) {
    preferences.fontFamily = std::move(font.family);
    preferences.fontSize = font.size;
}

}  // namespace

Preferences withSetting(Preferences preferences, const QString& settingNamespace,
                        const QString& key, const QVariant& value) {
    if (settingNamespace == setting::appearance && key == "color-scheme") {
        preferences.scheme = schemeOf(value);
    } else if (settingNamespace == setting::appearance && key == "accent-color") {
        preferences.accent = accentOf(value);
    } else if (settingNamespace == setting::appearance && key == "reduced-motion") {
        preferences.motion = motionIf(value.toUInt() != 1);
    } else if (settingNamespace == setting::gnomeInterface && key == "enable-animations") {
        preferences.toolkitMotion = motionIf(value.toBool());
    } else if (settingNamespace == setting::kdeAll && key == "AnimationDurationFactor") {
        preferences.toolkitMotion = motionIf(value.toString() != "0");
    } else if (settingNamespace == setting::gnomeInterface && key == "text-scaling-factor") {
        preferences.textScale = textScaleOf(value);
    } else if (settingNamespace == setting::gnomeInterface && key == "font-name") {
        take(pangoFont(value.toString()), preferences);
    } else if (settingNamespace == setting::kdeGeneral && key == "font") {
        take(qtFont(value.toString()), preferences);
    }
    return preferences;
}

}  // namespace kelmar::desktop
