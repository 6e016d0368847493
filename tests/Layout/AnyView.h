#pragma once

#include <limits>
#include <rapidcheck.h>
#include <string>
#include <vector>

#include "Kit/View.h"

/// View trees by chance, for laws that hold for all of them.
namespace kelmar::layout::anyview {

/// Whole lengths by default; with `hostile` also such as no view should have.
enum class Lengths { sane, hostile };

inline double length(Lengths lengths) {
    if (lengths == Lengths::hostile && *rc::gen::inRange(0, 3) == 0) {
        return *rc::gen::element(
            -1.0, -1e300, 0.0, 1e-300, 1e300, std::numeric_limits<double>::infinity(),
            -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN());
    }
    return *rc::gen::inRange(0, 60);
}

inline kit::Font font(Lengths lengths) {
    return kit::Font::system(lengths == Lengths::sane ? *rc::gen::inRange(8, 20) : length(lengths));
}

inline std::optional<int> lineLimit() {
    const int limit = *rc::gen::inRange(-1, 4);
    return limit < 0 ? std::nullopt : std::optional(limit);
}

inline kit::View leaf(Lengths lengths) {
    const auto start = system::Date::since1970(1000);
    switch (*rc::gen::inRange(0, 6)) {
        case 0:
        case 1:
            return kit::Text{.text = *rc::gen::element<std::string>(
                                 "", "Essay", "a longer title of two lines", "one\ntwo",
                                 "Thermodynamics", "e\u0301\U0001F468\u200D\U0001F469 x"),
                             .font = font(lengths),
                             .lineLimit = lineLimit(),
                             .minimumScale = *rc::gen::element(1.0, 0.8, 0.5)};
        case 2:
            return kit::Symbol{.name = "book", .font = font(lengths)};
        case 3:
            return kit::Shape{.shape = kit::ShapeKind::capsule, .fill = kit::primary};
        case 4:
            return kit::Countdown{
                .from = start, .to = start + length(lengths) * 90, .font = font(lengths)};
        default:
            return kit::Progress{.value = kit::BarValue{length(lengths)}};
    }
}

inline kit::Alignment alignment() {
    using H = kit::HorizontalAlignment;
    using V = kit::VerticalAlignment;
    return {*rc::gen::element(H::leading, H::center, H::trailing),
            *rc::gen::element(V::top, V::center, V::bottom)};
}

inline std::optional<double> maybeLength(Lengths lengths) {
    return *rc::gen::arbitrary<bool>() ? std::optional(length(lengths)) : std::nullopt;
}
inline std::optional<kit::MaximumLength> maybeGreatest(Lengths lengths) {
    switch (*rc::gen::inRange(0, 3)) {
        case 0:
            return kit::MaximumLength(kit::infinity);
        case 1:
            return kit::MaximumLength(length(lengths));
        default:
            return std::nullopt;
    }
}

inline kit::View tree(Lengths lengths, int depth);

inline kit::Children children(Lengths lengths, int depth) {
    kit::Children result;
    for (int count = *rc::gen::inRange(0, 5); count > 0; --count) {
        if (*rc::gen::inRange(0, 5) == 0) {
            result.emplace_back(kit::Spacer{.minLength = length(lengths)});
        } else {
            result.push_back(tree(lengths, depth));
        }
    }
    return result;
}

inline kit::View modifier(Lengths lengths, int depth) {
    switch (*rc::gen::inRange(0, 8)) {
        case 0:
            return kit::Padding{.insets = {.top = length(lengths),
                                           .leading = length(lengths),
                                           .bottom = length(lengths),
                                           .trailing = length(lengths)},
                                .child = tree(lengths, depth)};
        case 1:
            return kit::FixedSize{.horizontal = *rc::gen::arbitrary<bool>(),
                                  .vertical = *rc::gen::arbitrary<bool>(),
                                  .child = tree(lengths, depth)};
        case 2:
            return kit::Opacity{.value = length(lengths) / 60, .child = tree(lengths, depth)};
        case 3:
            return kit::Background{.content = tree(lengths, depth), .child = tree(lengths, depth)};
        case 4:
            return kit::Overlay{.content = tree(lengths, depth), .child = tree(lengths, depth)};
        case 5:
            return kit::Link{.url = "x:", .child = tree(lengths, depth)};
        case 6:
            return kit::Accessible{.label = "label", .child = tree(lengths, depth)};
        default:
            return kit::Frame{.lengths = {.width = maybeLength(lengths),
                                          .height = maybeLength(lengths),
                                          .maxWidth = maybeGreatest(lengths),
                                          .maxHeight = maybeGreatest(lengths)},
                              .alignment = alignment(),
                              .child = tree(lengths, depth)};
    }
}

inline kit::View stack(Lengths lengths, int depth) {
    const kit::Alignment along = alignment();
    switch (*rc::gen::inRange(0, 4)) {
        case 0:
            return kit::HStack{.alignment = along.vertical,
                               .spacing = length(lengths),
                               .children = children(lengths, depth)};
        case 1:
            return kit::HStack{.alignment = kit::VerticalAlignment::firstTextBaseline,
                               .spacing = length(lengths),
                               .children = children(lengths, depth)};
        case 2:
            return kit::VStack{.alignment = along.horizontal,
                               .spacing = length(lengths),
                               .children = children(lengths, depth)};
        default:
            return kit::ZStack{.alignment = along, .children = children(lengths, depth)};
    }
}

inline kit::View tree(Lengths lengths, int depth) {
    if (depth == 0) {
        return leaf(lengths);
    }
    switch (*rc::gen::inRange(0, 5)) {
        case 0:
            return leaf(lengths);
        case 1:
        case 2:
            return modifier(lengths, depth - 1);
        default:
            return stack(lengths, depth - 1);
    }
}

}  // namespace kelmar::layout::anyview
