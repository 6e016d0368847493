#include "Host/ExtensionRequest.h"

#include "Kit/View.h"

namespace kelmar::host {

std::string_view nameOf(kit::EntryKind kind) {
    switch (kind) {
        case kit::EntryKind::placeholder:
            return "placeholder";
        case kit::EntryKind::snapshot:
            return "snapshot";
        case kit::EntryKind::timeline:
            return "timeline";
    }
    return {};
}

std::string describe(const kit::RequestBody& body) {
    return std::visit(
        kit::Match{
            [](const kit::InitializeRequest&) -> std::string { return "its start"; },
            [](const kit::EntryRequest& request) {
                return "the " + std::string(nameOf(request.entryKind)) + " of " +
                       request.widgetKind;
            },
            [](const kit::ControlRequest& request) {
                return "the value of " + request.controlKind;
            },
            [](const kit::PerformRequest& request) { return "the action " + request.intent.name; },
            [](const kit::DiagnoseRequest&) -> std::string { return "its diagnosis"; },
            [](const kit::OpenRequest& request) { return "the URL " + request.url; },
        },
        body);
}

}  // namespace kelmar::host
