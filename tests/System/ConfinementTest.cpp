#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/seccomp.h>
#include <seccomp.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include "System/Confinement.h"
#include "System/FileConfinement.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/System/InChild.h"

namespace kelmar::system {
namespace {

using testing::ChildOutcome;
using ::testing::HasSubstr;

/// A system call that a kernel does not know, or not with this first argument.
struct Missing {
    int call;
    int error;
    std::optional<unsigned> argument = std::nullopt;
};

/// Makes this a kernel without them.
void takeFromKernel(std::initializer_list<Missing> calls) {
    auto* const filter = seccomp_init(SCMP_ACT_ALLOW);
    for (const Missing& missing : calls) {
        const auto answer = SCMP_ACT_ERRNO(static_cast<unsigned>(missing.error));
        const auto condition = scmp_arg_cmp{0, SCMP_CMP_EQ, missing.argument.value_or(0), 0};
        seccomp_rule_add_array(filter, answer, missing.call, missing.argument ? 1 : 0, &condition);
    }
    if (seccomp_load(filter) != 0)
        std::abort();
    seccomp_release(filter);
}

/// Enters and says what is missing; a bit for each of the things that were refused afterwards.
enum Refused { file = 1, socketOfItsOwn = 2, memory = 4 };
int enterAndTry() {
    const auto confinement = Confinement::enter({});
    for (const std::string& gap : confinement.gaps())
        dprintf(STDERR_FILENO, "%s\n", gap.c_str());
    int refused = 0;
    if (::open("/etc/passwd", O_RDONLY) < 0)
        refused |= Refused::file;
    if (::socket(AF_INET, SOCK_STREAM, 0) < 0)
        refused |= Refused::socketOfItsOwn;
    if (std::malloc(std::size_t{2} << 30U) == nullptr)
        refused |= Refused::memory;
    return refused;
}

/// What the machine and the build allow for.
int allThatCanBeRefused() {
    int all = Refused::socketOfItsOwn;
    if (landlockVersion() > 0)
        all |= Refused::file;
#if !defined(__SANITIZE_ADDRESS__)
    all |= Refused::memory;
#endif
    return all;
}

TEST(Confinement, RefusesFilesSocketsAndMemory) {
    const ChildOutcome outcome = testing::inChild(enterAndTry);
    EXPECT_EQ(outcome.exitStatus, allThatCanBeRefused());
    EXPECT_THAT(outcome.said, HasSubstr("refused to itself the system call socket\n"));
    if (landlockVersion() < 1)
        GTEST_SKIP() << "This kernel has no Landlock, so files were not tried";
    EXPECT_EQ(outcome.lines(), 1);
}

TEST(Confinement, WithoutLandlockSaysSoInOneLineAndGoesOn) {
    for (const int error : {ENOSYS, EOPNOTSUPP}) {
        const ChildOutcome outcome = testing::inChild([&] {
            takeFromKernel({{SCMP_SYS(landlock_create_ruleset), error}});
            return enterAndTry();
        });
        EXPECT_EQ(outcome.exitStatus, allThatCanBeRefused() & ~Refused::file);
        EXPECT_THAT(outcome.said,
                    HasSubstr("it can open every file of its user, this kernel has no Landlock"));
        EXPECT_EQ(outcome.lines(), 2) << outcome.said;
    }
}

TEST(Confinement, WithoutAFilterOfSystemCallsSaysSoInOneLineAndGoesOn) {
    const ChildOutcome outcome = testing::inChild([] {
        takeFromKernel({{SCMP_SYS(seccomp), EINVAL, SECCOMP_SET_MODE_FILTER},
                        {SCMP_SYS(prctl), EINVAL, PR_SET_SECCOMP}});
        return enterAndTry();
    });
    EXPECT_EQ(outcome.exitStatus, allThatCanBeRefused() & ~Refused::socketOfItsOwn);
    EXPECT_THAT(outcome.said, HasSubstr("it can make any system call, there is no filter"));
    EXPECT_EQ(outcome.lines(), 1) << outcome.said;
}

TEST(Confinement, WithoutAnyOfItSaysSoLineByLineAndGoesOn) {
    const ChildOutcome outcome = testing::inChild([] {
        takeFromKernel({{SCMP_SYS(close_range), ENOSYS},
                        {SCMP_SYS(prlimit64), EPERM},
                        {SCMP_SYS(prctl), EINVAL, PR_SET_NO_NEW_PRIVS},
                        {SCMP_SYS(landlock_create_ruleset), ENOSYS},
                        {SCMP_SYS(seccomp), EINVAL, SECCOMP_SET_MODE_FILTER}});
        return static_cast<int>(Confinement::enter({}).gaps().size());
    });
    EXPECT_EQ(outcome.exitStatus, 5);
}

TEST(Confinement, ClosesWhatLibrariesLeftOpen) {
    const ChildOutcome outcome = testing::inChild([] {
        const int socket = ::socket(AF_UNIX, SOCK_DGRAM, 0);
        static_cast<void>(Confinement::enter({}));
        char byte = 0;
        return ::read(socket, &byte, 1) < 0 ? errno : 255;
    });
    EXPECT_EQ(outcome.exitStatus, EBADF);
}

TEST(Confinement, ReadsTimeZonesWhateverIsChosen) {
    const ChildOutcome outcome = testing::inChild([] {
        static_cast<void>(Confinement::enter({}));
        const bool canRead = ::open("/etc/localtime", O_RDONLY) >= 0 &&
                             ::open("/usr/share/zoneinfo/Asia/Tokyo", O_RDONLY) >= 0 &&
                             ::open("/usr/share/zoneinfo/America/New_York", O_RDONLY) >= 0;
        return canRead ? 0 : errno;
    });
    EXPECT_EQ(outcome.exitStatus, 0);
}

class OutdatedConfinementTest : public ::testing::Test {
protected:
    /// Whether the confinement is outdated after something was done, which only somebody outside
    /// it can do: the child waits for that.
    template <class Change>
    [[nodiscard]] bool isOutdatedAfter(const Change& change) {
        std::array<int, 2> entered = {};
        std::array<int, 2> changed = {};
        if (::pipe(entered.data()) != 0 || ::pipe(changed.data()) != 0)
            std::abort();
        const pid_t child = ::fork();
        if (child == 0) {
            // The standard three are what a confined process keeps.
            ::dup2(changed[0], STDIN_FILENO);
            ::dup2(entered[1], STDOUT_FILENO);
            const auto confinement =
                Confinement::enter({.readable = {planner_}, .writable = {planner_ + "/Ticked"}});
            char byte = 0;
            if (::write(STDOUT_FILENO, &byte, 1) != 1 || ::read(STDIN_FILENO, &byte, 1) != 1)
                ::_exit(255);
            ::_exit(confinement.isOutdated() ? 1 : 0);
        }
        char byte = 0;
        EXPECT_EQ(::read(entered[0], &byte, 1), 1);
        change();
        EXPECT_EQ(::write(changed[1], &byte, 1), 1);
        int status = 0;
        ::waitpid(child, &status, 0);
        for (const int end : {entered[0], entered[1], changed[0], changed[1]})
            ::close(end);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) <= 1);
        return WEXITSTATUS(status) == 1;
    }

