#include <gmock/gmock.h>

#include "Desktop/Gallery.h"
#include "tests/Desktop/DesktopTest.h"

namespace kelmar::desktop {
namespace {

using testing::ElementsAre;

class GalleryTest : public DesktopTest {
protected:
    static inline const kit::Bundle oneWidget{.widgets = {{.kind = "Streak",
                                                           .displayName = "Streak",
                                                           .description = "",
                                                           .families = {kit::Family::small}}},
                                              .controls = {}};

    GalleryTest() {
        QObject::connect(&gallery_, &Gallery::closed, [this] { ++closed_; });
        QObject::connect(&gallery_, &Gallery::chosen,
                         [this](const std::string& kind, kit::Family /*family*/, QPoint near) {
                             chosen_.push_back(kind);
                             near_ = near;
                         });
    }

    static std::vector<GalleryWindow*> galleries() {
        std::vector<GalleryWindow*> windows;
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* window = qobject_cast<GalleryWindow*>(widget)) {
                windows.push_back(window);
            }
        }
        return windows;
    }

    static void letGo() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    Gallery gallery_{{.host = host_,
                      .look = look_,
                      .compositor = compositor_,
                      .clock = clock_,
                      .texts = texts_}};
    int closed_ = 0;
    std::vector<std::string> chosen_;
    QPoint near_;
};

TEST_F(GalleryTest, ThereIsNoWindowBeforeItIsWantedAndNeverASecondOne) {
    EXPECT_FALSE(gallery_.isOpen());
    EXPECT_TRUE(galleries().empty());
    gallery_.present();
    gallery_.present();
    EXPECT_TRUE(gallery_.isOpen());
    EXPECT_EQ(galleries().size(), 1U);
}

TEST_F(GalleryTest, MinimizedWindowComesBackWhenItIsWantedAgain) {
    gallery_.present();
    galleries().front()->setWindowState(Qt::WindowMinimized);
    gallery_.present();
    EXPECT_FALSE(galleries().front()->isMinimized());
}

/// Who hears that it has been closed may want to know whether anything is left to be seen.
TEST_F(GalleryTest, ItIsNoLongerOpenWhenItSaysThatItIsClosed) {
    bool wasOpen = true;
    QObject::connect(&gallery_, &Gallery::closed, [&] { wasOpen = gallery_.isOpen(); });
    gallery_.present();
    galleries().front()->close();
    EXPECT_FALSE(wasOpen);
    letGo();
    EXPECT_TRUE(galleries().empty());
    EXPECT_EQ(closed_, 1);
}

TEST_F(GalleryTest, ItOpensAnewAfterItWasClosedEvenBeforeTheOldWindowHasGone) {
    gallery_.present();
    galleries().front()->close();
    gallery_.present();
    EXPECT_TRUE(gallery_.isOpen());
    letGo();
    EXPECT_TRUE(gallery_.isOpen());
    EXPECT_EQ(galleries().size(), 1U);
    EXPECT_TRUE(galleries().front()->isVisible());
}

TEST_F(GalleryTest, ChosenWidgetIsWantedOnTheGallerysScreen) {
    gallery_.present();
    launcher_.last().introduce(oneWidget);
    galleries().front()->findChild<GalleryTile*>()->click();
    EXPECT_THAT(chosen_, ElementsAre("Streak"));
    EXPECT_EQ(near_, galleries().front()->frameGeometry().center());
}

/// A press that had begun before Escape may end after it.
TEST_F(GalleryTest, WindowThatIsClosedButHasNotGoneYetChoosesNothing) {
    gallery_.present();
    launcher_.last().introduce(oneWidget);
    GalleryWindow* window = galleries().front();
    window->close();
    window->findChild<GalleryTile*>()->click();
    letGo();
    EXPECT_THAT(chosen_, testing::IsEmpty());
}

TEST_F(GalleryTest, AnotherDirectionHoldsFromTheNextOpeningOn) {
    gallery_.present();
    gallery_.setDirection(layout::Direction::rightToLeft);
    EXPECT_EQ(galleries().front()->layoutDirection(), Qt::LeftToRight);
    galleries().front()->close();
    letGo();
    gallery_.present();
    EXPECT_EQ(galleries().front()->layoutDirection(), Qt::RightToLeft);
}

}  // namespace
}  // namespace kelmar::desktop
