#include <QImage>
#include <gtest/gtest.h>

#include "Desktop/SymbolIcon.h"

namespace kelmar::desktop {
namespace {

TEST(SymbolIcon, CardShowsASymbolInWhiteOnItsColour) {
    const QImage image =
        cardIcon(paint::SymbolSet(), "timer", QColor(10, 20, 200)).pixmap(32).toImage();
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(image.pixelColor(16, 1), QColor(10, 20, 200));
    int white = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            white += image.pixelColor(x, y) == Qt::white ? 1 : 0;
        }
    }
    EXPECT_GT(white, 20);
    EXPECT_LT(white, 300);
}

}  // namespace
}  // namespace kelmar::desktop
