#include <cstddef>
#include <gtest/gtest.h>
#include <string>

#include "tests/Translations/CatalogueFile.h"

namespace kelmar::translations {
namespace {

std::map<std::string, Message> catalogue(const std::string& name) {
    return readCatalogue(std::string(TRANSLATIONS_FOLDER) + "/" + name);
}

std::map<std::string, Message> keys() {
    return catalogue("kelmar-planner-widgets.pot");
}

std::size_t countOf(const std::string& piece, const std::string& text) {
    std::size_t count = 0;
    for (std::size_t place = text.find(piece); place != std::string::npos;
         place = text.find(piece, place + piece.size())) {
        ++count;
    }
    return count;
}

TEST(Catalogue, KeysHaveNoTranslationAndAtMostOneVariablePart) {
    ASSERT_GT(keys().size(), 60U);
    for (const auto& [key, message] : keys()) {
        EXPECT_EQ(message.translation, "") << key;
        EXPECT_LE(countOf("{}", key), 1U) << key;
        EXPECT_EQ(countOf("{", key), countOf("{}", key)) << key;
    }
}

TEST(Catalogue, KeysAreTheEnglishTextsToTheLetter) {
    const std::map<std::string, Message> known = keys();
    for (const char* const text :
         {"What's still to do today, and what's next, from Kelmar Planner.",
          "Open Kelmar Planner and sign in to see what’s due.", "You’re all caught up.", "due {}",
          "Mark {} done", "That’s everything coming up.", "Nothing else due this week.",
          "{}-day streak!", "Finish what’s due today. If you can’t, your streak freeze covers it.",
          "Finish what’s due today, or your {}-day streak ends.", "Break’s over", "Time’s up",
          "{} min", "Paused · {}", "Start · {} min", "Until {}"}) {
        EXPECT_TRUE(known.contains(text)) << text;
    }
}

class CatalogueOf : public testing::TestWithParam<const char*> {
protected:
    const std::map<std::string, Message> messages_ = catalogue(std::string(GetParam()) + ".po");
};

TEST_P(CatalogueOf, HasEveryKeyAndNoOther) {
    for (const auto& [key, message] : keys()) {
        EXPECT_TRUE(messages_.contains(key)) << key;
    }
    EXPECT_EQ(messages_.size(), keys().size());
}

TEST_P(CatalogueOf, EveryTranslationIsFinishedAndKeepsTheVariablePart) {
    for (const auto& [key, message] : messages_) {
        EXPECT_NE(message.translation, "") << key;
        EXPECT_FALSE(message.isFuzzy) << key;
        EXPECT_EQ(countOf("{}", message.translation), countOf("{}", key)) << key;
        EXPECT_EQ(countOf("\n", message.translation), countOf("\n", key)) << key;
    }
}

TEST_P(CatalogueOf, TranslationsAreWrittenWithTypographicApostrophes) {
    for (const auto& [key, message] : messages_) {
        EXPECT_EQ(message.translation.find('\''), std::string::npos) << message.translation;
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, CatalogueOf, testing::Values("de", "ar"));

}  // namespace
}  // namespace kelmar::translations
