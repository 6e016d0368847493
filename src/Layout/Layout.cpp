#include "Layout/Layout.h"

#include "Layout/Alignment.h"
#include "Layout/Measuring.h"
#include "Layout/Mirroring.h"
#include "Layout/Placing.h"

namespace kelmar::layout {

PlacedBoxes layOut(const kit::View& root, Size area, const TextMeasurer& measurer,
                   Direction direction) {
    const Size room{usable(area.width), usable(area.height)};
    const Proposal proposal = Proposal::exactly(room);
    Measuring measuring(measurer);
    const Size size = measuring.measure(root, proposal, Precision::exact).size;
    PlacedBoxes boxes = place(root, proposal, offset(room, size, kit::Alignment{}), measuring);
    // Everything is placed as for reading from left to right and turned over as a whole, so that no
    // rule above needs to know of two directions.
    if (direction == Direction::rightToLeft) {
        mirror(boxes, room.width);
    }
    return boxes;
}

}  // namespace kelmar::layout
