#include <gtest/gtest.h>
#include <string>

#include "Shared/JsonSyntax.h"

namespace kelmar::shared {

void PrintTo(const SyntaxError& error, std::ostream* stream) {
    *stream << error.offset << ": " << error.reason;
}

namespace {

class ValidJson : public ::testing::TestWithParam<const char*> {};

TEST_P(ValidJson, HasNoError) {
    EXPECT_EQ(findSyntaxError(GetParam()), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Scalars, ValidJson,
                         ::testing::Values("true", "false", "null", " 0 ", "-0.5e-7", "\"\"",
                                           "\"é漢🎓\"", "\"\\\"\\\\\\/\\b\\f\\n\\r\\t\"",
                                           "\"\\u0000\\u00e9\\uFFFF\"", "\"\\ud83c\\udf93\"",
                                           "\"\x7F\""));
INSTANTIATE_TEST_SUITE_P(Containers, ValidJson,
                         ::testing::Values("[]", "{}", "[1,2]", "[[],{},[[]]]", "{\"a\":1}",
                                           "{\"a\":1,\"a\":2}", "{\"\":{\"a\":[null]}}",
                                           "\r\n\t [ 1 , { \"a\" : [ ] } ] \n"));
INSTANTIATE_TEST_SUITE_P(NumbersBeyondAllTypes, ValidJson,
                         ::testing::Values("1e400", "-1e-400", "123456789012345678901234567890",
                                           "1e99999999999999999999"));

struct Broken {
    const char* json;
    std::size_t offset;
    const char* reason;

    friend void PrintTo(const Broken& broken, std::ostream* stream) { *stream << broken.json; }
};

class BrokenJson : public ::testing::TestWithParam<Broken> {};

TEST_P(BrokenJson, IsBrokenAtTheFirstWrongByte) {
    EXPECT_EQ(findSyntaxError(GetParam().json), (SyntaxError{GetParam().offset, GetParam().reason}))
        << GetParam().json;
}

constexpr const char* value = "a value is missing or misspelt";
constexpr const char* separator = "a comma or a closing bracket is missing";
constexpr const char* key = "a key in quotation marks is missing";
constexpr const char* escape = "a text holds a broken escape";
constexpr const char* trailing = "something follows the end";

INSTANTIATE_TEST_SUITE_P(Values, BrokenJson,
                         ::testing::Values(Broken{"", 0, value}, Broken{"  ", 2, value},
                                           Broken{"nul", 0, value}, Broken{"True", 0, value},
                                           Broken{"[1,]", 3, value}, Broken{"[,1]", 1, value},
                                           Broken{"{\"a\":}", 5, value}, Broken{"NaN", 0, value},
                                           Broken{"'a'", 0, value}, Broken{"[+1]", 1, value},
                                           Broken{"\xEF\xBB\xBF{}", 0, value}));
INSTANTIATE_TEST_SUITE_P(
    Structure, BrokenJson,
    ::testing::Values(Broken{"[1 2]", 3, separator}, Broken{"[1}", 2, separator},
                      Broken{"{\"a\":1]", 6, separator}, Broken{"[[1]", 4, separator},
                      Broken{"[", 1, value}, Broken{"{", 1, key}, Broken{"{1:2}", 1, key},
                      Broken{"{\"a\":1,}", 7, key}, Broken{"{\"a\" 1}", 5, "a colon is missing"},
                      Broken{"[truefalse]", 5, separator}, Broken{"[1x]", 2, separator},
                      Broken{"[\"a\"\"b\"]", 4, separator}));
INSTANTIATE_TEST_SUITE_P(Ends, BrokenJson,
                         ::testing::Values(Broken{"{} {}", 3, trailing}, Broken{"[]]", 2, trailing},
                                           Broken{"01", 0, value}, Broken{"null,", 4, trailing}));
INSTANTIATE_TEST_SUITE_P(
    Texts, BrokenJson,
    ::testing::Values(Broken{"\"a", 2, "a text has no end"},
                      Broken{"\"a\nb\"", 2, "a text holds a control character"},
                      Broken{"\"\t\"", 1, "a text holds a control character"},
                      Broken{"\"\\x\"", 2, escape}, Broken{"\"\\u12g4\"", 3, escape},
                      Broken{"\"\\u-123\"", 3, escape}, Broken{"\"\\u12\"", 3, escape}));
INSTANTIATE_TEST_SUITE_P(HalfSurrogates, BrokenJson,
                         ::testing::Values(Broken{"\"\\ud800\"", 7, escape},
                                           Broken{"\"\\udc00\"", 7, escape},
                                           Broken{"\"\\ud800\\u0041\"", 13, escape},
                                           Broken{"\"\\ud800\\ud800\"", 13, escape}));
INSTANTIATE_TEST_SUITE_P(Bytes, BrokenJson,
                         ::testing::Values(Broken{"\"a\xFF\"", 2, "a byte is not UTF-8"},
                                           Broken{"[1, \xC3]", 4, "a byte is not UTF-8"},
                                           Broken{"\"\xED\xA0\x80\"", 1, "a byte is not UTF-8"}));

TEST(JsonSyntax, FindsAZeroByteBetweenValues) {
    EXPECT_EQ(findSyntaxError(std::string_view("[\0]", 3)), (SyntaxError{1, value}));
    EXPECT_EQ(findSyntaxError(std::string_view("[]\0", 3)), (SyntaxError{2, trailing}));
}

TEST(JsonSyntax, IsNotExhaustedByDepth) {
    constexpr std::size_t depth = 2'000'000;
    const std::string open(depth, '[');
    EXPECT_EQ(findSyntaxError(open + std::string(depth, ']')), std::nullopt);
    EXPECT_EQ(findSyntaxError(open), (SyntaxError{depth, value}));
}

}  // namespace
}  // namespace kelmar::shared
