#include <QProcess>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <mutex>
#include <sstream>

#include "Host/GioUrlOpener.h"
#include "Host/Glib.h"
#include "tests/Host/EventLoop.h"
#include "tests/Host/Fakes.h"
#include "tests/Host/TemporaryFolder.h"

namespace kelmar::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

std::string textIn(const std::filesystem::path& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

/// Where applications are registered; `Main.cpp` has set it up.
std::filesystem::path dataHome() {
    return std::getenv("XDG_DATA_HOME");
}

/// Each test has a scheme of its own. All are registered before the first: GIO notices a new
/// handler by itself, but not at once.
class GioUrlOpenerTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        std::filesystem::create_directories(dataHome() / "applications");
        writeText(dataHome() / "applications/mimeapps.list", "[Default Applications]\n");
        for (const auto* const scheme : {"plain", "background", "front", "recent", "variables"}) {
            registerCommand(scheme, scriptFor(scheme).string() + " %u");
        }
        registerCommand("stays", "/bin/sh -c \"sleep 5\" %u");
        registerCommand("many", "/bin/true %u");
        registerCommand("bus", scriptFor("bus").string() + " %u", "DBusActivatable=true\n");
    }
    static void registerCommand(const std::string& scheme, const std::string& command,
                                const std::string& extraLines = "") {
        const auto file = "org.example." + scheme + ".desktop";
        writeText(dataHome() / "applications" / file,
                  "[Desktop Entry]\nType=Application\nStartupNotify=true\nName=" + scheme +
                      "\nExec=" + command + "\nMimeType=x-scheme-handler/test-" + scheme + ";\n" +
                      extraLines);
        std::ofstream(dataHome() / "applications/mimeapps.list", std::ios::app)
            << "x-scheme-handler/test-" + scheme + "=" + file + "\n";
    }
    /// A handler that writes its argument and its environment to a file.
    static std::filesystem::path scriptFor(const std::string& scheme) {
        auto script = dataHome() / (scheme + ".sh");
        const auto output = outputPath(scheme).string();
        writeText(script, "#!/bin/sh\n{ echo \"url=$1\"; env; } > " + output + ".new\nmv " +
                              output + ".new " + output + "\n");
        makeExecutable(script);
        return script;
    }
    static std::filesystem::path outputPath(const std::string& scheme) {
        return dataHome() / (scheme + ".output");
    }
    /// What the handler wrote; completion does not wait for it.
    [[nodiscard]] static std::string outputOf(const std::string& scheme) {
        EXPECT_TRUE(waitUntil([&] { return std::filesystem::exists(outputPath(scheme)); }));
        return textIn(outputPath(scheme));
    }
    void open(const std::string& url, OpenOptions options = {}) {
        opener_.open(url, options, [this](const std::string& error) { errors_.push_back(error); });
    }
    [[nodiscard]] bool completes(std::size_t count = 1) {
        return waitUntil([&] { return errors_.size() >= count; });
    }

    GioUrlOpener opener_{[] { return "token_TIME77"; }};
    std::vector<std::string> errors_;
};

TEST_F(GioUrlOpenerTest, StartsTheRegisteredHandlerWithTheUrl) {
    open("test-plain://done/a%20b?x=1&y='2'#end");
    EXPECT_THAT(errors_, IsEmpty()) << "Completion never comes within the call";
    ASSERT_TRUE(completes());
    EXPECT_THAT(errors_, ElementsAre(""));
    EXPECT_THAT(outputOf("plain"), HasSubstr("url=test-plain://done/a%20b?x=1&y='2'#end\n"));
}

TEST_F(GioUrlOpenerTest, GivesNoActivationTokenInTheBackground) {
    qputenv("DESKTOP_STARTUP_ID", "inherited");
    qputenv("XDG_ACTIVATION_TOKEN", "inherited");
    open("test-background://x", {.activates = false, .addsToRecentItems = false});
    const auto output = outputOf("background");
    qunsetenv("DESKTOP_STARTUP_ID");
    qunsetenv("XDG_ACTIVATION_TOKEN");
    EXPECT_THAT(output, HasSubstr("url=test-background://x\n"));
    EXPECT_THAT(output, Not(HasSubstr("DESKTOP_STARTUP_ID")));
    EXPECT_THAT(output, Not(HasSubstr("XDG_ACTIVATION_TOKEN")));
    EXPECT_TRUE(completes());
}

TEST_F(GioUrlOpenerTest, GivesATokenOfItsOwnToAnActivatingOpening) {
    open("test-front://x", {.activates = true, .addsToRecentItems = false});
    EXPECT_THAT(outputOf("front"), HasSubstr("DESKTOP_STARTUP_ID=token_TIME77\n"));
    EXPECT_TRUE(completes());
}

TEST_F(GioUrlOpenerTest, GivesTheHandlerVariablesOfItsOwn) {
    qputenv("KELMAR_CHANGED", "for this process");
    qputenv("KELMAR_ADDED", "for this process");
    GioUrlOpener opener({}, {{"KELMAR_CHANGED", "as before"}, {"KELMAR_ADDED", std::nullopt}});
    opener.open("test-variables://x", {}, [](const std::string& /*error*/) {});
    const auto output = outputOf("variables");
    qunsetenv("KELMAR_CHANGED");
    qunsetenv("KELMAR_ADDED");
    EXPECT_THAT(output, HasSubstr("KELMAR_CHANGED=as before\n"));
    EXPECT_THAT(output, Not(HasSubstr("KELMAR_ADDED")));
}

TEST_F(GioUrlOpenerTest, AddsNothingToTheRecentFiles) {
    open("test-recent://x");
    EXPECT_THAT(outputOf("recent"), HasSubstr("url=test-recent://x\n"));
    EXPECT_TRUE(completes());
    EXPECT_FALSE(std::filesystem::exists(dataHome() / "recently-used.xbel"));
}

