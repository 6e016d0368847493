#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/stat.h>

#include "DemoPlanner/PlannerDisk.h"

namespace kelmar::demo {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

void writeFile(const fs::path& path, const std::string& text) {
    std::ofstream(path) << text;
}

std::string textOf(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

std::vector<std::string> namesIn(const fs::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) {
        names.push_back(entry.path().filename());
    }
    return names;
}

class PlannerDiskTest : public testing::Test {
public:
    ~PlannerDiskTest() override { fs::remove_all(home_); }

protected:
    PlannerDiskTest() {
        std::string name = fs::temp_directory_path() / "planner-disk-XXXXXX";
        home_ = ::mkdtemp(name.data());
        folder_ = home_ / "Library/Application Support/Kelmar Planner";
    }

    [[nodiscard]] PlannerDisk open() const {
        system::Result<PlannerDisk> disk = PlannerDisk::open(folder_);
        EXPECT_TRUE(disk);
        return *std::move(disk);
    }

    fs::path home_;
    fs::path folder_;
};

TEST_F(PlannerDiskTest, AMissingFolderIsMadeWithItsMarkAndItsTickFolder) {
    ASSERT_TRUE(PlannerDisk::open(folder_));
    EXPECT_THAT(namesIn(folder_), UnorderedElementsAre(PlannerDisk::markName, "Ticked"));
    EXPECT_THAT(namesIn(folder_.parent_path()), ElementsAre("Kelmar Planner"));
    EXPECT_EQ(fs::status(folder_).permissions(), fs::perms::owner_all);
}

TEST_F(PlannerDiskTest, AFolderOfOursIsOpenedAgain) {
    ASSERT_TRUE(open().saveState("{}"));
    const auto state = open().loadState();
    ASSERT_TRUE(state);
    EXPECT_EQ(*state, "{}");
}

TEST_F(PlannerDiskTest, AMissingTickFolderIsMadeAgain) {
    ASSERT_TRUE(PlannerDisk::open(folder_));
    fs::remove(folder_ / "Ticked");
    ASSERT_TRUE(PlannerDisk::open(folder_));
    EXPECT_TRUE(fs::is_directory(folder_ / "Ticked"));
}

TEST_F(PlannerDiskTest, AFolderThatSomebodyElseMadeIsRefusedAndLeftAsItIs) {
    fs::create_directories(folder_ / "Ticked");
    writeFile(folder_ / "widget.json", "precious");
    const system::Result<PlannerDisk> disk = PlannerDisk::open(folder_);
    ASSERT_FALSE(disk);
    EXPECT_THAT(disk.failure().reason, HasSubstr(folder_.string()));
    EXPECT_THAT(namesIn(folder_), UnorderedElementsAre("Ticked", "widget.json"));
    EXPECT_EQ(textOf(folder_ / "widget.json"), "precious");
}

TEST_F(PlannerDiskTest, AnEmptyFolderThatSomebodyElseMadeIsRefusedToo) {
    fs::create_directories(folder_);
    EXPECT_FALSE(PlannerDisk::open(folder_));
    EXPECT_THAT(namesIn(folder_), IsEmpty());
}

TEST_F(PlannerDiskTest, AFileOrADanglingLinkInItsPlaceIsRefused) {
    fs::create_directories(folder_.parent_path());
    writeFile(folder_, "a file");
    EXPECT_FALSE(PlannerDisk::open(folder_));
    fs::remove(folder_);
    fs::create_symlink(home_ / "nowhere", folder_);
    EXPECT_FALSE(PlannerDisk::open(folder_));
    EXPECT_FALSE(fs::exists(home_ / "nowhere"));
}

TEST_F(PlannerDiskTest, AMarkThatIsNoFileIsNoMark) {
    fs::create_directories(folder_ / PlannerDisk::markName);
    EXPECT_FALSE(PlannerDisk::open(folder_));
}

TEST_F(PlannerDiskTest, ATickFolderThatLeadsElsewhereIsRefused) {
    ASSERT_TRUE(PlannerDisk::open(folder_));
    fs::remove(folder_ / "Ticked");
    fs::create_directories(home_ / "elsewhere");
    fs::create_directory_symlink(home_ / "elsewhere", folder_ / "Ticked");
    EXPECT_FALSE(PlannerDisk::open(folder_));
}

TEST_F(PlannerDiskTest, AHomeThatCannotHoldTheFolderIsAFailure) {
    writeFile(home_ / "Library", "a file");
    EXPECT_FALSE(PlannerDisk::open(folder_));
    EXPECT_EQ(textOf(home_ / "Library"), "a file");
}

TEST_F(PlannerDiskTest, NothingSavedIsNoFailure) {
    const auto state = open().loadState();
    ASSERT_TRUE(state);
    EXPECT_FALSE(state->has_value());
}

TEST_F(PlannerDiskTest, PublishingReplacesTheFileInsteadOfWritingIntoIt) {
    PlannerDisk disk = open();
    ASSERT_TRUE(disk.publish("first"));
    std::ifstream reader(folder_ / "widget.json");
    ASSERT_TRUE(disk.publish("second, and longer"));
    std::ostringstream seen;
    seen << reader.rdbuf();
    EXPECT_EQ(seen.str(), "first") << "a reader that had it open";
    EXPECT_EQ(textOf(folder_ / "widget.json"), "second, and longer");
    EXPECT_THAT(namesIn(folder_),
                UnorderedElementsAre(PlannerDisk::markName, "Ticked", "widget.json"));
}

TEST_F(PlannerDiskTest, AFolderThatVanishedIsAFailureToPublish) {
    PlannerDisk disk = open();
    fs::remove_all(folder_);
    EXPECT_FALSE(disk.publish("text"));
    EXPECT_FALSE(disk.saveState("text"));
    EXPECT_FALSE(fs::exists(folder_));
}

TEST_F(PlannerDiskTest, OnlyRegularFilesAreTickFiles) {
    PlannerDisk disk = open();
    writeFile(folder_ / "Ticked/tick-YQ", "a note");
    fs::create_directory(folder_ / "Ticked/tick-Yg");
    fs::create_symlink("/nowhere", folder_ / "Ticked/tick-Yw");
    ASSERT_EQ(::mkfifo((folder_ / "Ticked/tick-ZA").c_str(), 0600), 0);
    EXPECT_THAT(disk.tickFiles(), ElementsAre("tick-YQ"));
    EXPECT_EQ(disk.readTickFile("tick-YQ"), "a note");
    EXPECT_EQ(disk.readTickFile("tick-ZA"), std::nullopt);
}

TEST_F(PlannerDiskTest, TickFilesAreRenamedAndRemoved) {
    PlannerDisk disk = open();
    writeFile(folder_ / "Ticked/tick-YQ", "new");
    writeFile(folder_ / "Ticked/done-YQ", "old");
    disk.renameTickFile("tick-YQ", "done-YQ");
    EXPECT_THAT(disk.tickFiles(), ElementsAre("done-YQ"));
    EXPECT_EQ(disk.readTickFile("done-YQ"), "new");
    disk.removeTickFile("done-YQ");
    EXPECT_THAT(disk.tickFiles(), IsEmpty());
}

TEST_F(PlannerDiskTest, TickFilesThatHaveGoneMeanwhileDoNoHarm) {
    PlannerDisk disk = open();
    disk.renameTickFile("tick-YQ", "done-YQ");
    disk.removeTickFile("done-YQ");
    fs::remove(folder_ / "Ticked");
    EXPECT_THAT(disk.tickFiles(), IsEmpty());
}

}  // namespace
}  // namespace kelmar::demo
