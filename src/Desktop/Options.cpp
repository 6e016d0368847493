#include "Desktop/Options.h"

#include <CLI/CLI.hpp>
#include <map>
#include <regex>

namespace kelmar::desktop {

namespace {

constexpr int usageStatus = 2;

Addition readAddition(const std::string& text) {
    const std::size_t colon = text.rfind(':');
    const auto family =
        colon == std::string::npos ? std::nullopt : kit::familyNamed(text.substr(colon + 1));
    if (!family || colon == 0) {
        throw CLI::ValidationError(
            "--add", "\"" + text + "\" is not of the form KIND:small, KIND:medium or KIND:large");
    }
    return {text.substr(0, colon), *family};
}

kit::RenderingMode readMode(const std::string& text) {
    const auto mode = kit::renderingModeNamed(text);
    if (!mode) {
        throw CLI::ValidationError("--mode",
                                   "\"" + text + "\" is not fullColor, accented or vibrant");
    }
    return *mode;
}

/// What is wrong with it, or nothing.
std::string faultOfVersion(const std::string& text) {
    static const std::regex version("[0-9]+(\\.[0-9]+)*");
    return std::regex_match(text, version) ? std::string()
                                           : "\"" + text + "\" is not of the form 26.0.0";
}

void declare(CLI::App& command, Options& options) {
    command
        .add_option("--extension", options.keyFile,
                    "The key file of the extension whose widgets are shown")
        ->type_name("KEYFILE");
    command
        .add_option_function<std::vector<std::string>>(
            "--add",
            [&options](const std::vector<std::string>& texts) {
                for (const std::string& text : texts) {
                    options.additions.push_back(readAddition(text));
                }
            },
            "Widgets to put on the desktop besides those that are there")
        ->type_name("KIND:FAMILY");
    command.add_flag("--if-arranged", options.onlyIfArranged,
                     "End at once where no widgets have been put on the desktop before");
    command
        .add_option("--picture", options.pictureFile,
                    "Draw the desktop into a file, without a display, and end")
        ->type_name("FILE.png");
    command.add_option("--scheme", options.scheme, "light or dark, instead of the desktop's own")
        ->type_name("SCHEME")
        ->transform(
            CLI::Transformer(std::map<std::string, SchemeChoice>{{"light", SchemeChoice::light},
                                                                 {"dark", SchemeChoice::dark}})
                .description(""));
    command
        .add_option_function<std::string>(
            "--mode",
            [&options](const std::string& text) { options.renderingMode = readMode(text); },
            "fullColor, accented or vibrant")
        ->type_name("MODE");
    command
        .add_option(
            "--system-version", options.systemVersion,
            "The version of the system that the extension is told; it offers an older one less")
        ->type_name("VERSION")
        ->check(faultOfVersion);
}

}  // namespace

std::variant<Options, ExitStatus> readOptions(int argc, const char* const* argv) {
    Options options;
    CLI::App command("Keeps widgets on the desktop.", "kelmar-widgets");
    command.set_version_flag("--version", "kelmar-widgets " KELMAR_VERSION);
    declare(command, options);
    try {
        command.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const bool wentWell = command.exit(error) == 0;
        return ExitStatus{wentWell ? 0 : usageStatus};
    }
    return options;
}

}  // namespace kelmar::desktop
