#include "Layout/TextScale.h"

#include <algorithm>
#include <cmath>

#include "Kit/View.h"

namespace kelmar::layout {
namespace {

/// Between the sizes that are tried, so that texts do not change their size with every content.
constexpr double step = 0.125;

/// In points: lines may stand out a little, as they do at their usual size, for the margin has
/// room.
constexpr double tolerance = 1.25;

void magnify(kit::Font& font, double scale) {
    font.size *= scale;
}

void magnify(Drawing& drawing, double scale) {
    std::visit(kit::Match{[](std::monostate&) {}, [](SymbolDrawing&) {}, [](ProgressDrawing&) {},
                          [scale](TextDrawing& text) {
                              magnify(text.font, scale);
                              for (TextLine& line : text.lines) {
                                  line.x *= scale;
                                  line.baseline *= scale;
                                  line.width *= scale;
                              }
                          },
                          [scale](CountdownDrawing& countdown) {
                              magnify(countdown.font, scale);
                              countdown.baseline *= scale;
                          },
                          [scale](ShapeDrawing& shape) {
                              shape.shape.cornerRadius *= scale;
                              shape.shape.lineWidth *= scale;
                          }},
               drawing);
}

PlacedBoxes magnified(PlacedBoxes boxes, double scale) {
    for (PlacedBox& box : boxes) {
        const Rect& rect = box.rect;
        box.rect = {rect.x * scale, rect.y * scale, rect.width * scale, rect.height * scale};
        magnify(box.drawing, scale);
    }
    return boxes;
}

bool liesIn(Size area, const PlacedBox& box) {
    return box.rect.x >= -tolerance && box.rect.y >= -tolerance &&
           box.rect.right() <= area.width + tolerance &&
           box.rect.bottom() <= area.height + tolerance;
}

bool isCutOff(const PlacedBox& box) {
    const auto* text = std::get_if<TextDrawing>(&box.drawing);
    return text != nullptr && !text->lines.empty() && text->lines.back().text.ends_with("…");
}

bool isInLink(const PlacedBoxes& boxes, const PlacedBox& box) {
    return box.container && std::holds_alternative<LinkAction>(boxes[*box.container].action);
}

/// Whether boxes show all that those of the usual size do.
bool showAsMuch(const PlacedBoxes& boxes, const PlacedBoxes& usual, Size area) {
    return boxes.size() == usual.size() &&
           std::equal(boxes.begin(), boxes.end(), usual.begin(),
                      [&](const PlacedBox& box, const PlacedBox& former) {
                          const bool keepsItsText =
                              isCutOff(former) || isInLink(boxes, box) || !isCutOff(box);
                          return keepsItsText && (liesIn(area, box) || !liesIn(area, former));
                      });
}

}  // namespace

PlacedBoxes layOutMagnified(const kit::View& root, Size area, const TextMeasurer& measurer,
                            Direction direction, double wanted) {
    PlacedBoxes usual = layOut(root, area, measurer, direction);
    const double greatest = std::min(wanted, greatestTextScale);
    const int steps = static_cast<int>(std::ceil((greatest - 1) / step));
    for (int down = 0; down < steps; ++down) {
        const double scale = greatest - down * step;
        PlacedBoxes boxes = magnified(
            layOut(root, {area.width / scale, area.height / scale}, measurer, direction), scale);
        if (showAsMuch(boxes, usual, area)) {
            return boxes;
        }
    }
    return usual;
}

}  // namespace kelmar::layout
