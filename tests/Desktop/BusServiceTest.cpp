#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDeadlineTimer>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

#include "Desktop/BusNames.h"
#include "Desktop/BusService.h"
#include "Desktop/Instance.h"
#include "Host/HostParts.h"
#include "tests/Desktop/FakePortal.h"
#include "tests/Desktop/RecordingLog.h"
#include "tests/Host/Contents.h"
#include "tests/Host/Fakes.h"

namespace kelmar::desktop {
namespace {

using host::at;

const kit::Environment small{
    .family = kit::Family::small, .contentSize = {138, 138}, .renderingMode = {}};

/// A service on a real bus, over a host whose extension is played by the test, and somebody else
/// on the bus who calls it.
class BusServiceTest : public testing::Test {
public:
    ~BusServiceTest() override {
        QDBusConnection::disconnectFromBus("own");
        QDBusConnection::disconnectFromBus("caller");
    }
    BusServiceTest(const BusServiceTest&) = delete;
    BusServiceTest& operator=(const BusServiceTest&) = delete;

protected:
    static void SetUpTestSuite() { privateBus = std::make_unique<test::PrivateBus>(); }
    static void TearDownTestSuite() { privateBus.reset(); }

    BusServiceTest() {
        extension().introduce({.widgets = {{"Clock", "The Clock", "", {}}}, .controls = {}});
        const auto id = host_.add("Clock", small);
        items_ = {{{"Clock", kit::Family::small, {"HDMI-1", {}}, QPoint(16, 24)}, id},
                  {{"Moon", kit::Family::large, {"HDMI-1", {}}, QPoint(200, 24)}, std::nullopt}};
        EXPECT_EQ(claimInstance(own_, log_), Instance::only);
    }

