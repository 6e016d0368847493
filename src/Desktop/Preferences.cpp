#include "Desktop/Preferences.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QStringList>
#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <span>
#include <utility>

#include "System/Fatal.h"

namespace kelmar::desktop {

namespace {

constexpr const char* colorSignature = "(ddd)";

enum class Kind { number, truthValue, text, textOrNumber, color };

/// What a setting's value must be, and what it means.
struct Setting {
    const QString& settingNamespace;
    const char* key;
    Kind kind;
    void (*apply)(Preferences& preferences, const QVariant& value);
};

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
    const auto argument = value.value<QDBusArgument>();
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
    const double scale = value.toDouble();
    return scale > 1 ? scale : 1;
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

std::span<const Setting> knownSettings() {
    using Value = const QVariant&;
    static const std::array settings{
        Setting{setting::appearance, "color-scheme", Kind::number,
                [](Preferences& all, Value value) { all.scheme = schemeOf(value); }},
        Setting{setting::appearance, "accent-color", Kind::color,
                [](Preferences& all, Value value) { all.accent = accentOf(value); }},
        Setting{setting::appearance, "reduced-motion", Kind::number,
                [](Preferences& all, Value value) { all.motion = motionIf(value.toUInt() != 1); }},
        Setting{
            setting::gnomeInterface, "enable-animations", Kind::truthValue,
            [](Preferences& all, Value value) { all.toolkitMotion = motionIf(value.toBool()); }},
        Setting{setting::kdeAll, "AnimationDurationFactor", Kind::textOrNumber,
                [](Preferences& all, Value value) {
                    all.toolkitMotion = motionIf(value.toString() != "0");
                }},
        Setting{setting::gnomeInterface, "text-scaling-factor", Kind::number,
                [](Preferences& all, Value value) { all.textScale = textScaleOf(value); }},
        Setting{setting::gnomeInterface, "font-name", Kind::text,
                [](Preferences& all, Value value) { take(pangoFont(value.toString()), all); }},
        Setting{setting::kdeGeneral, "font", Kind::text,
                [](Preferences& all, Value value) { take(qtFont(value.toString()), all); }},
    };
    return settings;
}

/// As D-Bus writes types; empty for one that D-Bus does not know.
std::string signatureOf(const QVariant& value) {
    return value.metaType() == QMetaType::fromType<QDBusArgument>()
               ? value.value<QDBusArgument>().currentSignature().toStdString()
               : std::string(QDBusMetaType::typeToSignature(value.metaType()));
}

bool isOneOf(const std::string& signature, std::string_view basicTypes) {
    return signature.size() == 1 && basicTypes.find(signature[0]) != std::string_view::npos;
}

bool isA(Kind kind, const std::string& signature) {
    constexpr std::string_view numbers = "ynqiuxtd";
    switch (kind) {
        case Kind::number:
            return isOneOf(signature, numbers);
        case Kind::truthValue:
            return signature == "b";
        case Kind::text:
            return signature == "s";
        case Kind::textOrNumber:
            return signature == "s" || isOneOf(signature, numbers);
        case Kind::color:
            return signature == colorSignature;
    }
    system::fatal("a kind of setting beyond the enumeration");
}

const char* wordsFor(Kind kind) {
    switch (kind) {
        case Kind::number:
            return "a number";
        case Kind::truthValue:
            return "true or false (b)";
        case Kind::text:
            return "a text (s)";
        case Kind::textOrNumber:
            return "a text or a number";
        case Kind::color:
            return "three numbers (ddd)";
    }
    system::fatal("a kind of setting beyond the enumeration");
}

/// `"dark" of the type "s"`, cut where it is long.
std::string described(const QVariant& value, const std::string& signature) {
    constexpr qsizetype enough = 40;
    const QString text = signature.size() == 1 ? value.toString() : QString();
    const std::string type = fmt::format("the type \"{}\"", signature);
    return text.isEmpty() ? "of " + type
                          : fmt::format("\"{}\" of {}", text.left(enough).toStdString(), type);
}

}  // namespace

system::Result<Preferences> withSetting(Preferences preferences, const QString& settingNamespace,
                                        const QString& key, const QVariant& value) {
    const auto known = knownSettings();
    const auto found = std::find_if(known.begin(), known.end(), [&](const Setting& each) {
        return each.settingNamespace == settingNamespace && each.key == key;
    });
    if (found == known.end()) {
        return preferences;
    }
    const std::string signature = signatureOf(value);
    if (!isA(found->kind, signature)) {
        return system::Failure{fmt::format("{} {} is {} where {} is expected",
                                           settingNamespace.toStdString(), found->key,
                                           described(value, signature), wordsFor(found->kind))};
    }
    found->apply(preferences, value);
    return preferences;
}

}  // namespace kelmar::desktop
