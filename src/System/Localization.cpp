#include "System/Localization.h"

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <libintl.h>
#include <system_error>

#include "System/EnvironmentLocale.h"
#include "System/IcuLocale.h"

namespace kelmar::system {
namespace {

constexpr const char* textDomain = "kelmar-planner-widgets";

/// gettext's priority list for a locale: the language as the country writes it, then the language.
std::string languageList(const std::string& localeId) {
    const icu::Locale locale = makeLocale(localeId);
    const std::string language = locale.getLanguage();
    const std::string country = locale.getCountry();
    return country.empty() ? language : language + "_" + country + ":" + language;
}

/// The environment's own list if the user keeps one, else that of the locale of messages. As
/// everywhere with gettext, the list counts for nothing where the locale has no language.
std::string environmentLanguageList() {
    const std::optional<std::string> localeId = environmentLocaleId("LC_MESSAGES");
    if (!localeId)
        return "en";
    const char* const list = std::getenv("LANGUAGE");
    return list != nullptr && *list != '\0' ? list : languageList(*localeId);
}

}  // namespace

std::string Localization::text(std::string_view englishKey, std::string_view argument) const {
    std::string result = text(englishKey);
    if (const std::size_t place = result.find("{}"); place != std::string::npos)
        result.replace(place, 2, argument);
    return result;
}

std::string EnglishLocalization::text(std::string_view englishKey) const {
    return std::string(englishKey);
}

void GettextLocalization::chooseLanguages(const std::string& localeId) {
    const std::string languages =
        localeId.empty() ? environmentLanguageList() : languageList(localeId);
    const char* const chosen = std::getenv("LANGUAGE");
    if (chosen == nullptr || languages != chosen) {
        ::setenv("LANGUAGE", languages.c_str(), 1);
    }
}

GettextLocalization::GettextLocalization(const std::string& localeId,
                                         const std::string& catalogueFolder) {
    chooseLanguages(localeId);
    // gettext looks at LANGUAGE only while the locale of messages is not "C"; "C.UTF-8" is not,
    // and is there on every machine, whichever locales have been generated.
    // Going there by way of "C" makes gettext forget what it has looked up for another list.
    std::setlocale(LC_MESSAGES, "C");
    std::setlocale(LC_MESSAGES, "C.UTF-8");
    ::bindtextdomain(textDomain, catalogueFolder.c_str());
    ::bind_textdomain_codeset(textDomain, "UTF-8");
}

std::string GettextLocalization::text(std::string_view englishKey) const {
    // The empty key stands for a catalogue's own header.
    return englishKey.empty() ? "" : ::dgettext(textDomain, std::string(englishKey).c_str());
}

std::string catalogueFolder() {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    // Programs that are not for people lie one folder deeper in an installation.
    const std::filesystem::path prefix = program.parent_path().parent_path();
    const std::filesystem::path near = prefix / "share/locale";
    return (std::filesystem::exists(near, error) ? near : prefix.parent_path() / "share/locale")
        .string();
}

}  // namespace kelmar::system
