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
    testing::MemoryFolder folder_;
};

TEST_F(LoadingTest, GivesWhatTheFileSays) {
    folder_.put("widget.json", std::string(fullDocument));
    EXPECT_EQ(loadSnapshot(folder_), *decodeSnapshot(fullDocument));
}

TEST_F(LoadingTest, GivesASignedOutSnapshotToo) {
    folder_.put("widget.json", changed(emptyDocument, "true", "false"));
    const auto data = loadSnapshot(folder_);
    ASSERT_TRUE(data);
    EXPECT_FALSE(data->signedIn);
}

TEST_F(LoadingTest, GivesNothingWithoutAReadableFile) {
    EXPECT_EQ(loadSnapshot(folder_), std::nullopt);
    folder_.putUnreadable("widget.json");
    EXPECT_EQ(loadSnapshot(folder_), std::nullopt);
    folder_.setMissing(true);
    EXPECT_EQ(loadSnapshot(folder_), std::nullopt);
}

TEST_F(LoadingTest, GivesNothingForAnEmptyOrUndecodableFile) {
    for (const char* const text : {"", "{", "{}", "[]", R"({"updated":0,"signedIn":true})"}) {
        folder_.put("widget.json", text);
        EXPECT_EQ(loadSnapshot(folder_), std::nullopt) << text;
    }
}

TEST_F(LoadingTest, ReadsTheFileAfreshEveryTime) {
    folder_.put("widget.json", std::string(emptyDocument));
    EXPECT_TRUE(loadSnapshot(folder_)->today.empty());
    folder_.put("widget.json", std::string(fullDocument));
    EXPECT_FALSE(loadSnapshot(folder_)->today.empty());
    EXPECT_THAT(folder_.calls(), ::testing::ElementsAre("read widget.json", "read widget.json"));
}

TEST(PlannerFiles, LieInTheLibraryOfTheHomeFolder) {
    EXPECT_EQ(plannerFolderPath, "Library/Application Support/Kelmar Planner");
    EXPECT_EQ(tickedFolderPath, std::string(plannerFolderPath) + "/Ticked");
}

}  // namespace
}  // namespace kelmar::shared
