#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "Host/SystemVersion.h"
#include "Kit/Environment.h"

namespace kelmar::desktop {

/// A widget that the command line asks for.
struct Addition {
    std::string kind;
    kit::Family family = kit::Family::medium;

    friend bool operator==(const Addition&, const Addition&) = default;
};

enum class SchemeChoice { followDesktop, light, dark };

/// What the command line says.
struct Options {
    std::string keyFile;  ///< Empty: the one beside the binary.
    std::vector<Addition> additions;
    bool onlyIfArranged = false;  ///< For starts that nobody asked for, such as at login.
    std::optional<std::string> pictureFile;
    SchemeChoice scheme = SchemeChoice::followDesktop;
    std::optional<kit::RenderingMode> renderingMode;
    std::string systemVersion = host::newestSystemVersion;

    friend bool operator==(const Options&, const Options&) = default;
};

/// Instead of options: the program has said what there was to say and ends with this status.
struct ExitStatus {
    int status = 0;

    friend bool operator==(const ExitStatus&, const ExitStatus&) = default;
};

/// Reads the command line; help goes to standard output, complaints to standard error.
[[nodiscard]] std::variant<Options, ExitStatus> readOptions(int argc, const char* const* argv);

}  // namespace kelmar::desktop
