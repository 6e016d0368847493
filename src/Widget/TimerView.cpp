#include "Widget/TimerView.h"

#include "Widget/Building.h"
#include "Widget/Links.h"
#include "Widget/TimerPieces.h"

namespace kelmar::widget {

namespace {

using kit::HorizontalAlignment;

/// Between the pieces that stand above each other.
constexpr double columnSpacing = 4;
/// Between the clock column and the buttons below it, at the least.
constexpr double buttonSpacing = 6;

kit::View clockColumn(const TimerPieces& pieces) {
    return kit::VStack{
        .alignment = HorizontalAlignment::leading,
        .spacing = columnSpacing,
        .children = {pieces.classRow(), pieces.clock(), pieces.progress(), pieces.statusLine()}};
}

kit::View smallLayout(const TimerPieces& pieces) {
    return kit::VStack{.alignment = HorizontalAlignment::leading,
                       .spacing = 0,
                       .children = {clockColumn(pieces), kit::Spacer{.minLength = buttonSpacing},
                                    pieces.buttons(Presets::absent)}};
}

kit::View mediumLayout(const TimerPieces& pieces) {
    const kit::View row = kit::HStack{
        .alignment = kit::VerticalAlignment::top,
        .spacing = 14,
        .children = {clockColumn(pieces), kit::Frame{.lengths = {.width = 112},
                                                     .child = pieces.buttons(Presets::present)}}};
    // At the top of the widget as well, so that the clock stays where it is when the number of
    // buttons changes.
    return filling(row, topLeading);
}

}  // namespace

TimerWidgetView::TimerWidgetView(const TimerEntry& entry, const kit::Environment& environment,
                                 kit::Color accent, kit::Color green,
                                 const Surroundings& surroundings)
    : entry_(entry),
      environment_(environment),
      accent_(accent),
      green_(green),
      surroundings_(surroundings) {}

kit::DrawnEntry TimerWidgetView::body() const {
    const shared::WidgetData::Timer* const timer = shownTimer(entry_.data);
    if (timer == nullptr) {
        return {.content = signedOut()};
    }
    const TimerPieces pieces(*timer, entry_.date, timer->isBreak ? green_ : accent_, surroundings_);
    return {.content = environment_.family == kit::Family::small ? smallLayout(pieces)
                                                                 : mediumLayout(pieces),
            .widgetUrl = timerOpenUrl};
}

kit::View TimerWidgetView::signedOut() const {
    return signInSentence(
        "timer", accent_,
        surroundings_.localization.text("Open Kelmar Planner and sign in to use the study timer."));
}

}  // namespace kelmar::widget
