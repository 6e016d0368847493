#include <QApplication>
#include <gtest/gtest.h>

#include "tests/Desktop/FakePortal.h"

/// Widgets need an application object, but these tests need no display, and whoever runs them shall
/// not see them in the session.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    kelmar::desktop::test::leaveSessionBus();
    QApplication::setDesktopSettingsAware(false);
    const QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
