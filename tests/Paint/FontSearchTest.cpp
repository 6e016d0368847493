#include <chrono>
#include <future>
#include <gtest/gtest.h>

#include "Paint/FontSearch.h"

namespace kelmar::paint {
namespace {

TEST(FontSearch, FindsTheFontsOfAFamily) {
    FontSearch search;
    search.begin(QStringLiteral("Inter"));
    EXPECT_EQ(search.fonts().get(), FontSet(QStringLiteral("Inter")));
}

TEST(FontSearch, EndsWithoutEverHavingBegun) {
    std::shared_future<FontSet> fonts;
    {
        const FontSearch search;
        fonts = search.fonts();
    }
    ASSERT_EQ(fonts.wait_for(std::chrono::seconds(0)), std::future_status::ready);
    EXPECT_THROW(fonts.get(), std::future_error);
}

}  // namespace
}  // namespace kelmar::paint
