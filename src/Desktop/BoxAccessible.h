#pragma once

#include <QAccessible>
#include <QPointer>

#include "Layout/PlacedBox.h"

namespace kelmar::desktop {

class WidgetWindow;

/// Whether screen readers are shown a box at all. Links gather the texts that lie in them, so a
/// flat list says everything once.
[[nodiscard]] bool isRead(const layout::PlacedBox& box);

[[nodiscard]] QAccessible::Role roleOf(const layout::PlacedBox& box);

/// One text, link, button, toggle, picture or bar of a widget as a screen reader meets it. It is no
/// object of Qt's, so its window's interface makes and ends it.
class BoxAccessible final : public QAccessibleInterface,
                            public QAccessibleActionInterface,
                            public QAccessibleValueInterface {
public:
    BoxAccessible(WidgetWindow& window, layout::PlacedBox box);

    /// Becomes another box of the same role, and tells what of it a listener can notice.
    void become(const layout::PlacedBox& box);
    [[nodiscard]] const layout::PlacedBox& box() const { return box_; }

    [[nodiscard]] bool isValid() const override { return !widget_.isNull(); }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override {
        return -1;
    }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override {
        return nullptr;
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override {
        return {};
    }

    /// Of a bar: how full it is, from 0 to 1.
    [[nodiscard]] QVariant currentValue() const override;
    void setCurrentValue(const QVariant& /*value*/) override {}
    [[nodiscard]] QVariant minimumValue() const override { return 0.0; }
    [[nodiscard]] QVariant maximumValue() const override { return 1.0; }
    [[nodiscard]] QVariant minimumStepSize() const override { return 0.0; }

private:
    void tell(QAccessible::Event event);

    QPointer<WidgetWindow> widget_;
    layout::PlacedBox box_;
};

}  // namespace kelmar::desktop
