#include "Kit/Environment.h"

#include "Kit/Names.h"

namespace kelmar::kit {

namespace {

constexpr NameTable<Family, 3> familyNames{
    {{Family::small, "small"}, {Family::medium, "medium"}, {Family::large, "large"}}};

constexpr NameTable<Family, 3> familyDescriptorNames{{{Family::small, "systemSmall"},
                                                      {Family::medium, "systemMedium"},
                                                      {Family::large, "systemLarge"}}};

constexpr NameTable<RenderingMode, 3> renderingModeNames{{{RenderingMode::fullColor, "fullColor"},
                                                          {RenderingMode::accented, "accented"},
                                                          {RenderingMode::vibrant, "vibrant"}}};

}  // namespace

std::string_view nameOf(Family family) {
    return nameIn(familyNames, family);
}
std::string_view descriptorNameOf(Family family) {
    return nameIn(familyDescriptorNames, family);
}
std::string_view nameOf(RenderingMode mode) {
    return nameIn(renderingModeNames, mode);
}

std::optional<Family> familyNamed(std::string_view name) {
    return valueIn(familyNames, name);
}

std::optional<Family> familyWithDescriptorName(std::string_view name) {
    return valueIn(familyDescriptorNames, name);
}

std::optional<RenderingMode> renderingModeNamed(std::string_view name) {
    return valueIn(renderingModeNames, name);
}

}  // namespace kelmar::kit
