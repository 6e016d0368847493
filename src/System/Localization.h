#pragma once

#include <string>
#include <string_view>

namespace kelmar::system {

/// The words of the user interface in the user's language. A key is the English text itself; a
/// language without a catalogue, or a catalogue without the key, shows the key.
class Localization {
public:
    virtual ~Localization() = default;
    [[nodiscard]] virtual std::string text(std::string_view englishKey) const = 0;

    /// The text of a key that holds one "{}", with `argument` in its place.
    [[nodiscard]] std::string text(std::string_view englishKey, std::string_view argument) const;
};

/// English: every key as it stands.
class EnglishLocalization final : public Localization {
public:
    using Localization::text;
    [[nodiscard]] std::string text(std::string_view englishKey) const override;
};

/// gettext catalogues under `catalogueFolder`/LANGUAGE/LC_MESSAGES. gettext's choice of language
/// belongs to the process, so a process makes one of these, at its start; of several the latest
/// counts. Without a locale the language is that of the environment: LANGUAGE, or the locale of
/// messages.
class GettextLocalization final : public Localization {
public:
    GettextLocalization(const std::string& localeId, const std::string& catalogueFolder);

    /// Tells gettext the languages, which it takes from the environment. The constructor does so
    /// too; a program that has threads by then does it before: nobody may read the environment
    /// while a variable is added.
    static void chooseLanguages(const std::string& localeId);
    using Localization::text;
    [[nodiscard]] std::string text(std::string_view englishKey) const override;
};

/// Where the catalogues lie for a program of this project: in share/locale beside its own folder or
/// the folder above.
[[nodiscard]] std::string catalogueFolder();

}  // namespace kelmar::system
