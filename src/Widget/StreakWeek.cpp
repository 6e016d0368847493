#include "Widget/StreakWeek.h"

#include "Widget/Building.h"
#include "Widget/Colors.h"

namespace kelmar::widget {

namespace {

using kit::FontWeight;
using Streak = shared::WidgetData::Streak;

kit::View inCircle(double size, kit::Shape circle, kit::Children inside) {
    circle.shape = kit::ShapeKind::circle;
    inside.emplace(inside.begin(), circle);
    return withSize(size, size, kit::ZStack{.children = std::move(inside)});
}

}  // namespace

StreakWeek::StreakWeek(StreakGround ground, kit::RenderingMode renderingMode, kit::Color frost,
                       const system::LocaleTexts& localeTexts)
    : ground_(ground), renderingMode_(renderingMode), frost_(frost), localeTexts_(localeTexts) {}

kit::View StreakWeek::week(const std::vector<Streak::Day>& days, double dot) const {
    kit::Children columns;
    for (const Streak::Day& day : days) {
        if (!columns.empty()) {
            columns.emplace_back(kit::Spacer{.minLength = 2});
        }
        columns.emplace_back(kit::VStack{.spacing = 3, .children = {letter(day), mark(day, dot)}});
    }
    return kit::HStack{.children = std::move(columns)};
}

kit::Text StreakWeek::letter(const Streak::Day& day) const {
    const bool isOnOrange = ground_ == StreakGround::orange;
    const kit::Color strong = isOnOrange ? kit::white : kit::primary;
    const kit::Color faint = isOnOrange ? kit::white.withOpacity(0.8) : kit::secondary;
    return {.text = localeTexts_.narrowWeekday(day.date),
            .font = kit::Font::system(9, FontWeight::heavy),
            .color = day.isToday ? strong : faint};
}

kit::View StreakWeek::mark(const Streak::Day& day, double size) const {
    switch (day.mark) {
        case Streak::Mark::streak:
            return counted(size);
        case Streak::Mark::covered:
            return covered(size);
        case Streak::Mark::none:
            break;
    }
    return open(day.isToday, size);
}

kit::View StreakWeek::counted(double size) const {
    const auto checked = [size](kit::Color fill, kit::Color check) {
        return inCircle(size, {.fill = fill},
                        {kit::Symbol{.name = "checkmark",
                                     .font = kit::Font::system(size * 0.5, FontWeight::black),
                                     .color = check}});
    };
    if (ground_ == StreakGround::orange) {
        return checked(kit::white, streakOrange);
    }
    if (renderingMode_ == kit::RenderingMode::fullColor) {
        return checked(streakOrange, kit::white);
    }
    // One ink has no second one to write on it with: the check is a hole.
    return checked(kit::primary, kit::clear);
}

kit::View StreakWeek::covered(double size) const {
    const auto frosted = [size](kit::Color fill, kit::Color ring, kit::Color flake) {
        return inCircle(size, {.fill = fill, .stroke = ring, .lineWidth = 1.5},
                        {kit::Symbol{.name = "snowflake",
                                     .font = kit::Font::system(size * 0.52, FontWeight::bold),
                                     .color = flake}});
    };
    if (ground_ == StreakGround::orange) {
        return frosted(kit::white, kit::white, frost_);
    }
    if (renderingMode_ == kit::RenderingMode::fullColor) {
        return frosted(frost_.withOpacity(0.15), frost_, frost_);
    }
    return frosted(kit::clear, kit::primary, kit::primary);
}

kit::View StreakWeek::open(bool isToday, double size) const {
    const kit::Color plainRing =
        isToday ? kit::primary.withOpacity(0.7) : kit::secondary.withOpacity(0.45);
    const kit::Color ring =
        ground_ == StreakGround::orange ? kit::white.withOpacity(0.6) : plainRing;
    return inCircle(size, {.stroke = ring, .lineWidth = isToday ? 2.0 : 1.0}, {});
}

}  // namespace kelmar::widget
