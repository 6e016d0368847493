#include "Widget/Intents.h"

#include <algorithm>
#include <fmt/format.h>

namespace kelmar::widget {

namespace {

using Performer = void (*)(const kit::Intent&, const Surroundings&, Outcome);

/// An action's face and what runs it, side by side so that neither can be forgotten.
struct Action {
    IntentDescriptor descriptor;
    Performer perform;
};

/// Only called for intents whose parameters have been checked against the descriptor.
template <class Value>
const Value& parameter(const kit::Intent& intent, std::string_view name) {
    const auto found = std::ranges::find(intent.parameters, name,
                                         &std::pair<std::string, kit::IntentValue>::first);
    return std::get<Value>(found->second);
}

Action tickOff() {
    return {
        .descriptor = {.name = TickOffIntent::name,
                       .title = "Tick Off",
                       .parameters = {{"id", ParameterType::string, "Assignment ID"},
                                      {"name", ParameterType::string, "Title"}},
                       .isDiscoverable = false},
        .perform = [](const kit::Intent& intent, const Surroundings& surroundings, Outcome ended) {
            TickOffIntent{.id = parameter<std::string>(intent, "id"),
                          .title = parameter<std::string>(intent, "name")}
                .perform(surroundings, std::move(ended));
        }};
}

Action undoTick() {
    return {
        .descriptor = {.name = UndoTickIntent::name,
                       .title = "Undo Tick",
                       .parameters = {{"id", ParameterType::string, "Assignment ID"}},
                       .isDiscoverable = false},
        .perform = [](const kit::Intent& intent, const Surroundings& surroundings, Outcome ended) {
            UndoTickIntent{.id = parameter<std::string>(intent, "id")}.perform(surroundings,
                                                                               std::move(ended));
        }};
}

Action timerRun() {
    return {
        .descriptor = {.name = TimerRunIntent::name,
                       .title = "Start or Pause the Timer",
                       .parameters = {{"run", ParameterType::boolean, "Run"}}},
        .perform = [](const kit::Intent& intent, const Surroundings& surroundings, Outcome ended) {
            TimerRunIntent{.run = parameter<bool>(intent, "run")}.perform(surroundings,
                                                                          std::move(ended));
        }};
}

Action timerPreset() {
    return {
        .descriptor = {.name = TimerPresetIntent::name,
                       .title = "Start a Timer",
                       .parameters = {{"minutes", ParameterType::integer, "Minutes"}}},
        .perform = [](const kit::Intent& intent, const Surroundings& surroundings, Outcome ended) {
            TimerPresetIntent{.minutes = parameter<std::int64_t>(intent, "minutes")}.perform(
                surroundings, std::move(ended));
        }};
}

Action timerControl() {
    return {
        .descriptor = {.name = TimerControlIntent::name,
                       .title = "Study Timer",
                       .parameters = {{"value", ParameterType::boolean, "Running"}}},
        .perform = [](const kit::Intent& intent, const Surroundings& surroundings, Outcome ended) {
            TimerControlIntent{.value = parameter<bool>(intent, "value")}.perform(surroundings,
                                                                                  std::move(ended));
        }};
}

const std::vector<Action>& actions() {
    static const std::vector<Action> all{tickOff(), undoTick(), timerRun(), timerPreset(),
                                         timerControl()};
    return all;
}

bool hasType(const kit::IntentValue& value, ParameterType type) {
    switch (type) {
        case ParameterType::string:
            return std::holds_alternative<std::string>(value);
        case ParameterType::boolean:
            return std::holds_alternative<bool>(value);
        case ParameterType::integer:
            return std::holds_alternative<std::int64_t>(value);
    }
    return false;
}

/// What is wrong with an intent's parameters, or the empty text.
std::string parameterFault(const kit::Intent& intent, const IntentDescriptor& descriptor) {
    for (const auto& expected : descriptor.parameters) {
        const auto found = std::ranges::find(intent.parameters, expected.name,
                                             &std::pair<std::string, kit::IntentValue>::first);
        if (found == intent.parameters.end()) {
            return fmt::format("{} needs the parameter \"{}\".", intent.name, expected.name);
        }
        if (!hasType(found->second, expected.type)) {
            return fmt::format("The parameter \"{}\" of {} has another type.", expected.name,
                               intent.name);
        }
    }
    return {};
}

}  // namespace

const std::vector<IntentDescriptor>& intentDescriptors() {
    static const std::vector<IntentDescriptor> all = [] {
        std::vector<IntentDescriptor> descriptors;
        for (const Action& action : actions()) {
            descriptors.push_back(action.descriptor);
        }
        return descriptors;
    }();
    return all;
}

void performIntent(const kit::Intent& intent, const Surroundings& surroundings, Outcome ended) {
    for (const Action& action : actions()) {
        if (action.descriptor.name != intent.name) {
            continue;
        }
        if (std::string fault = parameterFault(intent, action.descriptor); !fault.empty()) {
            ended(system::Failure{std::move(fault)});
        } else {
            action.perform(intent, surroundings, std::move(ended));
        }
        return;
    }
    ended(system::Failure{fmt::format("There is no action \"{}\".", intent.name)});
}

}  // namespace kelmar::widget
