#include <cstdio>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <sys/stat.h>

#include "System/Journal.h"
#include "tests/Support/ScopedVariable.h"

namespace kelmar::system {
namespace {

using testing::ScopedVariable;

/// A stream that stands for the journal, or does not.
struct Stream {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file{std::tmpfile(), std::fclose};

    [[nodiscard]] int descriptor() const { return fileno(file.get()); }
    [[nodiscard]] std::string name() const {
        struct stat status {};
        EXPECT_EQ(::fstat(descriptor(), &status), 0);
        return std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
    }
};

TEST(Journal, IsTheStreamThatTheVariableNames) {
    const Stream stream;
    const ScopedVariable variable("JOURNAL_STREAM", stream.name());
    EXPECT_TRUE(isJournal(stream.descriptor()));
}

TEST(Journal, IsNoOtherStream) {
    const Stream stream;
    const Stream other;
    const ScopedVariable variable("JOURNAL_STREAM", other.name());
    EXPECT_FALSE(isJournal(stream.descriptor()));
}

TEST(Journal, IsNothingWhereTheVariableMakesNoSense) {
    const Stream stream;
    for (const char* const value : {"", ":", "journal", "1:", ":1"}) {
        const ScopedVariable variable("JOURNAL_STREAM", value);
        EXPECT_FALSE(isJournal(stream.descriptor())) << value;
    }
}

TEST(Journal, IsNoClosedDescriptor) {
    const ScopedVariable variable("JOURNAL_STREAM", "0:0");
    EXPECT_FALSE(isJournal(-1));
}

}  // namespace
}  // namespace kelmar::system
