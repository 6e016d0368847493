#include "Widget/StreakView.h"

#include <fmt/format.h>

#include "Widget/Building.h"
#include "Widget/Colors.h"
#include "Widget/Links.h"

namespace kelmar::widget {

namespace {

using kit::FontWeight;
using kit::HorizontalAlignment;
using shared::WidgetData;

/// The layouts of one streak at one moment.
class StreakContent {
public:
    StreakContent(const WidgetData::Streak& streak, system::Date at,
                  const kit::Environment& environment, kit::Color frost,
                  const Surroundings& surroundings)
        : streak_(streak),
          at_(at),
          surroundings_(surroundings),
          standing_(standing(streak, at, surroundings.calendar)),
          ground_(streakGround(standing_.mood, environment.renderingMode)),
          colors_(streakColors(standing_.mood, environment)),
          week_(ground_, environment.renderingMode, frost, surroundings.localeTexts) {}

    [[nodiscard]] StreakGround ground() const { return ground_; }

    [[nodiscard]] kit::View smallLayout() const {
        return filling(
            kit::VStack{.alignment = HorizontalAlignment::leading,
                        .spacing = 0,
                        .children = {count(40), headlineOf(HeadlineLength::shortForm, 12.5),
                                     kit::Spacer{}, week(15)}},
            topLeading);
    }

    [[nodiscard]] kit::View mediumLayout() const {
        // The message keeps its room, which its longest sentence needs, and its place however long
        // the number is.
        const kit::Frame column{
            .lengths = {.width = 120},
            .alignment = {HorizontalAlignment::leading, kit::VerticalAlignment::center},
            .child = total()};
        return kit::HStack{.alignment = kit::VerticalAlignment::center,
                           .spacing = 14,
                           .children = {column, fillingWidth(message())}};
    }

private:
    [[nodiscard]] kit::View count(double size) const {
        return kit::HStack{
            .alignment = kit::VerticalAlignment::center,
            .spacing = 3,
            .children = {
                kit::Symbol{.name = "flame.fill",
                            .font = kit::Font::system(size * 0.62, FontWeight::bold),
                            .color = colors_.flame},
                kit::Text{.text = fmt::to_string(standing_.shownCount),
                          .font = kit::Font::system(size, FontWeight::heavy).monospacedDigits(),
                          .color = colors_.number,
                          .lineLimit = 1,
                          .minimumScale = 0.3}}};
    }

    [[nodiscard]] kit::View headlineOf(HeadlineLength length, double size) const {
        return kit::Text{.text = headline(standing_.mood, length, surroundings_.localization),
                         .font = kit::Font::system(size, FontWeight::heavy),
                         .color = colors_.headline,
                         .lineLimit = 1,
                         .minimumScale = 0.8};
    }

    [[nodiscard]] kit::View week(double dot) const {
        return week_.week(streak_.recent(at_, surroundings_.calendar), dot);
    }

    /// The medium family's left column.
    [[nodiscard]] kit::View total() const {
        const system::Localization& words = surroundings_.localization;
        return kit::VStack{
            .alignment = HorizontalAlignment::leading,
            .spacing = 2,
            .children = {count(48),
                         kit::Text{.text = words.text("day streak"),
                                   .font = kit::Font::system(12.5, FontWeight::heavy),
                                   .color = colors_.smallText},
                         kit::Text{.text = words.text("Best {}", fmt::to_string(streak_.best)),
                                   .font = kit::Font::system(11, FontWeight::semibold),
                                   .color = colors_.smallText}}};
    }

    /// The medium family's right column.
    [[nodiscard]] kit::View message() const {
        const kit::Text text{.text = subline(standing_, surroundings_.localization),
                             .font = kit::Font::system(11.5, FontWeight::medium),
                             .color = colors_.smallText,
                             .lineLimit = 2};
        return kit::VStack{.alignment = HorizontalAlignment::leading,
                           .spacing = 0,
                           .children = {headlineOf(HeadlineLength::longForm, 16),
                                        kit::Padding{.insets = {.top = 2}, .child = text},
                                        kit::Padding{.insets = {.top = 10}, .child = week(19)}}};
    }

    const WidgetData::Streak& streak_;
    system::Date at_;
    const Surroundings& surroundings_;
    StreakStanding standing_;
    StreakGround ground_;
    StreakColors colors_;
    StreakWeek week_;
};

const WidgetData::Streak* shownStreak(const Snapshot& data) {
    return data && data->signedIn && data->streak ? &*data->streak : nullptr;
}

}  // namespace

StreakView::StreakView(const StreakEntry& entry, const kit::Environment& environment,
                       kit::Color frost, const Surroundings& surroundings)
    : entry_(entry), environment_(environment), frost_(frost), surroundings_(surroundings) {}

kit::DrawnEntry StreakView::body() const {
    const WidgetData::Streak* const streak = shownStreak(entry_.data);
    if (streak == nullptr) {
        return {.content = signedOut(), .widgetUrl = statsUrl};
    }
    const StreakContent content(*streak, entry_.date, environment_, frost_, surroundings_);
    const bool isSmall = environment_.family == kit::Family::small;
    return {
        .content = isSmall ? content.smallLayout() : content.mediumLayout(),
        .background = content.ground() == StreakGround::orange ? streakOrange : kit::tertiaryFill,
        .widgetUrl = statsUrl};
}

kit::View StreakView::signedOut() const {
    return signInSentence(
        "flame.fill", streakOrange,
        surroundings_.localization.text("Open Kelmar Planner and sign in to see your streak."));
}

}  // namespace kelmar::widget
