#include <algorithm>

#include "Widget/DueTodayView.h"
#include "Widget/WholeRows.h"

namespace kelmar::widget {

namespace {

/// How far rows may move apart: a list that is nearly empty stays a list.
double widestGap(kit::Family family, bool hasRoomLeft) {
    if (family != kit::Family::large) {
        return 6;
    }
    return hasRoomLeft ? 16 : 10;
}

}  // namespace

DueListFit fitDueList(double height, kit::Family family, UndoBar undoBar, std::size_t itemCount,
                      std::size_t restCount) {
    const bool isLarge = family == kit::Family::large;
    const double undoHeight = undoBar == UndoBar::present ? undoBarHeight : 0;
    DueListFit fit;
    fit.headerHeight = isLarge ? 34 : 28;
    fit.rowHeight = isLarge ? 36 : 30;
    fit.capacity =
        wholeRows((height - fit.headerHeight - sectionHeight - undoHeight) / fit.rowHeight);

    const auto capacity = static_cast<std::size_t>(fit.capacity);
    const std::size_t shown = std::min(itemCount, capacity);
    const std::size_t restShown = std::min(restCount, capacity - shown);
    fit.shown = static_cast<int>(shown);
    fit.restShown = static_cast<int>(restShown);

    const int rowCount = fit.shown + fit.restShown;
    const int sections = fit.restShown > 0 ? 1 : 0;
    const bool hasRoomLeft = rowCount < fit.capacity;
    const double used =
        undoHeight + fit.headerHeight + fit.rowHeight * rowCount + sectionHeight * sections;
    fit.reserve = hasRoomLeft && isLarge ? 18 : 0;
    const int gaps = std::max(rowCount + sections, 1);
    fit.gap = std::min(std::max((height - used - fit.reserve) / gaps, 0.0),
                       widestGap(family, hasRoomLeft));
    return fit;
}

}  // namespace kelmar::widget
