#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

#include "Host/InotifyFileWatch.h"
#include "Host/SettingsWatch.h"
#include "tests/Host/EventLoop.h"
#include "tests/Host/Fakes.h"
#include "tests/Host/TemporaryFolder.h"
#include "tests/Support/ScopedVariable.h"

namespace kelmar::host {
namespace {

using kelmar::testing::ScopedVariable;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

/// A machine whose settings lie in a folder of the test's own.
class SettingsWatchTest : public ::testing::Test {
protected:
    SettingsWatchTest() {
        writeText(folder_ / "Berlin", "zone data");
        writeText(folder_ / "Auckland", "other zone data");
        link("Berlin");
        writeText(localeFile(), "LANG=de_DE.UTF-8\n");
    }

    [[nodiscard]] std::string localeFile() const { return folder_ / "locale"; }
    /// As the programs that set a zone do it: never without a link to be seen.
    void link(const std::string& zone) const {
        std::filesystem::create_symlink(folder_ / zone, folder_ / "localtime.new");
        std::filesystem::rename(folder_ / "localtime.new", folder_ / "localtime");
    }
    void startWatching() {
        watch_ = std::make_unique<SettingsWatch>(
            files_,
            SettingsFiles{.timeZone = folder_ / "localtime",
                          .locale = {localeFile(), folder_ / "locale.conf"}},
            localeVariables(), [this](ReloadCause cause) { causes_.push_back(cause); });
    }
    [[nodiscard]] static std::string variable(const char* name) {
        const char* const value = std::getenv(name);
        return value != nullptr ? value : "unset";
    }

    TemporaryFolder folder_;
    ScopedVariable zone_{"TZ", std::nullopt};
    ScopedVariable language_{"LANG", "de_DE.UTF-8"};
    ScopedVariable list_{"LANGUAGE", std::nullopt};
    ScopedVariable time_{"LC_TIME", std::nullopt};
    ScopedVariable all_{"LC_ALL", std::nullopt};
    ManualFileWatch files_;
    std::unique_ptr<SettingsWatch> watch_;
    std::vector<ReloadCause> causes_;
};

TEST_F(SettingsWatchTest, WatchesTheLinkOfTheZoneAndTheFilesOfTheLocale) {
    startWatching();
    EXPECT_THAT(files_.paths,
                UnorderedElementsAre(localeFile(), folder_ / "locale.conf", folder_ / "localtime"));
    files_.changed();
    EXPECT_THAT(causes_, IsEmpty()) << "Nothing is another";
}

TEST_F(SettingsWatchTest, AnotherZoneIsNoticedAndWhileThereIsNoneTheLastOneStays) {
    startWatching();
    std::filesystem::remove(folder_ / "localtime");
    files_.changed();
    EXPECT_THAT(causes_, IsEmpty());
    link("Auckland");
    files_.changed();
    files_.changed();
    EXPECT_THAT(causes_, ElementsAre(ReloadCause::timeZoneChanged));
}

TEST_F(SettingsWatchTest, AZoneThatTheSessionChoseIsNotTheMachines) {
    const ScopedVariable chosen("TZ", "America/New_York");
    startWatching();
    EXPECT_THAT(files_.paths, UnorderedElementsAre(localeFile(), folder_ / "locale.conf"));
    link("Auckland");
    files_.changed();
    EXPECT_THAT(causes_, IsEmpty());
}

TEST_F(SettingsWatchTest, AZoneThatTheSessionTookFromAFileChangesWithIt) {
    std::filesystem::create_symlink(folder_ / "Berlin", folder_ / "mine");
    const ScopedVariable chosen("TZ", ":" + (folder_ / "mine").string());
    startWatching();
    EXPECT_THAT(files_.paths, ::testing::Contains(folder_ / "mine"));
    std::filesystem::remove(folder_ / "mine");
    std::filesystem::create_symlink(folder_ / "Auckland", folder_ / "mine");
    files_.changed();
    EXPECT_THAT(causes_, ElementsAre(ReloadCause::timeZoneChanged));
}

TEST_F(SettingsWatchTest, AnotherLocaleComesIntoTheEnvironment) {
    startWatching();
    writeText(localeFile(),
              "# made by hand\nLANG=\"ar_EG.UTF-8\"\nLC_TIME='en_GB.UTF-8'\nPATH=/\n");
    files_.changed();
    EXPECT_THAT(causes_, ElementsAre(ReloadCause::localeChanged));
    EXPECT_EQ(variable("LANG"), "ar_EG.UTF-8");
    EXPECT_EQ(variable("LC_TIME"), "en_GB.UTF-8");
    EXPECT_NE(variable("PATH"), "/");
    writeText(localeFile(), "LANG=ar_EG.UTF-8\n");
    files_.changed();
    EXPECT_EQ(variable("LC_TIME"), "unset");
}

TEST_F(SettingsWatchTest, TheLaterFileWins) {
    startWatching();
    writeText(folder_ / "locale.conf", "LANG=fr_FR.UTF-8\n");
    files_.changed();
    EXPECT_EQ(variable("LANG"), "fr_FR.UTF-8");
}

TEST_F(SettingsWatchTest, WhatTheSessionChoseItselfStays) {
    const ScopedVariable chosen("LANG", "en_US.UTF-8");
    startWatching();
    writeText(localeFile(), "LANG=ar_EG.UTF-8\n");
    files_.changed();
    EXPECT_EQ(variable("LANG"), "en_US.UTF-8");
}

TEST_F(SettingsWatchTest, ALanguageListThatWasMadeOfTheFormerLocaleGoesWithIt) {
    startWatching();
    const ScopedVariable made("LANGUAGE", "de_DE:de");
    writeText(localeFile(), "LANG=ar_EG.UTF-8\n");
    files_.changed();
    EXPECT_EQ(variable("LANGUAGE"), "unset");
}

TEST_F(SettingsWatchTest, ALanguageListOfTheUsersStays) {
    const ScopedVariable own("LANGUAGE", "de:fr");
    startWatching();
    writeText(localeFile(), "LANG=ar_EG.UTF-8\n");
    files_.changed();
    EXPECT_EQ(variable("LANGUAGE"), "de:fr");
}

TEST_F(SettingsWatchTest, NobodyIsToldWhenItHasGone) {
    startWatching();
    watch_.reset();
    EXPECT_THAT(files_.paths, IsEmpty());
}

TEST_F(SettingsWatchTest, FilesOfThisKindAreReallyWatched) {
    RecordingLog log;
    QtTimers timers;
    InotifyFileWatch inotify({.fileBurst = 10ms}, timers, log);
    const SettingsWatch watch(
        inotify, {.timeZone = folder_ / "localtime", .locale = {localeFile()}}, localeVariables(),
        [this](ReloadCause cause) { causes_.push_back(cause); });
    link("Auckland");
    ASSERT_TRUE(waitUntil([this] { return causes_.size() == 1; }));
    writeText(localeFile(), "LANG=ar_EG.UTF-8\n");
    ASSERT_TRUE(waitUntil([this] { return causes_.size() == 2; }));
    EXPECT_THAT(causes_, ElementsAre(ReloadCause::timeZoneChanged, ReloadCause::localeChanged));
}

}  // namespace
}  // namespace kelmar::host
