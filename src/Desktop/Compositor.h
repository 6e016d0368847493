#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

namespace kelmar::desktop {

/// Whether a compositing manager runs, now and later. Without one the transparent corners of a
/// window would be black.
class Compositor final : public QObject, public QAbstractNativeEventFilter {
    Q_OBJECT

public:
    explicit Compositor(QObject* parent = nullptr);
    ~Compositor() override;

    [[nodiscard]] bool isRunning() const { return isRunning_; }

signals:
    void changed();

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    bool isRunning_ = false;
    unsigned selection_ = 0;   ///< The X selection that a compositing manager owns.
    int selectionNotify_ = 0;  ///< The number of the event that tells of a new owner.
};

}  // namespace kelmar::desktop
