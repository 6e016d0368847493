#include <QCoreApplication>
#include <gtest/gtest.h>

/// Timers, processes and notifiers need an application object, but no display.
int main(int argumentCount, char** arguments) {
    testing::InitGoogleTest(&argumentCount, arguments);
    const QCoreApplication application(argumentCount, arguments);
    return RUN_ALL_TESTS();
}
