#include <fmt/format.h>

#include "Kit/Archive.h"
#include "Kit/ArchiveNames.h"
#include "Kit/ArchiveReading.h"
#include "System/Url.h"

namespace kelmar::kit {

namespace {

/// Refuses what no widget needs before it can cost anything.
class TreeReader {
public:
    [[nodiscard]] View read(const JsonValue& json) {
        if (++depth_ > maximumDepth) {
            json.refuse(fmt::format("a tree no deeper than {} levels", maximumDepth));
        }
        if (++nodes_ > maximumNodes) {
            json.refuse(fmt::format("a tree of no more than {} nodes", maximumNodes));
        }
        View view = readNode(json);
        --depth_;
        return view;
    }

private:
    [[nodiscard]] View readNode(const JsonValue& json);
    [[nodiscard]] Children children(const JsonValue& json);
    [[nodiscard]] Child child(const JsonValue& json, std::string_view key = "child") {
        return read(json[key]);
    }

    template <class Node>
    [[nodiscard]] Node node(const JsonValue& json);

    int depth_ = 0;
    int nodes_ = 0;
};

template <class Enum, std::size_t count>
Enum named(const JsonValue& json, const NameTable<Enum, count>& names) {
    const std::optional<Enum> value = valueIn(names, json.text());
    if (!value) {
        json.refuse("another word");
    }
    return *value;
}

template <class Enum, std::size_t count>
Enum optionalNamed(const JsonValue& json, std::string_view key, const NameTable<Enum, count>& names,
                   Enum usual) {
    const auto value = json.member(key);
    return value ? named(*value, names) : usual;
}

double optionalNumber(const JsonValue& json, std::string_view key, double usual) {
    const auto value = json.member(key);
    return value ? value->number() : usual;
}

std::optional<double> optionalNumber(const JsonValue& json, std::string_view key) {
    const auto value = json.member(key);
    return value ? std::optional(value->number()) : std::nullopt;
}

bool flag(const JsonValue& json, std::string_view key) {
    const auto value = json.member(key);
    return value && value->boolean();
}

system::Date date(const JsonValue& json, std::string_view key) {
    return system::Date::since1970(json[key].number());
}

Color readRgb(const JsonValue& rgb) {
    const std::vector<JsonValue> parts = rgb.elements();
    if (parts.size() != 3) {
        rgb.refuse("three numbers");
    }
    return Color::rgb(parts[0].number(), parts[1].number(), parts[2].number());
}

Color readColor(const JsonValue& json) {
    const auto rgb = json.member("rgb");
    const Color color = rgb ? readRgb(*rgb) : Color::style(named(json["style"], colorStyleNames));
    return color.withOpacity(optionalNumber(json, "opacity", 1));
}

std::optional<Color> optionalColor(const JsonValue& json, std::string_view key) {
    const auto color = json.member(key);
    return color ? std::optional(readColor(*color)) : std::nullopt;
}

Font readFont(const JsonValue& json) {
    if (const auto style = json.member("textStyle")) {
        if (style->text() != captionName) {
            style->refuse("\"caption\"");
        }
        return Font::caption();
    }
    return {.size = json["size"].number(),
            .weight = optionalNamed(json, "weight", fontWeightNames, FontWeight::regular),
            .design = optionalNamed(json, "design", fontDesignNames, FontDesign::standard),
            .digits = flag(json, "monospacedDigits") ? Digits::monospaced : Digits::proportional};
}

std::optional<int> readLineLimit(const JsonValue& json) {
    const auto limit = json.member("lineLimit");
    if (!limit) {
        return std::nullopt;
    }
    const std::int64_t lines = limit->integer();
    if (lines < 1 || lines > maximumNodes) {
        limit->refuse("a number of lines");
    }
    return static_cast<int>(lines);
}

std::optional<MaximumLength> maximumLength(const JsonValue& json, std::string_view key) {
    const auto length = json.member(key);
    if (!length) {
        return std::nullopt;
    }
    if (!length->isText()) {
        return length->number();
    }
    if (length->text() != infinityName) {
        length->refuse("a number or \"infinity\"");
    }
    return infinity;
}

template <>
Text TreeReader::node(const JsonValue& json) {
    return {.text = json["text"].text(),
            .font = readFont(json["font"]),
            .color = optionalColor(json, "color").value_or(primary),
            .lineLimit = readLineLimit(json),
            .minimumScale = optionalNumber(json, "minimumScale", 1),
            .strikethrough = flag(json, "strikethrough")};
}

template <>
Symbol TreeReader::node(const JsonValue& json) {
    return {.name = json["name"].text(),
            .font = readFont(json["font"]),
            .color = readColor(json["color"])};
}

template <>
HStack TreeReader::node(const JsonValue& json) {
    return {.alignment =
                optionalNamed(json, "alignment", verticalAlignmentNames, VerticalAlignment::center),
            .spacing = json["spacing"].number(),
            .children = children(json["children"])};
}

template <>
VStack TreeReader::node(const JsonValue& json) {
    return {.alignment = optionalNamed(json, "alignment", horizontalAlignmentNames,
                                       HorizontalAlignment::center),
            .spacing = json["spacing"].number(),
            .children = children(json["children"])};
}

template <>
ZStack TreeReader::node(const JsonValue& json) {
    return {.alignment = optionalNamed(json, "alignment", alignmentNames, Alignment{}),
            .children = children(json["children"])};
}

template <>
Spacer TreeReader::node(const JsonValue& json) {
    return {.minLength = optionalNumber(json, "minLength", 0)};
}

template <>
Shape TreeReader::node(const JsonValue& json) {
    return {.shape = named(json["shape"], shapeNames),
            .cornerRadius = optionalNumber(json, "cornerRadius", 0),
            .fill = optionalColor(json, "fill"),
            .stroke = optionalColor(json, "stroke"),
            .lineWidth = optionalNumber(json, "lineWidth", 0)};
}

template <>
Countdown TreeReader::node(const JsonValue& json) {
    return {.from = date(json, "from"),
            .to = date(json, "to"),
            .font = readFont(json["font"]),
            .color = readColor(json["color"]),
            .lineLimit = readLineLimit(json),
            .minimumScale = optionalNumber(json, "minimumScale", 1)};
}

template <>
Progress TreeReader::node(const JsonValue& json) {
    const Color tint = readColor(json["tint"]);
    if (const auto value = json.member("value")) {
        return {.value = BarValue{value->number()}, .tint = tint};
    }
    return {.value = BarInterval{date(json, "from"), date(json, "to")}, .tint = tint};
}

template <>
Frame TreeReader::node(const JsonValue& json) {
    return {.lengths = {.width = optionalNumber(json, "width"),
                        .height = optionalNumber(json, "height"),
                        .maxWidth = maximumLength(json, "maxWidth"),
                        .maxHeight = maximumLength(json, "maxHeight")},
            .alignment = optionalNamed(json, "alignment", alignmentNames, Alignment{}),
            .child = child(json)};
}

template <>
Padding TreeReader::node(const JsonValue& json) {
    return {.insets = {.top = optionalNumber(json, "top", 0),
                       .leading = optionalNumber(json, "leading", 0),
                       .bottom = optionalNumber(json, "bottom", 0),
                       .trailing = optionalNumber(json, "trailing", 0)},
            .child = child(json)};
}

template <>
FixedSize TreeReader::node(const JsonValue& json) {
    return {.horizontal = flag(json, "horizontal"),
            .vertical = flag(json, "vertical"),
            .child = child(json)};
}

template <>
Opacity TreeReader::node(const JsonValue& json) {
    return {.value = json["value"].number(), .child = child(json)};
}

template <>
Background TreeReader::node(const JsonValue& json) {
    return {.content = child(json, "content"), .child = child(json)};
}

template <>
Overlay TreeReader::node(const JsonValue& json) {
    return {.content = child(json, "content"), .child = child(json)};
}

template <>
Link TreeReader::node(const JsonValue& json) {
    return {.url = json["url"].text(), .child = child(json)};
}

template <>
Button TreeReader::node(const JsonValue& json) {
    return {
        .intent = readIntent(json["intent"]), .label = json["label"].text(), .child = child(json)};
}

template <>
Toggle TreeReader::node(const JsonValue& json) {
    return {
        .isOn = json["isOn"].boolean(), .intent = readIntent(json["intent"]), .child = child(json)};
}

template <>
Accessible TreeReader::node(const JsonValue& json) {
    return {.label = json["label"].text(), .child = child(json)};
}

View TreeReader::readNode(const JsonValue& json) {
    using ReadNode = View (*)(TreeReader&, const JsonValue&);
    // One reader for each alternative of the variant, in its order, made by the compiler.
    static constexpr auto readers = []<std::size_t... index>(std::index_sequence<index...>) {
        return std::array<ReadNode, sizeof...(index)>{[](TreeReader& tree, const JsonValue& value) {
            return View(tree.node<std::variant_alternative_t<index, ViewNode>>(value));
        }...};
    }
    (std::make_index_sequence<std::variant_size_v<ViewNode>>());

    const JsonValue type = json["type"];
    const std::string name = type.text();
    for (std::size_t index = 0; index < nodeTypeNames.size(); ++index) {
        if (nodeTypeNames.at(index) == name) {
            return readers.at(index)(*this, json);
        }
    }
    type.refuse("a known kind of view");
}

Children TreeReader::children(const JsonValue& json) {
    Children views;
    for (const JsonValue& element : json.elements()) {
        views.push_back(read(element));
    }
    return views;
}

}  // namespace

View readView(const JsonValue& json) {
    return TreeReader().read(json);
}

DrawnEntry readDrawnEntry(const JsonValue& json) {
    const auto widgetUrl = json.member("widgetUrl");
    return {.content = readView(json["content"]),
            .background = readColor(json["background"]),
            .widgetUrl = widgetUrl ? std::optional(widgetUrl->text()) : std::nullopt};
}

Intent readIntent(const JsonValue& json) {
    Intent intent{.name = json["name"].text(), .parameters = {}};
    const JsonValue parameters = json["parameters"];
    for (const JsonValue& parameter : parameters.members()) {
        IntentValue value;
        if (parameter.isText()) {
            value = parameter.text();
        } else if (parameter.isBoolean()) {
            value = parameter.boolean();
        } else {
            value = parameter.integer();
        }
        intent.parameters.emplace_back(parameter.key(), std::move(value));
    }
    return intent;
}

system::Result<View> decodeView(std::string_view json) {
    return parseAndRead<View>(json, readView);
}

system::Result<DrawnEntry> decodeDrawnEntry(std::string_view json) {
    return parseAndRead<DrawnEntry>(json, readDrawnEntry);
}

}  // namespace kelmar::kit
