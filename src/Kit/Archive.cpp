#include "Kit/Archive.h"

#include "Kit/ArchiveNames.h"

namespace kelmar::kit {

namespace {

using system::JsonWriter;

void write(JsonWriter& json, const Color& color) {
    json.beginObject();
    if (color.style()) {
        json.key("style");
        json.string(nameIn(colorStyleNames, *color.style()));
    } else {
        json.key("rgb");
        json.beginArray();
        json.number(color.red());
        json.number(color.green());
        json.number(color.blue());
        json.endArray();
    }
    if (color.opacity() != 1) {
        json.key("opacity");
        json.number(color.opacity());
    }
    json.endObject();
}

void write(JsonWriter& json, const Font& font) {
    json.beginObject();
    if (font.isCaption) {
        json.key("textStyle");
        json.string(captionName);
    } else {
        json.key("size");
        json.number(font.size);
        if (font.weight != FontWeight::regular) {
            json.key("weight");
            json.string(nameIn(fontWeightNames, font.weight));
        }
        if (font.design != FontDesign::standard) {
            json.key("design");
            json.string(nameIn(fontDesignNames, font.design));
        }
        if (font.digits == Digits::monospaced) {
            json.key("monospacedDigits");
            json.boolean(true);
        }
    }
    json.endObject();
}

void write(JsonWriter& json, double value) {
    json.number(value);
}
void write(JsonWriter& json, const MaximumLength& length) {
    std::visit(Match{[&](double points) { json.number(points); },
                     [&](Infinity) { json.string(infinityName); }},
               length);
}

template <class Value>
void member(JsonWriter& json, std::string_view key, const Value& value) {
    json.key(key);
    write(json, value);
}

template <class Value>
void optionalMember(JsonWriter& json, std::string_view key, const std::optional<Value>& value) {
    if (value) {
        member(json, key, *value);
    }
}

void memberUnless(JsonWriter& json, std::string_view key, double value, double usual) {
    if (value != usual) {
        member(json, key, value);
    }
}

void flag(JsonWriter& json, std::string_view key, bool value) {
    if (value) {
        json.key(key);
        json.boolean(true);
    }
}

void textMember(JsonWriter& json, std::string_view key, std::string_view value) {
    json.key(key);
    json.string(value);
}

void lineLimit(JsonWriter& json, const std::optional<int>& limit) {
    if (limit) {
        json.key("lineLimit");
        json.integer(*limit);
    }
}

template <class Enum, std::size_t count>
void alignment(JsonWriter& json, const NameTable<Enum, count>& names, Enum value, Enum usual) {
    if (!(value == usual)) {
        textMember(json, "alignment", nameIn(names, value));
    }
}

void children(JsonWriter& json, const Children& views) {
    json.key("children");
    json.beginArray();
    for (const View& view : views) {
        writeView(json, view);
    }
    json.endArray();
}

void child(JsonWriter& json, std::string_view key, const Child& view) {
    json.key(key);
    writeView(json, *view);
}

// What each kind of view adds behind its `type`.

void members(JsonWriter& json, const Text& text) {
    textMember(json, "text", text.text);
    member(json, "font", text.font);
    if (text.color != primary) {
        member(json, "color", text.color);
    }
    lineLimit(json, text.lineLimit);
    memberUnless(json, "minimumScale", text.minimumScale, 1);
    flag(json, "strikethrough", text.strikethrough);
}

void members(JsonWriter& json, const Symbol& symbol) {
    textMember(json, "name", symbol.name);
    member(json, "font", symbol.font);
    member(json, "color", symbol.color);
}

void members(JsonWriter& json, const HStack& stack) {
    alignment(json, verticalAlignmentNames, stack.alignment, VerticalAlignment::center);
    member(json, "spacing", stack.spacing);
    children(json, stack.children);
}

void members(JsonWriter& json, const VStack& stack) {
    alignment(json, horizontalAlignmentNames, stack.alignment, HorizontalAlignment::center);
    member(json, "spacing", stack.spacing);
    children(json, stack.children);
}

void members(JsonWriter& json, const ZStack& stack) {
    alignment(json, alignmentNames, stack.alignment, Alignment{});
    children(json, stack.children);
}

void members(JsonWriter& json, const Spacer& spacer) {
    memberUnless(json, "minLength", spacer.minLength, 0);
}

void members(JsonWriter& json, const Shape& shape) {
    textMember(json, "shape", nameIn(shapeNames, shape.shape));
    memberUnless(json, "cornerRadius", shape.cornerRadius, 0);
    optionalMember(json, "fill", shape.fill);
    optionalMember(json, "stroke", shape.stroke);
    memberUnless(json, "lineWidth", shape.lineWidth, 0);
}

void members(JsonWriter& json, const Countdown& countdown) {
    member(json, "from", countdown.from.secondsSince1970());
    member(json, "to", countdown.to.secondsSince1970());
    member(json, "font", countdown.font);
    member(json, "color", countdown.color);
    lineLimit(json, countdown.lineLimit);
    memberUnless(json, "minimumScale", countdown.minimumScale, 1);
}

void members(JsonWriter& json, const Progress& progress) {
    std::visit(Match{[&](const BarValue& bar) { member(json, "value", bar.value); },
                     [&](const BarInterval& bar) {
                         member(json, "from", bar.from.secondsSince1970());
                         member(json, "to", bar.to.secondsSince1970());
                     }},
               progress.value);
    member(json, "tint", progress.tint);
}

void members(JsonWriter& json, const Frame& frame) {
    optionalMember(json, "width", frame.lengths.width);
    optionalMember(json, "height", frame.lengths.height);
    optionalMember(json, "maxWidth", frame.lengths.maxWidth);
    optionalMember(json, "maxHeight", frame.lengths.maxHeight);
    alignment(json, alignmentNames, frame.alignment, Alignment{});
    child(json, "child", frame.child);
}

void members(JsonWriter& json, const Padding& padding) {
    memberUnless(json, "top", padding.insets.top, 0);
    memberUnless(json, "leading", padding.insets.leading, 0);
    memberUnless(json, "bottom", padding.insets.bottom, 0);
    memberUnless(json, "trailing", padding.insets.trailing, 0);
    child(json, "child", padding.child);
}

void members(JsonWriter& json, const FixedSize& fixedSize) {
    flag(json, "horizontal", fixedSize.horizontal);
    flag(json, "vertical", fixedSize.vertical);
    child(json, "child", fixedSize.child);
}

void members(JsonWriter& json, const Opacity& opacity) {
    member(json, "value", opacity.value);
    child(json, "child", opacity.child);
}

void members(JsonWriter& json, const Background& background) {
    child(json, "content", background.content);
    child(json, "child", background.child);
}

void members(JsonWriter& json, const Overlay& overlay) {
    child(json, "content", overlay.content);
    child(json, "child", overlay.child);
}

void members(JsonWriter& json, const Link& link) {
    textMember(json, "url", link.url);
    child(json, "child", link.child);
}

void members(JsonWriter& json, const Button& button) {
    json.key("intent");
    writeIntent(json, button.intent);
    textMember(json, "label", button.label);
    child(json, "child", button.child);
}

void members(JsonWriter& json, const Toggle& toggle) {
    json.key("isOn");
    json.boolean(toggle.isOn);
    json.key("intent");
    writeIntent(json, toggle.intent);
    child(json, "child", toggle.child);
}

void members(JsonWriter& json, const Accessible& accessible) {
    textMember(json, "label", accessible.label);
    child(json, "child", accessible.child);
}

}  // namespace

void writeView(JsonWriter& json, const View& view) {
    json.beginObject();
    textMember(json, "type", nodeTypeNames.at(view.node.index()));
    std::visit([&](const auto& node) { members(json, node); }, view.node);
    json.endObject();
}

void writeDrawnEntry(JsonWriter& json, const DrawnEntry& entry) {
    json.beginObject();
    json.key("content");
    writeView(json, entry.content);
    member(json, "background", entry.background);
    if (entry.widgetUrl) {
        textMember(json, "widgetUrl", *entry.widgetUrl);
    }
    json.endObject();
}

void writeIntent(JsonWriter& json, const Intent& intent) {
    json.beginObject();
    textMember(json, "name", intent.name);
    json.key("parameters");
    json.beginObject();
    for (const auto& [name, value] : intent.parameters) {
        json.key(name);
        std::visit(Match{[&](const std::string& text) { json.string(text); },
                         [&](bool truth) { json.boolean(truth); },
                         [&](std::int64_t number) { json.integer(number); }},
                   value);
    }
    json.endObject();
    json.endObject();
}

std::string encodeView(const View& view) {
    JsonWriter json;
    writeView(json, view);
    return json.text();
}

std::string encodeDrawnEntry(const DrawnEntry& entry) {
    JsonWriter json;
    writeDrawnEntry(json, entry);
    return json.text();
}

}  // namespace kelmar::kit
