#include <QByteArray>
#include <cstring>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>

#include "Host/SessionBus.h"
#include "System/Descriptor.h"
#include "tests/Host/TemporaryFolder.h"

namespace kelmar::host {
namespace {

using namespace std::chrono_literals;

/// A socket that accepts connections, as the kernel does for whoever listens.
class SessionBusTest : public testing::Test {
protected:
    SessionBusTest() {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const auto path = std::string(folder_ / "bus");
        std::memcpy(static_cast<void*>(address.sun_path), path.data(), path.size());
        EXPECT_EQ(
            bind(listening_.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(listening_.get(), 8), 0);
        qputenv("DBUS_SESSION_BUS_ADDRESS", QByteArray::fromStdString(address_));
    }
    ~SessionBusTest() override {
        former_.isEmpty() ? qunsetenv("DBUS_SESSION_BUS_ADDRESS")
                          : qputenv("DBUS_SESSION_BUS_ADDRESS", former_);
    }
    SessionBusTest(const SessionBusTest&) = delete;
    SessionBusTest& operator=(const SessionBusTest&) = delete;

    QByteArray former_ = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    TemporaryFolder folder_;
    std::string address_ = "unix:path=" + std::string(folder_ / "bus");
    system::Descriptor listening_{socket(AF_UNIX, SOCK_STREAM, 0)};
};

TEST_F(SessionBusTest, OneThatAcceptsAndAnswersNothingIsSilent) {
    EXPECT_TRUE(isSilentBus(address_, 10ms));
}

TEST_F(SessionBusTest, OneThatAnswersIsNot) {
    std::string question;
    std::thread bus([&] {
        const system::Descriptor client(accept(listening_.get(), nullptr, nullptr));
        char bytes[16];
        const auto count = read(client.get(), bytes, sizeof bytes);
        question.assign(bytes, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        EXPECT_EQ(write(client.get(), "REJECTED EXTERNAL\r\n", 19), 19);
    });
    EXPECT_FALSE(isSilentBus(address_, 30s));
    bus.join();
    EXPECT_EQ(question, std::string("\0AUTH\r\n", 7));
}

TEST_F(SessionBusTest, OneThatHangsUpIsNot) {
    std::thread bus([&] { close(accept(listening_.get(), nullptr, nullptr)); });
    EXPECT_FALSE(isSilentBus(address_, 30s));
    bus.join();
}

TEST_F(SessionBusTest, OneThatHasNoRoomForMoreClientsIs) {
    ASSERT_EQ(listen(listening_.get(), 0), 0);
    // Those before it wait to be accepted, though they have hung up.
    for (int count = 0; count < 3; ++count) {
        EXPECT_TRUE(isSilentBus(address_, 0ms)) << count;
    }
}

TEST_F(SessionBusTest, WhereNobodyListensNothingIs) {
    EXPECT_FALSE(isSilentBus("unix:path=" + std::string(folder_ / "missing"), 30s));
    EXPECT_FALSE(isSilentBus("unix:path=" + std::string(1'000, 'x'), 30s));
    EXPECT_FALSE(isSilentBus("tcp:host=localhost,port=1", 30s));
}

TEST_F(SessionBusTest, ASilentBusIsLeft) {
    EXPECT_TRUE(mayHaveSessionBus());
    EXPECT_EQ(leaveSilentSessionBus(), address_);
    EXPECT_FALSE(mayHaveSessionBus());
    EXPECT_EQ(leaveSilentSessionBus(), "");
}

}  // namespace
}  // namespace kelmar::host
