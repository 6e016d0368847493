#include "Tools/Options.h"

#include <fmt/format.h>
#include <functional>
#include <glib.h>
#include <memory>

#include "Tools/Moment.h"

namespace kelmar::tools {

namespace {

/// An option whose text is turned into a value by `parse`; `expected` says what it takes.
template <class Value, class Parse>
void addParsed(CLI::App& program, const std::string& name, Value& value, Parse parse,
               const std::string& typeName, const std::string& description) {
    const CLI::callback_t callback = [&value, parse, name, typeName](const CLI::results_t& texts) {
        const auto parsed = parse(texts.back());
        if (!parsed) {
            throw CLI::ValidationError(name,
                                       fmt::format("\"{}\" is not {}", texts.back(), typeName));
        }
        value = *parsed;
        return true;
    };
    program.add_option(name, callback, description)->type_name(typeName);
}

std::optional<paint::Scheme> schemeNamed(const std::string& name) {
    if (name == "light") {
        return paint::Scheme::light;
    }
    if (name == "dark") {
        return paint::Scheme::dark;
    }
    return std::nullopt;
}

/// ICU takes an unknown zone for UTC; somebody who mistypes one wants to know.
std::optional<std::string> timeZoneNamed(const std::string& name) {
    const std::unique_ptr<GTimeZone, decltype(&g_time_zone_unref)> zone(
        g_time_zone_new_identifier(name.c_str()), g_time_zone_unref);
    return zone ? std::optional(name) : std::nullopt;
}

std::optional<double> scaleNamed(const std::string& text) {
    constexpr double smallest = 0.5;
    constexpr double largest = 8;
    double scale = 0;
    if (!CLI::detail::lexical_cast(text, scale) || !(scale >= smallest && scale <= largest)) {
        return std::nullopt;
    }
    return scale;
}

}  // namespace

void addCommonOptions(CLI::App& program, Options& options) {
    // Said twice, the later one counts, so that a script's defaults can be overruled.
    program.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    program.add_option("--home", options.home, "Home folder, instead of the account database's");
    addParsed(program, "--now", options.now, momentNamed,
              "seconds since 1970, or ISO 8601 with an offset", "The moment to judge at");
    addParsed(program, "--time-zone", options.timeZone, timeZoneNamed, "an IANA time zone",
              "Time zone, instead of the machine's");
    program.add_option("--locale", options.locale, "Locale, such as de_DE");
    addParsed(program, "--family", options.family, kit::familyNamed, "small, medium or large",
              "Widget size");
    addParsed(program, "--mode", options.mode, kit::renderingModeNamed,
              "fullColor, accented or vibrant", "Rendering mode");
    addParsed(program, "--scheme", options.scheme, schemeNamed, "light or dark", "Colour scheme");
    addParsed(program, "--scale", options.scale, scaleNamed, "a number from 0.5 to 8",
              "Pixels a point");
    program.add_option("--system-version", options.systemVersion,
                       "Version of the host that the bundle is listed for");
    program.add_flag("--json", options.json, "Answer for programs");
}

}  // namespace kelmar::tools
