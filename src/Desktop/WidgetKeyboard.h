#pragma once

#include <QObject>
#include <vector>

#include "Desktop/FocusChain.h"

class QKeyEvent;
class QWidget;

namespace kelmar::desktop {

/// Whether a key meant something here, or may mean something to others.
enum class KeyUse { used, unused };

/// The keyboard in a widget's window: goes from one thing that can be pressed to the next, and
/// presses it.
class WidgetKeyboard final : public QObject {
    Q_OBJECT

public:
    /// `window` must outlive it.
    explicit WidgetKeyboard(QWidget& window);

    /// What there is to press from now on (see FocusChain).
    void setTargets(std::vector<PressTarget> targets);
    [[nodiscard]] bool hasTargets() const { return !focusChain_.isEmpty(); }
    /// What the keyboard presses now, if it is here and there is something to press.
    [[nodiscard]] const PressTarget* focused() const;

    /// Has the keyboard come: to where it was last, to the first or last target, or to this one.
    void request();
    void enter(FocusStep step);
    void focusOn(const PressTarget& target);

    /// The keyboard has come.
    void arrive();
    [[nodiscard]] KeyUse press(const QKeyEvent& event);
    /// To the next target or to the one before; past the last one to whoever listens.
    void go(FocusStep step);

signals:
    void actionRequested(const kelmar::layout::Action& action);
    /// What is focused is to be shown.
    void focusMoved();
    void requested();
    /// It has gone past the last target.
    void passedOn(kelmar::desktop::FocusStep step);
    void returned();

private:
    QWidget& window_;
    FocusChain focusChain_;
};

}  // namespace kelmar::desktop
