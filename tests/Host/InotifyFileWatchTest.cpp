#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "Host/InotifyFileWatch.h"
#include "tests/Host/EventLoop.h"
#include "tests/Host/Fakes.h"
#include "tests/Host/TemporaryFolder.h"

namespace kelmar::host {
namespace {

namespace fs = std::filesystem;

class InotifyFileWatchTest : public testing::Test {
protected:
    InotifyFileWatchTest() {
        watch_.watch({file_}, [this] { ++changes_; });
    }
    /// Whether a change is told, after which nothing more is.
    [[nodiscard]] bool isTold() {
        const bool told = waitUntil([this] { return changes_ > 0; });
        settle();
        changes_ = 0;
        return told;
    }
    /// Whether nothing is told for some bursts.
    [[nodiscard]] bool isQuiet() {
        settle();
        return std::exchange(changes_, 0) == 0;
    }
    void settle() { runFor(5 * limits_.fileBurst); }
    void makeFolders() {
        fs::create_directories(file_.parent_path());
        EXPECT_TRUE(isTold());
    }

    TemporaryFolder folder_;
    fs::path file_ = folder_ / "Library/My Clock/state.json";
    HostLimits limits_{.fileBurst = 20ms};
    QtTimers timers_;
    RecordingLog log_;
    int changes_ = 0;
    InotifyFileWatch watch_{limits_, timers_, log_};
};

TEST_F(InotifyFileWatchTest, TellsAFileThatAppearsInFoldersThatWereNotThere) {
    EXPECT_TRUE(isQuiet());
    fs::create_directories(file_.parent_path());
    writeText(file_, "one");
    EXPECT_TRUE(isTold());
    writeText(file_, "two");
    EXPECT_TRUE(isTold());
}

/// Root may read everything, so a test of what may not be read is run as somebody else.
class AsNobody {
public:
    explicit AsNobody(const std::vector<fs::path>& owned) : wasRoot_(geteuid() == 0) {
        constexpr uid_t nobody = 65'534;
        if (wasRoot_) {
            for (const auto& path : owned) {
                EXPECT_EQ(chown(path.c_str(), nobody, nobody), 0);
            }
            EXPECT_EQ(seteuid(nobody), 0);
        }
    }
    ~AsNobody() {
        if (wasRoot_) {
            EXPECT_EQ(seteuid(0), 0);
        }
    }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

private:
    const bool wasRoot_;
};

TEST_F(InotifyFileWatchTest, TellsAFileInAFolderThatMayBeReadAgain) {
    makeFolders();
    const fs::path folder = file_.parent_path();
    const AsNobody nobody({folder_.path(), folder.parent_path(), folder});
    settle();
    changes_ = 0;
    fs::permissions(folder, fs::perms::none);
    EXPECT_TRUE(isTold());
    fs::permissions(folder, fs::perms::owner_all);
    EXPECT_TRUE(isTold());
    writeText(file_, "one");
    EXPECT_TRUE(isTold());
    EXPECT_THAT(log_.lines, testing::ElementsAre(testing::HasSubstr("cannot be watched")));
}

TEST_F(InotifyFileWatchTest, TellsAFileWhoseFoldersComeOneByOne) {
    fs::create_directory(folder_ / "Library");
    settle();
    fs::create_directory(file_.parent_path());
    settle();
    changes_ = 0;
    writeText(file_, "one");
    EXPECT_TRUE(isTold());
}

TEST_F(InotifyFileWatchTest, TellsAFileThatIsReplacedByRenamingAgainAndAgain) {
    makeFolders();
    for (const auto* const text : {"one", "two", "three"}) {
        const auto temporary = file_.parent_path() / "state.json.new";
        writeText(temporary, text);
        fs::rename(temporary, file_);
        EXPECT_TRUE(isTold()) << text;
    }
}

TEST_F(InotifyFileWatchTest, TellsAFileThatIsRewrittenInPlaceDeletedAndMadeAnew) {
    makeFolders();
    writeText(file_, "one");
    EXPECT_TRUE(isTold());
    writeText(file_, "two");
    EXPECT_TRUE(isTold());
    fs::remove(file_);
    EXPECT_TRUE(isTold());
    writeText(file_, "three");
    EXPECT_TRUE(isTold());
}

TEST_F(InotifyFileWatchTest, TellsAFileThatBecomesReadable) {
    makeFolders();
    writeText(file_, "one");
    EXPECT_TRUE(isTold());
    fs::permissions(file_, fs::perms::none);
    EXPECT_TRUE(isTold());
    fs::permissions(file_, fs::perms::owner_all);
    EXPECT_TRUE(isTold());
}

TEST_F(InotifyFileWatchTest, TellsNothingOfItsNeighbours) {
    makeFolders();
    writeText(file_.parent_path() / "other.json", "one");
    fs::create_directory(file_.parent_path() / "Ticked");
    writeText(file_.parent_path() / "Ticked/state.json", "one");
    fs::remove(file_.parent_path() / "other.json");
    writeText(folder_ / "state.json", "one");
    EXPECT_TRUE(isQuiet());
}

TEST_F(InotifyFileWatchTest, WaitsForAFolderWithoutListeningToItsNeighbours) {
    writeText(folder_ / "other", "one");
    fs::create_directory(folder_ / "other folder");
    EXPECT_TRUE(isQuiet());
}

TEST_F(InotifyFileWatchTest, FollowsAFolderThatIsDeletedAndMadeAnew) {
    makeFolders();
    writeText(file_, "one");
    EXPECT_TRUE(isTold());
    fs::remove_all(folder_ / "Library");
    EXPECT_TRUE(isTold());
    makeFolders();
    writeText(file_, "two");
    EXPECT_TRUE(isTold());
}

TEST_F(InotifyFileWatchTest, FollowsAFolderAboveThatIsReplacedByAnother) {
    makeFolders();
    fs::create_directories(folder_ / "New/My Clock");
    writeText(folder_ / "New/My Clock/state.json", "one");
    settle();
    changes_ = 0;
    fs::rename(folder_ / "Library", folder_ / "Old");
    fs::rename(folder_ / "New", folder_ / "Library");
    EXPECT_TRUE(isTold());
    writeText(file_, "two");
    EXPECT_TRUE(isTold());
    writeText(folder_ / "Old/My Clock/state.json", "three");
    EXPECT_TRUE(isQuiet()) << "The old folder is another's now";
}

TEST_F(InotifyFileWatchTest, FollowsAFolderThatIsALink) {
    fs::create_directories(folder_ / "Elsewhere/My Clock");
    fs::create_directory_symlink(folder_ / "Elsewhere", folder_ / "Library");
    EXPECT_TRUE(isTold());
    writeText(folder_ / "Elsewhere/My Clock/state.json", "one");
    EXPECT_TRUE(isTold());
}

TEST_F(InotifyFileWatchTest, WaitsWhereAFileStandsInTheFoldersPlace) {
    writeText(folder_ / "Library", "no folder");
    EXPECT_TRUE(isTold());
    fs::remove(folder_ / "Library");
    fs::create_directories(file_.parent_path());
    settle();
    changes_ = 0;
    writeText(file_, "one");
    EXPECT_TRUE(isTold());
}

TEST_F(InotifyFileWatchTest, TellsABurstOnce) {
    makeFolders();
    for (int count = 0; count < 100; ++count) {
        writeText(file_, std::to_string(count));
    }
    ASSERT_TRUE(waitUntil([this] { return changes_ > 0; }));
    settle();
    EXPECT_EQ(changes_, 1);
}

TEST_F(InotifyFileWatchTest, TellsBurstsThatDoNotEndWhileTheyGoOn) {
    makeFolders();
    bool isWriting = true;
    QTimer writer;
    QObject::connect(&writer, &QTimer::timeout, &writer, [&] { writeText(file_, "more"); });
    writer.start(limits_.fileBurst / 4);
    EXPECT_TRUE(waitUntil([this] { return changes_ >= 3; }));
    isWriting = writer.isActive();
    EXPECT_TRUE(isWriting);
}

TEST_F(InotifyFileWatchTest, WatchesSeveralFilesAndLetsGoOfEarlierOnes) {
    const auto first = folder_ / "first";
    const auto second = folder_ / "Deep/second";
    watch_.watch({first, second}, [this] { ++changes_; });
    writeText(first, "one");
    EXPECT_TRUE(isTold());
    fs::create_directory(folder_ / "Deep");
    EXPECT_TRUE(isTold());
    writeText(second, "one");
    EXPECT_TRUE(isTold());
    fs::create_directories(file_.parent_path());
    EXPECT_TRUE(isQuiet());
}

TEST_F(InotifyFileWatchTest, WatchesNothingWhenThereIsNothingToWatch) {
    watch_.watch({}, [this] { ++changes_; });
    fs::create_directories(file_.parent_path());
    EXPECT_TRUE(isQuiet());
}

}  // namespace
}  // namespace kelmar::host
