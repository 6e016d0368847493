#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gtest/gtest.h>
#include <vector>

#include "Desktop/CrossFade.h"

namespace kelmar::desktop {
namespace {

QImage picture() {
    return {4, 4, QImage::Format_RGB32};
}

class CrossFadeTest : public testing::Test {
protected:
    CrossFadeTest() {
        QObject::connect(&fade_, &CrossFade::advanced,
                         [this] { seen_.push_back(fade_.remaining()); });
    }

    void waitForTheEnd() {
        const QDeadlineTimer deadline(20'000);
        while (fade_.isRunning() && !deadline.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

    CrossFade fade_;
    std::vector<double> seen_;
};

TEST_F(CrossFadeTest, IsOverUntilItBegins) {
    EXPECT_FALSE(fade_.isRunning());
    EXPECT_EQ(fade_.remaining(), 0);
}

TEST_F(CrossFadeTest, ShowsSomeOfTheNewPictureAtOnce) {
    fade_.begin(picture());
    EXPECT_TRUE(fade_.isRunning());
    EXPECT_LT(fade_.remaining(), 1);
    EXPECT_GT(fade_.remaining(), 0.5);
}

TEST_F(CrossFadeTest, TakesAFewFramesAndLeavesNothing) {
    fade_.begin(picture());
    waitForTheEnd();
    ASSERT_EQ(seen_.size(), 5U);
    for (std::size_t frame = 1; frame < seen_.size(); ++frame) {
        EXPECT_LT(seen_[frame], seen_[frame - 1]);
    }
    EXPECT_EQ(seen_.back(), 0);
    EXPECT_TRUE(fade_.former().isNull());
}

TEST_F(CrossFadeTest, EndsAtOnceOnDemandAndTellsNothingMore) {
    fade_.begin(picture());
    fade_.end();
    EXPECT_FALSE(fade_.isRunning());
    QCoreApplication::processEvents(QEventLoop::AllEvents, 100);
    EXPECT_TRUE(seen_.empty());
}

}  // namespace
}  // namespace kelmar::desktop
