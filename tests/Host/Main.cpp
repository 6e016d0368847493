#include <QCoreApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

/// Timers, processes and notifiers need an application object, but no display. GIO reads where
/// applications are registered only once, so that is settled before the first test.
int main(int argumentCount, char** arguments) {
    testing::InitGoogleTest(&argumentCount, arguments);
    const QTemporaryDir dataHome;
    qputenv("XDG_DATA_HOME", dataHome.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", dataHome.path().toUtf8() + "/config");
    qputenv("XDG_DATA_DIRS", dataHome.path().toUtf8() + "/none");
    qputenv("XDG_CONFIG_DIRS", dataHome.path().toUtf8() + "/none");
    const QCoreApplication application(argumentCount, arguments);
    return RUN_ALL_TESTS();
}
