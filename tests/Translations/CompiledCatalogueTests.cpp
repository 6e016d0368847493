#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <string>

#include "System/Localization.h"
#include "tests/Translations/CatalogueFile.h"

namespace kelmar::translations {
namespace {

/// How many keys of a catalogue are said otherwise than the catalogue has it.
int countWrong(const std::string& localeId, const std::string& catalogueName) {
    const system::GettextLocalization localization(localeId, CATALOGUE_FOLDER);
    int wrong = 0;
    for (const auto& [key, message] :
         readCatalogue(std::string(TRANSLATIONS_FOLDER) + "/" + catalogueName + ".po")) {
        if (localization.text(key) != message.translation) {
            std::cerr << key << ": " << localization.text(key) << "\n";
            ++wrong;
        }
    }
    return wrong;
}

// gettext's choice of language belongs to the process, so each is made in a process of its own.

TEST(CompiledCatalogueDeathTest, GermanIsSpokenInEveryGermanCountry) {
    EXPECT_EXIT(std::exit(countWrong("de_AT", "de")), testing::ExitedWithCode(0), "");
}

TEST(CompiledCatalogueDeathTest, ArabicIsSpokenInEveryArabicCountry) {
    EXPECT_EXIT(std::exit(countWrong("ar_SA@calendar=islamic-umalqura", "ar")),
                testing::ExitedWithCode(0), "");
}

TEST(CompiledCatalogueDeathTest, TheVariablePartIsFilledIn) {
    const auto isFilledIn = [] {
        const system::GettextLocalization localization("de_DE", CATALOGUE_FOLDER);
        return localization.text("Until {}", "15:30") == "Bis 15:30";
    };
    EXPECT_EXIT(std::exit(isFilledIn() ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST(CompiledCatalogueDeathTest, WithoutACatalogueTheKeysStand) {
    const auto keysStand = [] {
        const system::GettextLocalization localization("fr_FR", CATALOGUE_FOLDER);
        return localization.text("Overdue") == "Overdue";
    };
    EXPECT_EXIT(std::exit(keysStand() ? 0 : 1), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace kelmar::translations
