#include "Widget/DueRows.h"

#include "System/Fatal.h"
#include "System/Url.h"
#include "Widget/Building.h"
#include "Widget/HexString.h"
#include "Widget/Links.h"
#include "Widget/Snapshots.h"
#include "Widget/TickIntents.h"

namespace kelmar::widget {

namespace {

using kit::FontWeight;
using Item = shared::WidgetData::Item;

kit::View classBar(const Item& item, double height) {
    return colorBar(hexString(item.classColor).value_or(kit::secondary), height);
}

kit::Text line(std::string text, double size, FontWeight weight, kit::Color color) {
    return oneLine(std::move(text), kit::Font::system(size, weight), color);
}

}  // namespace

std::string url(const Item& item) {
    std::string url = assignmentUrl(item.id);
    if (!system::isValidUrl(url)) {
        system::fatal("An assignment's id makes no URL: " + url);
    }
    return url;
}

DueRows::DueRows(system::Date now, kit::Family family, kit::Color accent,
                 const Surroundings& surroundings)
    : now_(now),
      tomorrow_(nextMidnight(now, surroundings.calendar)),
      family_(family),
      accent_(accent),
      surroundings_(surroundings) {}

std::string DueRows::when(const Item& item, RowGroup group) const {
    const system::Localization& words = surroundings_.localization;
    if (item.due < now_) {
        return words.text("Overdue");
    }
    if (group == RowGroup::today) {
        return item.hasTime ? surroundings_.localeTexts.shortTime(item.due) : words.text("Today");
    }
    if (surroundings_.calendar.isSameDay(item.due, tomorrow_)) {
        return words.text("Tomorrow");
    }
    return surroundings_.localeTexts.shortWeekdayMonthAndDay(item.due);
}

kit::View DueRows::tick(const Item& item, double size) const {
    return kit::Button{
        .intent = TickOffIntent{.id = item.id, .title = item.title}.described(),
        .label = surroundings_.localization.text("Mark {} done", item.title),
        .child = kit::Symbol{
            .name = "circle", .font = kit::Font::system(size), .color = kit::secondary}};
}

kit::View DueRows::titleAndTime(const Item& item, RowGroup group) const {
    const bool isToday = group == RowGroup::today;
    const double lineSize = isToday ? 11 : 10;
    const kit::Color dueColor = item.due < now_ ? kit::red : kit::secondary;
    return kit::VStack{
        .alignment = kit::HorizontalAlignment::leading,
        .spacing = 0,
        .children = {
            line(item.title, isToday ? 13 : 12, FontWeight::medium, kit::primary),
            kit::HStack{.alignment = kit::VerticalAlignment::firstTextBaseline,
                        .spacing = 5,
                        .children = {
                            line(when(item, group), lineSize, FontWeight::medium, dueColor),
                            line(item.className, lineSize, FontWeight::regular, kit::secondary)}}}};
}

kit::View DueRows::row(const Item& item, RowGroup group) const {
    const bool isToday = group == RowGroup::today;
    const kit::View label =
        kit::HStack{.alignment = kit::VerticalAlignment::center,
                    .spacing = 8,
                    .children = {classBar(item, isToday ? 30 : 24), titleAndTime(item, group)}};
    // The tick stands outside the link, so that ticking never opens the planner; the link takes
    // the rest of the row, so that a press behind a short title is not lost.
    return kit::HStack{.alignment = kit::VerticalAlignment::center,
                       .spacing = 7,
                       .children = {tick(item, isToday ? 16 : 15),
                                    kit::Link{.url = url(item), .child = fillingWidth(label)}}};
}

kit::View DueRows::compactRow(const Item& item) const {
    return kit::HStack{.alignment = kit::VerticalAlignment::center,
                       .spacing = 5,
                       .children = {tick(item, 13), classBar(item, 14),
                                    line(item.title, 11, FontWeight::medium, kit::primary)}};
}

kit::View DueRows::undoButton(const shared::WidgetTicks::Tick& tick) const {
    const std::string undo = surroundings_.localization.text("Undo");
    return kit::Button{
        .intent = UndoTickIntent{.id = tick.id}.described(),
        .label = undo,
        .child = onCapsule(
            accent_.withOpacity(0.14),
            withHeight(20, padded(8, 0,
                                  kit::Text{.text = undo,
                                            .font = kit::Font::system(11, FontWeight::semibold),
                                            .color = accent_})))};
}

kit::View DueRows::undoBar(const shared::WidgetTicks::Tick& tick) const {
    const std::string done =
        surroundings_.localization.text(family_ == kit::Family::small ? "Done" : "Marked done");
    return kit::HStack{
        .alignment = kit::VerticalAlignment::center,
        .spacing = 4,
        .children = {
            kit::Symbol{
                .name = "checkmark.circle.fill", .font = kit::Font::system(12), .color = accent_},
            line(done, 11, FontWeight::regular, kit::secondary), kit::Spacer{}, undoButton(tick)}};
}

}  // namespace kelmar::widget
