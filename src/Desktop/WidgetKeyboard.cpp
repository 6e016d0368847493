#include "Desktop/WidgetKeyboard.h"

#include <QKeyEvent>
#include <QWidget>
#include <utility>

namespace kelmar::desktop {

namespace {

bool presses(const QKeyEvent& event) {
    const int key = event.key();
    return !event.isAutoRepeat() &&
           (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space);
}

}  // namespace

WidgetKeyboard::WidgetKeyboard(QWidget& window) : window_(window) {}

void WidgetKeyboard::setTargets(std::vector<PressTarget> targets) {
    focusChain_.setTargets(std::move(targets));
}

const PressTarget* WidgetKeyboard::focused() const {
    return window_.hasFocus() ? focusChain_.current() : nullptr;
}

void WidgetKeyboard::request() {
    window_.setFocus();
    emit requested();
    emit focusMoved();
}

void WidgetKeyboard::enter(FocusStep step) {
    focusChain_.enter(step);
    request();
}

void WidgetKeyboard::focusOn(const PressTarget& target) {
    focusChain_.choose(target);
    request();
}

void WidgetKeyboard::arrive() {
    if (focusChain_.current() == nullptr) {
        focusChain_.enter(FocusStep::next);
    }
    emit focusMoved();
}

KeyUse WidgetKeyboard::press(const QKeyEvent& event) {
    const PressTarget* target = focused();
    if (event.key() == Qt::Key_Escape) {
        emit returned();
    } else if (target != nullptr && presses(event)) {
        // A copy: running it may bring new content at once.
        emit actionRequested(layout::Action(target->action));
    } else {
        return KeyUse::unused;
    }
    return KeyUse::used;
}

void WidgetKeyboard::go(FocusStep step) {
    if (focusChain_.move(step)) {
        emit focusMoved();
    } else {
        emit passedOn(step);
    }
}

}  // namespace kelmar::desktop
