#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "System/Url.h"

namespace kelmar::system {
namespace {

TEST(UrlPath, KeepsEveryPathCharacterOfTheStandardButTheSemicolon) {
    const std::string kept = "AZaz09-._~!$&'()*+,=:@";
    EXPECT_EQ(encodeUrlPath(kept, Slash::kept), kept);
    EXPECT_EQ(encodeUrlPath(kept, Slash::encoded), kept);
    EXPECT_EQ(encodeUrlPath(";", Slash::kept), "%3B");
}

TEST(UrlPath, KeepsOrEncodesTheSlashAsAsked) {
    EXPECT_EQ(encodeUrlPath("a1/b", Slash::kept), "a1/b");
    EXPECT_EQ(encodeUrlPath("a1/b", Slash::encoded), "a1%2Fb");
}

TEST(UrlPath, EncodesWhatWouldEndOrSplitThePath) {
    EXPECT_EQ(encodeUrlPath("a?b#c%d", Slash::kept), "a%3Fb%23c%25d");
}

TEST(UrlPath, EncodesOtherCharactersByteByByteInUpperCase) {
    EXPECT_EQ(encodeUrlPath("é 🎓", Slash::kept), "%C3%A9%20%F0%9F%8E%93");
    EXPECT_EQ(encodeUrlPath("\"<>[\\]^`{|}", Slash::kept), "%22%3C%3E%5B%5C%5D%5E%60%7B%7C%7D");
}

TEST(UrlPath, EncodesAZeroByteAndWhatFollowsIt) {
    EXPECT_EQ(encodeUrlPath(std::string_view("a\0b", 3), Slash::kept), "a%00b");
}

TEST(UrlPath, EncodesNothingToNothing) {
    EXPECT_EQ(encodeUrlPath({}, Slash::kept), "");
}

TEST(UrlPath, AnyTextMakesAValidUrl) {
    EXPECT_TRUE(rc::check([](const std::string& bytes) {
        RC_ASSERT(isValidUrl("kelmarplanner://open/" + encodeUrlPath(bytes, Slash::kept)));
        RC_ASSERT(isValidUrl("kelmarplanner://open/" + encodeUrlPath(bytes, Slash::encoded)));
    }));
}

class ValidUrl : public ::testing::TestWithParam<const char*> {};

TEST_P(ValidUrl, IsAccepted) {
    EXPECT_TRUE(isValidUrl(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Examples, ValidUrl,
                         ::testing::Values("kelmarplanner://ticked",
                                           "kelmarplanner://untick/a1%2Fb",
                                           "HTTPS://user@example.org:8080/a/b?c=d/?#e?f",
                                           "http://[2001:db8::7]/", "mailto:a@example.org",
                                           "x:", "a+b-c.d:e"));

class InvalidUrl : public ::testing::TestWithParam<const char*> {};

TEST_P(InvalidUrl, IsRefused) {
    EXPECT_FALSE(isValidUrl(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Examples, InvalidUrl,
                         ::testing::Values("", "ticked", "//example.org/a", "://a", "1a://b",
                                           "kelmarplanner://a b", "kelmarplanner://a/%",
                                           "kelmarplanner://a/%2", "kelmarplanner://a/%zz",
                                           "kelmarplanner://a/é", "kelmarplanner://a/\"b\"",
                                           "kelmarplanner://a/[b]", "kelmarplanner://a/b#c#d",
                                           "http://example.org:port/", "a b://c"));

TEST(Url, WithAZeroByteIsRefused) {
    EXPECT_FALSE(isValidUrl(std::string_view("kelmarplanner://a\0b", 19)));
}

TEST(UrlScheme, IsGivenInLowerCase) {
    EXPECT_EQ(urlScheme("KelmarPlanner://ticked"), "kelmarplanner");
    EXPECT_EQ(urlScheme("mailto:a@example.org"), "mailto");
}

TEST(UrlScheme, IsEmptyWhereThereIsNone) {
    EXPECT_EQ(urlScheme(""), "");
    EXPECT_EQ(urlScheme("ticked"), "");
    EXPECT_EQ(urlScheme("/a:b"), "");
    EXPECT_EQ(urlScheme("1a:b"), "");
}

}  // namespace
}  // namespace kelmar::system
