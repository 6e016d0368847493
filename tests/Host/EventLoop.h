#pragma once

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <chrono>

namespace kelmar::host {

/// Runs the event loop until something holds, be it about files that nobody tells of; false when
/// it does not for so long that it will not any more.
template <class Condition>
[[nodiscard]] bool waitUntil(const Condition& holds,
                             std::chrono::milliseconds patience = std::chrono::seconds(30)) {
    bool isOver = false;
    QTimer guard;
    guard.setSingleShot(true);
    QObject::connect(&guard, &QTimer::timeout, &guard, [&isOver] { isOver = true; });
    guard.start(patience);
    QTimer look;
    look.start(std::chrono::milliseconds(5));
    while (!holds() && !isOver) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return holds();
}

/// Runs the event loop for a while in which something must not happen.
inline void runFor(std::chrono::milliseconds time) {
    static_cast<void>(waitUntil([] { return false; }, time));
}

}  // namespace kelmar::host
