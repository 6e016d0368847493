#include "Layout/CountdownFace.h"

#include <algorithm>
#include <string>

#include "Kit/Metrics.h"
#include "Layout/CountdownText.h"
#include "Layout/TextComposition.h"

namespace kelmar::layout {
namespace {

char widestDigit(const kit::Font& font, const TextMeasurer& measurer) {
    constexpr std::string_view digits = "0123456789";
    return *std::ranges::max_element(digits, {}, [&](const char& digit) {
        return usable(measurer.width({&digit, 1}, font));
    });
}

/// Nothing that the countdown shows is wider than this: the first text is the longest, and any
/// digit may come up.
std::string widestText(const kit::Countdown& countdown, const kit::Font& font,
                       const TextMeasurer& measurer) {
    std::string text = countdownText(countdown.to - countdown.from);
    const char digit = widestDigit(font, measurer);
    std::ranges::replace_if(
        text, [](char character) { return character != ':'; }, digit);
    return text;
}

}  // namespace

CountdownFace countdownFace(const kit::Countdown& countdown, const Length& room,
                            const TextMeasurer& measurer) {
    CountdownFace face{.font = usable(countdown.font)};
    const double size = face.font.size;
    const double width =
        usable(measurer.width(widestText(countdown, face.font, measurer), face.font));
    const double scale = scaleToFit(width, room, countdown.minimumScale);
    face.size = {width * scale, kit::lineHeight(size)};
    face.font.size = size * scale;
    face.baseline = baselineOfShrunk(size, scale);
    return face;
}

}  // namespace kelmar::layout
