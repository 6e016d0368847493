#pragma once

#include <QObject>
#include <QPointer>
#include <vector>

#include "Desktop/FocusChain.h"
#include "Desktop/KeyboardLoan.h"

namespace kelmar::desktop {

class WidgetWindow;

/// Takes the keyboard from widget to widget: the Tab key, past the last thing to press in one,
/// goes on to the next one on the screen, and Escape gives the keyboard back to the window that it
/// was borrowed from.
class KeyboardRound final : public QObject {
    Q_OBJECT

public:
    /// The window may go whenever it likes.
    void add(WidgetWindow& window);
    /// To the first thing that can be pressed.
    void begin();

private:
    void goOn(WidgetWindow& from, FocusStep step);
    /// Those in which there is something to press, as they are read: from the top down.
    [[nodiscard]] std::vector<WidgetWindow*> order() const;

    std::vector<QPointer<WidgetWindow>> windows_;
    KeyboardLoan loan_;
};

}  // namespace kelmar::desktop
