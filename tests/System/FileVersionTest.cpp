#include <filesystem>
#include <gtest/gtest.h>

#include "System/FileVersion.h"
#include "tests/Support/TemporaryFolder.h"

namespace kelmar::system {
namespace {

class FileVersionTest : public ::testing::Test {
protected:
    FileVersionTest() {
        folder_.put("file", "one");
        // A moment that no write of the test can have by chance.
        std::filesystem::last_write_time(path_, {});
        version_ = fileVersion(path_);
    }

    testing::TemporaryFolder folder_;
    std::string path_ = folder_.pathOf("file");
    std::optional<FileVersion> version_;
};

TEST_F(FileVersionTest, StaysWhileNothingIsDoneToTheFile) {
    ASSERT_TRUE(version_);
    EXPECT_EQ(fileVersion(path_), version_);
    std::filesystem::create_symlink(path_, folder_.pathOf("link"));
    EXPECT_EQ(fileVersion(folder_.pathOf("link")), version_);
}

TEST_F(FileVersionTest, IsAnotherWhenTheFileIsWrittenTo) {
    folder_.put("file", "two");
    EXPECT_NE(fileVersion(path_), version_);
}

TEST_F(FileVersionTest, IsAnotherWhenTheFileIsReplacedByOneThatLooksTheSame) {
    folder_.put("other", "one");
    std::filesystem::last_write_time(folder_.pathOf("other"), {});
    std::filesystem::rename(folder_.pathOf("other"), path_);
    EXPECT_NE(fileVersion(path_), version_);
}

TEST_F(FileVersionTest, OfWhatIsMissingIsNothing) {
    EXPECT_EQ(fileVersion(folder_.pathOf("missing")), std::nullopt);
}

}  // namespace
}  // namespace kelmar::system
