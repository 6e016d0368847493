#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Desktop/ArrangementFile.h"
#include "tests/Desktop/RecordingLog.h"

namespace kelmar::desktop {
namespace {

class ArrangementFileTest : public testing::Test {
protected:
    void write(const QString& name, const QByteArray& bytes) {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    [[nodiscard]] QByteArray read(const QString& name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
    }

    [[nodiscard]] QString path(const QString& name = "arrangement.json") const {
        return folder_.filePath(name);
    }

    [[nodiscard]] QStringList files() const {
        return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    const Arrangement oneWidget_{.renderingMode = kit::RenderingMode::vibrant,
                                 .widgets = {{.kind = "DueToday",
                                              .family = kit::Family::small,
                                              .screen = {"S", QRect(0, 0, 800, 600)},
                                              .position = {8, 16}}}};

    test::RecordingLog log_;

private:
    QTemporaryDir folder_;
};

TEST_F(ArrangementFileTest, MissingFileIsAFirstStart) {
    EXPECT_FALSE(ArrangementFile(path(), log_).load());
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(ArrangementFileTest, SavedArrangementIsFoundAgain) {
    ArrangementFile(path(), log_).save(oneWidget_);
    EXPECT_EQ(ArrangementFile(path(), log_).load(), oneWidget_);
    EXPECT_EQ(files(), QStringList{"arrangement.json"});
}

TEST_F(ArrangementFileTest, FifoAndDeviceAreSetAsideAndNotRead) {
    for (const bool isFifo : {true, false}) {
        const std::string name = path().toStdString();
        ASSERT_EQ(isFifo ? mkfifo(name.c_str(), 0600) : symlink("/dev/zero", name.c_str()), 0);
        ArrangementFile file(path(), log_);
        EXPECT_FALSE(file.isEmpty());
        EXPECT_FALSE(file.load());
        file.save(oneWidget_);
        EXPECT_EQ(ArrangementFile(path(), log_).load(), oneWidget_);
        QFile::remove(path());
    }
}

TEST_F(ArrangementFileTest, IsEmptyWithoutAFileAndWithoutAWidget) {
    ArrangementFile file(path(), log_);
    EXPECT_TRUE(file.isEmpty());
    file.save({});
    EXPECT_TRUE(file.isEmpty());
    file.save(oneWidget_);
    EXPECT_FALSE(file.isEmpty());
    write("arrangement.json", "?");
    EXPECT_FALSE(file.isEmpty());
    EXPECT_EQ(read("arrangement.json"), "?");
}

TEST_F(ArrangementFileTest, SavingMakesTheFolder) {
    ArrangementFile(path("not/yet/there.json"), log_).save(oneWidget_);
    EXPECT_EQ(ArrangementFile(path("not/yet/there.json"), log_).load(), oneWidget_);
}

TEST_F(ArrangementFileTest, DamagedFileIsSetAsideByteForByte) {
    write("arrangement.json", "{\"version\": 1, \xff");
    ArrangementFile file(path(), log_);
    EXPECT_FALSE(file.load());
    EXPECT_EQ(files(), QStringList{"arrangement.json.damaged"});
    EXPECT_EQ(read("arrangement.json.damaged"), "{\"version\": 1, \xff");
    ASSERT_EQ(log_.lines.size(), 1U);
    EXPECT_NE(log_.lines[0].find("it is kept as " + path("arrangement.json.damaged").toStdString()),
              std::string::npos);
}

TEST_F(ArrangementFileTest, HugeFileIsSetAsideAndNotRead) {
    write("arrangement.json", "{}");
    ASSERT_TRUE(QFile::resize(path(), (16 << 20) + 1));
    ArrangementFile file(path(), log_);
    EXPECT_FALSE(file.isEmpty());
    EXPECT_FALSE(file.load());
    ASSERT_EQ(log_.lines.size(), 1U);
    EXPECT_NE(log_.lines[0].find("cannot be used (it is too large)"), std::string::npos);
    EXPECT_EQ(files(), QStringList{"arrangement.json.damaged"});
}

TEST_F(ArrangementFileTest, EarlierDamagedFileIsNotOverwritten) {
    write("arrangement.json.damaged", "first");
    write("arrangement.json", "second");
    EXPECT_FALSE(ArrangementFile(path(), log_).load());
    EXPECT_EQ(read("arrangement.json.damaged"), "first");
    EXPECT_EQ(read("arrangement.json.damaged.2"), "second");
}

TEST_F(ArrangementFileTest, SavingGoesOnAfterADamagedFileWasSetAside) {
    write("arrangement.json", "?");
    ArrangementFile file(path(), log_);
    EXPECT_FALSE(file.load());
    file.save(oneWidget_);
    EXPECT_EQ(ArrangementFile(path(), log_).load(), oneWidget_);
    EXPECT_EQ(read("arrangement.json.damaged"), "?");
}

TEST_F(ArrangementFileTest, DamagedFileThatCannotBeSetAsideIsNeverReplaced) {
    // The longest name that a file may have leaves no room for a suffix.
    const QString longName(255, 'a');
    write(longName, "?");
    ArrangementFile file(path(longName), log_);
    EXPECT_FALSE(file.load());
    file.save(oneWidget_);
    EXPECT_EQ(read(longName), "?");
}

TEST_F(ArrangementFileTest, FolderThatCannotBeMadeIsSaidOnce) {
    write("file", "");
    ArrangementFile file(path("file/arrangement.json"), log_);
    file.save(oneWidget_);
    file.save(oneWidget_);
    ASSERT_EQ(log_.lines.size(), 1U);
    EXPECT_EQ(log_.lines[0], "The arrangement could not be saved in " +
                                 path("file/arrangement.json").toStdString() +
                                 ": its folder could not be made");
}

/// Lets no file grow, as on a full disk.
class FullDisk {
public:
    FullDisk() {
        getrlimit(RLIMIT_FSIZE, &former_);
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit full{.rlim_cur = 0, .rlim_max = former_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &former_);
        std::signal(SIGXFSZ, SIG_DFL);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit former_{};
};

TEST_F(ArrangementFileTest, FullDiskIsSaidOnceAndLeavesTheOldFile) {
    ArrangementFile file(path(), log_);
    file.save(oneWidget_);
    const QByteArray before = read("arrangement.json");
    {
        const FullDisk fullDisk;
        file.save({});
        file.save({});
    }
    EXPECT_EQ(read("arrangement.json"), before);
    EXPECT_EQ(files(), QStringList{"arrangement.json"});
    ASSERT_EQ(log_.lines.size(), 1U);
    EXPECT_EQ(log_.lines[0].find("The arrangement could not be saved in " + path().toStdString()),
              0U);
}

TEST_F(ArrangementFileTest, TroubleThatComesBackIsSaidAgain) {
    ArrangementFile file(path(), log_);
    for (int round = 0; round < 2; ++round) {
        {
            const FullDisk fullDisk;
            file.save(oneWidget_);
        }
        file.save(oneWidget_);
    }
    EXPECT_EQ(log_.lines.size(), 2U);
    EXPECT_EQ(ArrangementFile(path(), log_).load(), oneWidget_);
}

TEST_F(ArrangementFileTest, FileOfALaterProgramIsSetAsideWithItsReason) {
    write("arrangement.json", R"({"version": 2, "places": []})");
    EXPECT_FALSE(ArrangementFile(path(), log_).load());
    EXPECT_EQ(read("arrangement.json.damaged"), R"({"version": 2, "places": []})");
    ASSERT_EQ(log_.lines.size(), 1U);
    EXPECT_NE(log_.lines[0].find("that of a later program"), std::string::npos);
}

TEST_F(ArrangementFileTest, FolderInThePlaceOfTheFileIsSetAsideToo) {
    ASSERT_TRUE(QDir().mkpath(path("arrangement.json/inner")));
    ArrangementFile file(path(), log_);
    EXPECT_FALSE(file.load());
    EXPECT_TRUE(QFileInfo(path("arrangement.json.damaged/inner")).isDir());
    file.save(oneWidget_);
    EXPECT_EQ(ArrangementFile(path(), log_).load(), oneWidget_);
}

}  // namespace
}  // namespace kelmar::desktop
