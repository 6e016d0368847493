#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <vector>

#include "Kit/Environment.h"
#include "Paint/Appearance.h"
#include "System/Date.h"

namespace kelmar::tools {

/// Statuses that the program ends with, besides 0 and a fatal fault's.
inline constexpr int failedStatus = 1;
inline constexpr int usageStatus = 2;

/// The surroundings that a command line chooses, and how the answer is to look.
struct Options {
    std::optional<std::string> home;  ///< Else the account database's.
    std::optional<system::Date> now;  ///< Else the clock's.
    std::string timeZone;             ///< Else the machine's.
    std::string locale;               ///< Else the environment's.
    kit::Family family = kit::Family::small;
    kit::RenderingMode mode = kit::RenderingMode::fullColor;
    paint::Scheme scheme = paint::Scheme::light;
    double scale = 1;
    std::string systemVersion = "26.0.0";
    bool json = false;

    // What single commands add.
    std::string kind;
    bool preview = false;
    std::string output;
    std::string file;
    std::string intent;
    std::vector<std::string> assignments;  ///< "key=value"
    bool printUrlsOnly = false;
};

/// Declares the options that every command understands, before or behind its name.
void addCommonOptions(CLI::App& program, Options& options);

}  // namespace kelmar::tools
