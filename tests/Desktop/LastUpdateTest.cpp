#include <gtest/gtest.h>

#include "Desktop/LastUpdate.h"

namespace kelmar::desktop {
namespace {

/// A catalogue of two words.
class GermanTexts final : public system::Localization {
public:
    using Localization::text;
    [[nodiscard]] std::string text(std::string_view key) const override {
        return key == "en" ? "de" : key == "Last updated {}" ? "Zuletzt aktualisiert {}" : "?";
    }
};

TEST(LastUpdate, SaysHowLongAgoItWas) {
    EXPECT_EQ(lastUpdateText(12 * 60 + 3, system::EnglishLocalization()),
              "Last updated 12 minutes ago");
}

TEST(LastUpdate, IsInOneLanguageWhateverThatOfTheDatesIs) {
    EXPECT_EQ(lastUpdateText(2 * 3'600, GermanTexts()), "Zuletzt aktualisiert vor 2 Stunden");
}

}  // namespace
}  // namespace kelmar::desktop
