#include <QMenu>
#include <QToolTip>
#include <gtest/gtest.h>

#include "Desktop/MenuLook.h"
#include "Paint/Contrast.h"
#include "tests/Desktop/FoundFonts.h"
#include "tests/Desktop/RecordingLog.h"
#include "tests/Desktop/ToldSettings.h"

namespace kelmar::desktop {
namespace {

class MenuLookTest : public testing::Test {
protected:
    MenuLookTest() {
        QPixmap symbol(64, 64);
        symbol.fill(Qt::red);
        withSymbol_ = menu_.addAction(symbol, "Symbol");
        separator_ = menu_.addSeparator();
        lock_ = menu_.addAction("Lock arrangement");
        lock_->setCheckable(true);
        submenu_ = menu_.addMenu("Rendering");
        longest_ = submenu_->addAction("Durchscheinend und sehr lang");
        longest_->setCheckable(true);
    }

    void magnify(double scale) {
        tell(settings_, setting::gnomeInterface, "text-scaling-factor", scale);
    }

    /// The colour between an entry's edge and what stands in it.
    static QColor groundOf(const QImage& picture, const QMenu& menu, QAction* action) {
        return picture.pixelColor(menu.actionGeometry(action).topLeft() + QPoint(2, 1));
    }

    /// The greatest contrast that anything in an entry, or in the left part of it, makes with the
    /// menu's ground.
    double contrastIn(QAction* action, int width) {
        const QImage picture = menu_.grab().toImage();
        const QRect place = menu_.actionGeometry(action);
        const QColor ground = groundOf(picture, menu_, lock_);
        double greatest = 1;
        for (int x = place.left() + 2; x < place.left() + width; ++x) {
            for (int y = place.top(); y <= place.bottom(); ++y) {
                greatest = std::max(greatest, paint::contrast(picture.pixelColor(x, y), ground));
            }
        }
        return greatest;
    }

    /// How far to the right an entry's text goes.
    static int textEnd(QMenu& menu, QAction* action) {
        const QImage picture = menu.grab().toImage();
        const QRect place = menu.actionGeometry(action);
        const QColor ground = groundOf(picture, menu, action);
        int end = 0;
        for (int x = place.left() + 2; x < place.right() - 1; ++x) {
            for (int y = place.top() + 1; y < place.bottom(); ++y) {
                end = paint::contrast(picture.pixelColor(x, y), ground) > 2 ? x : end;
            }
        }
        return end - place.left();
    }

    test::RecordingLog log_;
    PortalSettings settings_{log_};
    Look light_{settings_, SchemeChoice::light, foundFonts()};
    Look dark_{settings_, SchemeChoice::dark, foundFonts()};
    QMenu menu_;
    QMenu* submenu_;
    QAction* withSymbol_;
    QAction* separator_;
    QAction* lock_;
    QAction* longest_;
};

TEST_F(MenuLookTest, SubmenuLooksLikeTheMenuItOpensOutOf) {
    magnify(1.5);
    for (const Look* look : {&dark_, &light_}) {
        dressMenu(menu_, *look);
        EXPECT_EQ(menu_.font().pixelSize(), 20);
        EXPECT_EQ(submenu_->font(), menu_.font());
        EXPECT_EQ(submenu_->palette().color(QPalette::Base), menu_.palette().color(QPalette::Base));
    }
    EXPECT_GT(menu_.palette().color(QPalette::Base).lightness(), 200);
}

TEST_F(MenuLookTest, EntriesGrowWithTheirTexts) {
    dressMenu(menu_, light_);
    const QSize usual = menu_.sizeHint();
    magnify(2);
    dressMenu(menu_, light_);
    EXPECT_GT(menu_.sizeHint().height(), 1.6 * usual.height());
    EXPECT_GT(menu_.sizeHint().width(), 1.5 * usual.width());
}

TEST_F(MenuLookTest, SymbolIsAsHighAsTheText) {
    for (const double scale : {1.0, 2.0}) {
        magnify(scale);
        dressMenu(menu_, light_);
        menu_.resize(menu_.sizeHint());
        const QImage picture = menu_.grab().toImage();
        const int x = menu_.actionGeometry(withSymbol_).left() + 16;
        int height = 0;
        for (int y = 0; y < menu_.actionGeometry(withSymbol_).bottom(); ++y) {
            height += picture.pixelColor(x, y) == QColor(Qt::red) ? 1 : 0;
        }
        EXPECT_NEAR(height, menu_.fontMetrics().height(), 2) << scale;
    }
}

/// A text that is cut off in the middle is the shorter for it.
TEST_F(MenuLookTest, TextsAreWholeAtEverySize) {
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        magnify(scale);
        dressMenu(menu_, light_);
        submenu_->resize(submenu_->sizeHint());
        const int wide = submenu_->width() + 200;
        const int end = textEnd(*submenu_, longest_);
        submenu_->setMinimumWidth(wide);
        submenu_->resize(wide, submenu_->height());
        EXPECT_EQ(textEnd(*submenu_, longest_), end) << scale;
        submenu_->setMinimumWidth(0);
    }
}

TEST_F(MenuLookTest, LinesAndBoxesCanBeSeenInBothSchemes) {
    for (const Look* look : {&light_, &dark_}) {
        dressMenu(menu_, *look);
        menu_.resize(menu_.sizeHint());
        EXPECT_GE(contrastIn(separator_, menu_.width() / 2), 1.4);
        // Only the box: the text begins to the right of it.
        EXPECT_GE(contrastIn(lock_, 22), 3);
    }
}

TEST_F(MenuLookTest, TooltipsFollowTheDesktop) {
    magnify(1.5);
    tell(settings_, setting::gnomeInterface, "font-name", "Quicksand 12");
    dressToolTips(dark_);
    EXPECT_EQ(QToolTip::font().families().first(), "Quicksand");
    EXPECT_EQ(QToolTip::font().pixelSize(), 24);
    const QPalette colors = QToolTip::palette();
    EXPECT_LT(colors.color(QPalette::ToolTipBase).lightness(), 80);
    EXPECT_GE(
        paint::contrast(colors.color(QPalette::ToolTipText), colors.color(QPalette::ToolTipBase)),
        4.5);
}

}  // namespace
}  // namespace kelmar::desktop
