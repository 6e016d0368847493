#pragma once

#include "Kit/Timeline.h"
#include "Widget/DueFocus.h"
#include "Widget/DueProvider.h"
#include "Widget/DueRows.h"
#include "Widget/Surroundings.h"

namespace kelmar::widget {

/// How many rows the list layout has room for, and how far apart they stand. Plain arithmetic over
/// the height that the widget offers.
struct DueListFit {
    double headerHeight = 0;
    double rowHeight = 0;
    int capacity = 0;    ///< Rows, never less than one.
    int shown = 0;       ///< Featured rows.
    int restShown = 0;   ///< Rows behind the section heading.
    double gap = 0;      ///< Between all elements of the list.
    double reserve = 0;  ///< Kept for the line at the bottom.

    bool operator==(const DueListFit&) const = default;
};

/// The height that stays reserved for the heading above the rest, also where there is none.
inline constexpr double sectionHeight = 20;
/// The height of the undo bar.
inline constexpr double undoBarHeight = 22;

enum class UndoBar { absent, present };

[[nodiscard]] DueListFit fitDueList(double height, kit::Family family, UndoBar undoBar,
                                    std::size_t itemCount, std::size_t restCount);

/// What the Due Today widget shows for an entry: the signed-out sentence, the small layout or the
/// list layout.
class DueTodayView {
public:
    DueTodayView(const DueEntry& entry, const kit::Environment& environment, kit::Color accent,
                 const Surroundings& surroundings);

    [[nodiscard]] kit::DrawnEntry body() const;

private:
    [[nodiscard]] kit::View signedOut() const;
    [[nodiscard]] kit::View smallLayout() const;
    [[nodiscard]] kit::View listLayout(double height) const;
    [[nodiscard]] kit::View header(const Focus& focus, double countSize, double labelSize) const;
    [[nodiscard]] kit::View caughtUpBlock() const;
    [[nodiscard]] kit::View sectionHeading() const;
    [[nodiscard]] std::optional<kit::View> bottomLine(const DueListFit& fit) const;

    const DueEntry& entry_;
    kit::Environment environment_;
    kit::Color accent_;
    const Surroundings& surroundings_;
    DueRows rows_;
};

}  // namespace kelmar::widget
