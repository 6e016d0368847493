#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <string>
#include <vector>

#include "Host/LineBuffer.h"

namespace kelmar::host {
namespace {

std::vector<std::string> takeAll(LineBuffer& buffer) {
    std::vector<std::string> lines;
    while (auto line = buffer.takeLine()) {
        lines.push_back(*std::move(line));
    }
    return lines;
}

TEST(LineBuffer, GivesLinesWithoutTheirFeeds) {
    LineBuffer buffer(10);
    buffer.append("one\n\ntwo\nthr");
    EXPECT_EQ(takeAll(buffer), (std::vector<std::string>{"one", "", "two"}));
    buffer.append("ee\n");
    EXPECT_EQ(takeAll(buffer), (std::vector<std::string>{"three"}));
}

TEST(LineBuffer, TakesALineOfExactlyTheLongestLength) {
    LineBuffer buffer(4);
    buffer.append("1234\n");
    EXPECT_FALSE(buffer.isOverlong());
    EXPECT_EQ(buffer.takeLine(), "1234");
}

TEST(LineBuffer, RefusesALongerLineWhetherItsEndHasComeOrNot) {
    LineBuffer whole(4);
    whole.append("12345\nnext\n");
    EXPECT_TRUE(whole.isOverlong());
    EXPECT_EQ(whole.takeLine(), std::nullopt);

    LineBuffer unfinished(4);
    unfinished.append("1234");
    EXPECT_FALSE(unfinished.isOverlong());
    unfinished.append("5");
    EXPECT_TRUE(unfinished.isOverlong());
}

TEST(LineBuffer, ReadsOnAfterThePiecesOfAnOverlongLine) {
    LineBuffer buffer(4);
    buffer.append("123456\nend\n");
    EXPECT_EQ(buffer.takePiece(), "1234");
    EXPECT_EQ(takeAll(buffer), (std::vector<std::string>{"56", "end"}));
}

TEST(LineBuffer, AnyCutOfTheStreamGivesTheSameLines) {
    EXPECT_TRUE(
        rc::check([](const std::vector<std::string>& texts, const std::vector<std::size_t>& cuts) {
            std::string stream;
            std::vector<std::string> expected;
            for (const auto& text : texts) {
                const auto line = text.substr(0, text.find('\n'));
                expected.push_back(line);
                stream += line + "\n";
            }
            LineBuffer buffer(200);
            std::vector<std::string> lines;
            for (const auto cut : cuts) {
                const auto length = cut % (stream.size() + 1);
                buffer.append(stream.substr(0, length));
                stream.erase(0, length);
                for (auto& line : takeAll(buffer)) {
                    lines.push_back(std::move(line));
                }
            }
            buffer.append(stream);
            for (auto& line : takeAll(buffer)) {
                lines.push_back(std::move(line));
            }
            RC_ASSERT(lines == expected);
        }));
}

}  // namespace
}  // namespace kelmar::host
