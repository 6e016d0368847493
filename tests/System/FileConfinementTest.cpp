#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "System/FileConfinement.h"
#include "System/Folder.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/System/InChild.h"

namespace kelmar::system {
namespace {

using testing::ChildOutcome;

/// A home folder with a planner's folder, some of it out of reach.
struct Home {
    Home() {
        std::filesystem::create_directories(ticked);
        folder.put("secret.txt", "a");
        folder.put("planner/widget.json", "{}");
        folder.put("planner/Ticked/tick-b", "old");
    }

    testing::TemporaryFolder folder;
    std::string planner = folder.pathOf("planner");
    std::string ticked = folder.pathOf("planner/Ticked");
};

int errorOf(bool succeeded) {
    return succeeded ? 0 : errno;
}

int opened(const std::string& path, int flags) {
    return errorOf(::open(path.c_str(), flags, 0644) >= 0);
}

/// Every version up to this kernel's, as if it were that of an older kernel.
class FileConfinementTest : public ::testing::TestWithParam<int> {
protected:
    void SetUp() override {
        if (landlockVersion() < GetParam())
            GTEST_SKIP() << "This kernel's version of Landlock is " << landlockVersion();
    }

    /// The error number with which something fails when it is tried in the confinement.
    [[nodiscard]] int tried(const std::function<int()>& act) const {
        const ChildOutcome outcome = testing::inChild([&] {
            if (::prctl(PR_SET_NO_NEW_PRIVS, 1UL, 0UL, 0UL, 0UL) != 0 ||
                !confineFiles({.readable = {home_.planner, "/etc/localtime", "/no/such/folder"},
                               .writable = {home_.ticked, home_.folder.pathOf("missing")}},
                              GetParam()))
                return 255;
            return act();
        });
        return outcome.exitStatus;
    }

