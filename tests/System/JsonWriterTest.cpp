#include <cmath>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck.h>

#include "System/JsonWriter.h"

namespace kelmar::system {
namespace {

template <class Write>
std::string written(Write write) {
    JsonWriter json;
    write(json);
    return json.text();
}

std::string number(double value) {
    return written([&](JsonWriter& json) { json.number(value); });
}

TEST(JsonWriter, KeepsTheOrderOfKeys) {
    EXPECT_EQ(written([](JsonWriter& json) {
                  json.beginObject();
                  json.key("b");
                  json.beginArray();
                  json.boolean(true);
                  json.null();
                  json.endArray();
                  json.key("a");
                  json.integer(-7);
                  json.key("c");
                  json.raw("{\"d\":1.50}");
                  json.endObject();
              }),
              R"({"b":[true,null],"a":-7,"c":{"d":1.50}})");
}

TEST(JsonWriter, EscapesWhatJsonDoesNotTakeAsItIs) {
    EXPECT_EQ(written([](JsonWriter& json) { json.string(std::string_view("a\"\\\n\0é", 7)); }),
              R"("a\"\\\n\u0000é")");
}

TEST(JsonWriter, WritesWholeNumbersWithoutAFraction) {
    EXPECT_EQ(number(1500), "1500");
    EXPECT_EQ(number(-3), "-3");
    EXPECT_EQ(number(1500.25), "1500.25");
}

TEST(JsonWriter, WritesNullForWhatIsNoNumber) {
    EXPECT_EQ(number(std::numeric_limits<double>::infinity()), "null");
    EXPECT_EQ(number(std::nan("")), "null");
}

TEST(JsonWriter, AnyNumberReadsBackAsTheSame) {
    EXPECT_TRUE(rc::check(
        [](double value) { RC_ASSERT(std::strtod(number(value).c_str(), nullptr) == value); }));
    EXPECT_TRUE(rc::check([](std::int64_t bits) {
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        RC_PRE(std::isfinite(value));
        RC_ASSERT(std::strtod(number(value).c_str(), nullptr) == value);
    }));
}

TEST(PrettyPrinted, KeepsKeysAndNumbersAsTheyAre) {
    EXPECT_EQ(prettyPrinted(R"({"b":[1.50,12345678901234567890,2e30],"a":"x"})"), R"({
  "b": [
    1.50,
    12345678901234567890,
    2e30
  ],
  "a": "x"
})");
}

}  // namespace
}  // namespace kelmar::system
