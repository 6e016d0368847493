#pragma once

#include "Kit/Fields.h"
#include "Kit/View.h"

/// The JSON form of the stacks and of what spreads them out.
namespace kelmar::kit {

template <>
struct Fields<HStack> {
    static constexpr std::tuple all{
        DefaultedField{"alignment", &HStack::alignment, VerticalAlignment::center},
        Field{"spacing", &HStack::spacing},
        Field{"children", &HStack::children},
    };
};

template <>
struct Fields<VStack> {
    static constexpr std::tuple all{
        DefaultedField{"alignment", &VStack::alignment, HorizontalAlignment::center},
        Field{"spacing", &VStack::spacing},
        Field{"children", &VStack::children},
    };
};

template <>
struct Fields<ZStack> {
    static constexpr std::tuple all{
        DefaultedField{"alignment", &ZStack::alignment, Alignment{}},
        Field{"children", &ZStack::children},
    };
};

template <>
struct Fields<Spacer> {
    static constexpr std::tuple all{DefaultedField{"minLength", &Spacer::minLength, 0}};
};

}  // namespace kelmar::kit
