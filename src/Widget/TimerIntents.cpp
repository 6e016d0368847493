#include "Widget/TimerIntents.h"

#include <fmt/format.h>

namespace kelmar::widget {

namespace {

void ask(std::string_view command, const Surroundings& surroundings, Outcome ended) {
    askApp(surroundings.appLink, command, [ended = std::move(ended)] { ended(system::Done{}); });
}

const char* commandFor(bool running) {
    return running ? "on" : "off";
}

}  // namespace

kit::Intent TimerRunIntent::described() const {
    return {.name = name, .parameters = {{"run", run}}};
}

void TimerRunIntent::perform(const Surroundings& surroundings, Outcome ended) const {
    ask(commandFor(run), surroundings, std::move(ended));
}

kit::Intent TimerPresetIntent::described() const {
    return {.name = name, .parameters = {{"minutes", minutes}}};
}

void TimerPresetIntent::perform(const Surroundings& surroundings, Outcome ended) const {
    ask(fmt::format("start?mins={}", minutes), surroundings, std::move(ended));
}

kit::Intent TimerControlIntent::described() const {
    return {.name = name, .parameters = {{"value", value}}};
}

void TimerControlIntent::perform(const Surroundings& surroundings, Outcome ended) const {
    ask(commandFor(value), surroundings, std::move(ended));
}

}  // namespace kelmar::widget
