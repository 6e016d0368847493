#include "Paint/FontSet.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <QRawFont>
#include <QStringList>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <numbers>

namespace kelmar::paint {
namespace {

QFont::Weight weightOf(kit::FontWeight weight) {
    switch (weight) {
        case kit::FontWeight::regular:
            return QFont::Normal;
        case kit::FontWeight::medium:
            return QFont::Medium;
        case kit::FontWeight::semibold:
            return QFont::DemiBold;
        case kit::FontWeight::bold:
            return QFont::Bold;
        case kit::FontWeight::heavy:
            return QFont::ExtraBold;
        case kit::FontWeight::black:
            return QFont::Black;
    }
    return QFont::Normal;
}

/// Each twice as large as the one before. The first is that of most texts on a plain screen: a font
/// made for a small size has stronger stems, and would lose them if it were larger and scaled down.
constexpr std::array<int, 4> sharedSizes{12, 24, 48, 96};

/// A font for looking at a family, one that the design's texts are then drawn with: one less to
/// make ready.
QFont sampleOf(const QString& family, kit::FontDesign design) {
    return design == kit::FontDesign::rounded ? textFont(family, QFont::Bold, sharedSizes[1])
                                              : textFont(family, QFont::Normal, sharedSizes[0]);
}

/// Asks the font alone, not those that Qt would take missing letters from.
bool writesLettersAndDigits(const QFont& font) {
    const QRawFont raw = QRawFont::fromFont(font);
    // Emoji fonts have digits, but only as halves of key caps: letters tell a text font.
    const QString sample = QStringLiteral("AEOaenz059:");
    return raw.isValid() && std::ranges::all_of(sample, [&](QChar character) {
               return raw.supportsCharacter(character);
           });
}

/// The family that a name leads to on this machine.
QString familyOf(const QString& name, kit::FontDesign design) {
    // Qt lists these as families, but they only lead to one; it would take some of their letters
    // from whatever font comes next.
    static const QStringList genericNames{"Sans Serif", "Serif", "Monospace"};
    const bool isGeneric = genericNames.contains(name, Qt::CaseInsensitive);
    if (!isGeneric && QFontDatabase::hasFamily(name)) {
        return name;
    }
    QFont font = sampleOf(name, design);
    font.setFamilies({name});
    // Nothing is written with it: Qt need not look for the fonts that would stand in.
    font.setStyleStrategy(QFont::NoFontMerging);
    return QFontInfo(font).family();
}

/// The family that a name leads to, when that is a text font.
QString usableFamily(const QString& name, kit::FontDesign design) {
    if (name.isEmpty()) {
        return {};
    }
    const QString family = familyOf(name, design);
    return writesLettersAndDigits(sampleOf(family, design)) ? family : QString();
}

QString firstUsableFamily(const QStringList& names) {
    for (const QString& name : names) {
        if (QString family = usableFamily(name, kit::FontDesign::standard); !family.isEmpty()) {
            return family;
        }
    }
    return {};
}

QString roundedFamily(const QString& wanted, const QString& substitute) {
    // One that is not there must not become the sans serif that Qt would take.
    const QString family = QFontDatabase::hasFamily(wanted)
                               ? usableFamily(wanted, kit::FontDesign::rounded)
                               : QString();
    return family.isEmpty() ? substitute : family;
}

std::vector<int> uprightWeights(const QString& family) {
    std::vector<int> weights;
    for (const QString& style : QFontDatabase::styles(family)) {
        if (!QFontDatabase::italic(family, style)) {
            weights.push_back(QFontDatabase::weight(family, style));
        }
    }
    return weights;
}

/// The weight that Qt would take for one that the family may not have. Asked for by its own name,
/// it is made ready once and not for each name that leads to it.
QFont::Weight nearest(QFont::Weight wanted, const std::vector<int>& weights) {
    const auto found =
        std::ranges::min_element(weights, {}, [&](int each) { return std::abs(each - wanted); });
    // Qt makes letters bold that are not, but only those that were asked for as bold.
    const bool isMadeBold =
        found == weights.end() || (wanted >= QFont::Bold && *found < QFont::Bold);
    return isMadeBold ? wanted : static_cast<QFont::Weight>(*found);
}

QString uiFamily(const QString& wanted) {
    QStringList preferred{wanted, QGuiApplication::font().family(), QStringLiteral("Sans Serif")};
    preferred.removeDuplicates();
    if (QString family = firstUsableFamily(preferred); !family.isEmpty()) {
        return family;
    }
    return firstUsableFamily(QFontDatabase::families(QFontDatabase::Latin));
}

}  // namespace

QFont textFont(const QString& family, QFont::Weight weight, int pixelSize) {
    QFont font;
    // The emoji family stands second so that emoji come in colour where it is installed; what
    // neither has, Qt finds among the other fonts.
    font.setFamilies({family, QStringLiteral("Noto Color Emoji")});
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    // Coloured fringes would be wrong on a picture whose place on the screen is not known yet.
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

int FontSet::sharedSize(double size) {
    const auto shared = std::ranges::find_if(
        sharedSizes, [&](int each) { return size < each * std::numbers::sqrt2; });
    return shared != sharedSizes.end() ? *shared : sharedSizes.back();
}

QString FontSet::defaultRoundedFamily() {
    return QStringLiteral("Quicksand");
}

FontSet::Family::Family(const QString& family) : name(family), weights(uprightWeights(family)) {}

FontSet::FontSet(const QString& uiFamily, const QString& roundedFamily)
    : ui_(paint::uiFamily(uiFamily)), rounded_(paint::roundedFamily(roundedFamily, ui_.name)) {}

const FontSet::Family& FontSet::of(kit::FontDesign design) const {
    return design == kit::FontDesign::rounded ? rounded_ : ui_;
}

QFont FontSet::font(const kit::Font& font, int pixelSize) const {
    const Family& family = of(font.design);
    return textFont(family.name, nearest(weightOf(font.weight), family.weights), pixelSize);
}

}  // namespace kelmar::paint
