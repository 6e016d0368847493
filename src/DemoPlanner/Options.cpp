#include "DemoPlanner/Options.h"

#include <CLI/CLI.hpp>

namespace kelmar::demo {

namespace {

constexpr int usageStatus = 2;

}  // namespace

std::variant<Options, int> readOptions(int count, const char* const* arguments) {
    Options options;
    CLI::App app("Stands in for the planner, so that its widgets can be tried without it.",
                 "kelmar-planner-demo");
    app.set_version_flag("--version", "kelmar-planner-demo " KELMAR_VERSION);
    auto* tasks = app.add_option_group("tasks");
    const auto addTask = [&](const char* name, Options::Task task, const char* help) {
        tasks->add_flag_callback(
            name, [&options, task] { options.task = task; }, help);
    };
    addTask("--background", Options::Task::runInBackground,
            "start without a window; links of widgets still show one");
    addTask("--register", Options::Task::registerHandler,
            "become the handler of kelmarplanner: URLs, unless another program is it");
    addTask("--unregister", Options::Task::unregisterHandler, "take --register back");
    addTask("--quit", Options::Task::quit, "end the one that runs");
    tasks->require_option(0, 1);
    app.add_option("URL", options.url, "a kelmarplanner: URL to open");
    try {
        app.parse(count, arguments);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : usageStatus;
    }
    return options;
}

}  // namespace kelmar::demo
