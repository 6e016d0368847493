#pragma once

#include "Kit/Color.h"
#include "Kit/Font.h"
#include "Kit/Names.h"
#include "Kit/View.h"

/// The words of the archive, for writing and for reading alike.
namespace kelmar::kit {

inline constexpr NameTable<ColorStyle, 6> colorStyleNames{{
    {ColorStyle::primary, "primary"},
    {ColorStyle::secondary, "secondary"},
    {ColorStyle::tertiaryFill, "tertiaryFill"},
    {ColorStyle::white, "white"},
    {ColorStyle::red, "red"},
    {ColorStyle::clear, "clear"},
}};

inline constexpr NameTable<FontWeight, 6> fontWeightNames{{
    {FontWeight::regular, "regular"},
    {FontWeight::medium, "medium"},
    {FontWeight::semibold, "semibold"},
    {FontWeight::bold, "bold"},
    {FontWeight::heavy, "heavy"},
    {FontWeight::black, "black"},
}};

inline constexpr NameTable<FontDesign, 2> fontDesignNames{{
    {FontDesign::standard, "default"},
    {FontDesign::rounded, "rounded"},
}};

inline constexpr NameTable<VerticalAlignment, 4> verticalAlignmentNames{{
    {VerticalAlignment::top, "top"},
    {VerticalAlignment::center, "center"},
    {VerticalAlignment::bottom, "bottom"},
    {VerticalAlignment::firstTextBaseline, "firstTextBaseline"},
}};

inline constexpr NameTable<HorizontalAlignment, 3> horizontalAlignmentNames{{
    {HorizontalAlignment::leading, "leading"},
    {HorizontalAlignment::center, "center"},
    {HorizontalAlignment::trailing, "trailing"},
}};

inline constexpr NameTable<Alignment, 9> alignmentNames{{
    {{HorizontalAlignment::leading, VerticalAlignment::top}, "topLeading"},
    {{HorizontalAlignment::center, VerticalAlignment::top}, "top"},
    {{HorizontalAlignment::trailing, VerticalAlignment::top}, "topTrailing"},
    {{HorizontalAlignment::leading, VerticalAlignment::center}, "leading"},
    {{HorizontalAlignment::center, VerticalAlignment::center}, "center"},
    {{HorizontalAlignment::trailing, VerticalAlignment::center}, "trailing"},
    {{HorizontalAlignment::leading, VerticalAlignment::bottom}, "bottomLeading"},
    {{HorizontalAlignment::center, VerticalAlignment::bottom}, "bottom"},
    {{HorizontalAlignment::trailing, VerticalAlignment::bottom}, "bottomTrailing"},
}};

inline constexpr NameTable<ShapeKind, 4> shapeNames{{
    {ShapeKind::circle, "circle"},
    {ShapeKind::capsule, "capsule"},
    {ShapeKind::rectangle, "rectangle"},
    {ShapeKind::roundedRectangle, "roundedRectangle"},
}};

/// The member by which a view says what kind it is.
inline constexpr std::string_view typeKey = "type";
/// The `type` of each kind of view, in the variant's order.
inline constexpr std::array<std::string_view, std::variant_size_v<ViewNode>> nodeTypeNames{
    "text",      "symbol",   "hstack", "vstack",  "zstack",     "spacer",  "shape",
    "countdown", "progress", "frame",  "padding", "fixedSize",  "opacity", "background",
    "overlay",   "link",     "button", "toggle",  "accessible",
};

/// The table of a type, for code that is written for every type.
constexpr const auto& namesOf(ColorStyle /*type*/) {
    return colorStyleNames;
}
constexpr const auto& namesOf(FontWeight /*type*/) {
    return fontWeightNames;
}
constexpr const auto& namesOf(FontDesign /*type*/) {
    return fontDesignNames;
}
constexpr const auto& namesOf(VerticalAlignment /*type*/) {
    return verticalAlignmentNames;
}
constexpr const auto& namesOf(HorizontalAlignment /*type*/) {
    return horizontalAlignmentNames;
}
constexpr const auto& namesOf(Alignment /*type*/) {
    return alignmentNames;
}
constexpr const auto& namesOf(ShapeKind /*type*/) {
    return shapeNames;
}

template <class Word>
concept Named = requires {
    namesOf(Word{});
};

inline constexpr std::string_view captionName = "caption";
inline constexpr std::string_view infinityName = "infinity";

}  // namespace kelmar::kit