    Home home_;
};

TEST_P(FileConfinementTest, ReadsWhatItMay) {
    const std::string snapshot = home_.planner + "/widget.json";
    EXPECT_EQ(tried([&] { return opened(snapshot, O_RDONLY); }), 0);
    EXPECT_EQ(tried([&] { return opened(home_.planner, O_RDONLY | O_DIRECTORY); }), 0);
    EXPECT_EQ(tried([&] { return opened(home_.ticked + "/tick-b", O_RDONLY); }), 0);
    EXPECT_EQ(tried([] { return opened("/etc/localtime", O_RDONLY); }), 0);
}

TEST_P(FileConfinementTest, ReadsNothingElse) {
    for (const std::string& path :
         {std::string("/etc/passwd"), std::string("/proc/self/environ"), std::string("/"),
          home_.folder.pathOf("secret.txt"), home_.folder.path().string(),
          home_.planner + "/../secret.txt"}) {
        EXPECT_EQ(tried([&] { return opened(path, O_RDONLY); }), EACCES) << path;
    }
}

TEST_P(FileConfinementTest, FollowsNoLinkOutOfTheFolder) {
    std::filesystem::create_symlink(home_.folder.pathOf("secret.txt"), home_.planner + "/link");
    EXPECT_EQ(tried([&] { return opened(home_.planner + "/link", O_RDONLY); }), EACCES);
    std::filesystem::create_symlink(home_.planner + "/widget.json", home_.ticked + "/tick-a");
    EXPECT_EQ(tried([&] { return opened(home_.ticked + "/tick-a", O_WRONLY); }), EACCES);
}

TEST_P(FileConfinementTest, WritesMakesAndRemovesFilesWhereItMay) {
    EXPECT_EQ(tried([&] { return opened(home_.ticked + "/tick-a", O_WRONLY | O_CREAT | O_EXCL); }),
              0);
    EXPECT_TRUE(std::filesystem::exists(home_.ticked + "/tick-a"));
    EXPECT_EQ(tried([&] {
                  const int file = ::open((home_.ticked + "/tick-b").c_str(), O_WRONLY);
                  return errorOf(::ftruncate(file, 0) == 0 && ::write(file, "new!", 4) == 4);
              }),
              0);
    EXPECT_EQ(std::filesystem::file_size(home_.ticked + "/tick-b"), 4U);
    EXPECT_EQ(tried([&] { return errorOf(::unlink((home_.ticked + "/tick-b").c_str()) == 0); }), 0);
    EXPECT_FALSE(std::filesystem::exists(home_.ticked + "/tick-b"));
}

TEST_P(FileConfinementTest, WritesMakesAndRemovesNothingElse) {
    const std::string snapshot = home_.planner + "/widget.json";
    const auto refused = [&](const std::function<int()>& act) { return tried(act) == EACCES; };
    EXPECT_TRUE(refused([&] { return opened(snapshot, O_WRONLY); }));
    EXPECT_TRUE(refused([&] { return opened(snapshot, O_RDWR | O_APPEND); }));
    EXPECT_TRUE(refused([&] { return opened(home_.planner + "/other", O_WRONLY | O_CREAT); }));
    EXPECT_TRUE(refused([&] { return opened(home_.folder.pathOf("other"), O_WRONLY | O_CREAT); }));
    EXPECT_TRUE(refused([&] { return errorOf(::unlink(snapshot.c_str()) == 0); }));
    EXPECT_TRUE(refused([&] { return errorOf(::rmdir(home_.ticked.c_str()) == 0); }));
    EXPECT_TRUE(
        refused([&] { return errorOf(::mkdir((home_.ticked + "/x").c_str(), 0755) == 0); }));
    EXPECT_TRUE(refused(
        [&] { return errorOf(::symlink(snapshot.c_str(), (home_.ticked + "/x").c_str()) == 0); }));
    EXPECT_TRUE(
        refused([&] { return errorOf(::mkfifo((home_.ticked + "/x").c_str(), 0644) == 0); }));
    const Result<std::string> unchanged = readFile(snapshot);
    ASSERT_TRUE(unchanged);
    EXPECT_EQ(*unchanged, "{}");
}

TEST_P(FileConfinementTest, MovesNothingInOrOut) {
    const std::string inside = home_.ticked + "/tick-b";
    const std::string outside = home_.planner + "/widget.json";
    const auto moved = [&](const std::string& from, const std::string& to) {
        return tried([&] { return errorOf(::rename(from.c_str(), to.c_str()) == 0); });
    };
    EXPECT_THAT(moved(inside, outside), ::testing::AnyOf(EACCES, EXDEV));
    EXPECT_THAT(moved(outside, inside), ::testing::AnyOf(EACCES, EXDEV));
    EXPECT_EQ(moved(inside, inside + "2"), 0) << "Within the folder it is making and removing";
}

TEST_P(FileConfinementTest, TheReasonReachesWhoeverWrites) {
    const ChildOutcome outcome = testing::inChild([&] {
        static_cast<void>(confineFiles({.readable = {home_.planner}, .writable = {}}, GetParam()));
        const Result<Done> written = DiskFolder(home_.planner).write("widget.json", "{}");
        if (!written)
            static_cast<void>(::write(STDERR_FILENO, written.failure().reason.data(),
                                      written.failure().reason.size()));
        return 0;
    });
    EXPECT_EQ(outcome.said, home_.planner + "/widget.json: Permission denied");
}

INSTANTIATE_TEST_SUITE_P(Version, FileConfinementTest, ::testing::Range(1, 8),
                         ::testing::PrintToStringParamName());

TEST(FileConfinement, WithoutLandlockFailsWithTheReasonAndTakesNothing) {
    const ChildOutcome outcome = testing::inChild([] {
        const Result<Done> confined = confineFiles({}, -ENOSYS);
        if (confined || confined.failure().reason.find("no Landlock: Function not implemented") ==
                            std::string::npos)
            return 255;
        return opened("/etc/passwd", O_RDONLY);
    });
    EXPECT_EQ(outcome.exitStatus, 0);
}

}  // namespace
}  // namespace kelmar::system
