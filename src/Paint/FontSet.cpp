#include "Paint/FontSet.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <QRawFont>
#include <QStringList>
#include <algorithm>

namespace kelmar::paint {
namespace {

/// Large enough that what a font file says is not lost in rounding.
constexpr int probeSize = 32;

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

bool writesLettersAndDigits(const QString& family) {
    QFont font(family);
    font.setPixelSize(probeSize);
    font.setStyleStrategy(QFont::NoFontMerging);
    const QRawFont raw = QRawFont::fromFont(font);
    // Emoji fonts have digits, but only as halves of key caps: letters tell a text font.
    const QString sample = QStringLiteral("AEOaenz059:");
    return raw.isValid() && std::ranges::all_of(sample, [&](QChar character) {
               return raw.supportsCharacter(character);
           });
}

/// The family that a name leads to on this machine, when that is a text font.
QString usableFamily(const QString& name) {
    if (name.isEmpty()) {
        return {};
    }
    // The names "Sans Serif" and "monospace" are no families but lead to one. Qt may list them as
    // families all the same, and then takes some of their letters from whatever font comes next.
    const QString family = QFontInfo(QFont(name)).family();
    return writesLettersAndDigits(family) ? family : QString();
}

QString firstUsableFamily(const QStringList& names) {
    for (const QString& name : names) {
        if (QString family = usableFamily(name); !family.isEmpty()) {
            return family;
        }
    }
    return {};
}

QString uiFamily(const QString& wanted) {
    const QStringList preferred{wanted, QGuiApplication::font().family(),
                                QStringLiteral("Sans Serif")};
    if (QString family = firstUsableFamily(preferred); !family.isEmpty()) {
        return family;
    }
    return firstUsableFamily(QFontDatabase::families(QFontDatabase::Latin));
}

}  // namespace

QString FontSet::defaultRoundedFamily() {
    return QStringLiteral("Quicksand");
}

FontSet FontSet::ofDesktop() {
    return FontSet(QGuiApplication::font().family());
}

FontSet::FontSet(const QString& uiFamily, const QString& roundedFamily)
    : ui_(paint::uiFamily(uiFamily)),
      // A rounded family that is not there must not become the sans serif that Qt would take.
      rounded_(QFontDatabase::hasFamily(roundedFamily) ? usableFamily(roundedFamily) : QString()) {
    if (rounded_.isEmpty()) {
        rounded_ = ui_;
    }
}

const QString& FontSet::family(kit::FontDesign design) const {
    return design == kit::FontDesign::rounded ? rounded_ : ui_;
}

QFont FontSet::font(const kit::Font& font, int pixelSize) const {
    QFont result;
    // The emoji family stands second so that emoji come in colour where it is installed; what
    // neither has, Qt finds among the other fonts.
    result.setFamilies({family(font.design), QStringLiteral("Noto Color Emoji")});
    result.setPixelSize(pixelSize);
    result.setWeight(weightOf(font.weight));
    result.setHintingPreference(QFont::PreferNoHinting);
    // Coloured fringes would be wrong on a picture whose place on the screen is not known yet.
    result.setStyleStrategy(QFont::NoSubpixelAntialias);
    return result;
}

}  // namespace kelmar::paint
