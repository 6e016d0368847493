#include "Desktop/Options.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fmt/format.h>

#include "Desktop/GivenOptions.h"

namespace kelmar::desktop {

namespace {

constexpr int usageStatus = 2;

/// What is wrong, for a person; empty where nothing is.
using Fault = std::string;

enum class Values { none, one, several };

/// An option, and what becomes of its values one after the other.
struct Rule {
    std::string_view name;
    Values values;
    std::string_view valueName;  ///< As the help writes it behind the name.
    std::string_view meaning;
    Fault (*take)(Options& options, const std::string& value);
};

Fault takeKeyFile(Options& options, const std::string& value) {
    options.keyFile = value;
    return {};
}

Fault takeAddition(Options& options, const std::string& value) {
    const std::size_t colon = value.rfind(':');
    const auto family =
        colon == std::string::npos ? std::nullopt : kit::familyNamed(value.substr(colon + 1));
    if (!family || colon == 0) {
        return "\"" + value + "\" is not of the form KIND:small, KIND:medium or KIND:large";
    }
    options.additions.push_back({value.substr(0, colon), *family});
    return {};
}

Fault takeIfArranged(Options& options, const std::string&) {
    options.onlyIfArranged = true;
    return {};
}

Fault takePicture(Options& options, const std::string& value) {
    options.pictureFile = value;
    return {};
}

Fault takeScheme(Options& options, const std::string& value) {
    if (value != "light" && value != "dark") {
        return "\"" + value + "\" is not light or dark";
    }
    options.scheme = value == "light" ? SchemeChoice::light : SchemeChoice::dark;
    return {};
}

Fault takeMode(Options& options, const std::string& value) {
    options.renderingMode = kit::renderingModeNamed(value);
    return options.renderingMode ? Fault()
                                 : "\"" + value + "\" is not fullColor, accented or vibrant";
}

/// Numbers with dots between them.
bool isVersion(std::string_view text) {
    char before = '.';
    return std::ranges::all_of(text,
                               [&before](char sign) {
                                   const bool isDigit = sign >= '0' && sign <= '9';
                                   const bool fits = isDigit || (sign == '.' && before != '.');
                                   before = sign;
                                   return fits;
                               }) &&
           before != '.';
}

Fault takeSystemVersion(Options& options, const std::string& value) {
    if (!isVersion(value)) {
        return "\"" + value + "\" is not of the form 26.0.0";
    }
    options.systemVersion = value;
    return {};
}

constexpr std::array rules{
    Rule{"--extension", Values::one, " KEYFILE",
         "The key file of the extension whose widgets are shown", takeKeyFile},
    Rule{"--add", Values::several, " KIND:FAMILY ...",
         "Widgets to put on the desktop besides those that are there", takeAddition},
    Rule{"--if-arranged", Values::none, "",
         "End at once where no widgets have been put on the desktop before", takeIfArranged},
    Rule{"--picture", Values::one, " FILE.png",
         "Draw the desktop into a file, without a display, and end", takePicture},
    Rule{"--scheme", Values::one, " SCHEME", "light or dark, instead of the desktop's own",
         takeScheme},
    Rule{"--mode", Values::one, " MODE", "fullColor, accented or vibrant", takeMode},
    Rule{"--system-version", Values::one, " VERSION",
         "The version of the system that the extension is told; it offers an older one less",
         takeSystemVersion}};

Fault faultOfCount(Values wanted, std::size_t given) {
    switch (wanted) {
        case Values::none:
            return given == 0 ? "" : "takes no value";
        case Values::one:
            return given == 1 ? "" : "takes one value";
        case Values::several:
            return given > 0 ? "" : "takes one value or more";
    }
    return {};
}

Fault take(Options& options, const GivenOption& given) {
    const auto* const rule = std::ranges::find(rules, given.name, &Rule::name);
    if (rule == rules.end()) {
        return "is not an option";
    }
    if (Fault fault = faultOfCount(rule->values, given.values.size()); !fault.empty()) {
        return fault;
    }
    for (const std::string& value : given.values) {
        if (Fault fault = rule->take(options, value); !fault.empty()) {
            return fault;
        }
    }
    return given.values.empty() ? rule->take(options, {}) : Fault();
}

std::string help() {
    const auto line = [](const std::string& option, std::string_view meaning) {
        return fmt::format("  {:<28}{}\n", option, meaning);
    };
    std::string text =
        "Keeps widgets on the desktop.\nUsage: kelmar-widgets [OPTIONS]\n\nOptions:\n" +
        line("-h,--help", "Print this help message and exit") +
        line("--version", "Display program version information and exit");
    for (const Rule& rule : rules) {
        text += line(fmt::format("{}{}", rule.name, rule.valueName), rule.meaning);
    }
    return text;
}

ExitStatus tell(std::FILE* stream, const std::string& text, int status) {
    std::fputs(text.c_str(), stream);
    return {status};
}

}  // namespace

std::variant<Options, ExitStatus> readOptions(int argc, const char* const* argv) {
    Options options;
    for (const GivenOption& given : givenOptions(argc, argv)) {
        if (given.name == "-h" || given.name == "--help") {
            return tell(stdout, help(), 0);
        }
        if (given.name == "--version") {
            return tell(stdout, "kelmar-widgets " KELMAR_VERSION "\n", 0);
        }
        if (const Fault fault = take(options, given); !fault.empty()) {
            return tell(stderr,
                        given.name + ": " + fault + "\nRun with --help for more information.\n",
                        usageStatus);
        }
    }
    return options;
}

}  // namespace kelmar::desktop
