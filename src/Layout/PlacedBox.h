#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "Kit/Color.h"
#include "Kit/Font.h"
#include "Kit/Intent.h"
#include "Kit/View.h"
#include "Layout/Geometry.h"
#include "System/Date.h"

/// What layout makes of a view tree: a flat list of boxes, back to front, that Paint draws and
/// that pointer, keyboard and screen reader are served from.
namespace kelmar::layout {

/// One line as it is drawn: cut off with an ellipsis where it had to be.
struct TextLine {
    std::string text = {};
    double x = 0;         ///< Left edge, from the box's left edge.
    double baseline = 0;  ///< From the box's top edge.
    double width = 0;

    bool operator==(const TextLine&) const = default;
};

struct TextDrawing {
    std::vector<TextLine> lines = {};
    kit::Font font = {};  ///< Already shrunk where the text had to shrink.
    kit::Color color = kit::primary;
    bool strikethrough = false;

    bool operator==(const TextDrawing&) const = default;
};

/// Fills the box, which is square.
struct SymbolDrawing {
    std::string name;
    kit::FontWeight weight = kit::FontWeight::regular;
    kit::Color color = kit::primary;  ///< `clear` cuts the symbol out of what lies below it.

    bool operator==(const SymbolDrawing&) const = default;
};

struct ShapeDrawing {
    kit::Shape shape;

    bool operator==(const ShapeDrawing&) const = default;
};

/// The text is the host's to fill in, second by second, left aligned (right aligned from right to
/// left) on `baseline`; the box has room for the longest one.
struct CountdownDrawing {
    system::Date from;
    system::Date to;
    kit::Font font = {};
    kit::Color color = kit::primary;
    double baseline = 0;

    bool operator==(const CountdownDrawing&) const = default;
};

struct ProgressDrawing {
    kit::Progress progress;

    bool operator==(const ProgressDrawing&) const = default;
};

using Drawing = std::variant<std::monostate, TextDrawing, SymbolDrawing, ShapeDrawing,
                             CountdownDrawing, ProgressDrawing>;

struct LinkAction {
    std::string url;
    bool operator==(const LinkAction&) const = default;
};
struct ButtonAction {
    kit::Intent intent;
    bool operator==(const ButtonAction&) const = default;
};
struct ToggleAction {
    kit::Intent intent;
    bool isOn = false;
    bool operator==(const ToggleAction&) const = default;
};
/// What a press inside the box does, if anything.
using Action = std::variant<std::monostate, LinkAction, ButtonAction, ToggleAction>;

struct PlacedBox {
    Rect rect = {};
    Drawing drawing = {};
    double opacity = 1;
    Action action = {};
    /// What a screen reader says; empty where the drawing is mere decoration. For text and
    /// countdowns the text itself unless the view says otherwise; links gather what lies in them.
    std::string label = {};
    /// The link, button or toggle that this box lies in: an index of the list, always smaller than
    /// this box's own.
    std::optional<std::size_t> container = std::nullopt;

    bool operator==(const PlacedBox&) const = default;
};

using PlacedBoxes = std::vector<PlacedBox>;

/// The frontmost box with an action at a point, as an index.
[[nodiscard]] std::optional<std::size_t> actionAt(const PlacedBoxes& boxes, Point point);

}  // namespace kelmar::layout
