#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Desktop/GivenOptions.h"

namespace kelmar::desktop {
namespace {

using Words = std::vector<const char*>;
using Given = std::vector<GivenOption>;

Given given(const Words& words) {
    std::vector<const char*> arguments{"program"};
    arguments.insert(arguments.end(), words.begin(), words.end());
    return givenOptions(static_cast<int>(arguments.size()), arguments.data());
}

TEST(GivenOptions, ProgramWithoutWordsHasNone) {
    EXPECT_EQ(given({}), Given());
    EXPECT_EQ(givenOptions(0, nullptr), Given());
}

TEST(GivenOptions, WordsBelongToTheOptionBeforeThem) {
    EXPECT_EQ(given({"--add", "a", "b", "-h", "--picture", "c"}),
              (Given{{"--add", {"a", "b"}}, {"-h", {}}, {"--picture", {"c"}}}));
}

TEST(GivenOptions, FirstEqualsSignEndsTheName) {
    EXPECT_EQ(given({"--add=a=b", "c", "--picture=", "--scheme=-x"}),
              (Given{{"--add", {"a=b", "c"}}, {"--picture", {""}}, {"--scheme", {"-x"}}}));
}

TEST(GivenOptions, SignsInValuesEndNothing) {
    EXPECT_EQ(given({"--add", "a=b-c"}), (Given{{"--add", {"a=b-c"}}}));
}

TEST(GivenOptions, StrayWordStandsThereByItself) {
    EXPECT_EQ(given({"a=b", "--add"}), (Given{{"a=b", {}}, {"--add", {}}}));
}

}  // namespace
}  // namespace kelmar::desktop
