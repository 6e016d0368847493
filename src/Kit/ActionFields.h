#pragma once

#include "Kit/Fields.h"
#include "Kit/View.h"

/// The JSON form of the views that can be pressed.
namespace kelmar::kit {

template <>
struct Fields<Link> {
    static constexpr std::tuple all{
        Field{"url", &Link::url},
        Field{"child", &Link::child},
    };
};

template <>
struct Fields<Button> {
    static constexpr std::tuple all{
        Field{"intent", &Button::intent},
        Field{"label", &Button::label},
        Field{"child", &Button::child},
    };
};

template <>
struct Fields<Toggle> {
    static constexpr std::tuple all{
        Field{"isOn", &Toggle::isOn},
        Field{"intent", &Toggle::intent},
        Field{"child", &Toggle::child},
    };
};

}  // namespace kelmar::kit
