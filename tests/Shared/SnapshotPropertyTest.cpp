#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "Shared/JsonSyntax.h"
#include "System/JsonWriter.h"
#include "tests/Shared/AnySnapshot.h"
#include "tests/Shared/SnapshotDocuments.h"

namespace kelmar::shared {
namespace {

TEST(AnySnapshot, IsTheSameAfterEncodingAndDecoding) {
    EXPECT_TRUE(rc::check([] {
        const WidgetData data = *anySnapshot();
        const auto compact = decodeSnapshot(encodeSnapshot(data));
        RC_ASSERT(static_cast<bool>(compact));
        RC_ASSERT((*compact == data));
        const auto spacious = decodeSnapshot(system::prettyPrinted(encodeSnapshot(data)));
        RC_ASSERT((static_cast<bool>(spacious) && *spacious == data));
    }));
}

TEST(AnyBytes, AreDecodedOrRefusedWithAReason) {
    EXPECT_TRUE(rc::check([](const std::string& bytes) {
        const auto data = decodeSnapshot(bytes);
        RC_ASSERT(!data);
        RC_ASSERT(data.failure().path.starts_with('$'));
        RC_ASSERT(!data.failure().found.empty());
        RC_ASSERT(!data.failure().expected.empty());
    }));
}

/// A document in which a few bytes have been lost, doubled or changed.
std::string anyDamage(std::string document) {
    for (int count = *rc::gen::inRange(1, 4); count > 0; --count) {
        const std::size_t at = *rc::gen::inRange<std::size_t>(0, document.size());
        const std::size_t length = *rc::gen::inRange<std::size_t>(0, 12);
        const std::string passage = document.substr(at, length);
        const char byte = *rc::gen::oneOf(rc::gen::arbitrary<char>(),
                                          rc::gen::element('"', '\\', '{', '}', '[', ']', ',', ':',
                                                           '0', '.', '-', 'e', ' ', 'n'));
        switch (*rc::gen::inRange(0, 3)) {
            case 0:
                document.erase(at, length);
                break;
            case 1:
                document.insert(at, passage);
                break;
            default:
                document[at] = byte;
        }
    }
    return document;
}

TEST(ADamagedDocument, IsReadOnlyIfItIsStillJson) {
    EXPECT_TRUE(rc::check([] {
        const std::string json = anyDamage(std::string(fullDocument));
        const auto data = decodeSnapshot(json);
        RC_CLASSIFY(static_cast<bool>(data), "still readable");
        if (data)
            RC_ASSERT(findSyntaxError(json) == std::nullopt);
        else
            RC_ASSERT((findSyntaxError(json) != std::nullopt) ==
                      (data.failure().expected == "valid JSON"));
    }));
}

/// Items that are easily the same, and due around a moment.
rc::Gen<std::vector<WidgetData::Item>> anyItemsAround(system::Date now) {
    using Item = WidgetData::Item;
    const auto item = rc::gen::build<Item>(
        rc::gen::set(&Item::id, rc::gen::element<std::string>("a", "b", "c", "d")),
        rc::gen::set(&Item::due, rc::gen::map(rc::gen::inRange(-172'800, 172'800),
                                              [=](int offset) { return now + offset; })));
    return rc::gen::container<std::vector<Item>>(item);
}

TEST(Regrouping, LosesAndInventsNothing) {
    EXPECT_TRUE(rc::check([] {
        const auto calendar = system::makeCalendar(
            "en_US", *rc::gen::element<std::string>("UTC", "America/Havana", "Pacific/Apia"));
        const auto now = system::Date::since1970(*rc::gen::inRange(1'300'000'000, 1'800'000'000));
        WidgetData data;
        data.today = *anyItemsAround(now);
        data.upcoming = *anyItemsAround(now);
        const WidgetData regrouped = data.regrouped(now, *calendar);

        // What was in "today" leads it unchanged, and the order of the rest is kept on both sides.
        std::vector<WidgetData::Item> today = data.today;
        std::vector<WidgetData::Item> upcoming;
        for (const WidgetData::Item& item : data.upcoming)
            (item.due < *calendar->startOfNextDay(now) ? today : upcoming).push_back(item);
        RC_ASSERT((regrouped.today == today));
        RC_ASSERT((regrouped.upcoming == upcoming));
        RC_ASSERT((regrouped.regrouped(now, *calendar) == regrouped));
    }));
}

TEST(HidingTicks, RemovesExactlyTheTicked) {
    EXPECT_TRUE(rc::check([](const std::set<std::string>& others) {
        WidgetData data;
        data.today = *anyItemsAround(system::Date());
        data.upcoming = *anyItemsAround(system::Date());
        std::set<std::string> ids = others;
        ids.insert(*rc::gen::element<std::string>("a", "b"));
        const WidgetData hidden = data.without(ids);
        const auto expected = [&](std::vector<WidgetData::Item> items) {
            std::erase_if(items, [&](const auto& item) { return ids.contains(item.id); });
            return items;
        };
        RC_ASSERT((hidden.today == expected(data.today)));
        RC_ASSERT((hidden.upcoming == expected(data.upcoming)));
    }));
}

}  // namespace
}  // namespace kelmar::shared
