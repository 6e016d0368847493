#include "Layout/Alignment.h"

#include <cmath>

namespace kelmar::layout {

Position position(kit::HorizontalAlignment alignment) {
    switch (alignment) {
        case kit::HorizontalAlignment::leading:
            return Position::start;
        case kit::HorizontalAlignment::center:
            return Position::center;
        case kit::HorizontalAlignment::trailing:
            return Position::end;
    }
    return Position::center;
}

Position position(kit::VerticalAlignment alignment) {
    switch (alignment) {
        case kit::VerticalAlignment::top:
        case kit::VerticalAlignment::firstTextBaseline:
            return Position::start;
        case kit::VerticalAlignment::center:
            return Position::center;
        case kit::VerticalAlignment::bottom:
            return Position::end;
    }
    return Position::center;
}

double offset(double room, double piece, Position position) {
    const double spare = room - piece;
    if (!std::isfinite(spare)) {
        // A view that was asked how much it could ever take: nothing is placed by the answer.
        return 0;
    }
    switch (position) {
        case Position::start:
            return 0;
        case Position::center:
            return spare / 2;
        case Position::end:
            return spare;
    }
    return 0;
}

Point offset(Size room, Size piece, kit::Alignment alignment) {
    return {offset(room.width, piece.width, position(alignment.horizontal)),
            offset(room.height, piece.height, position(alignment.vertical))};
}

}  // namespace kelmar::layout
