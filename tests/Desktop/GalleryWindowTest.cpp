#include <QApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Desktop/GalleryWindow.h"
#include "Desktop/Screens.h"
#include "Host/HostParts.h"
#include "tests/Desktop/FoundFonts.h"
#include "tests/Desktop/ToldSettings.h"
#include "tests/Host/Fakes.h"

namespace kelmar::desktop {
namespace {

using kit::Family;
using testing::ElementsAre;
using testing::IsEmpty;

const kit::Bundle bundle{
    .widgets = {{.kind = "DueToday",
                 .displayName = "Due Today",
                 .description = "What is due.",
                 .families = {Family::small, Family::medium, Family::large}},
                {.kind = "Streak",
                 .displayName = "Streak",
                 .description = "Your streak.",
                 .families = {Family::small}}},
    .controls = {{.kind = "Timer", .displayName = "Timer", .description = ""}}};

const QColor red(255, 0, 0);
const QRect screen(0, 0, 800, 800);  // of the offscreen platform

kit::Entry redEntry() {
    return {system::Date::since1970(0),
            {.content = kit::Spacer{}, .background = kit::Color::rgb(1, 0, 0), .widgetUrl = {}}};
}

class GalleryWindowTest : public testing::Test {
public:
    ~GalleryWindowTest() override { delete window_; }

protected:
    GalleryWindowTest() { open(); }

    void open(layout::Direction direction = layout::Direction::leftToRight) {
        delete window_;
        window_ = new GalleryWindow({.host = host_,
                                     .look = look_,
                                     .compositor = compositor_,
                                     .clock = clock_,
                                     .texts = texts_,
                                     .direction = direction,
                                     .dragRule = [this](const QRect& wanted, QPoint /*pointer*/) {
                                         wanted_ = wanted;
                                         return QPoint(600, 8);
                                     }});
        QObject::connect(window_, &GalleryWindow::chosen, [this](const auto& kind, Family family) {
            said_.push_back("chosen " + kind + " " + std::string(nameOf(family)));
        });
        QObject::connect(window_, &GalleryWindow::dropped,
                         [this](const auto& kind, Family family, QPoint place) {
                             said_.push_back("dropped " + kind + " " + std::string(nameOf(family)));
                             droppedAt_ = place;
                         });
        window_->present(screen);
    }

    void magnify(double scale) {
        tell(settings_, setting::gnomeInterface, "text-scaling-factor", scale);
    }

    void introduce() { launcher_.last().introduce(bundle); }

    [[nodiscard]] QList<GalleryTile*> tiles() const {
        return window_->findChildren<GalleryTile*>();
    }

    [[nodiscard]] std::vector<std::string> tileNames() const {
        std::vector<std::string> names;
        for (const GalleryTile* tile : tiles()) {
            names.push_back(tile->accessibleName().toStdString());
        }
        return names;
    }

    /// "DueToday small fullColor", of the requests for previews so far.
    std::vector<std::string> previews() {
        std::vector<std::string> words;
        for (const kit::Request& request : launcher_.last().requests()) {
            const auto* const entry = std::get_if<kit::EntryRequest>(&request.body);
            if (entry != nullptr && entry->isPreview &&
                entry->entryKind == kit::EntryKind::snapshot) {
                words.push_back(entry->widgetKind + " " +
                                std::string(nameOf(entry->environment.family)) + " " +
                                std::string(nameOf(entry->environment.renderingMode)));
            }
        }
        return words;
    }

    /// The places of the requests for previews among all requests.
    std::vector<std::size_t> previewRequests() {
        std::vector<std::size_t> places;
        const std::vector<kit::Request> requests = launcher_.last().requests();
        for (std::size_t place = 0; place < requests.size(); ++place) {
            const auto* const entry = std::get_if<kit::EntryRequest>(&requests[place].body);
            if (entry != nullptr && entry->isPreview) {
                places.push_back(place);
            }
        }
        return places;
    }

    void sendPreview(std::size_t index) {
        launcher_.last().answer(previewRequests().at(index), kit::encodeEntry(redEntry()));
    }

    void refusePreview(std::size_t index) {
        launcher_.last().answerWithError(previewRequests().at(index), "no");
    }

    static QColor colorOf(GalleryTile& tile) { return tile.grab().toImage().pixelColor(80, 80); }

    static void press(QWidget& widget, Qt::Key key) {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QCoreApplication::sendEvent(&widget, &event);
        }
    }

