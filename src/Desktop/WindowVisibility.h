#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

class QWindow;

namespace kelmar::desktop {

/// Whether anything of a window can be seen: it is shown and, where no compositor hides the answer,
/// not wholly covered by others. Nothing live needs to be drawn while it cannot.
class WindowVisibility final : public QObject, public QAbstractNativeEventFilter {
    Q_OBJECT

public:
    /// Of a native window that lives as long as this.
    explicit WindowVisibility(QWindow& window);
    ~WindowVisibility() override;

    [[nodiscard]] bool canBeSeen() const;

signals:
    void changed();

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    QWindow& window_;
    bool isCovered_ = false;
};

}  // namespace kelmar::desktop
