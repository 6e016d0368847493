#include <gtest/gtest.h>

#include "Desktop/SettingsFollower.h"
#include "tests/Support/ScopedVariable.h"

namespace kelmar::desktop {
namespace {

using testing::ScopedVariable;

layout::Direction directionIn(const char* locale) {
    const ScopedVariable all("LC_ALL", std::nullopt);
    const ScopedVariable language("LANG", "en_US.UTF-8");
    const ScopedVariable time("LC_TIME", locale);
    return writingDirection();
}

TEST(WritingDirection, IsThatOfTheLocaleOfDates) {
    for (const char* const locale : {"ar_EG.UTF-8", "he_IL", "fa_IR@latin", "ur_PK.utf8"}) {
        EXPECT_EQ(directionIn(locale), layout::Direction::rightToLeft) << locale;
    }
    for (const char* const locale : {"de_DE.UTF-8", "C", "C.UTF-8", "POSIX", "xx_YY", ""}) {
        EXPECT_EQ(directionIn(locale), layout::Direction::leftToRight) << locale;
    }
}

TEST(WritingDirection, GoesByTheLocaleOfEverythingFirst) {
    const ScopedVariable all("LC_ALL", "ar_EG.UTF-8");
    const ScopedVariable time("LC_TIME", "de_DE.UTF-8");
    EXPECT_EQ(writingDirection(), layout::Direction::rightToLeft);
}

}  // namespace
}  // namespace kelmar::desktop