    static void send(GalleryTile& tile, QEvent::Type type, QPoint inTile, QPoint onScreen) {
        const bool isMove = type == QEvent::MouseMove;
        QMouseEvent event(
            type, inTile, onScreen, isMove ? Qt::NoButton : Qt::LeftButton,
            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(Qt::LeftButton),
            Qt::NoModifier);
        QCoreApplication::sendEvent(&tile, &event);
    }

    /// Takes a tile 20 and 30 points inside its card and holds it at a place of the screen.
    void dragTo(GalleryTile& tile, QPoint place) {
        const QPoint grip(GalleryTile::ringRoom + 20, GalleryTile::ringRoom + 30);
        send(tile, QEvent::MouseButtonPress, grip, tile.mapToGlobal(grip));
        send(tile, QEvent::MouseMove, grip + QPoint(100, 0), place);
    }

    static void release(GalleryTile& tile, QPoint place) {
        send(tile, QEvent::MouseButtonRelease, QPoint(500, 500), place);
    }

    /// The windows that follow the pointer.
    static int widgetsInHand() {
        int count = 0;
        for (const QWidget* widget : QApplication::topLevelWidgets()) {
            count += dynamic_cast<const WidgetInHand*>(widget) != nullptr ? 1 : 0;
        }
        return count;
    }

