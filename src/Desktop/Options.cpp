#include "Desktop/Options.h"

#include <QCommandLineParser>
#include <QVersionNumber>
#include <array>
#include <cstdio>
#include <fmt/format.h>

namespace kelmar::desktop {

namespace {

constexpr int usageStatus = 2;

/// What is wrong, for a person; empty where nothing is.
using Fault = std::string;

/// An option, and what becomes of its values one after the other.
struct Rule {
    const char* name;
    const char* valueName;  ///< As the help writes it; empty where the option takes no value.
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

bool isVersion(const std::string& text) {
    const QString whole = QString::fromStdString(text);
    qsizetype end = 0;
    return !QVersionNumber::fromString(whole, &end).isNull() && end == whole.size();
}

Fault takeSystemVersion(Options& options, const std::string& value) {
    if (!isVersion(value)) {
        return "\"" + value + "\" is not of the form 26.0.0";
    }
    options.systemVersion = value;
    return {};
}

constexpr std::array rules{
    Rule{"extension", "KEYFILE", "The key file of the extension whose widgets are shown",
         takeKeyFile},
    Rule{"add", "KIND:FAMILY ...", "Widgets to put on the desktop besides those that are there",
         takeAddition},
    Rule{"if-arranged", "", "End at once where no widgets have been put on the desktop before",
         takeIfArranged},
    Rule{"picture", "FILE.png", "Draw the desktop into a file, without a display, and end",
         takePicture},
    Rule{"scheme", "SCHEME", "light or dark, instead of the desktop's own", takeScheme},
    Rule{"mode", "MODE", "fullColor, accented or vibrant", takeMode},
    Rule{"system-version", "VERSION",
         "The version of the system that the extension is told; it offers an older one less",
         takeSystemVersion}};

/// Every byte of a word is a sign here, so that names of files come out as they went in.
std::string bytes(const QString& text) {
    return text.toLatin1().toStdString();
}

/// The parser knows one value an option: "--add A B" becomes "--add A --add=B".
QStringList words(int argc, const char* const* argv) {
    QStringList words{"kelmar-widgets"};
    bool isAdding = false;
    for (int i = 1; i < argc; ++i) {
        const QString word = QString::fromLatin1(argv[i]);
        const bool isOption = word.startsWith('-');
        if (isOption) {
            isAdding = word == "--add" || word.startsWith("--add=");
        }
        const bool isFurther = isAdding && !isOption && words.back() != "--add";
        words.append(isFurther ? "--add=" + word : word);
    }
    return words;
}

Fault take(Options& options, const Rule& rule, const QStringList& values,
           const QStringList& words) {
    for (const QString& value : values) {
        // The parser takes whatever follows, even the next option.
        const bool isOption = value.startsWith('-') && words.contains(value);
        const Fault fault = isOption ? "takes a value, not \"" + bytes(value) + "\""
                                     : rule.take(options, bytes(value));
        if (!fault.empty()) {
            return fmt::format("--{}: {}", rule.name, fault);
        }
    }
    return {};
}

Fault takeAll(Options& options, const QCommandLineParser& parser, const QStringList& words) {
    for (const Rule& rule : rules) {
        if (!parser.isSet(rule.name)) {
            continue;
        }
        // An option without values is taken once, with nothing.
        const bool hasValues = *rule.valueName != '\0';
        const QStringList values = hasValues ? parser.values(rule.name) : QStringList("");
        if (Fault fault = take(options, rule, values, words); !fault.empty()) {
            return fault;
        }
    }
    const QStringList strays = parser.positionalArguments();
    return strays.empty() ? Fault() : bytes(strays.front()) + ": belongs to no option";
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
        const std::string_view gap = *rule.valueName == '\0' ? "" : " ";
        text += line(fmt::format("--{}{}{}", rule.name, gap, rule.valueName), rule.meaning);
    }
    return text;
}

ExitStatus tell(std::FILE* stream, const std::string& text, int status) {
    std::fputs(text.c_str(), stream);
    return {status};
}

}  // namespace

std::variant<Options, ExitStatus> readOptions(int argc, const char* const* argv) {
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOptions({{QStringList{"h", "help"}, {}}, QCommandLineOption("version")});
    for (const Rule& rule : rules) {
        parser.addOption({rule.name, {}, rule.valueName});
    }
    const QStringList given = words(argc, argv);
    const bool isParsed = parser.parse(given);
    if (parser.isSet("help")) {
        return tell(stdout, help(), 0);
    }
    if (parser.isSet("version")) {
        return tell(stdout, "kelmar-widgets " KELMAR_VERSION "\n", 0);
    }
    Options options;
    const Fault fault = isParsed ? takeAll(options, parser, given) : bytes(parser.errorText());
    if (!fault.empty()) {
        return tell(stderr, fault + "\nRun with --help for more information.\n", usageStatus);
    }
    return options;
}

}  // namespace kelmar::desktop
