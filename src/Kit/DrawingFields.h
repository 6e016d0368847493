#pragma once

#include "Kit/Fields.h"
#include "Kit/View.h"

/// The JSON form of the views that are drawn themselves.
namespace kelmar::kit {

template <>
struct Fields<Text> {
    static constexpr std::tuple all{
        Field{"text", &Text::text},
        Field{"font", &Text::font},
        DefaultedField{"color", &Text::color, primary},
        Field{"lineLimit", &Text::lineLimit},
        DefaultedField{"minimumScale", &Text::minimumScale, 1},
        DefaultedField{"strikethrough", &Text::strikethrough, false},
    };
};

template <>
struct Fields<Symbol> {
    static constexpr std::tuple all{
        Field{"name", &Symbol::name},
        Field{"font", &Symbol::font},
        Field{"color", &Symbol::color},
    };
};

template <>
struct Fields<Shape> {
    static constexpr std::tuple all{
        Field{"shape", &Shape::shape},
        DefaultedField{"cornerRadius", &Shape::cornerRadius, 0},
        Field{"fill", &Shape::fill},
        Field{"stroke", &Shape::stroke},
        DefaultedField{"lineWidth", &Shape::lineWidth, 0},
    };
};

template <>
struct Fields<Countdown> {
    static constexpr std::tuple all{
        Field{"from", &Countdown::from},
        Field{"to", &Countdown::to},
        Field{"font", &Countdown::font},
        Field{"color", &Countdown::color},
        Field{"lineLimit", &Countdown::lineLimit},
        DefaultedField{"minimumScale", &Countdown::minimumScale, 1},
    };
};

template <>
struct Fields<BarValue> {
    static constexpr std::tuple all{Field{"value", &BarValue::value}};
};

template <>
struct Fields<BarInterval> {
    static constexpr std::tuple all{
        Field{"from", &BarInterval::from},
        Field{"to", &BarInterval::to},
    };
};

template <>
struct Fields<Progress> {
    static constexpr std::tuple all{
        InlinedFields{&Progress::value},
        Field{"tint", &Progress::tint},
    };
};

}  // namespace kelmar::kit
