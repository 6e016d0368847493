#include "Paint/Contrast.h"

#include <algorithm>
#include <cmath>

namespace kelmar::paint {
namespace {

/// Enough halvings that the last step is finer than one of 255 steps of a component.
constexpr int halvings = 12;

double linear(double component) {
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

QColor opaque(QColor color) {
    color.setAlpha(255);
    return color;
}

/// The mix of `from` and `to` nearest to `from` for which `reached` holds; `to` when none does.
template <class Condition>
QColor nearestMix(const QColor& from, const QColor& to, Condition reached) {
    double missed = 0;
    double held = 1;
    for (int step = 0; step < halvings; ++step) {
        const double middle = (missed + held) / 2;
        (reached(mixed(from, to, middle)) ? held : missed) = middle;
    }
    return mixed(from, to, held);
}

}  // namespace

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor& first, const QColor& second) {
    const auto [darker, lighter] = std::minmax({luminance(first), luminance(second)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor mixed(const QColor& bottom, const QColor& top, double share) {
    const auto mix = [share](int below, int above) {
        return static_cast<int>(std::lround(below + (above - below) * share));
    };
    return {mix(bottom.red(), top.red()), mix(bottom.green(), top.green()),
            mix(bottom.blue(), top.blue())};
}

QColor composited(const QColor& top, const QColor& bottom) {
    return mixed(bottom, top, top.alphaF());
}

QColor withContrastAtLeast(const QColor& color, const QColor& background, double ratio) {
    const auto reaches = [&](const QColor& candidate) {
        return contrast(candidate, background) >= ratio;
    };
    if (reaches(color)) {
        return opaque(color);
    }
    const QColor black(0, 0, 0);
    const QColor white(255, 255, 255);
    const bool whiteStandsOut = contrast(white, background) > contrast(black, background);
    return nearestMix(color, whiteStandsOut ? white : black, reaches);
}

QColor withContrastOf(const QColor& color, const QColor& background, double ratio) {
    const QColor strong = withContrastAtLeast(color, background, ratio);
    // From the background upwards, so that the result is on the readable side of the ratio.
    return nearestMix(background, strong, [&](const QColor& candidate) {
        return contrast(candidate, background) >= ratio;
    });
}

}  // namespace kelmar::paint
