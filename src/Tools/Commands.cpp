#include "Tools/Commands.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>
#include <iostream>

#include "Kit/Archive.h"
#include "Kit/Metrics.h"
#include "Shared/PlannerFiles.h"
#include "Shared/SnapshotCoding.h"
#include "System/JsonWriter.h"
#include "Tools/EntryJson.h"
#include "Tools/EntryOutline.h"
#include "Tools/Moment.h"
#include "Tools/Printing.h"
#include "Tools/Stage.h"
#include "Widget/Intents.h"

namespace kelmar::tools {

namespace {

std::string describedEntry(const widget::ProvidedEntry& entry,
                           const kit::Environment& environment) {
    return fmt::format("{}\n{}", describedMoment(entry.date), outline(entry.draw(environment)));
}

int showEntry(const widget::ProvidedEntry& entry, const Options& options) {
    const kit::Environment environment = environmentOf(options);
    if (options.json) {
        printJson(entryJson(entry, options.kind, environment));
    } else {
        std::cout << describedEntry(entry, environment);
    }
    return 0;
}

kit::IntentValue parsedValue(const std::string& name, const std::string& text,
                             widget::ParameterType type) {
    switch (type) {
        case widget::ParameterType::string:
            return text;
        case widget::ParameterType::boolean:
            if (text == "true" || text == "false") {
                return text == "true";
            }
            throw UsageError(fmt::format("{} is true or false, not \"{}\"", name, text));
        case widget::ParameterType::integer: {
            std::int64_t number = 0;
            const char* const end = text.data() + text.size();
            const auto [stopped, error] = std::from_chars(text.data(), end, number);
            if (error != std::errc() || stopped != end) {
                throw UsageError(fmt::format("{} is a whole number, not \"{}\"", name, text));
            }
            return number;
        }
    }
    return text;
}

const widget::IntentDescriptor& descriptorNamed(const std::string& name) {
    const auto& all = widget::intentDescriptors();
    const auto found = std::ranges::find(all, name, &widget::IntentDescriptor::name);
    if (found == all.end()) {
        std::string known;
        for (const auto& descriptor : all) {
            known += (known.empty() ? "" : ", ") + descriptor.name;
        }
        throw UsageError(fmt::format("there is no action \"{}\"; there are {}", name, known));
    }
    return *found;
}

/// The intent that a name and "key=value" words describe.
kit::Intent intentOf(const Options& options) {
    const widget::IntentDescriptor& descriptor = descriptorNamed(options.intent);
    kit::Intent intent{.name = descriptor.name, .parameters = {}};
    for (const auto& parameter : descriptor.parameters) {
        const std::string prefix = parameter.name + '=';
        const auto word = std::ranges::find_if(
            options.assignments, [&](const std::string& text) { return text.starts_with(prefix); });
        if (word == options.assignments.end()) {
            throw UsageError(fmt::format("{} needs {}=... ({})", descriptor.name, parameter.name,
                                         parameter.title));
        }
        intent.parameters.emplace_back(
            parameter.name,
            parsedValue(parameter.name, word->substr(prefix.size()), parameter.type));
    }
    for (const std::string& word : options.assignments) {
        const std::string name = word.substr(0, word.find('='));
        if (std::ranges::count(descriptor.parameters, name,
                               &widget::IntentDescriptor::Parameter::name) == 0) {
            throw UsageError(fmt::format("{} has no parameter \"{}\"", descriptor.name, name));
        }
    }
    return intent;
}

void printFault(const std::string& path, const shared::SnapshotFault& fault, bool json) {
    if (!json) {
        std::cout << fmt::format("{}: unreadable: at {} stood {}, expected was {}\n", path,
                                 fault.path, fault.found, fault.expected);
        return;
    }
    system::JsonWriter writer;
    writer.beginObject();
    writer.key("file");
    writer.string(path);
    writer.key("readable");
    writer.boolean(false);
    writer.key("path");
    writer.string(fault.path);
    writer.key("found");
    writer.string(fault.found);
    writer.key("expected");
    writer.string(fault.expected);
    writer.endObject();
    printJson(writer.text());
}

void printReadable(const std::string& path, const shared::WidgetData& data, bool json) {
    if (!json) {
        std::cout << fmt::format("{}: readable, {}, written {}\n", path,
                                 data.signedIn ? "signed in" : "signed out",
                                 describedMoment(data.updated));
        return;
    }
    system::JsonWriter writer;
    writer.beginObject();
    writer.key("file");
    writer.string(path);
    writer.key("readable");
    writer.boolean(true);
    writer.endObject();
    printJson(writer.text());
}

}  // namespace

kit::Environment environmentOf(const Options& options) {
    return {.family = options.family,
            .contentSize = kit::contentSize(options.family),
            .renderingMode = options.mode};
}

const widget::BundledWidget& widgetOf(const Stage& stage, const Options& options) {
    const widget::BundledWidget* widget = stage.widgets().widget(options.kind);
    if (widget == nullptr) {
        std::string known;
        for (const widget::BundledWidget& each : stage.widgets().widgets()) {
            known += (known.empty() ? "" : ", ") + each.descriptor.kind;
        }
        throw UsageError(
            fmt::format("there is no widget \"{}\"; there are {}", options.kind, known));
    }
    if (std::ranges::count(widget->descriptor.families, options.family) == 0) {
        throw UsageError(fmt::format(R"(the widget "{}" has no family "{}")", options.kind,
                                     kit::nameOf(options.family)));
    }
    return *widget;
}

int showTimeline(const Options& options) {
    const Stage stage(options);
    const widget::ProvidedTimeline timeline = widgetOf(stage, options).timeline();
    const kit::Environment environment = environmentOf(options);
    if (options.json) {
        printJson(timelineJson(timeline, options.kind, environment));
        return 0;
    }
    for (const widget::ProvidedEntry& entry : timeline.entries) {
        std::cout << describedEntry(entry, environment) << '\n';
    }
    std::visit(kit::Match{[](const kit::ReloadAfter& after) {
                              std::cout << "reloads after " << describedMoment(after.date) << '\n';
                          },
                          [](kit::ReloadNever) { std::cout << "never reloads by itself\n"; }},
               timeline.policy);
    return 0;
}

int showSnapshot(const Options& options) {
    const Stage stage(options);
    return showEntry(widgetOf(stage, options).snapshot(options.preview), options);
}

int showPlaceholder(const Options& options) {
    const Stage stage(options);
    return showEntry(widgetOf(stage, options).placeholder(), options);
}

int showView(const Options& options) {
    const Stage stage(options);
    const kit::DrawnEntry drawn =
        widgetOf(stage, options).timeline().entries.front().draw(environmentOf(options));
    if (options.json) {
        printJson(kit::encodeDrawnEntry(drawn));
    } else {
        std::cout << outline(drawn);
    }
    return 0;
}

int performAction(const Options& options) {
    const kit::Intent intent = intentOf(options);
    const Stage stage(options, options.printUrlsOnly ? nullptr : desktopAppLink());
    int status = failedStatus;
    widget::performIntent(
        intent, stage.surroundings(), [&](const system::Result<system::Done>& outcome) {
            if (outcome) {
                status = 0;
            } else {
                std::cerr << "kelmar-widgetctl: " << outcome.failure().reason << '\n';
            }
        });
    for (const std::string& url : stage.appLink().urls()) {
        std::cout << url << '\n';
    }
    return status;
}

int checkSnapshot(const Options& options) {
    const Stage stage(options);
    const std::string path =
        options.file.empty()
            ? fmt::format("{}/{}/{}", stage.home(), shared::plannerFolderPath, shared::snapshotName)
            : options.file;
    const auto bytes = system::readFile(path);
    if (!bytes) {
        std::cerr << "kelmar-widgetctl: " << bytes.failure().reason << '\n';
        return failedStatus;
    }
    const auto decoded = shared::decodeSnapshot(*bytes);
    if (!decoded) {
        printFault(path, decoded.failure(), options.json);
        return failedStatus;
    }
    printReadable(path, *decoded, options.json);
    return 0;
}

}  // namespace kelmar::tools
