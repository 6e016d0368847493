#include <filesystem>
#include <gtest/gtest.h>

#include "System/Localization.h"
#include "tests/Support/ScopedVariable.h"
#include "tests/Support/TemporaryFolder.h"

namespace kelmar::system {
namespace {

using testing::ScopedVariable;

/// Catalogues as msgfmt writes them, for a few languages.
class GettextTest : public ::testing::Test {
protected:
    void putCatalogue(const std::string& language, const std::string& key,
                      const std::string& text) const {
        const std::filesystem::path folder = disk_.path() / language / "LC_MESSAGES";
        std::filesystem::create_directories(folder);
        disk_.put(language + ".po",
                  "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n"
                  "msgid \"" +
                      key + "\"\nmsgstr \"" + text + "\"\n");
        const std::string command = "msgfmt -o '" +
                                    (folder / "kelmar-planner-widgets.mo").string() + "' '" +
                                    disk_.pathOf(language + ".po") + "'";
        ASSERT_EQ(std::system(command.c_str()), 0);
    }

    [[nodiscard]] GettextLocalization localization(const std::string& locale) const {
        return {locale, disk_.path().string()};
    }

    testing::TemporaryFolder disk_;
    // What a localization sets for its process ends with the test.
    ScopedVariable languages_{"LANGUAGE", std::nullopt};
    ScopedVariable all_{"LC_ALL", std::nullopt};
    ScopedVariable messages_{"LC_MESSAGES", std::nullopt};
};

TEST_F(GettextTest, SpeaksTheLanguageOfTheLocale) {
    putCatalogue("de", "Due Today", "Heute fällig");
    EXPECT_EQ(localization("de_DE").text("Due Today"), "Heute fällig");
    EXPECT_EQ(localization("de_AT@calendar=gregorian").text("Due Today"), "Heute fällig");
    EXPECT_EQ(localization("de").text("Due Today"), "Heute fällig");
    EXPECT_EQ(localization("de_DE.UTF-8").text("Due Today"), "Heute fällig");
    EXPECT_EQ(localization("de-DE").text("Due Today"), "Heute fällig");
}

TEST_F(GettextTest, PrefersTheCatalogueOfTheCountry) {
    putCatalogue("pt", "file", "ficheiro");
    putCatalogue("pt_BR", "file", "arquivo");
    EXPECT_EQ(localization("pt_BR").text("file"), "arquivo");
    EXPECT_EQ(localization("pt_PT").text("file"), "ficheiro");
}

TEST_F(GettextTest, ShowsTheKeyWhereNothingIsTranslated) {
    putCatalogue("de", "Due Today", "Heute fällig");
    EXPECT_EQ(localization("de").text("Nothing due"), "Nothing due");
    EXPECT_EQ(localization("fr").text("Due Today"), "Due Today");
    EXPECT_EQ(localization("en_US").text("Due Today"), "Due Today");
}

TEST_F(GettextTest, ShowsNothingForTheEmptyKey) {
    putCatalogue("de", "Due Today", "Heute fällig");
    EXPECT_EQ(localization("de").text(""), "");
}

TEST_F(GettextTest, PutsTheArgumentWhereTheTranslationWantsIt) {
    putCatalogue("de", "Undo “{}”", "„{}“ zurücknehmen");
    EXPECT_EQ(localization("de").text("Undo “{}”", "Lab {} report"),
              "„Lab {} report“ zurücknehmen");
}

struct EnvironmentCase {
    std::optional<std::string> all;
    std::optional<std::string> messages;
    const char* text;
};

TEST_F(GettextTest, TakesTheLanguageOfTheEnvironmentWhenToldNone) {
    putCatalogue("de", "Due Today", "Heute fällig");
    putCatalogue("fr", "Due Today", "À rendre aujourd’hui");
    const ScopedVariable language("LANG", "de_DE.UTF-8");
    for (const EnvironmentCase& environment :
         {EnvironmentCase{std::nullopt, std::nullopt, "Heute fällig"},
          EnvironmentCase{std::nullopt, "fr_FR.UTF-8", "À rendre aujourd’hui"},
          EnvironmentCase{"C", "fr_FR.UTF-8", "Due Today"}}) {
        const ScopedVariable list("LANGUAGE", std::nullopt);
        const ScopedVariable ofAll("LC_ALL", environment.all);
        const ScopedVariable ofMessages("LC_MESSAGES", environment.messages);
        EXPECT_EQ(localization("").text("Due Today"), environment.text);
    }
}

TEST_F(GettextTest, FollowsTheUsersOwnListOfLanguages) {
    putCatalogue("de", "Due Today", "Heute fällig");
    putCatalogue("fr", "Due Today", "À rendre aujourd’hui");
    const ScopedVariable language("LANG", "de_DE.UTF-8");
    const ScopedVariable list("LANGUAGE", "sv:fr:de");
    EXPECT_EQ(localization("").text("Due Today"), "À rendre aujourd’hui");
    EXPECT_EQ(localization("de_DE").text("Due Today"), "Heute fällig");
}

TEST_F(GettextTest, IgnoresTheListWhereTheEnvironmentHasNoLanguage) {
    putCatalogue("de", "Due Today", "Heute fällig");
    const ScopedVariable language("LANG", "C.UTF-8");
    const ScopedVariable list("LANGUAGE", "de");
    EXPECT_EQ(localization("").text("Due Today"), "Due Today");
}

TEST(EnglishLocalization, ShowsEveryKeyAsItStands) {
    const EnglishLocalization english;
    EXPECT_EQ(english.text("You’re all caught up"), "You’re all caught up");
    EXPECT_EQ(english.text("+{} more", "3"), "+3 more");
    EXPECT_EQ(english.text("no place", "3"), "no place");
}

TEST(CatalogueFolder, LiesBesideTheFolderOfTheProgram) {
    const std::filesystem::path program = std::filesystem::canonical("/proc/self/exe");
    EXPECT_EQ(catalogueFolder(), program.parent_path().parent_path() / "share/locale");
}

}  // namespace
}  // namespace kelmar::system
