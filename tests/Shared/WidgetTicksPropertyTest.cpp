#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "Shared/WidgetTicks.h"
#include "tests/Shared/AnySnapshot.h"
#include "tests/Support/MemoryFolder.h"

namespace kelmar::shared {
namespace {

TEST(AnyId, ComesBackFromItsFileName) {
    EXPECT_TRUE(rc::check([] {
        const std::string id = *anyText();
        const std::string name = WidgetTicks::fileName(id);
        RC_ASSERT(name.find_first_of("+/=") == std::string::npos);
        const auto expected = id.empty() ? std::nullopt : std::optional(id);
        RC_ASSERT(WidgetTicks::id(name, WidgetTicks::tickPrefix) == expected);
    }));
}

TEST(AnyFileName, GivesAnIdOfUtf8OrNone) {
    EXPECT_TRUE(rc::check([] {
        const auto digits =
            rc::gen::container<std::string>(rc::gen::elementOf(std::string("ABCwz019-_=+/ ")));
        const std::string name = "tick-" + *digits;
        const auto id = WidgetTicks::id(name, WidgetTicks::tickPrefix);
        RC_CLASSIFY(id.has_value(), "has an id");
        if (id)
            RC_ASSERT(WidgetTicks::id(WidgetTicks::fileName(*id), WidgetTicks::tickPrefix) == id);
    }));
}

TEST(AnyNote, IsTheSameAfterEncodingAndDecoding) {
    EXPECT_TRUE(rc::check([] {
        const double seconds =
            *rc::gen::inRange(978'307'200, 2'000'000'000) + *rc::gen::inRange(0, 1'000'000) / 1e6;
        const WidgetTicks::Note note{*anyText(), system::Date::since1970(seconds)};
        RC_ASSERT((WidgetTicks::decode(WidgetTicks::encode(note)) == note));
    }));
}

TEST(AnyBytes, AreANoteOrNone) {
    EXPECT_TRUE(rc::check(
        [](const std::string& bytes) { RC_ASSERT(WidgetTicks::decode(bytes) == std::nullopt); }));
}

TEST(TheOfferedTick, IsTheFirstOfTheYoungestThatMayBe) {
    EXPECT_TRUE(rc::check([] {
        const system::Date now = system::Date::since2001(763'000'000);
        const auto ages = *rc::gen::container<std::vector<int>>(rc::gen::inRange(-12, 50));
        testing::MemoryFolder folder;
        std::optional<WidgetTicks::Tick> expected;
        for (std::size_t place = 0; place < ages.size(); ++place) {
            const std::string id = std::to_string(place);
            const WidgetTicks::Note note{"Title", now + -ages[place] * 0.25};
            const bool isDone = *rc::gen::arbitrary<bool>();
            folder.put((isDone ? "done-" : "tick-") + WidgetTicks::name(id),
                       WidgetTicks::encode(note));
            if (ages[place] < 40 && ages[place] >= -4 && (!expected || note.at > expected->note.at))
                expected = {id, note};
        }
        RC_ASSERT((WidgetTicks(folder).latest(now) == expected));
    }));
}

}  // namespace
}  // namespace kelmar::shared
