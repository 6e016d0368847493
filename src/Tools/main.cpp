#include <iostream>

#include "Tools/Commands.h"

namespace {

using namespace kelmar::tools;

using Command = int (*)(const Options&);

/// Declares a command and remembers it as the one to run when the line names it.
CLI::App& addCommand(CLI::App& program, const std::string& name, const std::string& description,
                     Command command, Command& chosen) {
    CLI::App& added = *program.add_subcommand(name, description);
    added.fallthrough();
    added.callback([command, &chosen] { chosen = command; });
    return added;
}

void addKind(CLI::App& command, Options& options) {
    command.add_option("KIND", options.kind, "Kind of widget, as `list` names it")->required();
}

void addOutput(CLI::App& command, Options& options) {
    command.add_option("-o,--output", options.output, "PNG file to write")->required();
}

void addCommands(CLI::App& program, Options& options, Command& chosen) {
    addCommand(program, "list", "What the extension offers", listBundle, chosen);

    CLI::App& timeline = addCommand(program, "timeline", "A widget's entries and reload policy",
                                    showTimeline, chosen);
    addKind(timeline, options);
    timeline.add_flag("--preview", options.preview, "As for the gallery");

    CLI::App& snapshot =
        addCommand(program, "snapshot", "A widget's single entry", showSnapshot, chosen);
    addKind(snapshot, options);
    snapshot.add_flag("--preview", options.preview, "As for the gallery");

    addKind(
        addCommand(program, "placeholder", "A widget's placeholder entry", showPlaceholder, chosen),
        options);
    addKind(addCommand(program, "view", "What a widget shows now", showView, chosen), options);

    CLI::App& render = addCommand(program, "render", "A widget's picture", renderPicture, chosen);
    addKind(render, options);
    addOutput(render, options);

    addOutput(addCommand(program, "gallery", "Every widget in every family, mode and scheme",
                         drawGallery, chosen),
              options);

    addCommand(program, "control", "The timer control's value", showControl, chosen)
        .add_flag("--preview", options.preview, "As for the gallery");

    CLI::App& perform =
        addCommand(program, "perform", "Runs an action of a widget", performAction, chosen);
    perform.add_option("INTENT", options.intent, "Name of the action")->required();
    perform.add_option("ASSIGNMENTS", options.assignments, "Parameters as key=value");
    perform.add_flag("--print-urls", options.printUrlsOnly,
                     "Print the URLs it would open, and open none");

    addCommand(program, "check", "Says why a snapshot is unreadable", checkSnapshot, chosen)
        .add_option("FILE", options.file, "A file, instead of the planner's own");

    addCommand(program, "reload", "Has the running kelmar-widgets ask for new timelines",
               reloadOnDesktop, chosen)
        .add_option("KIND", options.kind, "Only those of one kind of widget");
    addCommand(program, "explain", "Why the widgets on the desktop show what they show",
               explainDesktop, chosen)
        .add_option("KIND", options.kind, "Only those of one kind of widget");
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App program(
        "Shows and drives the Kelmar Planner widgets without a desktop; reload and explain speak "
        "to the kelmar-widgets that runs in this session",
        "kelmar-widgetctl");
    Options options;
    Command chosen = nullptr;
    program.set_version_flag("--version", "kelmar-widgetctl " KELMAR_VERSION);
    addCommonOptions(program, options);
    addCommands(program, options, chosen);
    program.require_subcommand(1);
    try {
        program.parse(argc, argv);
    } catch (const CLI::Success& asked) {  // --help, --version
        return program.exit(asked);
    } catch (const CLI::Error& error) {
        std::cerr << "kelmar-widgetctl: " << error.what() << '\n';
        return usageStatus;
    }
    try {
        return chosen(options);
    } catch (const UsageError& error) {
        std::cerr << "kelmar-widgetctl: " << error.what() << '\n';
        return usageStatus;
    } catch (const CommandError& error) {
        std::cerr << "kelmar-widgetctl: " << error.what() << '\n';
        return failedStatus;
    }
}
