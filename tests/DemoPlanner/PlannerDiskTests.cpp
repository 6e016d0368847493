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
protected:
    PlannerDiskTest() {
        std::string name = fs::temp_directory_path() / "planner-disk-XXXXXX";
        home = ::mkdtemp(name.data());
        folder = home / "Library/Application Support/Kelmar Planner";
    }
    ~PlannerDiskTest() override { fs::remove_all(home); }

    [[nodiscard]] PlannerDisk open() const {
        system::Result<PlannerDisk> disk = PlannerDisk::open(folder);
        EXPECT_TRUE(disk);
        return *std::move(disk);
    }

    fs::path home;
    fs::path folder;
};

TEST_F(PlannerDiskTest, AMissingFolderIsMadeWithItsMarkAndItsTickFolder) {
    ASSERT_TRUE(PlannerDisk::open(folder));
    EXPECT_THAT(namesIn(folder), UnorderedElementsAre(PlannerDisk::markName, "Ticked"));
    EXPECT_THAT(namesIn(folder.parent_path()), ElementsAre("Kelmar Planner"));
    EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all);
}

TEST_F(PlannerDiskTest, AFolderOfOursIsOpenedAgain) {
    ASSERT_TRUE(open().saveState("{}"));
    const auto state = open().loadState();
    ASSERT_TRUE(state);
    EXPECT_EQ(*state, "{}");
}

TEST_F(PlannerDiskTest, AMissingTickFolderIsMadeAgain) {
    ASSERT_TRUE(PlannerDisk::open(folder));
    fs::remove(folder / "Ticked");
    ASSERT_TRUE(PlannerDisk::open(folder));
    EXPECT_TRUE(fs::is_directory(folder / "Ticked"));
}

TEST_F(PlannerDiskTest, AFolderThatSomebodyElseMadeIsRefusedAndLeftAsItIs) {
    fs::create_directories(folder / "Ticked");
    writeFile(folder / "widget.json", "precious");
    const system::Result<PlannerDisk> disk = PlannerDisk::open(folder);
    ASSERT_FALSE(disk);
    EXPECT_THAT(disk.failure().reason, HasSubstr(folder.string()));
    EXPECT_THAT(namesIn(folder), UnorderedElementsAre("Ticked", "widget.json"));
    EXPECT_EQ(textOf(folder / "widget.json"), "precious");
}

TEST_F(PlannerDiskTest, AnEmptyFolderThatSomebodyElseMadeIsRefusedToo) {
    fs::create_directories(folder);
    EXPECT_FALSE(PlannerDisk::open(folder));
    EXPECT_THAT(namesIn(folder), IsEmpty());
}

TEST_F(PlannerDiskTest, AFileOrADanglingLinkInItsPlaceIsRefused) {
    fs::create_directories(folder.parent_path());
    writeFile(folder, "a file");
    EXPECT_FALSE(PlannerDisk::open(folder));
    fs::remove(folder);
    fs::create_symlink(home / "nowhere", folder);
    EXPECT_FALSE(PlannerDisk::open(folder));
    EXPECT_FALSE(fs::exists(home / "nowhere"));
}

TEST_F(PlannerDiskTest, AMarkThatIsNoFileIsNoMark) {
    fs::create_directories(folder / PlannerDisk::markName);
    EXPECT_FALSE(PlannerDisk::open(folder));
}

TEST_F(PlannerDiskTest, ATickFolderThatLeadsElsewhereIsRefused) {
    ASSERT_TRUE(PlannerDisk::open(folder));
    fs::remove(folder / "Ticked");
    fs::create_directories(home / "elsewhere");
    fs::create_directory_symlink(home / "elsewhere", folder / "Ticked");
    EXPECT_FALSE(PlannerDisk::open(folder));
}

TEST_F(PlannerDiskTest, AHomeThatCannotHoldTheFolderIsAFailure) {
    writeFile(home / "Library", "a file");
    EXPECT_FALSE(PlannerDisk::open(folder));
    EXPECT_EQ(textOf(home / "Library"), "a file");
}

TEST_F(PlannerDiskTest, NothingSavedIsNoFailure) {
    const auto state = open().loadState();
    ASSERT_TRUE(state);
    EXPECT_FALSE(state->has_value());
}

TEST_F(PlannerDiskTest, PublishingReplacesTheFileInsteadOfWritingIntoIt) {
    PlannerDisk disk = open();
    ASSERT_TRUE(disk.publish("first"));
    std::ifstream reader(folder / "widget.json");
    ASSERT_TRUE(disk.publish("second, and longer"));
    std::ostringstream seen;
    seen << reader.rdbuf();
    EXPECT_EQ(seen.str(), "first") << "a reader that had it open";
    EXPECT_EQ(textOf(folder / "widget.json"), "second, and longer");
    EXPECT_THAT(namesIn(folder),
                UnorderedElementsAre(PlannerDisk::markName, "Ticked", "widget.json"));
}

TEST_F(PlannerDiskTest, AFolderThatVanishedIsAFailureToPublish) {
    PlannerDisk disk = open();
    fs::remove_all(folder);
    EXPECT_FALSE(disk.publish("text"));
    EXPECT_FALSE(disk.saveState("text"));
    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(PlannerDiskTest, OnlyRegularFilesAreTickFiles) {
    PlannerDisk disk = open();
    writeFile(folder / "Ticked/tick-YQ", "a note");
    fs::create_directory(folder / "Ticked/tick-Yg");
    fs::create_symlink("/nowhere", folder / "Ticked/tick-Yw");
    ASSERT_EQ(::mkfifo((folder / "Ticked/tick-ZA").c_str(), 0600), 0);
    EXPECT_THAT(disk.tickFiles(), ElementsAre("tick-YQ"));
    EXPECT_EQ(disk.readTickFile("tick-YQ"), "a note");
    EXPECT_EQ(disk.readTickFile("tick-ZA"), std::nullopt);
}

TEST_F(PlannerDiskTest, TickFilesAreRenamedAndRemoved) {
    PlannerDisk disk = open();
    writeFile(folder / "Ticked/tick-YQ", "new");
    writeFile(folder / "Ticked/done-YQ", "old");
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
    fs::remove(folder / "Ticked");
    EXPECT_THAT(disk.tickFiles(), IsEmpty());
}

}  // namespace
}  // namespace kelmar::demo
