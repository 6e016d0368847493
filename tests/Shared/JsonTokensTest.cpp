#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "Shared/JsonTokens.h"

namespace kelmar::shared {
namespace {

std::vector<std::string> tokensOf(std::string json) {
    JsonTokens tokens;
    std::vector<std::string> found;
    if (!tokens.find(json))
        return {"no tokens"};
    for (JsonTokens::Place token = tokens.begin(); token != tokens.end(); ++token)
        found.emplace_back(tokens.token(token));
    return found;
}

using Tokens = std::vector<std::string>;

TEST(JsonTokens, AreBracketsColonsCommasAndScalarsWithoutTheSpaceBetween) {
    EXPECT_EQ(tokensOf("{\"a\" : [1,true ,\tnull]}\n"),
              (Tokens{"{", "\"a\"", ":", "[", "1", ",", "true", ",", "null", "]", "}"}));
}

TEST(JsonTokens, LeaveATextWholeWhateverItHolds) {
    EXPECT_EQ(tokensOf("[\"{a: \\\" b}, \" ]"), (Tokens{"[", "\"{a: \\\" b}, \"", "]"}));
}

TEST(JsonTokens, AreNoneInATextThatIsBrokenBeyondItsGrammar) {
    for (const char* const text :
         {"", " \n", "[\"a]", "[\"a\nb\"]", "[\"\xFF\"]", "[\"\xED\xA0\x80\"]"})
        EXPECT_EQ(tokensOf(text), Tokens{"no tokens"}) << text;
}

TEST(JsonTokens, EndBehindTheLastOne) {
    std::string json = "[] ";
    JsonTokens tokens;
    ASSERT_TRUE(tokens.find(json));
    ASSERT_EQ(tokens.end() - tokens.begin(), 2);
    EXPECT_EQ(tokens.front(tokens.end()), '\0');
    EXPECT_EQ(tokens.token(tokens.end()), "");
}

TEST(JsonTokens, AreFoundInOneTextAfterTheOther) {
    JsonTokens tokens;
    std::string small = R"(["\n"])";
    std::string large = "[" + std::string(100'000, ' ') + "\"plain\"]";
    for (std::string* const json : {&small, &large, &small}) {
        ASSERT_TRUE(tokens.find(*json));
        const std::string_view text = tokens.quoted(tokens.begin() + 1);
        EXPECT_EQ(text, json == &small ? "\\n" : "plain");
        EXPECT_EQ(tokens.hasEscapes(text), json == &small);
    }
}

TEST(JsonTokens, KnowWhichTextsHoldEscapes) {
    std::string json = R"(["plain", "a\u00e9" , "plain", "\\", ""])";
    JsonTokens tokens;
    ASSERT_TRUE(tokens.find(json));
    std::vector<bool> escaped;
    for (JsonTokens::Place token = tokens.begin(); token != tokens.end(); ++token) {
        if (tokens.front(token) == '"')
            escaped.push_back(tokens.hasEscapes(tokens.quoted(token)));
    }
    EXPECT_EQ(escaped, (std::vector<bool>{false, true, false, true, false}));
}

TEST(JsonTokens, GiveAWholeValueWithWhatItHolds) {
    std::string json = "[ {\"a\": [1, {}]} , 2]";
    JsonTokens tokens;
    ASSERT_TRUE(tokens.find(json));
    const JsonTokens::Place object = tokens.begin() + 1;
    EXPECT_EQ(tokens.value(object), "{\"a\": [1, {}]}");
    EXPECT_EQ(tokens.token(tokens.behind(object)), ",");
    EXPECT_EQ(tokens.value(tokens.behind(object) + 1), "2");
}

TEST(JsonTokens, EndTheTextWhereABracketIsNotClosed) {
    std::string json = "[[1, 2";
    JsonTokens tokens;
    ASSERT_TRUE(tokens.find(json));
    EXPECT_EQ(tokens.behind(tokens.begin()), tokens.end());
}

struct Unescaped {
    const char* json;
    const char* text;  ///< Nothing when the escapes are broken.
};

class TextWithEscapes : public ::testing::TestWithParam<Unescaped> {};

TEST_P(TextWithEscapes, StandsForItsCharactersOrIsRefused) {
    std::string json = GetParam().json;
    JsonTokens tokens;
    ASSERT_TRUE(tokens.find(json));
    std::string text = "of the text before";
    const bool isGood = tokens.unescape(tokens.quoted(tokens.begin()), text);
    ASSERT_EQ(isGood, GetParam().text != nullptr);
    if (isGood) {
        EXPECT_EQ(text, GetParam().text);
    }
}

INSTANTIATE_TEST_SUITE_P(
    JsonTokens, TextWithEscapes,
    ::testing::Values(Unescaped{R"("\"\\\/\n")", "\"\\/\n"}, Unescaped{R"("caf\u00e9")", "café"},
                      Unescaped{R"("\ud83c\udf93!")", "🎓!"}, Unescaped{R"("\ud83c")", nullptr},
                      Unescaped{R"("\udf93")", nullptr}, Unescaped{R"("\ud83c\u0041")", nullptr},
                      Unescaped{R"("\x")", nullptr}, Unescaped{R"("\u12g4")", nullptr}));

}  // namespace
}  // namespace kelmar::shared
