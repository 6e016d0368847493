#pragma once

#include <QObject>
#include <QTimer>
#include <memory>

#include "Desktop/WidgetContent.h"
#include "Desktop/WindowPainting.h"
#include "Desktop/WindowVisibility.h"
#include "System/Clock.h"

class QWidget;

namespace kelmar::desktop {

/// Keeps true what changes by itself in a widget's window, such as a countdown: has it drawn anew
/// at the moment at which it changes. Wakes for nothing else, and never while it cannot be seen.
class LiveDrawing final : public QObject {
    Q_OBJECT

public:
    /// What a window draws, and by which clock; all of it must outlive the drawing.
    struct Parts {
        QWidget& window;
        const WidgetContent& content;
        const WindowPainting& painting;
        const system::Clock& clock;
    };

    explicit LiveDrawing(const Parts& parts);

    /// To be called when the window has got its native window, and before it loses it.
    void takeNativeWindow();
    void leaveNativeWindow();
    /// Whether anybody could see the window.
    [[nodiscard]] bool canBeSeen() const;

    /// To be called when the window has been painted.
    void awaitChange();
    /// Has all that is live drawn anew.
    void redraw();

private:
    const Parts parts_;
    std::unique_ptr<WindowVisibility> visibility_;  ///< Null while there is no native window.
    QTimer timer_;
};

}  // namespace kelmar::desktop
