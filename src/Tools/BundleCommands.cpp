#include <fmt/format.h>
#include <iostream>

#include "System/JsonWriter.h"
#include "Tools/Commands.h"
#include "Tools/Printing.h"
#include "Widget/StudyTimerControl.h"

namespace kelmar::tools {

namespace {

std::string familiesJson(const std::vector<kit::Family>& families) {
    system::JsonWriter json;
    json.beginArray();
    for (const kit::Family family : families) {
        json.string(kit::descriptorNameOf(family));
    }
    json.endArray();
    return json.text();
}

void writeDescriptor(system::JsonWriter& json, const std::string& kind, const std::string& name,
                     const std::string& description, const std::vector<kit::Family>& families) {
    json.beginObject();
    json.key("kind");
    json.string(kind);
    json.key("displayName");
    json.string(name);
    json.key("description");
    json.string(description);
    json.key("families");
    json.raw(familiesJson(families));
    json.endObject();
}

std::string bundleJson(const kit::Bundle& bundle) {
    system::JsonWriter json;
    json.beginArray();
    for (const auto& widget : bundle.widgets) {
        writeDescriptor(json, widget.kind, widget.displayName, widget.description, widget.families);
    }
    for (const auto& control : bundle.controls) {
        writeDescriptor(json, control.kind, control.displayName, control.description, {});
    }
    json.endArray();
    return json.text();
}

/// The value alone: its intent is between the extension and its host.
std::string controlJson(const kit::ControlValue& value) {
    system::JsonWriter json;
    json.beginObject();
    json.key("running");
    json.boolean(value.running);
    json.key("text");
    json.string(value.text);
    json.key("symbol");
    json.string(value.symbol);
    json.endObject();
    return json.text();
}

}  // namespace

int listBundle(const Options& options) {
    const Stage stage(options);
    const kit::Bundle bundle = stage.widgets().bundle(options.systemVersion);
    if (options.json) {
        printJson(bundleJson(bundle));
        return 0;
    }
    for (const auto& widget : bundle.widgets) {
        std::string families;
        for (const kit::Family family : widget.families) {
            families += (families.empty() ? "" : ", ") + std::string(kit::nameOf(family));
        }
        std::cout << fmt::format("{:<18}{} ({})\n{:18}{}\n", widget.kind, widget.displayName,
                                 families, "", widget.description);
    }
    for (const auto& control : bundle.controls) {
        std::cout << fmt::format("{:<18}{} (control)\n{:18}{}\n", control.kind, control.displayName,
                                 "", control.description);
    }
    return 0;
}

int showControl(const Options& options) {
    const Stage stage(options);
    const widget::StudyTimerControl control(stage.surroundings());
    const kit::ControlValue value =
        options.preview ? control.previewValue() : control.currentValue();
    if (options.json) {
        printJson(controlJson(value));
    } else {
        std::cout << fmt::format("{} ({}, {})\n", value.text, value.running ? "on" : "off",
                                 value.symbol);
    }
    return 0;
}

}  // namespace kelmar::tools
