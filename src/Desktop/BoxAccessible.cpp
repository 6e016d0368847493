#include "Desktop/BoxAccessible.h"

#include <QWindow>
#include <algorithm>
#include <utility>

#include "Desktop/WidgetWindow.h"
#include "Layout/CountdownText.h"
#include "Paint/ShapePainting.h"

namespace kelmar::desktop {

namespace {

bool isPressable(const layout::PlacedBox& box) {
    return !std::holds_alternative<std::monostate>(box.action);
}

const layout::ProgressDrawing* barOf(const layout::PlacedBox& box) {
    return std::get_if<layout::ProgressDrawing>(&box.drawing);
}

const layout::ToggleAction* toggleOf(const layout::PlacedBox& box) {
    return std::get_if<layout::ToggleAction>(&box.action);
}

/// What is left of a countdown that says nothing but that.
std::optional<std::string> timeLeft(const layout::PlacedBox& box, system::Date now) {
    const auto* countdown = std::get_if<layout::CountdownDrawing>(&box.drawing);
    if (countdown == nullptr ||
        box.label != layout::countdownText(countdown->to - countdown->from)) {
        return std::nullopt;
    }
    return layout::countdownText(countdown->to - std::max(now, countdown->from));
}

}  // namespace

bool isRead(const layout::PlacedBox& box) {
    return isPressable(box) || (!box.container && (barOf(box) != nullptr || !box.label.empty()));
}

QAccessible::Role roleOf(const layout::PlacedBox& box) {
    const auto byDrawing =
        kit::Match{[](std::monostate) { return QAccessible::Grouping; },
                   [](const layout::TextDrawing&) { return QAccessible::StaticText; },
                   [](const layout::SymbolDrawing&) { return QAccessible::Graphic; },
                   [](const layout::ShapeDrawing&) { return QAccessible::Graphic; },
                   [](const layout::CountdownDrawing&) { return QAccessible::StaticText; },
                   [](const layout::ProgressDrawing&) { return QAccessible::ProgressBar; }};
    return std::visit(kit::Match{[&](std::monostate) { return std::visit(byDrawing, box.drawing); },
                                 [](const layout::LinkAction&) { return QAccessible::Link; },
                                 [](const layout::ButtonAction&) { return QAccessible::Button; },
                                 [](const layout::ToggleAction&) { return QAccessible::CheckBox; }},
                      box.action);
}

BoxAccessible::BoxAccessible(WidgetWindow& window, layout::PlacedBox box)
    : widget_(&window), box_(std::move(box)) {}

void BoxAccessible::become(const layout::PlacedBox& box) {
    const layout::PlacedBox former = std::exchange(box_, box);
    if (box_.label != former.label) {
        tell(QAccessible::NameChanged);
    }
    if (const auto* toggle = toggleOf(box_); toggle && toggle->isOn != toggleOf(former)->isOn) {
        QAccessible::State changed;
        changed.checked = true;
        QAccessibleStateChangeEvent event(this, changed);
        QAccessible::updateAccessibility(&event);
    }
    if (barOf(box_) != nullptr && box_.drawing != former.drawing) {
        QAccessibleValueChangeEvent event(this, currentValue());
        QAccessible::updateAccessibility(&event);
    }
}

void BoxAccessible::tell(QAccessible::Event kind) {
    QAccessibleEvent event(this, kind);
    QAccessible::updateAccessibility(&event);
}

QWindow* BoxAccessible::window() const {
    return widget_->windowHandle();
}

QAccessibleInterface* BoxAccessible::parent() const {
    return QAccessible::queryAccessibleInterface(widget_);
}

QString BoxAccessible::text(QAccessible::Text kind) const {
    if (kind != QAccessible::Name) {
        return {};
    }
    // A bar has no words of its own; that it is the widget's must do.
    return box_.label.empty() && barOf(box_) != nullptr
               ? widget_->accessibleName()
               : QString::fromStdString(timeLeft(box_, widget_->now()).value_or(box_.label));
}

QRect BoxAccessible::rect() const {
    const layout::Rect& rect = box_.rect;
    return QRectF(rect.x, rect.y, rect.width, rect.height)
        .toAlignedRect()
        .translated(widget_->mapToGlobal(QPoint()));
}

QAccessible::Role BoxAccessible::role() const {
    return roleOf(box_);
}

QAccessible::State BoxAccessible::state() const {
    QAccessible::State state;
    state.invisible = !widget_->isVisible();
    state.focusable = isPressable(box_);
    state.linked = std::holds_alternative<layout::LinkAction>(box_.action);
    const PressTarget* focused = widget_->keyboard().focused();
    state.focused = focused != nullptr && *focused == PressTarget{box_.action, box_.rect};
    if (const auto* toggle = toggleOf(box_)) {
        state.checkable = true;
        state.checked = toggle->isOn;
    }
    return state;
}

void* BoxAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ActionInterface && isPressable(box_)) {
        return static_cast<QAccessibleActionInterface*>(this);
    }
    if (type == QAccessible::ValueInterface && barOf(box_) != nullptr) {
        return static_cast<QAccessibleValueInterface*>(this);
    }
    return nullptr;
}

QStringList BoxAccessible::actionNames() const {
    return {toggleOf(box_) != nullptr ? toggleAction() : pressAction(), setFocusAction()};
}

void BoxAccessible::doAction(const QString& name) {
    if (name == setFocusAction()) {
        widget_->keyboard().focusOn({box_.action, box_.rect});
    } else if (actionNames().contains(name)) {
        // A copy: running it may bring new boxes at once.
        const layout::Action action = box_.action;
        widget_->run(action);
    }
}

QVariant BoxAccessible::currentValue() const {
    const auto* bar = barOf(box_);
    return bar != nullptr ? paint::fillOf(bar->progress, widget_->now()) : 0.0;
}

}  // namespace kelmar::desktop
