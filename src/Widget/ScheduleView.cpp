#include "Widget/ScheduleView.h"

#include <algorithm>
#include <span>

#include "Kit/Metrics.h"
#include "Widget/Building.h"
#include "Widget/ScheduleFit.h"

namespace kelmar::widget {

namespace {

using kit::Family;
using kit::FontWeight;
using kit::HorizontalAlignment;
using kit::VerticalAlignment;

constexpr const char* symbolName = "calendar";
/// Between the header line and the blocks, and between the rows of the medium family.
constexpr double listSpacing = 5;
constexpr std::size_t mediumCapacity = 4;

double titleSize(Family family) {
    return family == Family::small ? 13 : 14;
}

/// The block that comes first by now: the current one, or else the first that is to come.
const ScheduleBlock* foremost(const DayProgress& progress) {
    if (progress.current != nullptr || progress.rest.empty()) {
        return progress.current;
    }
    return progress.rest.front();
}

Turn turnOf(const ScheduleBlock& block, const DayProgress& progress) {
    return progress.isCurrent(block) ? Turn::now : Turn::other;
}

}  // namespace

ScheduleView::ScheduleView(const ScheduleEntry& entry, const kit::Environment& environment,
                           kit::Color accent, const Surroundings& surroundings)
    : entry_(entry),
      environment_(environment),
      accent_(accent),
      surroundings_(surroundings),
      rows_(accent, environment.renderingMode, surroundings) {}

kit::DrawnEntry ScheduleView::body() const {
    const system::Localization& words = surroundings_.localization;
    if (!entry_.data || !entry_.data->signedIn || !entry_.data->schedule) {
        return {.content =
                    empty(words.text("Open Kelmar Planner and sign in to see your schedule."))};
    }
    const ScheduleDay* const day =
        shownDay(*entry_.data->schedule, entry_.date, surroundings_.calendar);
    if (day == nullptr) {
        return {.content = empty(words.text("Nothing on your schedule this week. Connect your "
                                            "school calendar in Planner’s Calendar settings."))};
    }
    return content(*day);
}

kit::DrawnEntry ScheduleView::content(const ScheduleDay& day) const {
    const DayProgress progress = dayProgress(day, entry_.date);
    kit::Children elements{header(day)};
    const auto stacked = [&](double spacing) {
        return filling(kit::VStack{.alignment = HorizontalAlignment::leading,
                                   .spacing = spacing,
                                   .children = std::move(elements)},
                       topLeading);
    };
    switch (environment_.family) {
        case Family::small: {
            std::ranges::move(smallBlocks(progress), std::back_inserter(elements));
            const ScheduleBlock* const linked = foremost(progress);
            return {.content = stacked(6),
                    .widgetUrl = linked == nullptr ? std::nullopt : std::optional(url(*linked))};
        }
        case Family::medium:
            std::ranges::move(mediumBlocks(progress), std::back_inserter(elements));
            break;
        case Family::large:
            elements.push_back(largeBlocks(day, progress));
            break;
    }
    return {.content = stacked(listSpacing)};
}

kit::View ScheduleView::header(const ScheduleDay& day) const {
    // Where the line is short of room the label gives way: which day it is must be readable.
    const auto whole = [](const kit::Text& text) {
        return kit::FixedSize{.horizontal = true, .child = text};
    };
    kit::Children pieces{
        whole({.text = dayTitle(day.day, entry_.date, surroundings_),
               .font = kit::Font::system(titleSize(environment_.family), FontWeight::bold)})};
    if (environment_.family != Family::small) {
        pieces.emplace_back(whole({.text = surroundings_.localeTexts.monthAndDay(day.day),
                                   .font = kit::Font::system(11, FontWeight::medium),
                                   .color = kit::secondary}));
    }
    if (!day.labels.empty()) {
        pieces.push_back(labelChip(day.labels.front()));
    }
    pieces.emplace_back(kit::Spacer{});
    pieces.emplace_back(kit::Symbol{
        .name = symbolName, .font = kit::Font::system(11), .color = accent_.withOpacity(0.8)});
    return kit::HStack{.alignment = VerticalAlignment::firstTextBaseline,
                       .spacing = 6,
                       .children = std::move(pieces)};
}

kit::View ScheduleView::labelChip(const std::string& label) const {
    return onCapsule(
        accent_.withOpacity(0.13),
        padded(5, 1, oneLine(label, kit::Font::system(10, FontWeight::semibold), accent_)));
}

kit::Children ScheduleView::smallBlocks(const DayProgress& progress) const {
    const ScheduleBlock* const first = foremost(progress);
    if (first == nullptr) {
        return {};
    }
    const bool isRunning = first == progress.current;
    kit::Children blocks{
        kit::Link{.url = url(*first),
                  .child = rows_.smallLabel(*first, isRunning ? Turn::now : Turn::other)}};
    const std::size_t then = isRunning ? 0 : 1;
    if (then < progress.rest.size()) {
        const kit::Font font = kit::Font::system(10, FontWeight::medium);
        blocks.emplace_back(
            kit::HStack{.alignment = VerticalAlignment::center,
                        .spacing = 4,
                        .children = {kit::Text{.text = surroundings_.localization.text("Then"),
                                               .font = font,
                                               .color = kit::secondary},
                                     oneLine(progress.rest[then]->title, font, kit::primary)}});
    }
    return blocks;
}

kit::Children ScheduleView::mediumBlocks(const DayProgress& progress) const {
    std::vector<const ScheduleBlock*> list;
    if (progress.current != nullptr) {
        list.push_back(progress.current);
    }
    std::ranges::copy(progress.rest, std::back_inserter(list));
    kit::Children rows;
    for (const ScheduleBlock* block :
         std::span(list).first(std::min(list.size(), mediumCapacity))) {
        rows.emplace_back(
            kit::Link{.url = url(*block), .child = rows_.row(*block, turnOf(*block, progress))});
    }
    return rows;
}

kit::View ScheduleView::largeBlocks(const ScheduleDay& day, const DayProgress& progress) const {
    constexpr double finishedOpacity = 0.45;
    std::vector<const ScheduleBlock*> past;
    std::vector<const ScheduleBlock*> live;
    for (const ScheduleBlock& block : day.blocks) {
        (hasEnded(block, entry_.date) ? past : live).push_back(&block);
    }
    const double height =
        environment_.contentSize.height - kit::lineHeight(titleSize(Family::large)) - listSpacing;
    const ScheduleFit fit = fitSchedule(height, past.size(), live.size());

    const auto rowOf = [&](const ScheduleBlock& block) {
        return withHeight(fit.rowHeight, rows_.row(block, turnOf(block, progress)));
    };
    kit::Children rows;
    for (const ScheduleBlock* block : std::span(past).last(static_cast<std::size_t>(fit.past))) {
        const kit::Opacity faded{.value = finishedOpacity, .child = rowOf(*block)};
        rows.emplace_back(kit::Link{.url = url(*block), .child = faded});
    }
    for (const ScheduleBlock* block : std::span(live).first(static_cast<std::size_t>(fit.live))) {
        rows.emplace_back(kit::Link{.url = url(*block), .child = rowOf(*block)});
    }
    rows.emplace_back(kit::Spacer{});
    return kit::VStack{.alignment = HorizontalAlignment::leading,
                       .spacing = fit.spacing,
                       .children = std::move(rows)};
}

kit::View ScheduleView::empty(std::string message) const {
    const kit::Font font = kit::Font::system(12, FontWeight::semibold);
    const kit::HStack label{
        .spacing = 5,
        .children = {kit::Symbol{.name = symbolName, .font = font, .color = accent_},
                     kit::Text{.text = surroundings_.localization.text("Schedule"),
                               .font = font,
                               .color = accent_}}};
    return filling(kit::VStack{.alignment = HorizontalAlignment::leading,
                               .spacing = 6,
                               .children = {label, kit::Text{.text = std::move(message),
                                                             .font = kit::Font::caption(),
                                                             .color = kit::secondary}}},
                   topLeading);
}

}  // namespace kelmar::widget
