#pragma once

#include <array>
#include <charconv>
#include <string>
#include <string_view>
#include <variant>

#include "Kit/ArchiveNames.h"
#include "Layout/PlacedBox.h"

/// Placed boxes as text that a person can read and compare, one box a line:
///
///     0,4 60x16 text 13 medium primary "Essay"@0,12.8 in 2
///
/// is a box at (0, 4), 60 points wide and 16 high, with one line whose left end stands at 0 and
/// whose baseline at 12.8, inside the third box. Numbers have two decimals at most.
namespace kelmar::testing {

inline std::string dumped(double number) {
    std::array<char, 64> digits{};
    const auto written =
        std::to_chars(digits.begin(), digits.end(), number, std::chars_format::fixed, 2);
    std::string text(digits.begin(), written.ptr);
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        text.erase(text.find_last_not_of('.') + 1);
    }
    return text == "-0" ? "0" : text;
}

inline std::string inQuotes(std::string_view text) {
    return '"' + std::string(text) + '"';
}

inline std::string dumped(const kit::Color& color) {
    std::string text = color.style() ? std::string(nameIn(kit::colorStyleNames, *color.style()))
                                     : "rgb(" + dumped(color.red()) + ',' + dumped(color.green()) +
                                           ',' + dumped(color.blue()) + ')';
    return color.opacity() == 1 ? text : text + '*' + dumped(color.opacity());
}

inline std::string dumped(const kit::Font& font) {
    std::string text = dumped(font.size);
    text.append(" ").append(nameIn(kit::fontWeightNames, font.weight));
    text += font.isCaption ? " caption" : "";
    text += font.design == kit::FontDesign::rounded ? " rounded" : "";
    text += font.digits == kit::Digits::monospaced ? " monospacedDigits" : "";
    return text;
}

inline std::string dumped(const layout::Rect& rect) {
    return dumped(rect.x) + ',' + dumped(rect.y) + ' ' + dumped(rect.width) + 'x' +
           dumped(rect.height);
}

inline std::string dumped(const layout::TextDrawing& text) {
    std::string result = " text " + dumped(text.font) + ' ' + dumped(text.color);
    result += text.strikethrough ? " strikethrough" : "";
    for (const layout::TextLine& line : text.lines) {
        result += ' ' + inQuotes(line.text) + '@' + dumped(line.x) + ',' + dumped(line.baseline);
    }
    return result;
}

inline std::string dumped(const kit::Shape& shape) {
    std::string text(nameIn(kit::shapeNames, shape.shape));
    text += shape.cornerRadius == 0 ? "" : " radius " + dumped(shape.cornerRadius);
    text += shape.fill ? " fill " + dumped(*shape.fill) : "";
    text += shape.stroke ? " stroke " + dumped(*shape.stroke) + ' ' + dumped(shape.lineWidth) : "";
    return text;
}

inline std::string dumped(const kit::Progress& progress) {
    return ' ' + dumped(progress.tint) +
           std::visit(kit::Match{[](const kit::BarValue& bar) { return ' ' + dumped(bar.value); },
                                 [](const kit::BarInterval& bar) {
                                     return " lasting " + dumped(bar.to - bar.from);
                                 }},
                      progress.value);
}

inline std::string dumped(const layout::Drawing& drawing) {
    return std::visit(
        kit::Match{
            [](std::monostate) { return std::string(); },
            [](const layout::TextDrawing& text) { return dumped(text); },
            [](const layout::SymbolDrawing& symbol) {
                return " symbol " + symbol.name + ' ' +
                       std::string(nameIn(kit::fontWeightNames, symbol.weight)) + ' ' +
                       dumped(symbol.color);
            },
            [](const layout::ShapeDrawing& shape) { return " shape " + dumped(shape.shape); },
            [](const layout::CountdownDrawing& countdown) {
                return " countdown " + dumped(countdown.font) + ' ' + dumped(countdown.color) +
                       " lasting " + dumped(countdown.to - countdown.from) + " baseline " +
                       dumped(countdown.baseline);
            },
            [](const layout::ProgressDrawing& bar) { return " progress" + dumped(bar.progress); }},
        drawing);
}

inline std::string dumped(const kit::Intent& intent) {
    std::string text = intent.name + '(';
    std::string_view separator;
    for (const auto& [name, value] : intent.parameters) {
        text.append(separator).append(name).append("=");
        text +=
            std::visit(kit::Match{[](const std::string& words) { return inQuotes(words); },
                                  [](bool flag) { return std::string(flag ? "true" : "false"); },
                                  [](std::int64_t number) { return std::to_string(number); }},
                       value);
        separator = ", ";
    }
    return text + ')';
}

inline std::string dumped(const layout::Action& action) {
    return std::visit(
        kit::Match{
            [](std::monostate) { return std::string(); },
            [](const layout::LinkAction& link) { return " link " + link.url; },
            [](const layout::ButtonAction& button) { return " button " + dumped(button.intent); },
            [](const layout::ToggleAction& toggle) {
                return " toggle " + dumped(toggle.intent) + (toggle.isOn ? " on" : " off");
            }},
        action);
}

/// A text's label is shown only where it says something else than the text's only line.
inline bool saysItself(const layout::PlacedBox& box) {
    const auto* const text = std::get_if<layout::TextDrawing>(&box.drawing);
    return text != nullptr && text->lines.size() == 1 && text->lines[0].text == box.label;
}

inline std::string dumpBoxes(const layout::PlacedBoxes& boxes) {
    std::string dump;
    for (const layout::PlacedBox& box : boxes) {
        dump += dumped(box.rect) + dumped(box.drawing) + dumped(box.action);
        dump += box.label.empty() || saysItself(box) ? "" : " label " + inQuotes(box.label);
        dump += box.opacity == 1 ? "" : " opacity " + dumped(box.opacity);
        dump += box.container ? " in " + std::to_string(*box.container) : "";
        dump += '\n';
    }
    return dump;
}

}  // namespace kelmar::testing
