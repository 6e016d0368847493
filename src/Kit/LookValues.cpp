#include "Kit/LookValues.h"

#include "Kit/FieldReading.h"
#include "Kit/FieldWriting.h"

namespace kelmar::kit {

using system::JsonWriter;

namespace {

constexpr std::string_view styleKey = "style";
constexpr std::string_view rgbKey = "rgb";
constexpr std::string_view opacityKey = "opacity";
constexpr std::string_view textStyleKey = "textStyle";

/// Of a font that is no text style.
constexpr std::tuple fontFields{
    Field{"size", &Font::size},
    DefaultedField{"weight", &Font::weight, FontWeight::regular},
    DefaultedField{"design", &Font::design, FontDesign::standard},
    DefaultedField{"monospacedDigits", &Font::digits, Digits::proportional},
};

Color readRgb(const JsonValue& rgb) {
    const std::vector<JsonValue> parts = rgb.elements();
    if (parts.size() != 3) {
        rgb.refuse("three numbers");
    }
    return Color::rgb(parts[0].number(), parts[1].number(), parts[2].number());
}

}  // namespace

void writeValue(JsonWriter& json, const Color& color) {
    json.beginObject();
    if (color.style()) {
        json.key(styleKey);
        writeValue(json, *color.style());
    } else {
        json.key(rgbKey);
        json.beginArray();
        json.number(color.red());
        json.number(color.green());
        json.number(color.blue());
        json.endArray();
    }
    if (color.opacity() != 1) {
        json.key(opacityKey);
        json.number(color.opacity());
    }
    json.endObject();
}

template <>
Color readValue(const JsonValue& json) {
    const auto rgb = json.member(rgbKey);
    const Color color = rgb ? readRgb(*rgb) : Color::style(readValue<ColorStyle>(json[styleKey]));
    const auto opacity = json.member(opacityKey);
    return color.withOpacity(opacity ? opacity->number() : 1);
}

void writeValue(JsonWriter& json, Digits digits) {
    json.boolean(digits == Digits::monospaced);
}
template <>
Digits readValue(const JsonValue& json) {
    return json.boolean() ? Digits::monospaced : Digits::proportional;
}

void writeValue(JsonWriter& json, const Font& font) {
    json.beginObject();
    if (font.isCaption) {
        json.key(textStyleKey);
        json.string(captionName);
    } else {
        writeFields(json, font, fontFields);
    }
    json.endObject();
}
template <>
Font readValue(const JsonValue& json) {
    const auto style = json.member(textStyleKey);
    if (!style) {
        ValueReader reader;
        return readFields<Font>(json, fontFields, reader);
    }
    if (style->text() != captionName) {
        style->refuse("\"caption\"");
    }
    return Font::caption();
}

}  // namespace kelmar::kit
