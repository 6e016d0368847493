#include "Widget/TickIntents.h"

#include "Shared/WidgetTicks.h"
#include "Widget/Links.h"

namespace kelmar::widget {

using shared::WidgetTicks;

kit::Intent TickOffIntent::described() const {
    return {.name = name, .parameters = {{"id", id}, {"name", title}}};
}

void TickOffIntent::perform(const Surroundings& surroundings, Outcome ended) const {
    const WidgetTicks::Note note{.title = title, .at = surroundings.clock.now()};
    auto written = WidgetTicks(surroundings.tickedFolder).write(id, note);
    if (!written) {
        ended(std::move(written));
        return;
    }
    tellApp(surroundings.appLink, tickedUrl, [ended = std::move(ended)] { ended(system::Done{}); });
}

kit::Intent UndoTickIntent::described() const {
    return {.name = name, .parameters = {{"id", id}}};
}

void UndoTickIntent::perform(const Surroundings& surroundings, Outcome ended) const {
    WidgetTicks(surroundings.tickedFolder).remove(id);
    tellApp(surroundings.appLink, untickUrl(id),
            [ended = std::move(ended)] { ended(system::Done{}); });
}

}  // namespace kelmar::widget
