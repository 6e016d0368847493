#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Shared/PlannerFiles.h"
#include "Shared/SampleSnapshots.h"
#include "Shared/SnapshotCoding.h"
#include "tests/Shared/SnapshotDocuments.h"
#include "tests/Support/MemoryFolder.h"

namespace kelmar::shared {
namespace {

class LoadingTest : public ::testing::Test {
protected:
    testing::MemoryFolder folder;
};

TEST_F(LoadingTest, GivesWhatTheFileSays) {
    folder.put("widget.json", std::string(fullDocument));
    EXPECT_EQ(loadSnapshot(folder), *decodeSnapshot(fullDocument));
}

TEST_F(LoadingTest, GivesASignedOutSnapshotToo) {
    folder.put("widget.json", changed(emptyDocument, "true", "false"));
    const auto data = loadSnapshot(folder);
    ASSERT_TRUE(data);
    EXPECT_FALSE(data->signedIn);
}

TEST_F(LoadingTest, GivesNothingWithoutAReadableFile) {
    EXPECT_EQ(loadSnapshot(folder), std::nullopt);
    folder.putUnreadable("widget.json");
    EXPECT_EQ(loadSnapshot(folder), std::nullopt);
    folder.setMissing(true);
    EXPECT_EQ(loadSnapshot(folder), std::nullopt);
}

TEST_F(LoadingTest, GivesNothingForAnEmptyOrUndecodableFile) {
    for (const char* const text : {"", "{", "{}", "[]", R"({"updated":0,"signedIn":true})"}) {
        folder.put("widget.json", text);
        EXPECT_EQ(loadSnapshot(folder), std::nullopt) << text;
    }
}

TEST_F(LoadingTest, ReadsTheFileAfreshEveryTime) {
    folder.put("widget.json", std::string(emptyDocument));
    EXPECT_TRUE(loadSnapshot(folder)->today.empty());
    folder.put("widget.json", std::string(fullDocument));
    EXPECT_FALSE(loadSnapshot(folder)->today.empty());
    EXPECT_THAT(folder.calls(), ::testing::ElementsAre("read widget.json", "read widget.json"));
}

TEST(PlannerFiles, LieInTheLibraryOfTheHomeFolder) {
    EXPECT_EQ(plannerFolderPath, "Library/Application Support/Kelmar Planner");
    EXPECT_EQ(tickedFolderPath, std::string(plannerFolderPath) + "/Ticked");
}

}  // namespace
}  // namespace kelmar::shared
