#include "Widget/DueTodayView.h"

#include <algorithm>
#include <fmt/format.h>
#include <span>

#include "Widget/Building.h"
#include "Widget/Links.h"

namespace kelmar::widget {

namespace {

using kit::Family;
using kit::FontWeight;
using kit::HorizontalAlignment;
using kit::VerticalAlignment;

std::span<const shared::WidgetData::Item* const> firstOf(const Focus::Items& items, int count) {
    return std::span(items).first(std::min(items.size(), static_cast<std::size_t>(count)));
}

}  // namespace

DueTodayView::DueTodayView(const DueEntry& entry, const kit::Environment& environment,
                           kit::Color accent, const Surroundings& surroundings)
    : entry_(entry),
      environment_(environment),
      accent_(accent),
      surroundings_(surroundings),
      rows_(entry.date, environment.family, accent, surroundings) {}

kit::DrawnEntry DueTodayView::body() const {
    if (!entry_.data || !entry_.data->signedIn) {
        return {.content = signedOut()};
    }
    if (environment_.family == Family::small) {
        return {.content = smallLayout(), .widgetUrl = dashboardUrl};
    }
    return {.content = listLayout(environment_.contentSize.height)};
}

kit::View DueTodayView::signedOut() const {
    return signInSentence(
        "graduationcap.fill", accent_,
        surroundings_.localization.text("Open Kelmar Planner and sign in to see what’s due."));
}

kit::View DueTodayView::smallLayout() const {
    const Focus featured = focus(*entry_.data, entry_.date, surroundings_);
    kit::Children elements{header(featured, 30, 13)};
    if (featured.items.empty()) {
        elements.emplace_back(plain(surroundings_.localization.text("You’re all caught up."), 11));
    } else {
        kit::Children rows;
        for (const auto* item : firstOf(featured.items, entry_.undo ? 2 : 3)) {
            rows.push_back(rows_.compactRow(*item));
        }
        elements.emplace_back(kit::VStack{
            .alignment = HorizontalAlignment::leading, .spacing = 6, .children = std::move(rows)});
    }
    if (entry_.undo) {
        elements.push_back(withHeight(undoBarHeight, rows_.undoBar(*entry_.undo)));
    }
    return filling(kit::VStack{.alignment = HorizontalAlignment::leading,
                               .spacing = 5,
                               .children = std::move(elements)},
                   topLeading);
}

kit::View DueTodayView::header(const Focus& focus, double countSize, double labelSize) const {
    kit::Children words{kit::Text{.text = focus.label,
                                  .font = kit::Font::system(labelSize, FontWeight::semibold),
                                  .color = kit::secondary,
                                  .lineLimit = 1,
                                  .minimumScale = 0.8}};
    if (environment_.family == Family::large) {
        words.emplace_back(
            kit::Text{.text = surroundings_.localeTexts.weekdayMonthAndDay(entry_.date),
                      .font = kit::Font::system(11, FontWeight::medium),
                      .color = kit::secondary});
    }
    return kit::HStack{
        .alignment = VerticalAlignment::center,
        .spacing = 6,
        .children = {kit::Text{.text = fmt::to_string(focus.items.size()),
                               .font = kit::Font::system(countSize, FontWeight::bold).rounded(),
                               .color = accent_},
                     kit::VStack{.alignment = HorizontalAlignment::leading,
                                 .spacing = 0,
                                 .children = std::move(words)},
                     kit::Spacer{},
                     kit::Symbol{.name = "graduationcap.fill",
                                 .font = kit::Font::system(12),
                                 .color = accent_.withOpacity(0.8)}}};
}

kit::View DueTodayView::caughtUpBlock() const {
    return filling(
        kit::VStack{
            .spacing = 6,
            .children = {kit::Symbol{.name = "checkmark.circle",
                                     .font = kit::Font::system(26),
                                     .color = accent_},
                         plain(surroundings_.localization.text("You’re all caught up."), 13)}},
        {});
}

kit::View DueTodayView::sectionHeading() const {
    return withHeight(
        sectionHeight,
        kit::HStack{
            .alignment = VerticalAlignment::center,
            .spacing = 6,
            .children = {kit::Text{.text = surroundings_.localization.text("Up next"),
                                   .font = kit::Font::system(11, FontWeight::semibold),
                                   .color = kit::secondary},
                         withHeight(1, kit::Shape{.shape = kit::ShapeKind::rectangle,
                                                  .fill = kit::secondary.withOpacity(0.25)})}});
}

/// The undo bar, or else a closing line where the list leaves room for one.
std::optional<kit::View> DueTodayView::bottomLine(const DueListFit& fit) const {
    if (entry_.undo) {
        return withHeight(undoBarHeight, rows_.undoBar(*entry_.undo));
    }
    if (fit.reserve > 0) {
        return plain(
            surroundings_.localization.text(fit.restShown > 0 ? "That’s everything coming up."
                                                              : "Nothing else due this week."),
            11, kit::secondary);
    }
    return std::nullopt;
}

kit::View DueTodayView::listLayout(double height) const {
    const Focus featured = focus(*entry_.data, entry_.date, surroundings_);
    const DueListFit fit =
        fitDueList(height, environment_.family, entry_.undo ? UndoBar::present : UndoBar::absent,
                   featured.items.size(), featured.rest.size());
    const double countSize = environment_.family == Family::large ? 28 : 24;

    kit::Children elements{withHeight(fit.headerHeight, header(featured, countSize, 12))};
    const bool isCaughtUp = fit.shown == 0 && fit.restShown == 0;
    if (isCaughtUp) {
        elements.push_back(caughtUpBlock());
    }
    const RowGroup group = featured.isToday ? RowGroup::today : RowGroup::other;
    for (const auto* item : firstOf(featured.items, fit.shown)) {
        elements.push_back(withHeight(fit.rowHeight, rows_.row(*item, group)));
    }
    if (fit.restShown > 0) {
        elements.push_back(sectionHeading());
    }
    for (const auto* item : firstOf(featured.rest, fit.restShown)) {
        elements.push_back(withHeight(fit.rowHeight, rows_.row(*item, RowGroup::other)));
    }
    if (auto line = bottomLine(fit)) {
        // The line takes the height that is left, so that it keeps its place at the bottom however
        // few rows there are; beneath the caught-up block that one takes it.
        elements.push_back(isCaughtUp ? std::move(*line)
                                      : filling(std::move(*line), bottomLeading));
    }
    return filling(kit::VStack{.alignment = HorizontalAlignment::leading,
                               .spacing = fit.gap,
                               .children = std::move(elements)},
                   topLeading);
}

}  // namespace kelmar::widget
