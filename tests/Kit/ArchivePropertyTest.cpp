#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "Kit/Archive.h"
#include "Kit/ArchiveNames.h"
#include "Kit/Protocol.h"

namespace kelmar::kit {
namespace {

template <class Enum, std::size_t count>
rc::Gen<Enum> anyOf(const NameTable<Enum, count>& table) {
    return rc::gen::map(rc::gen::inRange<std::size_t>(0, count),
                        [&table](std::size_t index) { return table.at(index).first; });
}

/// Numbers as views hold them: with fractions, of either sign, also large.
rc::Gen<double> anyNumber() {
    return rc::gen::map(rc::gen::pair(rc::gen::arbitrary<int>(), rc::gen::inRange(1, 1000)),
                        [](const std::pair<int, int>& parts) {
                            return static_cast<double>(parts.first) / parts.second;
                        });
}

rc::Gen<std::string> anyWords() {
    return rc::gen::map(rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
                            "a", " ", "\"", "\\", "\n", "\t", "é", "’", "日本", "👩‍🎓",
                            "مهمة", std::string(1, '\0'))),
                        [](const std::vector<std::string>& pieces) {
                            std::string all;
                            for (const std::string& piece : pieces)
                                all += piece;
                            return all;
                        });
}

Color anyColor() {
    const Color color = *rc::gen::arbitrary<bool>()
                            ? Color::style(*anyOf(colorStyleNames))
                            : Color::rgb(*anyNumber(), *anyNumber(), *anyNumber());
    return color.withOpacity(*anyNumber());
}

Font anyFont() {
    if (*rc::gen::inRange(0, 4) == 0)
        return Font::caption();
    return {.size = *anyNumber(),
            .weight = *anyOf(fontWeightNames),
            .design = *anyOf(fontDesignNames),
            .digits = *rc::gen::element(Digits::proportional, Digits::monospaced)};
}

std::optional<double> anyOptionalNumber() {
    return *rc::gen::arbitrary<bool>() ? std::optional(*anyNumber()) : std::nullopt;
}

View anyView(int depth);

Children anyChildren(int depth) {
    Children children;
    const int count = *rc::gen::inRange(0, 3);
    for (int index = 0; index < count; ++index)
        children.push_back(anyView(depth - 1));
    return children;
}

View anyLeaf() {
    switch (*rc::gen::inRange(0, 5)) {
        case 0:
            return Text{.text = *anyWords(),
                        .font = anyFont(),
                        .color = anyColor(),
                        .lineLimit = *rc::gen::arbitrary<bool>()
                                         ? std::optional(*rc::gen::inRange(1, 9))
                                         : std::nullopt,
                        .minimumScale = *anyNumber(),
                        .strikethrough = *rc::gen::arbitrary<bool>()};
        case 1:
            return Symbol{.name = *anyWords(), .font = anyFont(), .color = anyColor()};
        case 2:
            return Spacer{.minLength = *anyNumber()};
        case 3:
            return Shape{.shape = *anyOf(shapeNames),
                         .cornerRadius = *anyNumber(),
                         .fill = anyColor(),
                         .lineWidth = *anyNumber()};
        default:
            return Progress{.value = BarInterval{system::Date::since1970(*anyNumber()),
                                                 system::Date::since1970(*anyNumber())},
                            .tint = anyColor()};
    }
}

View anyBranch(int depth) {
    switch (*rc::gen::inRange(0, 6)) {
        case 0:
            return HStack{.alignment = *anyOf(verticalAlignmentNames),
                          .spacing = *anyNumber(),
                          .children = anyChildren(depth)};
        case 1:
            return VStack{.alignment = *anyOf(horizontalAlignmentNames),
                          .spacing = *anyNumber(),
                          .children = anyChildren(depth)};
        case 2:
            return Frame{.lengths = {.width = anyOptionalNumber(), .maxWidth = infinity},
                         .alignment = *anyOf(alignmentNames),
                         .child = anyView(depth - 1)};
        case 3:
            return Padding{.insets = {.top = *anyNumber(), .trailing = *anyNumber()},
                           .child = anyView(depth - 1)};
        case 4:
            return Overlay{.content = anyView(depth - 1), .child = anyView(depth - 1)};
        default:
            return Button{.intent = {.name = *anyWords(),
                                     .parameters = {{"id", *anyWords()},
                                                    {"on", *rc::gen::arbitrary<bool>()},
                                                    {"n", *rc::gen::arbitrary<std::int64_t>()}}},
                          .label = *anyWords(),
                          .child = anyView(depth - 1)};
    }
}

View anyView(int depth) {
    return depth == 0 || *rc::gen::arbitrary<bool>() ? anyLeaf() : anyBranch(depth);
}

TEST(ArchiveProperty, WhatIsWrittenReadsBackAsTheSameTree) {
    EXPECT_TRUE(rc::check([] {
        const View view = anyView(4);
        const auto decoded = decodeView(encodeView(view));
        RC_ASSERT(static_cast<bool>(decoded));
        RC_ASSERT(*decoded == view);
    }));
}

TEST(ArchiveProperty, AnyBytesAreReadOrRefusedWithoutAFault) {
    EXPECT_TRUE(rc::check([](const std::string& bytes) {
        const auto view = decodeView(bytes);
        const auto message = decodeMessage(bytes);
        RC_ASSERT(view || !view.failure().reason.empty());
        RC_ASSERT(message || !message.failure().reason.empty());
    }));
}

TEST(ArchiveProperty, ATreeCutShortAnywhereIsRefused) {
    EXPECT_TRUE(rc::check([] {
        const std::string json = encodeView(anyView(3));
        const auto length = *rc::gen::inRange<std::size_t>(0, json.size());
        RC_ASSERT(!decodeView(std::string_view(json).substr(0, length)));
    }));
}

TEST(ArchiveProperty, PrettyPrintingChangesNothing) {
    EXPECT_TRUE(rc::check([] {
        const View view = anyView(3);
        const auto decoded = decodeView(system::prettyPrinted(encodeView(view)));
        RC_ASSERT(static_cast<bool>(decoded));
        RC_ASSERT(*decoded == view);
    }));
}

}  // namespace
}  // namespace kelmar::kit
