#pragma once

#include <vector>

#include "Kit/Color.h"
#include "Kit/Environment.h"
#include "Kit/View.h"
#include "Shared/WidgetData.h"
#include "System/LocaleTexts.h"
#include "Widget/StreakColors.h"

namespace kelmar::widget {

/// Draws the last days of a streak as round marks below their weekdays' letters.
class StreakWeek {
public:
    StreakWeek(StreakGround ground, kit::RenderingMode renderingMode, kit::Color frost,
               const system::LocaleTexts& localeTexts);

    /// A row of the days in their order, spread over the width that it is offered.
    [[nodiscard]] kit::View week(const std::vector<shared::WidgetData::Streak::Day>& days,
                                 double dot) const;
    /// A day that counted, one that a freeze covered, or neither, in a square of `size`.
    [[nodiscard]] kit::View mark(const shared::WidgetData::Streak::Day& day, double size) const;

private:
    [[nodiscard]] kit::Text letter(const shared::WidgetData::Streak::Day& day) const;
    [[nodiscard]] kit::View counted(double size) const;
    [[nodiscard]] kit::View covered(double size) const;
    [[nodiscard]] kit::View open(bool isToday, double size) const;

    StreakGround ground_;
    kit::RenderingMode renderingMode_;
    kit::Color frost_;
    const system::LocaleTexts& localeTexts_;
};

}  // namespace kelmar::widget
