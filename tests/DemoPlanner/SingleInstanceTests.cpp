#include <QCoreApplication>
#include <QEventLoop>
#include <QTemporaryDir>
#include <atomic>
#include <future>
#include <gtest/gtest.h>
#include <vector>

#include "DemoPlanner/SingleInstance.h"

namespace kelmar::demo {
namespace {

using Kind = StartRequest::Kind;

class SingleInstanceTest : public testing::Test {
public:
    ~SingleInstanceTest() override { qunsetenv("XDG_RUNTIME_DIR"); }

protected:
    SingleInstanceTest() { qputenv("XDG_RUNTIME_DIR", runtime_.path().toUtf8()); }

    [[nodiscard]] std::unique_ptr<SingleInstance> claim() const {
        auto claimed = SingleInstance::claim(path_);
        EXPECT_TRUE(claimed);
        return *std::move(claimed);
    }

    /// What comes of handing over, while this thread's event loop runs.
    [[nodiscard]] bool handOver(const StartRequest& request) const {
        auto outcome = std::async(std::launch::async, [&] {
            return static_cast<bool>(SingleInstance::handOver(path_, request));
        });
        while (outcome.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
        return outcome.get();
    }

    QTemporaryDir runtime_;
    QTemporaryDir folder_;
    std::string path_ = folder_.path().toStdString();
};

TEST_F(SingleInstanceTest, OnlyOneCanClaimAFolderAtATime) {
    std::unique_ptr<SingleInstance> first = claim();
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(claim(), nullptr);
    first.reset();
    EXPECT_NE(claim(), nullptr);
}

TEST_F(SingleInstanceTest, AFolderThatIsMissingCannotBeClaimed) {
    EXPECT_FALSE(SingleInstance::claim(path_ + "/missing"));
}

TEST_F(SingleInstanceTest, RequestsArriveWholeAndInOrder) {
    const std::unique_ptr<SingleInstance> instance = claim();
    std::vector<StartRequest> arrived;
    ASSERT_TRUE(instance->listen([&](const StartRequest& each) { arrived.push_back(each); }));
    const std::vector<StartRequest> sent{
        {Kind::show, "", ""},
        {Kind::stayInBackground, "", ""},
        {Kind::openUrl, "kelmarplanner://untick/\"a\\b\"\n\xC3\xBC", "host_TIME5"},
    };
    for (const StartRequest& request : sent) {
        EXPECT_TRUE(handOver(request));
    }
    EXPECT_EQ(arrived, sent);
}

TEST_F(SingleInstanceTest, HandingOverWaitsUntilTheRequestIsDone) {
    const std::unique_ptr<SingleInstance> instance = claim();
    std::atomic<bool> done = false;
    ASSERT_TRUE(instance->listen([&](const StartRequest&) { done = true; }));
    auto sawItDone = std::async(std::launch::async, [&] {
        return static_cast<bool>(SingleInstance::handOver(path_, {Kind::show, "", ""})) &&
               done.load();
    });
    while (sawItDone.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    EXPECT_TRUE(sawItDone.get());
}

TEST_F(SingleInstanceTest, WhatIsNoRequestIsDropped) {
    const std::unique_ptr<SingleInstance> instance = claim();
    int arrived = 0;
    ASSERT_TRUE(instance->listen([&](const StartRequest&) { ++arrived; }));
    QFile lock(folder_.filePath(SingleInstance::lockName));
    ASSERT_TRUE(lock.open(QIODevice::ReadOnly));
    for (const QByteArray& line :
         {QByteArray("nonsense\n"), QByteArray("{\"request\": \"dance\"}\n"),
          QByteArray(200'000, 'x')}) {
        QLocalSocket socket;
        lock.seek(0);
        socket.connectToServer(QString::fromUtf8(lock.readAll()));
        ASSERT_TRUE(socket.waitForConnected());
        socket.write(line);
        while (socket.state() == QLocalSocket::ConnectedState) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
    }
    EXPECT_EQ(arrived, 0);
    EXPECT_TRUE(handOver({Kind::show, "", ""}));
    EXPECT_EQ(arrived, 1);
}

}  // namespace
}  // namespace kelmar::demo
