#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "System/Base64.h"

namespace kelmar::system {
namespace {

TEST(Base64, EncodesTheVectorsOfTheStandard) {
    // RFC 4648, section 10.
    EXPECT_EQ(encodeBase64(""), "");
    EXPECT_EQ(encodeBase64("f"), "Zg==");
    EXPECT_EQ(encodeBase64("fo"), "Zm8=");
    EXPECT_EQ(encodeBase64("foo"), "Zm9v");
    EXPECT_EQ(encodeBase64("foob"), "Zm9vYg==");
    EXPECT_EQ(encodeBase64("fooba"), "Zm9vYmE=");
    EXPECT_EQ(encodeBase64("foobar"), "Zm9vYmFy");
}

TEST(Base64, UsesPlusAndSlash) {
    EXPECT_EQ(encodeBase64("\xFB\xEF\xFF"), "++//");
}

TEST(Base64, AnyBytesSurviveEncodingAndDecoding) {
    EXPECT_TRUE(rc::check(
        [](const std::string& bytes) { RC_ASSERT(decodeBase64(encodeBase64(bytes)) == bytes); }));
}

TEST(Base64, DecodesTheEmptyTextToNoBytes) {
    EXPECT_EQ(decodeBase64(""), "");
}

class Base64Refusal : public ::testing::TestWithParam<const char*> {};

TEST_P(Base64Refusal, GivesNothing) {
    EXPECT_EQ(decodeBase64(GetParam()), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(MalformedTexts, Base64Refusal,
                         ::testing::Values("Zg",        // padding missing
                                           "Zg=",       // not enough of it
                                           "Z===",      // too much of it
                                           "====",      // nothing else
                                           "=Zm9",      // at the wrong end
                                           "Zg==Zg==",  // in the middle
                                           "Zm 9v",     // white space ...
                                           "Zm9v\n", "Zm9\n", " Zm9vYmF",
                                           "Zm9-",  // the other alphabet
                                           "Zm9_",
                                           "Zm\xC3\xA9"));  // outside ASCII

TEST(Base64, RefusesAZeroByteAmongTheDigits) {
    EXPECT_EQ(decodeBase64(std::string_view("Zm\0v", 4)), std::nullopt);
}

}  // namespace
}  // namespace kelmar::system
