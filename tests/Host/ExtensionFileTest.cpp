#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Host/ExtensionFile.h"
#include "tests/Host/TemporaryFolder.h"

namespace kelmar::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ExtensionFileTest : public testing::Test {
protected:
    system::Result<ExtensionFile> read(std::string_view text) const {
        writeText(file_, text);
        return readExtensionFile(file_, "/home/someone");
    }
    [[nodiscard]] std::string faultOf(std::string_view text) const {
        const auto result = read(text);
        return result ? "no fault" : result.failure().reason;
    }

    TemporaryFolder folder_;
    std::filesystem::path file_ = folder_ / "clock.extension";
};

TEST_F(ExtensionFileTest, ResolvesPathsFromItsFolderAndTheHomeFolder) {
    const auto result = read(
        "[Extension]\nExec=clock-extension\nUrlScheme=clock\n"
        "ReloadOnChange=Library/My Clock/state.json;.config/zone;\n");
    ASSERT_TRUE(result);
    EXPECT_EQ(result->executable, (folder_ / "clock-extension").string());
    EXPECT_EQ(result->urlScheme, "clock");
    EXPECT_THAT(result->reloadOnChange, ElementsAre("/home/someone/Library/My Clock/state.json",
                                                    "/home/someone/.config/zone"));
}

TEST_F(ExtensionFileTest, KeepsAbsolutePathsAndTidiesThem) {
    const auto result = read(
        "[Extension]\nExec=/usr/libexec/clock\nUrlScheme=clock\n"
        "ReloadOnChange=/etc/../etc/localtime\n");
    ASSERT_TRUE(result);
    EXPECT_EQ(result->executable, "/usr/libexec/clock");
    EXPECT_THAT(result->reloadOnChange, ElementsAre("/etc/localtime"));
}

TEST_F(ExtensionFileTest, FindsTheExecutableBesideAFileNamedWithARelativePath) {
    ASSERT_TRUE(read("[Extension]\nExec=../bin/clock\nUrlScheme=clock\n"));
    const auto relative = std::filesystem::relative(file_);
    const auto result = readExtensionFile(relative, "/home/someone");
    ASSERT_TRUE(result);
    EXPECT_EQ(result->executable, (folder_.path().parent_path() / "bin/clock").string());
}

TEST_F(ExtensionFileTest, NeedsNoFilesToWatchAndIgnoresWhatItDoesNotKnow) {
    const auto result = read(
        "# A clock\n[Extension]\nExec=clock\nUrlScheme=Clock\nFuture=1\n[Other]\nExec=other\n");
    ASSERT_TRUE(result);
    EXPECT_THAT(result->reloadOnChange, IsEmpty());
    EXPECT_EQ(result->urlScheme, "clock") << "Schemes are compared in lower case";
}

TEST_F(ExtensionFileTest, SaysWhatIsWrong) {
    EXPECT_THAT(faultOf("[Extension]\nUrlScheme=clock\n"), HasSubstr("Exec"));
    EXPECT_THAT(faultOf("[Extension]\nExec=clock\n"), HasSubstr("UrlScheme"));
    EXPECT_THAT(faultOf("[Extension]\nExec=\nUrlScheme=clock\n"), HasSubstr("Exec is empty"));
    EXPECT_THAT(faultOf("[Extension]\nExec=clock\nUrlScheme=9:\n"),
                HasSubstr("UrlScheme is \"9:\""));
    EXPECT_THAT(faultOf("[Extension]\nExec=clock\nUrlScheme=clock\nReloadOnChange=a;;b\n"),
                HasSubstr("ReloadOnChange has an empty path"));
    EXPECT_THAT(faultOf("[Extension]\nExec=\xff\nUrlScheme=clock\n"), HasSubstr("UTF-8"));
    EXPECT_THAT(faultOf("[Widget]\nExec=clock\n"), HasSubstr("Extension"));
    EXPECT_THAT(faultOf("no key file"), testing::Not("no fault"));
    EXPECT_THAT(faultOf(""), testing::Not("no fault"));
}

TEST_F(ExtensionFileTest, NamesTheFileInEveryFault) {
    EXPECT_THAT(faultOf("[Extension]\n"), testing::StartsWith(file_.string() + ": "));
    const auto missing = readExtensionFile(folder_ / "missing.extension", "/home/someone");
    ASSERT_FALSE(missing);
    EXPECT_THAT(missing.failure().reason, HasSubstr("missing.extension: No such file"));
}

TEST_F(ExtensionFileTest, ReadsNothingThatIsNoRegularFile) {
    ASSERT_EQ(mkfifo(file_.c_str(), 0600), 0);
    for (const std::string& path : {file_.string(), std::string("/dev/zero")}) {
        const auto result = readExtensionFile(path, "/home/someone");
        ASSERT_FALSE(result);
        EXPECT_EQ(result.failure().reason, path + ": not a regular file");
    }
}

}  // namespace
}  // namespace kelmar::host
