#include "Desktop/WidgetAccessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <vector>

#include "Desktop/WidgetWindow.h"

namespace kelmar::desktop {

namespace {

bool isPressable(const layout::PlacedBox& box) {
    return !std::holds_alternative<std::monostate>(box.action);
}

bool isShownToReaders(const layout::PlacedBox& box) {
    return !box.label.empty();
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

/// The interface of one box. It is no object of Qt's, so its window's interface makes and ends it.
class BoxAccessible final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    BoxAccessible(WidgetWindow& window, std::size_t index) : widget_(&window), index_(index) {}

    [[nodiscard]] bool isValid() const override {
        return widget_ && index_ < widget_->boxes().size();
    }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override { return widget_->windowHandle(); }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(widget_);
    }
    // Links gather the texts that lie in them, so a flat list says everything once.
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override {
        return -1;
    }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override {
        return nullptr;
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? QString::fromStdString(box().label) : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    [[nodiscard]] QRect rect() const override {
        const layout::Rect& rect = box().rect;
        return QRectF(rect.x, rect.y, rect.width, rect.height)
            .toAlignedRect()
            .translated(widget_->mapToGlobal(QPoint()));
    }
    [[nodiscard]] QAccessible::Role role() const override { return roleOf(box()); }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state;
        if (const auto* toggle = std::get_if<layout::ToggleAction>(&box().action)) {
            state.checkable = true;
            state.checked = toggle->isOn;
        }
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface && isPressable(box())
                   ? static_cast<QAccessibleActionInterface*>(this)
                   : nullptr;
    }
    [[nodiscard]] QStringList actionNames() const override {
        return {std::holds_alternative<layout::ToggleAction>(box().action) ? toggleAction()
                                                                           : pressAction()};
    }
    void doAction(const QString& name) override {
        if (actionNames().contains(name)) {
            // A copy: running it may bring new boxes at once.
            const layout::Action action = box().action;
            widget_->run(action);
        }
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override {
        return {};
    }

private:
    [[nodiscard]] const layout::PlacedBox& box() const { return widget_->boxes()[index_]; }

    QPointer<WidgetWindow> widget_;
    std::size_t index_;
};

/// The interface of a widget's window, with its boxes for children.
class WidgetAccessible final : public QAccessibleWidget {
public:
    explicit WidgetAccessible(WidgetWindow& window)
        : QAccessibleWidget(&window, QAccessible::Window), window_(window) {}
    ~WidgetAccessible() override { forgetBoxes(); }

    [[nodiscard]] int childCount() const override { return static_cast<int>(children().size()); }
    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        const auto place = static_cast<std::size_t>(index);
        return index >= 0 && place < children().size()
                   ? QAccessible::accessibleInterface(children()[place])
                   : nullptr;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        for (int index = 0; index < childCount(); ++index) {
            if (this->child(index) == child) {
                return index;
            }
        }
        return -1;
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
        for (int index = childCount() - 1; index >= 0; --index) {
            if (child(index)->rect().contains(x, y)) {
                return child(index);
            }
        }
        return nullptr;
    }

    void retireBoxes() {
        notifyOfBoxes(QAccessible::ObjectDestroyed);
        forgetBoxes();
    }
    void announceBoxes() { notifyOfBoxes(QAccessible::ObjectCreated); }

private:
    /// The children's interfaces, made when first asked for.
    [[nodiscard]] const std::vector<QAccessible::Id>& children() const {
        if (!knowsBoxes_) {
            knowsBoxes_ = true;
            const layout::PlacedBoxes& boxes = window_.boxes();
            for (std::size_t index = 0; index < boxes.size(); ++index) {
                if (isShownToReaders(boxes[index]) && !boxes[index].container) {
                    children_.push_back(QAccessible::registerAccessibleInterface(
                        new BoxAccessible(window_, index)));
                }
            }
        }
        return children_;
    }

    void notifyOfBoxes(QAccessible::Event kind) const {
        for (const QAccessible::Id id : children()) {
            QAccessibleEvent event(QAccessible::accessibleInterface(id), kind);
            QAccessible::updateAccessibility(&event);
        }
    }

    void forgetBoxes() {
        for (const QAccessible::Id id : children_) {
            QAccessible::deleteAccessibleInterface(id);
        }
        children_.clear();
        knowsBoxes_ = false;
    }

    WidgetWindow& window_;
    mutable bool knowsBoxes_ = false;
    mutable std::vector<QAccessible::Id> children_;
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    auto* window = qobject_cast<WidgetWindow*>(object);
    return window != nullptr ? new WidgetAccessible(*window) : nullptr;
}

/// Null while nobody listens.
WidgetAccessible* activeInterface(WidgetWindow& window) {
    return QAccessible::isActive()
               ? dynamic_cast<WidgetAccessible*>(QAccessible::queryAccessibleInterface(&window))
               : nullptr;
}

}  // namespace

void installWidgetAccessibility() {
    QAccessible::installFactory(makeInterface);
}

void retireBoxes(WidgetWindow& window) {
    if (WidgetAccessible* interface = activeInterface(window)) {
        interface->retireBoxes();
    }
}

void announceBoxes(WidgetWindow& window) {
    if (WidgetAccessible* interface = activeInterface(window)) {
        interface->announceBoxes();
    }
}

}  // namespace kelmar::desktop
