#include <array>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <unistd.h>

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

TEST(StreamLog, WaitsForNobodyWhoDoesNotReadAndGoesOnOnceTheyDo) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(pipe2(pipe.data(), O_NONBLOCK), 0);
    const std::array<char, 4'096> filling{};
    std::size_t filled = 0;
    for (ssize_t more = 0; more >= 0; more = write(pipe[1], filling.data(), filling.size())) {
        filled += static_cast<std::size_t>(more);
    }
    // From here on a writing program would wait.
    ASSERT_EQ(fcntl(pipe[1], F_SETFL, 0), 0);
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(fdopen(pipe[1], "w"), std::fclose);
    StreamLog log(file.get(), LevelPrefix::absent);
    log.write(LogLevel::warning, "lost");

    std::string read(filled, 'x');
    ASSERT_EQ(::read(pipe[0], read.data(), read.size()), static_cast<ssize_t>(filled));
    log.write(LogLevel::warning, "written");
    read.resize(static_cast<std::size_t>(::read(pipe[0], read.data(), read.size())));
    EXPECT_EQ(read, "written\n");
    close(pipe[0]);
}

TEST(StreamLog, OutlivesItsReader) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(pipe2(pipe.data(), 0), 0);
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(fdopen(pipe[1], "w"), std::fclose);
    close(pipe[0]);
    EXPECT_EXIT(
        {
            std::signal(SIGPIPE, SIG_DFL);
            StreamLog(file.get(), LevelPrefix::absent).write(LogLevel::warning, "unheard");
            _exit(0);
        },
        testing::ExitedWithCode(0), "");
}

TEST(LogLine, IsUtf8WhateverWasSaid) {
    EXPECT_EQ(asLogLine("a\xff\xfe"
                        "b\xc3"),
              "a\uFFFD\uFFFD"
              "b\uFFFD");
    EXPECT_EQ(asLogLine("\xed\xa0\x80"), "\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(asLogLine("\u009b31mred \u00a0"), " 31mred \u00a0");
}

TEST(LogLine, KeepsTheBeginningOfALongTextThatIsNotUtf8) {
    EXPECT_EQ(asLogLine("begin" + std::string(2'000, '\x80')).substr(0, 8), "begin\uFFFD");
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
