#include <gtest/gtest.h>

#include "System/Utf8.h"

namespace kelmar::system {
namespace {

TEST(InvalidUtf8, IsNotFoundInWellFormedText) {
    EXPECT_EQ(findInvalidUtf8(""), std::nullopt);
    EXPECT_EQ(findInvalidUtf8({}), std::nullopt);
    EXPECT_EQ(findInvalidUtf8("Presentación 漢 🎓"), std::nullopt);
    EXPECT_EQ(findInvalidUtf8(std::string_view("a\0b\0", 4)), std::nullopt);
}

TEST(InvalidUtf8, IsFoundWhereItStarts) {
    EXPECT_EQ(findInvalidUtf8("\xFF"), 0U);
    EXPECT_EQ(findInvalidUtf8("ab\x80"), 2U);            // a continuation by itself
    EXPECT_EQ(findInvalidUtf8("a\xC0\xAF"), 1U);         // an overlong form
    EXPECT_EQ(findInvalidUtf8("\xED\xA0\x80"), 0U);      // half a surrogate pair
    EXPECT_EQ(findInvalidUtf8("\xF4\x90\x80\x80"), 0U);  // beyond Unicode
    EXPECT_EQ(findInvalidUtf8("é\xE6\xBC"), 2U);         // cut off
    EXPECT_EQ(findInvalidUtf8(std::string_view("\0\xFF", 2)), 1U);
}

}  // namespace
}  // namespace kelmar::system
