#include "Paint/QtTextMeasurer.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <QTextOption>
#include <algorithm>
#include <utility>

namespace kelmar::paint {
namespace {

/// In characters of cached text: a few hundred kilobytes, several screens full of widgets.
constexpr qsizetype cacheCapacity = 65'536;

bool runsFromRightToLeft(const QString& text) {
    return std::ranges::any_of(text, [](QChar character) {
        const QChar::Direction direction = character.direction();
        return direction == QChar::DirR || direction == QChar::DirAL || direction == QChar::DirAN;
    });
}

bool isDigit(QChar character) {
    return character.category() == QChar::Number_DecimalDigit;
}

/// The length of the stretch that begins at `start`: one digit, or everything up to the next one.
qsizetype stretchLength(const QString& text, qsizetype start) {
    qsizetype end = start + 1;
    if (!isDigit(text[start])) {
        while (end < text.size() && !isDigit(text[end])) {
            ++end;
        }
    }
    return end - start;
}

/// From the outlines: the metrics' own rectangles are rounded to whole pixels.
double inkWidth(QChar character, const QFont& font) {
    QPainterPath outline;
    outline.addText(QPointF(), font, character);
    return outline.boundingRect().width();
}

enum class CachedWidth { text, digitCell };

QString cacheKey(CachedWidth kind, const QString& text, const kit::Font& font, int size) {
    const QChar face(static_cast<int>(font.weight) * 2 + static_cast<int>(font.design));
    return QChar(static_cast<int>(kind)) + (face + (QChar(size) + text));
}

}  // namespace

QtTextMeasurer::QtTextMeasurer(const FontSet& fonts) : widths_(cacheCapacity) {
    std::promise<FontSet> found;
    found.set_value(fonts);
    fonts_ = found.get_future();
}

QtTextMeasurer::QtTextMeasurer(std::shared_future<FontSet> fonts)
    : fonts_(std::move(fonts)), widths_(cacheCapacity) {}

double QtTextMeasurer::width(std::string_view text, const kit::Font& font) const {
    const QString line = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    if (font.digits == kit::Digits::proportional) {
        return widthPerPoint(line, font) * font.size;
    }
    double width = 0;
    for (const TextPiece& piece : pieces(line, font)) {
        width += piece.width;
    }
    return width;
}

std::vector<TextPiece> QtTextMeasurer::pieces(const QString& text, const kit::Font& font) const {
    if (font.digits == kit::Digits::proportional || runsFromRightToLeft(text)) {
        return {{text, 0, widthPerPoint(text, font) * font.size}};
    }
    std::vector<TextPiece> pieces;
    double x = 0;
    for (qsizetype start = 0; start < text.size();) {
        const qsizetype length = stretchLength(text, start);
        const QString stretch = text.mid(start, length);
        const double natural = widthPerPoint(stretch, font) * font.size;
        const double cell =
            isDigit(text[start]) ? digitCell(text[start], font) * font.size : natural;
        pieces.push_back({stretch, x + (cell - natural) / 2, cell});
        x += cell;
        start += length;
    }
    return pieces;
}

template <class Measure>
double QtTextMeasurer::cached(const QString& key, Measure measure) const {
    if (const double* known = widths_.object(key)) {
        return *known;
    }
    const double width = measure();
    widths_.insert(key, new double(width), key.size());
    return width;
}

double QtTextMeasurer::digitCell(QChar digit, const kit::Font& font) const {
    const QChar zero(digit.unicode() - digit.digitValue());
    const int size = FontSet::sharedSize(font.size);
    return cached(cacheKey(CachedWidth::digitCell, zero, font, size), [&] {
        const QFont face = fonts().font(font, size);
        double widest = QFontMetricsF(face).horizontalAdvance(zero);
        for (int value = 1; value <= 9; ++value) {
            widest = std::max(widest, inkWidth(QChar(zero.unicode() + value), face));
        }
        return widest / size;
    });
}

double QtTextMeasurer::widthPerPoint(const QString& text, const kit::Font& font) const {
    if (text.isEmpty()) {
        return 0;
    }
    const int size = FontSet::sharedSize(font.size);
    return cached(cacheKey(CachedWidth::text, text, font, size), [&] {
        QTextOption option;
        option.setUseDesignMetrics(true);
        const QFontMetricsF metrics(fonts().font(font, size));
        return metrics.horizontalAdvance(text, option) / size;
    });
}

}  // namespace kelmar::paint