    host::FakeProcess& extension() { return launcher_.last(); }
    QDBusPendingCall begin(const QString& method, const QVariantList& arguments = {},
                           const QString& interface = bus::interfaceName) {
        QDBusMessage message =
            QDBusMessage::createMethodCall(bus::serviceName, bus::objectPath, interface, method);
        message.setArguments(arguments);
        return caller_.asyncCall(message);
    }
    static bool waitFor(const std::function<bool()>& condition) {
        for (const QDeadlineTimer deadline(20'000); !deadline.hasExpired();) {
            if (condition()) {
                return true;
            }
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
        }
        return condition();
    }
    QDBusMessage call(const QString& method, const QVariantList& arguments = {},
                      const QString& interface = bus::interfaceName) {
        const QDBusPendingCall pending = begin(method, arguments, interface);
        EXPECT_TRUE(waitFor([&] { return pending.isFinished(); }));
        return pending.reply();
    }
    void answerTimeline() {
        extension().answer(2, kit::encodeTimeline(host::timeline({host::entry(900, "a")})));
    }
    [[nodiscard]] std::size_t requests() { return extension().requests().size(); }

    inline static std::unique_ptr<test::PrivateBus> privateBus;
    QDBusConnection own_ = QDBusConnection::connectToBus(privateBus->address(), "own");
    QDBusConnection caller_ = QDBusConnection::connectToBus(privateBus->address(), "caller");
    test::RecordingLog log_;
    host::RecordingUrlOpener opener_;
    system::ManualClock clock_{at(1'000)};
    host::ManualWallClockTimer wallClockTimer_;
    host::ManualTimers timers_;
    host::FakeLauncher launcher_;
    host::ManualFileWatch fileWatch_;
    host::WidgetHost host_{
        {.executable = "/opt/clock-extension", .urlScheme = "clock", .reloadOnChange = {}},
        host::HostParts{opener_, clock_, wallClockTimer_, timers_, launcher_, fileWatch_, log_,
                        host::HostLimits{}}};
    std::vector<DesktopItem> items_;
    BusService service_{{.host = host_, .items = [this] { return items_; }}, own_};
};

TEST_F(BusServiceTest, ReloadsAKindOrAllThatIsOnTheDesktop) {
    answerTimeline();
    EXPECT_EQ(call("ReloadTimelines", {"Clock"}).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(requests(), 4U);
    extension().answer(3, kit::encodeTimeline(host::timeline({host::entry(900, "b")})));
    EXPECT_EQ(call("ReloadAllTimelines").type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(requests(), 5U);
}

TEST_F(BusServiceTest, KnowsWhatIsOfferedAndWhatHasAPlace) {
    for (const char* kind : {"Clock", "Moon"}) {
        EXPECT_EQ(call("ReloadTimelines", {kind}).type(), QDBusMessage::ReplyMessage) << kind;
    }
    for (const char* method : {"ReloadTimelines", "Explain"}) {
        const QDBusMessage answer = call(method, {"Sun"});
        EXPECT_EQ(answer.errorName(), bus::unknownKindError) << method;
        EXPECT_EQ(answer.errorMessage(), "There is no widget \"Sun\"; there are Clock.") << method;
    }
}

TEST_F(BusServiceTest, AFloodOfReloadsReachesTheExtensionAFewTimes) {
    answerTimeline();
    std::vector<QDBusPendingCall> calls;
    for (int count = 0; count < 500; ++count) {
        calls.push_back(begin("ReloadAllTimelines"));
        if (requests() > 3) {  // Whatever it is asked it answers at once.
            extension().answer(requests() - 1,
                               kit::encodeTimeline(host::timeline({host::entry(900, "b")})));
        }
    }
    ASSERT_TRUE(waitFor([&] { return calls.back().isFinished(); }));
    for (int count = 0; count < 50; ++count) {
        extension().answer(requests() - 1,
                           kit::encodeTimeline(host::timeline({host::entry(900, "b")})));
    }
    EXPECT_LE(requests(), 3U + 11U);
    EXPECT_GE(requests(), 4U);
}

TEST_F(BusServiceTest, ListsWhatHasAPlaceAndWhetherItIsToBeSeen) {
    answerTimeline();
    const QDBusMessage answer = call("ListWidgets");
    ASSERT_EQ(answer.signature(), "aa{sv}");
    const auto list = qdbus_cast<BusReports>(answer.arguments().constFirst());
    ASSERT_EQ(list.size(), 2);
    EXPECT_EQ(list[0], (QVariantMap{{"kind", "Clock"},
                                    {"displayName", "The Clock"},
                                    {"family", "small"},
                                    {"screen", "HDMI-1"},
                                    {"x", 16},
                                    {"y", 24},
                                    {"shown", true},
                                    {"content", "timeline"}}));
    EXPECT_EQ(list[1]["displayName"], "Moon");
    EXPECT_EQ(list[1]["shown"], false);
    EXPECT_EQ(list[1]["content"], "nothing");
}

TEST_F(BusServiceTest, ExplainsAKindTogetherWithWhatTheExtensionSays) {
    timers_.advance(std::chrono::milliseconds(250));
    answerTimeline();
    const QDBusPendingCall pending = begin("Explain", {"Clock"});
    ASSERT_TRUE(waitFor([&] { return requests() == 4; }));
    extension().answer(3, kit::encodeFindings({"the file is torn"}));
    ASSERT_TRUE(waitFor([&] { return pending.isFinished(); }));
    const auto answer = qdbus_cast<QVariantMap>(pending.reply().arguments().value(0));
    EXPECT_EQ(answer["displayName"], "The Clock");
    EXPECT_EQ(answer["findings"], QStringList{"the file is torn"});
    EXPECT_FALSE(answer.contains("noFindings"));
    const auto widgets = qdbus_cast<BusReports>(answer["widgets"]);
    ASSERT_EQ(widgets.size(), 1);
    EXPECT_EQ(widgets[0]["entryIndex"], 0U);
    EXPECT_EQ(widgets[0]["entryCount"], 1U);
    EXPECT_EQ(widgets[0]["entryDate"], 900.0);
    EXPECT_FALSE(widgets[0].contains("nextEntry"));
    const auto reload = qdbus_cast<QVariantMap>(widgets[0]["lastReload"]);
    EXPECT_EQ(reload, (QVariantMap{{"cause", "placed"},
                                   {"began", 1000.0},
                                   {"outcome", "taken"},
                                   {"duration", 0.25},
                                   {"reason", ""}}));
}

TEST_F(BusServiceTest, SaysWhyThereAreNoFindings) {
    const QDBusPendingCall pending = begin("Explain", {"Moon"});
    ASSERT_TRUE(waitFor([&] { return requests() == 4; }));
    extension().answerWithError(3, "There is no such method.");
    ASSERT_TRUE(waitFor([&] { return pending.isFinished(); }));
    const auto answer = qdbus_cast<QVariantMap>(pending.reply().arguments().value(0));
    EXPECT_EQ(answer["noFindings"], "There is no such method.");
    EXPECT_FALSE(answer.contains("findings"));
    EXPECT_TRUE(qdbus_cast<BusReports>(answer["widgets"]).isEmpty());
}

TEST_F(BusServiceTest, AsksTheExtensionOnceForAllWhoWantAnExplanation) {
    constexpr std::size_t many = 50;
    std::vector<QDBusPendingCall> calls;
    calls.reserve(many);
    for (std::size_t count = 0; count < many; ++count) {
        calls.push_back(begin("Explain", {count % 2 == 0 ? "Clock" : "Moon"}));
    }
    ASSERT_EQ(call("ListWidgets").type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(requests(), 4U);
    extension().answer(3, kit::encodeFindings({}));
    for (const QDBusPendingCall& each : calls) {
        ASSERT_TRUE(waitFor([&] { return each.isFinished(); }));
    }
    const auto last = qdbus_cast<QVariantMap>(calls.back().reply().arguments().value(0));
    EXPECT_EQ(last["kind"], "Moon");
}

TEST_F(BusServiceTest, WhoeverStartsTheProgramAgainSeesTheGallery) {
    int shown = 0;
    QObject::connect(&service_, &BusService::galleryRequested, [&] { ++shown; });
    call("ShowGallery");
    EXPECT_EQ(shown, 1);
    call("Activate", {QVariantMap{}}, "org.freedesktop.Application");
    EXPECT_EQ(shown, 2);
    EXPECT_EQ(claimInstance(caller_, log_), Instance::later);
}

TEST_F(BusServiceTest, OpensNoFilesAndHasNoActions) {
    const auto application = QStringLiteral("org.freedesktop.Application");
    EXPECT_EQ(
        call("Open", {QStringList{"file:///etc/passwd"}, QVariantMap{}}, application).errorName(),
        "org.freedesktop.DBus.Error.NotSupported");
    EXPECT_EQ(
        call("ActivateAction", {"dance", QVariantList{}, QVariantMap{}}, application).errorName(),
        "org.freedesktop.DBus.Error.InvalidArgs");
}

TEST(Instance, WithoutABusThereIsOneLineAboutIt) {
    test::RecordingLog log;
    EXPECT_EQ(claimInstance(QDBusConnection(QString()), log), Instance::only);
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_NE(log.lines[0].find("no session bus"), std::string::npos);
}

}  // namespace
}  // namespace kelmar::desktop
