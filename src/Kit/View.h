#pragma once

#include <concepts>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "Kit/Color.h"
#include "Kit/Environment.h"
#include "Kit/Font.h"
#include "Kit/Intent.h"
#include "System/Date.h"

/// What a widget can say: immutable values, one struct a kind of view, gathered in one closed
/// variant. They say nothing of pixels; Layout gives them places and Paint draws them.
namespace kelmar::kit {

struct View;

/// The one child of a modifier. Copies share it, which is safe because views never change.
class Child {
public:
    Child(View view);  // NOLINT(google-explicit-constructor): a modifier reads like its child
    template <class Node>
    requires(!std::same_as<Node, Child> && !std::same_as<Node, View>)
        Child(Node node);  // NOLINT(google-explicit-constructor): likewise

    [[nodiscard]] const View& operator*() const { return *view_; }
    [[nodiscard]] const View* operator->() const { return view_.get(); }
    friend bool operator==(const Child& first, const Child& second);

private:
    std::shared_ptr<const View> view_;
};

using Children = std::vector<View>;

enum class HorizontalAlignment { leading, center, trailing };
enum class VerticalAlignment { top, center, bottom, firstTextBaseline };

/// A corner, an edge or the middle of a rectangle.
struct Alignment {
    HorizontalAlignment horizontal = HorizontalAlignment::center;
    VerticalAlignment vertical = VerticalAlignment::center;  ///< Never firstTextBaseline.

    friend constexpr bool operator==(const Alignment&, const Alignment&) = default;
};

struct Text {
    std::string text;
    Font font;
    Color color = primary;
    std::optional<int> lineLimit = std::nullopt;
    double minimumScale = 1;  ///< How far one line may shrink before it is cut off.
    bool strikethrough = false;

    bool operator==(const Text&) const = default;
};

/// A picture from the host's own set, as large as a letter of the font.
struct Symbol {
    std::string name;
    Font font;
    Color color = primary;

    bool operator==(const Symbol&) const = default;
};

struct HStack {
    VerticalAlignment alignment = VerticalAlignment::center;
    double spacing = 0;
    Children children;

    bool operator==(const HStack&) const;
};

struct VStack {
    HorizontalAlignment alignment = HorizontalAlignment::center;
    double spacing = 0;
    Children children;

    bool operator==(const VStack&) const;
};

/// Children on top of each other, the first at the back.
struct ZStack {
    Alignment alignment = {};
    Children children;

    bool operator==(const ZStack&) const;
};

/// Takes what a stack has to spare, along the stack's axis.
struct Spacer {
    double minLength = 0;

    bool operator==(const Spacer&) const = default;
};

enum class ShapeKind { circle, capsule, rectangle, roundedRectangle };

/// Fills the room it is given. A stroke lies inside the edge.
struct Shape {
    ShapeKind shape = ShapeKind::rectangle;
    double cornerRadius = 0;  ///< Of a rounded rectangle.
    std::optional<Color> fill = std::nullopt;
    std::optional<Color> stroke = std::nullopt;
    double lineWidth = 0;  ///< Of the stroke.

    bool operator==(const Shape&) const = default;
};

/// Text that the host counts down by itself to `to`, with hours when needed.
struct Countdown {
    system::Date from;
    system::Date to;
    Font font;
    Color color = primary;
    std::optional<int> lineLimit = std::nullopt;
    double minimumScale = 1;

    bool operator==(const Countdown&) const = default;
};

/// A still bar, `value` of 1 full.
struct BarValue {
    double value = 0;
    bool operator==(const BarValue&) const = default;
};

/// A bar that the host empties by itself, full at `from` and empty at `to`.
struct BarInterval {
    system::Date from;
    system::Date to;
    bool operator==(const BarInterval&) const = default;
};

struct Progress {
    std::variant<BarValue, BarInterval> value;
    Color tint = primary;

    bool operator==(const Progress&) const = default;
};

/// As much as the surroundings offer, for a frame's greatest width or height.
struct Infinity {
    bool operator==(const Infinity&) const = default;
};
inline constexpr Infinity infinity{};
using MaximumLength = std::variant<double, Infinity>;

/// The lengths of a frame; those that are absent are left to the child.
struct FrameLengths {
    std::optional<double> width = std::nullopt;
    std::optional<double> height = std::nullopt;
    std::optional<MaximumLength> maxWidth = std::nullopt;
    std::optional<MaximumLength> maxHeight = std::nullopt;

    bool operator==(const FrameLengths&) const = default;
};

struct Frame {
    FrameLengths lengths;
    Alignment alignment = {};
    Child child;

    bool operator==(const Frame&) const = default;
};

struct EdgeInsets {
    double top = 0;
    double leading = 0;
    double bottom = 0;
    double trailing = 0;

    bool operator==(const EdgeInsets&) const = default;
};

struct Padding {
    EdgeInsets insets;
    Child child;

    bool operator==(const Padding&) const = default;
};

/// Keeps the child's ideal length on an axis, whatever is offered.
struct FixedSize {
    bool horizontal = false;
    bool vertical = false;
    Child child;

    bool operator==(const FixedSize&) const = default;
};

struct Opacity {
    double value = 1;
    Child child;

    bool operator==(const Opacity&) const = default;
};

/// `content` behind the child, as large as the child.
struct Background {
    Child content;
    Child child;

    bool operator==(const Background&) const = default;
};

/// `content` in front of the child, as large as the child.
struct Overlay {
    Child content;
    Child child;

    bool operator==(const Overlay&) const = default;
};

/// Opens a URL when pressed, anywhere in its rectangle.
struct Link {
    std::string url;
    Child child;

    bool operator==(const Link&) const = default;
};

/// Runs an intent when pressed, anywhere in its rectangle.
struct Button {
    Intent intent;
    std::string label;  ///< What a screen reader says.
    Child child;

    bool operator==(const Button&) const = default;
};

struct Toggle {
    bool isOn = false;
    Intent intent;
    Child child;

    bool operator==(const Toggle&) const = default;
};

/// Says something else to a screen reader than the child would.
struct Accessible {
    std::string label;
    Child child;

    bool operator==(const Accessible&) const = default;
};

using ViewNode = std::variant<Text, Symbol, HStack, VStack, ZStack, Spacer, Shape, Countdown,
                              Progress, Frame, Padding, FixedSize, Opacity, Background, Overlay,
                              Link, Button, Toggle, Accessible>;

struct View {
    ViewNode node;

    template <class Node>
    View(Node anyNode) : node(std::move(anyNode)) {}  // NOLINT: a node is a view

    bool operator==(const View&) const = default;
};

// Here rather than in the class, where View is not complete yet.
template <class Node>
requires(!std::same_as<Node, Child> && !std::same_as<Node, View>) Child::Child(Node node)
    : Child(View(std::move(node))) {}

/// Gathers lambdas for an exhaustive std::visit.
template <class... Cases>
struct Match : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Match(Cases...) -> Match<Cases...>;

}  // namespace kelmar::kit
