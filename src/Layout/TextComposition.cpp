#include "Layout/TextComposition.h"

#include <algorithm>
#include <cmath>

#include "Kit/Metrics.h"
#include "Layout/Blanks.h"

namespace kelmar::layout {
namespace {

/// Smaller letters are dots. It also keeps a scale of nothing out of divisions.
constexpr double leastScale = 0.01;

/// A height that was meant for so many lines allows them in spite of rounding errors.
constexpr double tolerance = 0.01;

/// In code points. A widget as large as they come, full of small letters, shows fewer.
constexpr std::size_t mostCharacters = 4'000;

/// As much of a text as any widget has room for. What lines it makes is asked again and again, each
/// time for all of it, and a stranger's text may be of any length.
std::string showable(const std::string& text) {
    const auto isBeginning = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xc0U) != 0x80U;
    };
    std::size_t characters = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (isBeginning(text[at]) && ++characters > mostCharacters) {
            return text.substr(0, at).append("…");
        }
    }
    return text;
}

bool isLimitedToOneLine(const kit::Text& text) {
    return text.lineLimit && *text.lineLimit <= 1;
}

std::size_t linesIn(const Length& height, double lineHeight) {
    if (!height.isDefinite() || lineHeight <= 0) {
        return LineBreaking::noLimit;
    }
    const double lines = std::floor((height.points(0) + tolerance) / lineHeight);
    return std::max<std::size_t>(1, static_cast<std::size_t>(lines));
}

std::size_t allowedLines(const kit::Text& text, const Length& height, double lineHeight) {
    const std::size_t fitting = linesIn(height, lineHeight);
    if (!text.lineLimit) {
        return fitting;
    }
    return std::min(fitting, static_cast<std::size_t>(std::max(1, *text.lineLimit)));
}

}  // namespace

LineBreaking lineBreaking(const kit::Text& text, const TextMeasurer& measurer) {
    const std::string shown = showable(text.text);
    return {isLimitedToOneLine(text) ? onOneLine(shown) : withoutTabs(shown), usable(text.font),
            measurer};
}

ComposedText compose(const kit::Text& text, const LineBreaking& breaking,
                     const Proposal& proposal) {
    ComposedText composed{.font = usable(text.font)};
    const double size = composed.font.size;
    const double lineHeight = kit::lineHeight(size);
    const std::size_t allowed = allowedLines(text, proposal.height, lineHeight);
    const bool canShrink = allowed == 1 && breaking.naturalLines().size() == 1;
    const double scale =
        canShrink ? scaleToFit(breaking.idealWidth(), proposal.width, text.minimumScale) : 1;
    double top = 0;
    for (LineBreaking::Line& line : breaking.lines(proposal.width.limit() / scale, allowed)) {
        const double width = line.width * scale;
        composed.lines.push_back({.text = std::move(line.text),
                                  .baseline = top + baselineOfShrunk(size, scale),
                                  .width = width});
        composed.size.width = std::max(composed.size.width, width);
        top += lineHeight;
    }
    composed.font.size = size * scale;
    composed.size.height = std::max(top, lineHeight);
    return composed;
}

kit::Font usable(kit::Font font) {
    font.size = usable(font.size);
    return font;
}

double scaleToFit(double width, const Length& room, double minimumScale) {
    if (width <= room.limit()) {
        return 1;
    }
    const double least = std::clamp(usable(minimumScale), leastScale, 1.0);
    return std::max(least, room.limit() / width);
}

double baselineOfShrunk(double fontSize, double scale) {
    const double middle = kit::lineHeight(fontSize) / 2;
    return middle + (kit::baseline(fontSize) - middle) * scale;
}

}  // namespace kelmar::layout
