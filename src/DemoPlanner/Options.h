#pragma once

#include <string>
#include <variant>

namespace kelmar::demo {

/// What the command line asks for.
struct Options {
    enum class Task { run, runInBackground, registerHandler, unregisterHandler, quit };

    Task task = Task::run;
    std::string url;  ///< Empty when none was given.
};

/// Reads the command line; an exit status when it asks for help or cannot be understood, which
/// has been said by then.
[[nodiscard]] std::variant<Options, int> readOptions(int count, const char* const* arguments);

}  // namespace kelmar::demo
