#include "Widget/ExtensionServer.h"

#include <algorithm>
#include <fmt/format.h>

#include "Widget/Diagnosis.h"
#include "Widget/Intents.h"

namespace kelmar::widget {

namespace {

kit::Entry drawn(const ProvidedEntry& entry, const kit::Environment& environment) {
    return {.date = entry.date, .view = entry.draw(environment)};
}

std::string timelineJson(const ProvidedTimeline& provided, const kit::Environment& environment) {
    kit::Timeline timeline{.entries = {}, .policy = provided.policy};
    for (const ProvidedEntry& entry : provided.entries) {
        timeline.entries.push_back(drawn(entry, environment));
    }
    return kit::encodeTimeline(timeline);
}

}  // namespace

void HostAppLink::open(const std::string& url, Completion completed) {
    const kit::MessageId id = ++lastId_;
    outstanding_.emplace(id, std::move(completed));
    send_(kit::encodeRequest({.id = id, .body = kit::OpenRequest{.url = url}}));
}

void HostAppLink::answered(const kit::MessageId& id) {
    const auto found = outstanding_.find(id);
    if (found == outstanding_.end()) {
        return;
    }
    const Completion completed = std::move(found->second);
    outstanding_.erase(found);
    completed();
}

ExtensionServer::ExtensionServer(const Surroundings& surroundings, HostAppLink& appLink,
                                 SendLine send)
    : surroundings_(surroundings),
      appLink_(appLink),
      send_(std::move(send)),
      widgets_(surroundings) {}

void ExtensionServer::receive(std::string_view line) {
    const auto message = kit::decodeMessage(line);
    if (!message) {
        if (const auto& answer = message.failure().answer) {
            send_(kit::encodeError(answer->id, std::get<kit::ResponseError>(answer->outcome)));
        }
        return;
    }
    if (const auto* response = std::get_if<kit::Response>(&*message)) {
        if (response->id) {
            appLink_.answered(*response->id);
        }
        return;
    }
    const auto& request = std::get<kit::Request>(*message);
    std::visit(
        kit::Match{[&](const kit::InitializeRequest& body) {
                       answer(request.id, kit::encodeBundle(widgets_.bundle(body.systemVersion)));
                   },
                   [&](const kit::EntryRequest& body) { answer(request.id, result(body)); },
                   [&](const kit::ControlRequest& body) { answer(request.id, result(body)); },
                   [&](const kit::PerformRequest& body) { perform(request.id, body.intent); },
                   [&](const kit::DiagnoseRequest&) {
                       answer(request.id, kit::encodeFindings(diagnose(surroundings_)));
                   },
                   [&](const kit::OpenRequest&) {
                       refuse(request.id, kit::ErrorCode::methodNotFound,
                              "Only a host opens URLs.");
                   }},
        request.body);
}

void ExtensionServer::answer(const std::optional<kit::MessageId>& id,
                             const system::Result<std::string>& resultJson) {
    if (!resultJson) {
        refuse(id, kit::ErrorCode::invalidParams, resultJson.failure().reason);
    } else if (id) {
        send_(kit::encodeResponse(*id, *resultJson));
    }
}

/// Says no to a request; a notification gets no answer, not even this one.
void ExtensionServer::refuse(const std::optional<kit::MessageId>& id, kit::ErrorCode code,
                             const std::string& message) {
    if (id) {
        send_(kit::encodeError(id, {.code = code, .message = message}));
    }
}

system::Result<std::string> ExtensionServer::result(const kit::EntryRequest& request) const {
    const BundledWidget* widget = widgets_.widget(request.widgetKind);
    if (widget == nullptr) {
        return system::Failure{fmt::format(R"(There is no widget "{}".)", request.widgetKind)};
    }
    const kit::Environment& environment = request.environment;
    if (std::ranges::count(widget->descriptor.families, environment.family) == 0) {
        return system::Failure{fmt::format(R"(The widget "{}" has no family "{}".)",
                                           request.widgetKind,
                                           kit::descriptorNameOf(environment.family))};
    }
    switch (request.entryKind) {
        case kit::EntryKind::placeholder:
            return kit::encodeEntry(drawn(widget->placeholder(), environment));
        case kit::EntryKind::snapshot:
            return kit::encodeEntry(drawn(widget->snapshot(request.isPreview), environment));
        case kit::EntryKind::timeline:
            return timelineJson(widget->timeline(), environment);
    }
    return system::Failure{"There is no such request."};
}

system::Result<std::string> ExtensionServer::result(const kit::ControlRequest& request) const {
    const StudyTimerControl* control = widgets_.control(request.controlKind);
    if (control == nullptr) {
        return system::Failure{fmt::format(R"(There is no control "{}".)", request.controlKind)};
    }
    return kit::encodeControlValue(request.isPreview ? control->previewValue()
                                                     : control->currentValue());
}

void ExtensionServer::perform(const std::optional<kit::MessageId>& id, const kit::Intent& intent) {
    performIntent(intent, surroundings_, [this, id](const system::Result<system::Done>& outcome) {
        if (!outcome) {
            refuse(id, kit::ErrorCode::actionFailed, outcome.failure().reason);
        } else if (id) {
            send_(kit::encodeResponse(*id, kit::emptyResult));
        }
    });
}

}  // namespace kelmar::widget
