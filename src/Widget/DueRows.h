#pragma once

#include <string>

#include "Kit/View.h"
#include "Shared/WidgetData.h"
#include "Shared/WidgetTicks.h"
#include "Widget/Surroundings.h"

/// The pieces of the Due Today widget.
namespace kelmar::widget {

/// Whether a row stands in the featured group of today, which is drawn a little larger.
enum class RowGroup { today, other };

/// Builds the pieces for one moment: everything is judged at the entry's date.
class DueRows {
public:
    DueRows(system::Date now, kit::Family family, kit::Color accent,
            const Surroundings& surroundings);

    /// When an item is due, in words.
    [[nodiscard]] std::string when(const shared::WidgetData::Item& item, RowGroup group) const;

    /// The row of the list layout: a tick button beside a link to the assignment.
    [[nodiscard]] kit::View row(const shared::WidgetData::Item& item, RowGroup group) const;
    /// The row of the small layout, without a link of its own.
    [[nodiscard]] kit::View compactRow(const shared::WidgetData::Item& item) const;
    /// Offers to take a tick back.
    [[nodiscard]] kit::View undoBar(const shared::WidgetTicks::Tick& tick) const;

private:
    [[nodiscard]] kit::View tick(const shared::WidgetData::Item& item, double size) const;
    [[nodiscard]] kit::View titleAndTime(const shared::WidgetData::Item& item,
                                         RowGroup group) const;
    [[nodiscard]] kit::View undoButton(const shared::WidgetTicks::Tick& tick) const;

    system::Date now_;
    system::Date tomorrow_;
    kit::Family family_;
    kit::Color accent_;
    const Surroundings& surroundings_;
};

/// What a press on a row opens. Fatal for an id that makes no URL.
[[nodiscard]] std::string url(const shared::WidgetData::Item& item);

}  // namespace kelmar::widget
