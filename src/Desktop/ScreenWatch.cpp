#include "Desktop/ScreenWatch.h"

#include <QGuiApplication>
#include <QScreen>

namespace kelmar::desktop {

ScreenWatch::ScreenWatch(QObject* parent) : QObject(parent) {
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &ScreenWatch::follow);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &ScreenWatch::changed,
            Qt::QueuedConnection);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &ScreenWatch::changed,
            Qt::QueuedConnection);
    // What has lost its own screen is shown on the primary one.
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &ScreenWatch::changed,
            Qt::QueuedConnection);
    for (const QScreen* screen : QGuiApplication::screens()) {
        follow(screen);
    }
}

void ScreenWatch::follow(const QScreen* screen) {
    connect(screen, &QScreen::geometryChanged, this, &ScreenWatch::changed, Qt::QueuedConnection);
    connect(screen, &QScreen::availableGeometryChanged, this, &ScreenWatch::changed,
            Qt::QueuedConnection);
}

}  // namespace kelmar::desktop