    testing::TemporaryFolder folder_;
    std::string planner_ = folder_.pathOf("planner");
};

TEST_F(OutdatedConfinementTest, IsNotWhileTheFoldersStayOrAreMissing) {
    EXPECT_FALSE(isOutdatedAfter([] {}));
    std::filesystem::create_directories(planner_ + "/Ticked");
    EXPECT_FALSE(isOutdatedAfter([&] {
        folder_.put("planner/widget.json", "{}");
        folder_.put("planner/Ticked/tick-a", "{}");
    }));
}

TEST_F(OutdatedConfinementTest, IsNotWhenAFolderIsGone) {
    std::filesystem::create_directories(planner_ + "/Ticked");
    EXPECT_FALSE(isOutdatedAfter([&] { std::filesystem::remove_all(planner_); }));
}

TEST_F(OutdatedConfinementTest, IsWhenAFolderHasComeToBe) {
    EXPECT_TRUE(isOutdatedAfter([&] { std::filesystem::create_directories(planner_); }));
    EXPECT_TRUE(isOutdatedAfter([&] { std::filesystem::create_directory(planner_ + "/Ticked"); }));
}

TEST_F(OutdatedConfinementTest, IsWhenAnotherFolderTookThePlace) {
    std::filesystem::create_directories(planner_ + "/Ticked");
    EXPECT_TRUE(isOutdatedAfter([&] {
        std::filesystem::rename(planner_, folder_.pathOf("old"));
        std::filesystem::create_directories(planner_ + "/Ticked");
    }));
}

}  // namespace
}  // namespace kelmar::system
