#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "System/Folder.h"
#include "tests/Support/TemporaryFolder.h"

namespace kelmar::system {
namespace {

using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

class DiskFolderTest : public ::testing::Test {
protected:
    [[nodiscard]] std::string content(const std::string& name) const {
        std::ostringstream text;
        text << std::ifstream(disk_.pathOf(name), std::ios::binary).rdbuf();
        return text.str();
    }

    testing::TemporaryFolder disk_;
    DiskFolder folder_{disk_.path().string()};
};

TEST_F(DiskFolderTest, ListsEveryEntryWhateverItIs) {
    disk_.put("tick-a", "");
    disk_.put(".hidden", "");
    std::filesystem::create_directory(disk_.path() / "folder");
    std::filesystem::create_symlink("nowhere", disk_.path() / "dangling");
    EXPECT_THAT(folder_.names(), UnorderedElementsAre("tick-a", ".hidden", "folder", "dangling"));
}

TEST_F(DiskFolderTest, ListsInTheOrderOfTheFileSystem) {
    for (int number = 0; number < 200; ++number)
        disk_.put("tick-" + std::to_string(number * 7919 % 200), "");
    // The standard library walks a folder in the same order and does not sort either.
    std::vector<std::string> expected;
    for (const auto& entry : std::filesystem::directory_iterator(disk_.path()))
        expected.push_back(entry.path().filename());
    EXPECT_EQ(folder_.names(), expected);
}

TEST_F(DiskFolderTest, ListsNothingWhereThereIsNoFolder) {
    disk_.put("file", "");
    EXPECT_TRUE(DiskFolder(disk_.pathOf("missing")).names().empty());
    EXPECT_TRUE(DiskFolder(disk_.pathOf("file")).names().empty());
}

TEST_F(DiskFolderTest, ReadsAWholeFileByteByByte) {
    const std::string bytes("a\0\r\n\xFF", 5);
    disk_.put("file", bytes);
    EXPECT_EQ(*folder_.read("file"), bytes);
    disk_.put("empty", "");
    EXPECT_EQ(*folder_.read("empty"), "");
    const std::string large(3'000'001, 'x');
    disk_.put("large", large);
    EXPECT_EQ(*folder_.read("large"), large);
}

TEST_F(DiskFolderTest, ReadsWithRoomBehindTheText) {
    for (const std::size_t size : {0U, 1U, 200U, 5000U}) {
        disk_.put("file", std::string(size, 'x'));
        const std::string text = *folder_.read("file");
        EXPECT_GE(text.capacity(), size + spareCapacity);
    }
}

TEST_F(DiskFolderTest, ReadsThroughALinkToAFile) {
    disk_.put("file", "text");
    std::filesystem::create_symlink("file", disk_.path() / "link");
    EXPECT_EQ(*folder_.read("link"), "text");
}

TEST_F(DiskFolderTest, ReadsAFileWhoseSizeIsNotToldBeforehand) {
    // Like a file that grows meanwhile: it has more to give than its size says.
    const Result<std::string> text = readFile("/proc/self/status");
    ASSERT_TRUE(text);
    EXPECT_THAT(*text, HasSubstr("Pid:"));
    EXPECT_EQ(text->back(), '\n');
}

TEST_F(DiskFolderTest, RefusesAFifoWithoutWaitingForItsWriter) {
    ASSERT_EQ(::mkfifo(disk_.pathOf("fifo").c_str(), 0600), 0);
    const Result<std::string> text = folder_.read("fifo");
    ASSERT_FALSE(text);
    EXPECT_THAT(text.failure().reason, HasSubstr("not a regular file"));
}

TEST_F(DiskFolderTest, RefusesWhatIsNoRegularFile) {
    std::filesystem::create_directory(disk_.path() / "folder");
    std::filesystem::create_symlink("nowhere", disk_.path() / "dangling");
    std::filesystem::create_symlink("loop", disk_.path() / "loop");
    std::filesystem::create_symlink("/dev/zero", disk_.path() / "device");
    std::filesystem::create_symlink("folder", disk_.path() / "folderLink");
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    disk_.pathOf("socket").copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    for (const char* const name :
         {"missing", "folder", "dangling", "loop", "device", "folderLink", "socket"})
        EXPECT_FALSE(folder_.read(name)) << name;
    ::close(socket);
}

TEST_F(DiskFolderTest, RefusesAFileBeyondAllReason) {
    disk_.put("huge", "");
    std::filesystem::resize_file(disk_.path() / "huge", std::uintmax_t{1} << 40U);
    const Result<std::string> text = folder_.read("huge");
    ASSERT_FALSE(text);
    EXPECT_THAT(text.failure().reason, HasSubstr("too large"));
}

TEST_F(DiskFolderTest, SaysWhichFileItCouldNotRead) {
    EXPECT_EQ(folder_.read("missing").failure().reason,
              disk_.pathOf("missing") + ": No such file or directory");
}

TEST_F(DiskFolderTest, RefusesNamesThatAreNotOneComponent) {
    disk_.put("file", "text");
    std::filesystem::create_directory(disk_.path() / "folder");
    for (const std::string& name :
         {std::string(), std::string("."), std::string(".."), std::string("folder/../file"),
          std::string("file\0", 5), std::string("/etc/passwd")}) {
        EXPECT_FALSE(folder_.read(name)) << name;
        EXPECT_FALSE(folder_.write(name, "")) << name;
        EXPECT_FALSE(folder_.remove(name)) << name;
    }
    EXPECT_EQ(content("file"), "text");
}

TEST_F(DiskFolderTest, WritesAFreshFileForItsOwnerToChange) {
    ASSERT_TRUE(folder_.write("file", std::string_view("a\0b", 3)));
    EXPECT_EQ(content("file"), std::string("a\0b", 3));
    struct stat status = {};
    ASSERT_EQ(::stat(disk_.pathOf("file").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0700U, 0600U);
}

TEST_F(DiskFolderTest, ReplacesALongerFileWholly) {
    disk_.put("file", "a long text");
    ASSERT_TRUE(folder_.write("file", "b"));
    EXPECT_EQ(content("file"), "b");
}

TEST_F(DiskFolderTest, NeverCreatesTheFolder) {
    EXPECT_FALSE(DiskFolder(disk_.pathOf("missing")).write("file", "text"));
    EXPECT_FALSE(std::filesystem::exists(disk_.path() / "missing"));
}

TEST_F(DiskFolderTest, WritesIntoNothingButARegularFile) {
    std::filesystem::create_directory(disk_.path() / "folder");
    ASSERT_EQ(::mkfifo(disk_.pathOf("fifo").c_str(), 0600), 0);
    EXPECT_FALSE(folder_.write("folder", "text"));
    EXPECT_FALSE(folder_.write("fifo", "text"));
    EXPECT_FALSE(folder_.write(std::string(256, 'x'), "text"));
}

/// Lets no file grow beyond so many bytes, as if the disk were full.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : handler_(::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &previous_);
        const rlimit limit = {bytes, previous_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &previous_);
        ::signal(SIGXFSZ, handler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    sighandler_t handler_;
    rlimit previous_ = {};
};

TEST_F(DiskFolderTest, LeavesNoNameBehindWhenTheDiskIsFull) {
    const FileSizeLimit limit(10);
    EXPECT_FALSE(folder_.write("file", "more than ten bytes"));
    EXPECT_FALSE(std::filesystem::exists(disk_.path() / "file"));
}

TEST_F(DiskFolderTest, LeavesANameThatWasThereWhenTheDiskIsFull) {
    disk_.put("file", "text");
    const FileSizeLimit limit(10);
    EXPECT_FALSE(folder_.write("file", "more than ten bytes"));
    EXPECT_TRUE(std::filesystem::exists(disk_.path() / "file"));
}

TEST_F(DiskFolderTest, RemovesFilesAndLinksButNoFolder) {
    disk_.put("file", "text");
    std::filesystem::create_symlink("file", disk_.path() / "link");
    std::filesystem::create_directory(disk_.path() / "folder");
    EXPECT_TRUE(folder_.remove("link"));
    EXPECT_TRUE(folder_.remove("file"));
    EXPECT_FALSE(folder_.remove("file"));
    EXPECT_FALSE(folder_.remove("folder"));
    EXPECT_THAT(folder_.names(), UnorderedElementsAre("folder"));
}

TEST_F(DiskFolderTest, LooksAfreshEveryTime) {
    EXPECT_TRUE(folder_.names().empty());
    disk_.put("file", "one");
    EXPECT_EQ(*folder_.read("file"), "one");
    disk_.put("file", "two");
    EXPECT_EQ(*folder_.read("file"), "two");
    EXPECT_THAT(folder_.names(), UnorderedElementsAre("file"));
}

}  // namespace
}  // namespace kelmar::system