    host::RecordingLog log_;
    host::RecordingUrlOpener opener_;
    system::ManualClock clock_{system::Date::since1970(1'760'000'000)};
    host::ManualWallClockTimer wallClockTimer_;
    host::ManualTimers timers_;
    host::FakeLauncher launcher_;
    host::ManualFileWatch fileWatch_;
    host::WidgetHost host_{
        {.executable = "/extension", .urlScheme = "probe", .reloadOnChange = {}},
        host::HostParts{
            opener_, clock_, wallClockTimer_, timers_, launcher_, fileWatch_, log_, {}}};
    PortalSettings settings_{log_};
    Look look_{settings_, SchemeChoice::light, foundFonts()};
    Compositor compositor_;
    system::EnglishLocalization texts_;
    QPointer<GalleryWindow> window_;
    std::vector<std::string> said_;
    QPoint droppedAt_;
    QRect wanted_;
};

TEST_F(GalleryWindowTest, SaysThatTheWidgetsAreSilentUntilTheyAnswer) {
    const auto* const words = window_->findChild<QLabel*>();
    ASSERT_NE(words, nullptr);
    EXPECT_TRUE(words->text().startsWith("The widgets have not answered yet"));
    introduce();
    EXPECT_EQ(tiles().size(), 4);
    for (const QLabel* label : window_->findChildren<QLabel*>()) {
        EXPECT_FALSE(label->text().startsWith("The widgets have not"));
    }
}

TEST_F(GalleryWindowTest, OffersEverySizeInTheBundlesOrder) {
    introduce();
    EXPECT_THAT(tileNames(), ElementsAre("Due Today (Small)", "Due Today (Medium)",
                                         "Due Today (Large)", "Streak (Small)"));
    EXPECT_EQ(tiles().last()->accessibleDescription(), "Your streak.");
}

TEST_F(GalleryWindowTest, NamesAndDescribesEveryWidget) {
    introduce();
    std::vector<std::string> texts;
    for (const QLabel* label : window_->findChildren<QLabel*>()) {
        texts.push_back(label->text().toStdString());
    }
    EXPECT_THAT(texts, ElementsAre("Add widgets", testing::StartsWith("Click a widget"),
                                   "Due Today", "What is due.", "Streak", "Your streak."));
}

TEST_F(GalleryWindowTest, AsksForThePreviewOfEverySize) {
    introduce();
    EXPECT_THAT(previews(), ElementsAre("DueToday small fullColor", "DueToday medium fullColor",
                                        "DueToday large fullColor", "Streak small fullColor"));
}

TEST_F(GalleryWindowTest, PreviewIsShownWhenItComes) {
    introduce();
    EXPECT_NE(colorOf(*tiles()[1]), red);
    sendPreview(1);
    EXPECT_EQ(colorOf(*tiles()[1]), red);
    EXPECT_NE(colorOf(*tiles()[0]), red);
}

TEST_F(GalleryWindowTest, RefusedPreviewIsSaidAndTheWidgetCanBePlacedAllTheSame) {
    introduce();
    const QImage waiting = tiles()[0]->grab().toImage();
    refusePreview(0);
    EXPECT_TRUE(tiles()[0]->isUnavailable());
    EXPECT_NE(tiles()[0]->grab().toImage(), waiting);
    tiles()[0]->click();
    EXPECT_THAT(said_, ElementsAre("chosen DueToday small"));
}

TEST_F(GalleryWindowTest, MissingPreviewIsAskedForAgainWhenTheUserComesBack) {
    introduce();
    refusePreview(0);
    QApplication::setActiveWindow(nullptr);
    QApplication::setActiveWindow(window_);
    ASSERT_EQ(previews().size(), 5U);
    EXPECT_EQ(previews().back(), "DueToday small fullColor");
    sendPreview(4);
    EXPECT_EQ(colorOf(*tiles()[0]), red);
}

TEST_F(GalleryWindowTest, AnotherRenderingModeAsksForOtherPreviews) {
    introduce();
    look_.setRenderingMode(kit::RenderingMode::accented);
    EXPECT_EQ(previews().size(), 8U);
    EXPECT_EQ(previews().back(), "Streak small accented");
}

TEST_F(GalleryWindowTest, OtherLookKeepsThePreviewsThatAreThere) {
    introduce();
    sendPreview(0);
    emit look_.changed();
    EXPECT_EQ(previews().size(), 4U);
    EXPECT_EQ(colorOf(*tiles()[0]), red);
}

TEST_F(GalleryWindowTest, TextsFollowTheDesktopsFontAndSizeWhileItIsOpen) {
    const auto fontOfFirstText = [this] { return window_->findChild<QLabel*>()->font(); };
    magnify(2);
    EXPECT_EQ(fontOfFirstText().pixelSize(), 30);  // that the widgets are silent
    magnify(1);
    introduce();
    EXPECT_EQ(fontOfFirstText().pixelSize(), 26);
    magnify(1.5);
    tell(settings_, setting::gnomeInterface, "font-name", "Quicksand 11");
    EXPECT_EQ(fontOfFirstText().pixelSize(), 39);
    EXPECT_EQ(fontOfFirstText().families().first(), "Quicksand");
}

TEST_F(GalleryWindowTest, LargerTextsHaveRoomBetweenTheTiles) {
    introduce();
    window_->resize(900, 700);
    for (const double scale : {1.0, 1.5, 2.0}) {
        magnify(scale);
        const QList<GalleryTile*> all = tiles();
        for (const GalleryTile* tile : all) {
            EXPECT_EQ(tile->size(), tile->sizeHint());
            for (const GalleryTile* other : all) {
                EXPECT_TRUE(tile == other || !tile->geometry().intersects(other->geometry()))
                    << scale << " " << tile->accessibleName().toStdString();
            }
        }
    }
}

TEST_F(GalleryWindowTest, LargerTextsAskForPreviewsOfLess) {
    introduce();
    magnify(2);
    EXPECT_EQ(previews().size(), 8U);
    const kit::Request last = launcher_.last().requests().back();
    EXPECT_EQ(std::get<kit::EntryRequest>(last.body).environment, look_.environment(Family::small));
}

TEST_F(GalleryWindowTest, AnswerAfterTheEndIsHeardByNobody) {
    introduce();
    delete window_;
    sendPreview(0);
    EXPECT_TRUE(window_.isNull());
}

TEST_F(GalleryWindowTest, PressByPointerOrKeyboardChooses) {
    introduce();
    press(*tiles()[0], Qt::Key_Return);
    press(*tiles()[1], Qt::Key_Space);
    press(*tiles()[2], Qt::Key_Enter);
    const QPoint middle = tiles()[3]->rect().center();
    send(*tiles()[3], QEvent::MouseButtonPress, middle, tiles()[3]->mapToGlobal(middle));
    send(*tiles()[3], QEvent::MouseButtonRelease, middle, tiles()[3]->mapToGlobal(middle));
    EXPECT_THAT(said_, ElementsAre("chosen DueToday small", "chosen DueToday medium",
                                   "chosen DueToday large", "chosen Streak small"));
}

TEST_F(GalleryWindowTest, ChosenTileSaysSo) {
    introduce();
    const QImage before = tiles()[0]->grab().toImage();
    tiles()[0]->click();
    EXPECT_NE(tiles()[0]->grab().toImage(), before);
}

TEST_F(GalleryWindowTest, TabGoesThroughTheTilesInTheirOrder) {
    introduce();
    QApplication::setActiveWindow(window_);
    tiles()[0]->setFocus();
    for (int index = 1; index < 4; ++index) {
        press(*QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), tiles()[index]);
    }
}

TEST_F(GalleryWindowTest, TileThatGetsTheKeyboardIsScrolledIntoView) {
    introduce();
    QApplication::setActiveWindow(window_);
    window_->resize(500, 300);
    tiles()[0]->setFocus();
    ASSERT_TRUE(tiles()[3]->visibleRegion().isEmpty());
    for (int steps = 0; steps < 3; ++steps) {
        press(*QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_FALSE(tiles()[3]->visibleRegion().isEmpty());
}

TEST_F(GalleryWindowTest, EscapeClosesItForGood) {
    introduce();
    press(*tiles()[0], Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window_.isNull());
}

TEST_F(GalleryWindowTest, SmallScreenIsScrolledInOneDirectionOnly) {
    introduce();
    window_->resize(460, 300);
    const auto bars = window_->findChildren<QScrollBar*>();
    for (const QScrollBar* bar : bars) {
        EXPECT_EQ(bar->maximum() > 0, bar->orientation() == Qt::Vertical);
    }
    EXPECT_EQ(bars.size(), 2);
}

TEST_F(GalleryWindowTest, FitsTheScreenItIsPresentedOn) {
    window_->close();
    open();
    EXPECT_TRUE(screen.contains(window_->geometry()));
}

TEST_F(GalleryWindowTest, ReadsFromTheRightWhereTheLanguageDoes) {
    open(layout::Direction::rightToLeft);
    introduce();
    window_->resize(900, 700);
    EXPECT_GT(tiles()[0]->x(), tiles()[2]->x());
    EXPECT_EQ(window_->layoutDirection(), Qt::RightToLeft);
}

class GalleryDragTest : public GalleryWindowTest {
protected:
    GalleryDragTest() {
        introduce();
        window_->setGeometry(0, 0, 400, 400);
    }

    GalleryTile& tile() { return *tiles()[0]; }
};

TEST_F(GalleryDragTest, WidgetGoesWhereTheRuleSaysWithThePointersGrip) {
    dragTo(tile(), {700, 500});
    EXPECT_EQ(wanted_, QRect(680, 470, 170, 170));
    EXPECT_EQ(widgetsInHand(), 1);
    release(tile(), {700, 500});
    EXPECT_THAT(said_, ElementsAre("dropped DueToday small"));
    EXPECT_EQ(droppedAt_, QPoint(600, 8));
    EXPECT_EQ(widgetsInHand(), 0);
}

TEST_F(GalleryDragTest, DropOnTheGalleryItselfPlacesNothing) {
    dragTo(tile(), {700, 500});
    send(tile(), QEvent::MouseMove, QPoint(100, 100), {200, 200});
    release(tile(), {200, 200});
    EXPECT_THAT(said_, IsEmpty());
    EXPECT_EQ(widgetsInHand(), 0);
}

TEST_F(GalleryDragTest, EscapePutsTheWidgetBackAndLeavesTheGalleryOpen) {
    dragTo(tile(), {700, 500});
    press(tile(), Qt::Key_Escape);
    EXPECT_EQ(widgetsInHand(), 0);
    release(tile(), {700, 500});
    EXPECT_THAT(said_, IsEmpty());
    EXPECT_TRUE(window_->isVisible());
}

TEST_F(GalleryDragTest, ShortWayIsStillAPress) {
    const QPoint start(80, 80);
    send(tile(), QEvent::MouseButtonPress, start, tile().mapToGlobal(start));
    send(tile(), QEvent::MouseMove, start + QPoint(2, 2), tile().mapToGlobal(start));
    send(tile(), QEvent::MouseButtonRelease, start + QPoint(2, 2), tile().mapToGlobal(start));
    EXPECT_THAT(said_, ElementsAre("chosen DueToday small"));
}

TEST_F(GalleryDragTest, NewBundleDuringADragEndsIt) {
    dragTo(tile(), {700, 500});
    host_.reloadAll();
    emit host_.bundleChanged();
    EXPECT_EQ(widgetsInHand(), 0);
    EXPECT_EQ(tiles().size(), 4);
}

}  // namespace
}  // namespace kelmar::desktop
