#include <QApplication>
#include <gtest/gtest.h>

/// Windows and event loops need the application object, and it has to end before the process does.
int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(count, arguments);
    return RUN_ALL_TESTS();
}
