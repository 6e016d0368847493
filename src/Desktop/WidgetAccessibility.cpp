#include "Desktop/WidgetAccessibility.h"

#include <QAccessibleWidget>
#include <algorithm>
#include <map>
#include <vector>

#include "Desktop/BoxAccessible.h"
#include "Desktop/WidgetWindow.h"

namespace kelmar::desktop {

namespace {

class WidgetAccessible;

/// The interfaces that somebody has asked for; for the other windows there is nobody to tell.
std::map<const WidgetWindow*, WidgetAccessible*>& askedFor() {
    static std::map<const WidgetWindow*, WidgetAccessible*> interfaces;
    return interfaces;
}

/// The interface of a widget's window, with what it shows for children.
class WidgetAccessible final : public QAccessibleWidget {
public:
    explicit WidgetAccessible(WidgetWindow& window)
        : QAccessibleWidget(&window, QAccessible::Window), window_(window) {
        askedFor()[&window] = this;
    }
    ~WidgetAccessible() override {
        askedFor().erase(&window_);
        forgetBoxes();
    }

    [[nodiscard]] int childCount() const override { return static_cast<int>(children().size()); }
    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        const auto place = static_cast<std::size_t>(index);
        return index >= 0 && place < children().size() ? children()[place] : nullptr;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        const auto found = std::ranges::find(children(), child);
        return found != children().end() ? static_cast<int>(found - children().begin()) : -1;
    }
    /// The frontmost one, as for a press.
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
        for (int index = childCount() - 1; index >= 0; --index) {
            if (child(index)->rect().contains(x, y)) {
                return child(index);
            }
        }
        return nullptr;
    }
    [[nodiscard]] QAccessibleInterface* focusChild() const override {
        const auto focused = std::ranges::find_if(
            children(), [](const BoxAccessible* box) { return box->state().focused; });
        return focused != children().end() ? *focused : nullptr;
    }
    void doAction(const QString& name) override {
        if (name == setFocusAction()) {
            window_.keyboard().request();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

    void takeBoxes() {
        if (!knowsBoxes_) {
            return;  // Nobody has asked for the former ones.
        }
        const layout::PlacedBoxes boxes = readableBoxes();
        if (haveRolesOf(boxes)) {
            for (std::size_t index = 0; index < boxes.size(); ++index) {
                children_[index]->become(boxes[index]);
            }
            return;
        }
        tellOfAll(QAccessible::ObjectDestroyed);
        forgetBoxes();
        tellOfAll(QAccessible::ObjectCreated);
        tellOfFocus();
    }

    void tellOfFocus() const {
        if (QAccessibleInterface* focused = focusChild()) {
            QAccessibleEvent event(focused, QAccessible::Focus);
            QAccessible::updateAccessibility(&event);
        }
    }

private:
    using Children = std::vector<BoxAccessible*>;

    /// The children's interfaces, made when first asked for.
    [[nodiscard]] const Children& children() const {
        if (!knowsBoxes_) {
            knowsBoxes_ = true;
            for (layout::PlacedBox& box : readableBoxes()) {
                // Owned by the registry, which hands it out by its number.
                children_.push_back(new BoxAccessible(window_, std::move(box)));
                QAccessible::registerAccessibleInterface(children_.back());
            }
        }
        return children_;
    }

    [[nodiscard]] layout::PlacedBoxes readableBoxes() const {
        return window_.content().readableBoxes(window_.accessibleName().toStdString());
    }

    [[nodiscard]] bool haveRolesOf(const layout::PlacedBoxes& boxes) const {
        return std::ranges::equal(
            children_, boxes, {}, [](const BoxAccessible* child) { return child->role(); }, roleOf);
    }

    void tellOfAll(QAccessible::Event kind) const {
        for (BoxAccessible* child : children()) {
            QAccessibleEvent event(child, kind);
            QAccessible::updateAccessibility(&event);
        }
    }

    void forgetBoxes() {
        for (BoxAccessible* child : children_) {
            QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(child));
        }
        children_.clear();
        knowsBoxes_ = false;
    }

    WidgetWindow& window_;
    mutable bool knowsBoxes_ = false;
    mutable Children children_;
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    auto* window = qobject_cast<WidgetWindow*>(object);
    return window != nullptr ? new WidgetAccessible(*window) : nullptr;
}

/// Null while nobody listens.
WidgetAccessible* listener(const WidgetWindow& window) {
    const auto found = askedFor().find(&window);
    return found != askedFor().end() ? found->second : nullptr;
}

}  // namespace

void installWidgetAccessibility() {
    QAccessible::installFactory(makeInterface);
}

void tellReaders(WidgetWindow& window) {
    if (WidgetAccessible* interface = listener(window)) {
        interface->takeBoxes();
    }
}

void tellReadersOfFocus(WidgetWindow& window) {
    if (const WidgetAccessible* interface = listener(window)) {
        interface->tellOfFocus();
    }
}

}  // namespace kelmar::desktop
