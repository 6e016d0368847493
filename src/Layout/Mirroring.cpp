#include "Layout/Mirroring.h"

namespace kelmar::layout {

void mirror(PlacedBoxes& boxes, double areaWidth) {
    for (PlacedBox& box : boxes) {
        box.rect.x = areaWidth - box.rect.right();
        if (auto* const text = std::get_if<TextDrawing>(&box.drawing)) {
            for (TextLine& line : text->lines) {
                line.x = box.rect.width - line.x - line.width;
            }
        }
    }
}

}  // namespace kelmar::layout
