#include <cstdio>
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "Host/Log.h"

namespace kelmar::host {
namespace {

std::string writtenBy(LevelPrefix prefix, LogLevel level, std::string_view line) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::tmpfile(), std::fclose);
    StreamLog(file.get(), prefix).write(level, line);
    std::rewind(file.get());
    std::string text(5'000, '\0');
    text.resize(std::fread(text.data(), 1, text.size(), file.get()));
    return text;
}

TEST(StreamLog, WritesOneLine) {
    EXPECT_EQ(writtenBy(LevelPrefix::absent, LogLevel::warning, "a widget"), "a widget\n");
}

TEST(StreamLog, GivesTheJournalTheLevel) {
    EXPECT_EQ(writtenBy(LevelPrefix::present, LogLevel::error, "a widget"), "<3>a widget\n");
    EXPECT_EQ(writtenBy(LevelPrefix::present, LogLevel::warning, "a widget"), "<4>a widget\n");
    EXPECT_EQ(writtenBy(LevelPrefix::present, LogLevel::info, "a widget"), "<6>a widget\n");
}

TEST(LogLine, KeepsEveryMessageOnItsLineAndEscapesOutOfIt) {
    EXPECT_EQ(asLogLine("two\nlines\r\x1b[31mred\x7f"), "two lines  [31mred ");
    EXPECT_EQ(asLogLine("schön"), "schön");
}

TEST(LogLine, CutsLongTextsAtACharacter) {
    EXPECT_EQ(asLogLine(std::string(1'000, 'a')), std::string(1'000, 'a'));
    EXPECT_EQ(asLogLine(std::string(1'001, 'a')), std::string(1'000, 'a') + "...");
    EXPECT_EQ(asLogLine(std::string(999, 'a') + "ö"), std::string(999, 'a') + "...");
}

}  // namespace
}  // namespace kelmar::host
