#include "Widget/Building.h"

namespace kelmar::widget {

kit::View filling(kit::View child, kit::Alignment alignment) {
    return kit::Frame{.lengths = {.maxWidth = kit::infinity, .maxHeight = kit::infinity},
                      .alignment = alignment,
                      .child = std::move(child)};
}

kit::View fillingWidth(kit::View child) {
    return kit::Frame{
        .lengths = {.maxWidth = kit::infinity},
        .alignment = {kit::HorizontalAlignment::leading, kit::VerticalAlignment::center},
        .child = std::move(child)};
}

kit::View withHeight(double height, kit::View child) {
    return kit::Frame{.lengths = {.height = height}, .child = std::move(child)};
}

kit::View withSize(double width, double height, kit::View child) {
    return kit::Frame{.lengths = {.width = width, .height = height}, .child = std::move(child)};
}

kit::View padded(double horizontal, double vertical, kit::View child) {
    return kit::Padding{.insets = {.top = vertical,
                                   .leading = horizontal,
                                   .bottom = vertical,
                                   .trailing = horizontal},
                        .child = std::move(child)};
}

kit::View colorBar(kit::Color color, std::optional<double> height) {
    return kit::Frame{
        .lengths = {.width = 3, .height = height},
        .child = kit::Shape{
            .shape = kit::ShapeKind::roundedRectangle, .cornerRadius = 1.5, .fill = color}};
}

kit::View onCapsule(kit::Color fill, kit::View child) {
    return kit::Background{.content = kit::Shape{.shape = kit::ShapeKind::capsule, .fill = fill},
                           .child = std::move(child)};
}

kit::Text oneLine(std::string text, kit::Font font, kit::Color color) {
    return {.text = std::move(text), .font = font, .color = color, .lineLimit = 1};
}

kit::Text plain(std::string text, double size, kit::Color color) {
    return {.text = std::move(text), .font = kit::Font::system(size), .color = color};
}

kit::View signInSentence(const std::string& symbol, kit::Color tint, std::string sentence) {
    constexpr double symbolSize = 20;
    return kit::VStack{
        .spacing = 6,
        .children = {
            kit::Symbol{.name = symbol, .font = kit::Font::system(symbolSize), .color = tint},
            kit::Text{.text = std::move(sentence),
                      .font = kit::Font::caption(),
                      .color = kit::secondary}}};
}

}  // namespace kelmar::widget