TEST_F(GioUrlOpenerTest, TellsOnceThatNobodyIsRegistered) {
    open("test-nobody://x");
    ASSERT_TRUE(completes());
    runFor(50ms);
    EXPECT_THAT(errors_, ElementsAre("no application is registered to open test-nobody: URLs"));
}

TEST_F(GioUrlOpenerTest, DoesNotWaitForTheHandlerToEnd) {
    open("test-stays://x");
    ASSERT_TRUE(completes());
    EXPECT_THAT(errors_, ElementsAre(""));
}

TEST_F(GioUrlOpenerTest, OpensMany) {
    for (int count = 0; count < 20; ++count) {
        open("test-many://" + std::to_string(count));
    }
    ASSERT_TRUE(completes(20));
    EXPECT_THAT(errors_, testing::Each(""));
}

TEST_F(GioUrlOpenerTest, MayGoWhileSomethingIsBeingOpened) {
    for (int count = 0; count < 20; ++count) {
        GioUrlOpener opener;
        opener.open("test-many://x", {},
                    [this](const std::string& error) { errors_.push_back(error); });
    }
    runFor(50ms);
    EXPECT_THAT(errors_, IsEmpty());
}

/// A session bus of the test's own.
class SessionBus {
public:
    SessionBus() {
        daemon_.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
        EXPECT_TRUE(daemon_.waitForReadyRead());
        address_ = daemon_.readAllStandardOutput().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address_);
    }
    ~SessionBus() {
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        stop();
    }
    SessionBus(const SessionBus&) = delete;
    SessionBus& operator=(const SessionBus&) = delete;

    void stop() {
        daemon_.kill();
        daemon_.waitForFinished();
    }
    [[nodiscard]] GlibOwned<GDBusConnection> connect() const {
        constexpr auto flags = GDBusConnectionFlags(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                    G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
        return GlibOwned<GDBusConnection>(g_dbus_connection_new_for_address_sync(
            address_.constData(), flags, nullptr, nullptr, nullptr));
    }

private:
    QProcess daemon_;
    QByteArray address_;
};

/// An application that is reached over the bus and answers when the test says so.
class BusApplication {
public:
    explicit BusApplication(const SessionBus& bus) : connection_(bus.connect()) {
        g_dbus_connection_add_filter(connection_.get(), takeMessage, this, nullptr);
        g_dbus_connection_call_sync(connection_.get(), "org.freedesktop.DBus",
                                    "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
                                    g_variant_new("(su)", "org.example.bus", 0U), nullptr,
                                    G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
    }
    ~BusApplication() {
        g_dbus_connection_close_sync(connection_.get(), nullptr, nullptr);
        if (call_ != nullptr) {
            g_object_unref(call_);
        }
    }
    BusApplication(const BusApplication&) = delete;
    BusApplication& operator=(const BusApplication&) = delete;

    /// The arguments of the call that came, as text.
    [[nodiscard]] std::string arguments() {
        const std::lock_guard guard(mutex_);
        if (call_ == nullptr) {
            return "";
        }
        const GlibOwned<char> text(g_variant_print(g_dbus_message_get_body(call_), FALSE));
        return text.get();
    }
    void reply() {
        auto* const answer = g_dbus_message_new_method_reply(call_);
        g_dbus_connection_send_message(connection_.get(), answer, G_DBUS_SEND_MESSAGE_FLAGS_NONE,
                                       nullptr, nullptr);
        g_object_unref(answer);
    }

private:
    /// Runs on GLib's own thread.
    static GDBusMessage* takeMessage(GDBusConnection* /*connection*/, GDBusMessage* message,
                                     gboolean isIncoming, void* data) {
        const bool isCall =
            g_dbus_message_get_message_type(message) == G_DBUS_MESSAGE_TYPE_METHOD_CALL;
        if (isIncoming == 0 || !isCall) {
            return message;
        }
        auto* const application = static_cast<BusApplication*>(data);
        const std::lock_guard guard(application->mutex_);
        application->call_ = message;
        return nullptr;
    }

    GlibOwned<GDBusConnection> connection_;
    std::mutex mutex_;
    GDBusMessage* call_ = nullptr;
};

class GioUrlOpenerBusTest : public GioUrlOpenerTest {
protected:
    SessionBus bus_;
};

TEST_F(GioUrlOpenerBusTest, CompletesWhenAnApplicationOnTheBusHasAnswered) {
    BusApplication application(bus_);
    open("test-bus://x");
    ASSERT_TRUE(waitUntil([&] { return !application.arguments().empty(); }));
    EXPECT_EQ(application.arguments(), "(['test-bus://x'], {})") << "No token, nothing else";
    runFor(100ms);
    EXPECT_THAT(errors_, IsEmpty());
    application.reply();
    ASSERT_TRUE(completes());
    EXPECT_THAT(errors_, ElementsAre(""));
}

TEST_F(GioUrlOpenerBusTest, TellsOnceThatTheApplicationOnTheBusCannotBeReached) {
    open("test-bus://x");
    ASSERT_TRUE(completes());
    runFor(50ms);
    EXPECT_THAT(errors_, ElementsAre(HasSubstr("org.example.bus")));
}

TEST_F(GioUrlOpenerBusTest, OutlivesTheBus) {
    open("test-many://x");
    ASSERT_TRUE(completes());
    bus_.stop();
    runFor(100ms);
    open("test-bus://x");
    ASSERT_TRUE(completes(2));
    EXPECT_THAT(errors_, ElementsAre("", "")) << "It is started as a program instead";
    EXPECT_THAT(outputOf("bus"), HasSubstr("url=test-bus://x"));
}

}  // namespace
}  // namespace kelmar::host
