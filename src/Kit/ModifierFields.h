#pragma once

#include "Kit/Fields.h"
#include "Kit/View.h"

/// The JSON form of the views that change their child's place or look, or how it is read out.
namespace kelmar::kit {

template <>
struct Fields<FrameLengths> {
    static constexpr std::tuple all{
        Field{"width", &FrameLengths::width},
        Field{"height", &FrameLengths::height},
        Field{"maxWidth", &FrameLengths::maxWidth},
        Field{"maxHeight", &FrameLengths::maxHeight},
    };
};

template <>
struct Fields<Frame> {
    static constexpr std::tuple all{
        InlinedFields{&Frame::lengths},
        DefaultedField{"alignment", &Frame::alignment, Alignment{}},
        Field{"child", &Frame::child},
    };
};

template <>
struct Fields<EdgeInsets> {
    static constexpr std::tuple all{
        DefaultedField{"top", &EdgeInsets::top, 0},
        DefaultedField{"leading", &EdgeInsets::leading, 0},
        DefaultedField{"bottom", &EdgeInsets::bottom, 0},
        DefaultedField{"trailing", &EdgeInsets::trailing, 0},
    };
};

template <>
struct Fields<Padding> {
    static constexpr std::tuple all{
        InlinedFields{&Padding::insets},
        Field{"child", &Padding::child},
    };
};

template <>
struct Fields<FixedSize> {
    static constexpr std::tuple all{
        DefaultedField{"horizontal", &FixedSize::horizontal, false},
        DefaultedField{"vertical", &FixedSize::vertical, false},
        Field{"child", &FixedSize::child},
    };
};

template <>
struct Fields<Opacity> {
    static constexpr std::tuple all{
        Field{"value", &Opacity::value},
        Field{"child", &Opacity::child},
    };
};

template <>
struct Fields<Background> {
    static constexpr std::tuple all{
        Field{"content", &Background::content},
        Field{"child", &Background::child},
    };
};

template <>
struct Fields<Overlay> {
    static constexpr std::tuple all{
        Field{"content", &Overlay::content},
        Field{"child", &Overlay::child},
    };
};

template <>
struct Fields<Accessible> {
    static constexpr std::tuple all{
        Field{"label", &Accessible::label},
        Field{"child", &Accessible::child},
    };
};

}  // namespace kelmar::kit
