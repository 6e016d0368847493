#pragma once

#include <QObject>

class QScreen;

namespace kelmar::desktop {

/// Tells when screens come, go or change, or when panels take or give back room on them.
class ScreenWatch final : public QObject {
    Q_OBJECT

public:
    explicit ScreenWatch(QObject* parent = nullptr);

signals:
    /// Some time after the change: Qt moves windows about by itself while a screen goes.
    void changed();

private:
    void follow(const QScreen* screen);
};

}  // namespace kelmar::desktop
