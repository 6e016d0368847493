#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <new>
#include <string>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

#include "System/Fatal.h"
#include "System/Folder.h"
#include "System/ResourceLimits.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/System/InChild.h"

namespace kelmar::system {
namespace {

using testing::ChildOutcome;

constexpr std::size_t twoGigabytes = std::size_t{2} << 30U;

/// Keeps the compiler from leaving an allocation out.
void* volatile kept = nullptr;

class MemoryLimitTest : public ::testing::Test {
protected:
    void SetUp() override {
#if defined(__SANITIZE_ADDRESS__)
        GTEST_SKIP() << "The address sanitizer needs more address space than there is memory";
#endif
    }
};

TEST_F(MemoryLimitTest, EndsTheProcessThatWantsTwoGigabytesLikeAFatalFault) {
    const ChildOutcome outcome = testing::inChild([] {
        if (!limitResources())
            return 255;
        kept = ::operator new(twoGigabytes);
        return 0;
    });
    EXPECT_EQ(outcome.exitStatus, fatalExitStatus);
    EXPECT_THAT(outcome.said, ::testing::MatchesRegex("[^\n]*: there is not enough memory "
                                                      "within its limit\n"));
}

TEST_F(MemoryLimitTest, RefusesTwoGigabytesOfOtherKinds) {
    const ChildOutcome outcome = testing::inChild([] {
        static_cast<void>(limitResources());
        kept = std::malloc(twoGigabytes);
        if (kept != nullptr)
            return 255;
        kept = ::mmap(nullptr, twoGigabytes, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        return kept == MAP_FAILED ? errno : 254;
    });
    EXPECT_EQ(outcome.exitStatus, ENOMEM);
}

TEST_F(MemoryLimitTest, CannotBeRaised) {
    const ChildOutcome outcome = testing::inChild([] {
        static_cast<void>(limitResources());
        rlimit limits = {};
        ::getrlimit(RLIMIT_AS, &limits);
        return limits.rlim_max == memoryLimit ? 0 : 255;
    });
    EXPECT_EQ(outcome.exitStatus, 0);
}

TEST(ResourceLimits, LeaveWhatWorkTakes) {
    const ChildOutcome outcome = testing::inChild([] {
        static_cast<void>(limitResources());
        const std::string text(200U << 20U, 'x');
        return text.back() == 'x' ? 0 : 255;
    });
    EXPECT_EQ(outcome.exitStatus, 0);
    EXPECT_EQ(outcome.said, "");
}

TEST(ResourceLimits, AHugeFileIsAnErrorOfTheWriteAndLeavesNothing) {
    const testing::TemporaryFolder folder;
    const ChildOutcome outcome = testing::inChild([&] {
        static_cast<void>(limitResources());
        const Result<Done> written =
            DiskFolder(folder.path()).write("tick-a", std::string(fileSizeLimit + 1, 'x'));
        if (written)
            return 255;
        const std::string& reason = written.failure().reason;
        return ::write(STDERR_FILENO, reason.data(), reason.size()) > 0 ? 0 : 254;
    });
    EXPECT_EQ(outcome.exitStatus, 0);
    EXPECT_EQ(outcome.said, folder.pathOf("tick-a") + ": File too large");
    EXPECT_FALSE(std::filesystem::exists(folder.pathOf("tick-a")));
}

TEST(ResourceLimits, LeaveNoCoreFile) {
    const ChildOutcome outcome = testing::inChild([] {
        static_cast<void>(limitResources());
        rlimit limits = {};
        ::getrlimit(RLIMIT_CORE, &limits);
        return limits.rlim_max == 0 ? 0 : 255;
    });
    EXPECT_EQ(outcome.exitStatus, 0);
}

TEST(ResourceLimits, KeepALowerLimitThatIsThereAlready) {
    const ChildOutcome outcome = testing::inChild([] {
        const rlimit small{1U << 10U, 1U << 10U};
        ::setrlimit(RLIMIT_FSIZE, &small);
        if (!limitResources())
            return 255;
        rlimit limits = {};
        ::getrlimit(RLIMIT_FSIZE, &limits);
        return limits.rlim_cur == small.rlim_cur ? 0 : 254;
    });
    EXPECT_EQ(outcome.exitStatus, 0);
}

}  // namespace
}  // namespace kelmar::system
