#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFont>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

#include "Desktop/PortalSettings.h"
#include "tests/Desktop/FakePortal.h"
#include "tests/Desktop/RecordingLog.h"

namespace kelmar::desktop {
namespace {

bool waitFor(const std::function<bool()>& condition) {
    for (const QDeadlineTimer deadline(20'000); !deadline.hasExpired();) {
        if (condition()) {
            return true;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    }
    return condition();
}

class PortalOnBusTest : public testing::Test {
protected:
    static void SetUpTestSuite() { privateBus = std::make_unique<test::PrivateBus>(); }
    static void TearDownTestSuite() { privateBus.reset(); }

    void startPortal(const test::Settings& settings) {
        portal_ = std::make_unique<test::FakePortal>(privateBus->address());
        portal_->settings = settings;
    }

    static test::Settings appearance(const char* key, const QVariant& value) {
        return {{"org.freedesktop.appearance", {{key, value}}}};
    }

    inline static std::unique_ptr<test::PrivateBus> privateBus;
    std::unique_ptr<test::FakePortal> portal_;
    test::RecordingLog log_;
};

TEST_F(PortalOnBusTest, PreferencesComeWithoutBeingWaitedFor) {
    startPortal({{"org.freedesktop.appearance", {{"color-scheme", 1U}}},
                 {"org.gnome.desktop.interface", {{"font-name", "Cantarell 11"}}}});
    const PortalSettings settings(log_);
    EXPECT_EQ(settings.preferences(), Preferences{});
    ASSERT_TRUE(waitFor([&] { return settings.preferences().scheme.has_value(); }));
    EXPECT_EQ(settings.preferences().scheme, paint::Scheme::dark);
    EXPECT_EQ(settings.preferences().fontFamily, "Cantarell");
    EXPECT_TRUE(portal_->askedFor.contains("org.freedesktop.appearance"));
    EXPECT_TRUE(log_.lines.empty());
}

TEST_F(PortalOnBusTest, ChangeIsFollowed) {
    startPortal(appearance("color-scheme", 1U));
    const PortalSettings settings(log_);
    ASSERT_TRUE(waitFor([&] { return settings.preferences().scheme == paint::Scheme::dark; }));
    emit portal_->SettingChanged("org.freedesktop.appearance", "color-scheme", QDBusVariant(2U));
    EXPECT_TRUE(waitFor([&] { return settings.preferences().scheme == paint::Scheme::light; }));
}

TEST_F(PortalOnBusTest, OnlyRealChangesAreTold) {
    startPortal(appearance("color-scheme", 1U));
    const PortalSettings settings(log_);
    int changes = 0;
    QObject::connect(&settings, &PortalSettings::changed, [&] { ++changes; });
    ASSERT_TRUE(waitFor([&] { return changes == 1; }));
    emit portal_->SettingChanged("org.freedesktop.appearance", "color-scheme", QDBusVariant(1U));
    emit portal_->SettingChanged("org.freedesktop.appearance", "contrast", QDBusVariant(1U));
    emit portal_->SettingChanged("org.freedesktop.appearance", "color-scheme", QDBusVariant(2U));
    ASSERT_TRUE(waitFor([&] { return settings.preferences().scheme == paint::Scheme::light; }));
    EXPECT_EQ(changes, 2);
}

TEST_F(PortalOnBusTest, ValuesOfTheWrongTypeAreToldOnceAndLeaveTheOthers) {
    startPortal({{"org.freedesktop.appearance",
                  {{"accent-color", QStringList{"red", "green"}}, {"color-scheme", 1U}}}});
    const PortalSettings settings(log_);
    ASSERT_TRUE(waitFor([&] { return settings.preferences().scheme == paint::Scheme::dark; }));
    ASSERT_EQ(log_.lines.size(), 1U);
    EXPECT_EQ(log_.lines[0],
              "The settings portal is not understood: org.freedesktop.appearance accent-color is "
              "of the type \"as\" where three numbers (ddd) is expected; the last good value is "
              "kept, or the default.");
    for (int count = 0; count < 3; ++count) {
        emit portal_->SettingChanged("org.freedesktop.appearance", "color-scheme",
                                     QDBusVariant("light"));
    }
    emit portal_->SettingChanged("org.freedesktop.appearance", "reduced-motion", QDBusVariant(1U));
    ASSERT_TRUE(waitFor([&] { return settings.preferences().motion == Motion::reduced; }));
    EXPECT_EQ(settings.preferences().scheme, paint::Scheme::dark);
    ASSERT_EQ(log_.lines.size(), 2U);
    EXPECT_NE(log_.lines[1].find("color-scheme is \"light\" of the type \"s\""), std::string::npos);
    emit portal_->SettingChanged("org.freedesktop.appearance", "color-scheme", QDBusVariant(2U));
    emit portal_->SettingChanged("org.freedesktop.appearance", "color-scheme",
                                 QDBusVariant("light"));
    EXPECT_TRUE(waitFor([&] { return log_.lines.size() == 3U; })) << "It is a new fault";
}

TEST_F(PortalOnBusTest, AnswerOfTheWrongTypeIsToldWithTheRightOne) {
    startPortal(appearance("color-scheme", 1U));
    portal_->wrongAnswer = QStringList{"dark"};
    const PortalSettings settings(log_);
    ASSERT_TRUE(waitFor([&] { return !log_.lines.empty(); }));
    EXPECT_EQ(log_.lines[0],
              "The settings portal answers in the type \"as\" where \"a{sa{sv}}\" is expected: the "
              "desktop's colours and font are not followed.");
    EXPECT_EQ(settings.preferences(), Preferences{});
}

TEST_F(PortalOnBusTest, PortalThatStartsLaterIsAsked) {
    const PortalSettings settings(log_);
    ASSERT_TRUE(waitFor([&] { return !log_.lines.empty(); }));
    EXPECT_NE(log_.lines[0].find("no settings portal"), std::string::npos);
    startPortal(appearance("color-scheme", 1U));
    EXPECT_TRUE(waitFor([&] { return settings.preferences().scheme == paint::Scheme::dark; }));
    EXPECT_EQ(log_.lines.size(), 1U);
}

}  // namespace
}  // namespace kelmar::desktop
