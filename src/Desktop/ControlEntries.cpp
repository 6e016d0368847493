#include "Desktop/ControlEntries.h"

#include <QFontMetrics>
#include <QIcon>
#include <QMenu>
#include <QStringList>
#include <algorithm>

#include "Desktop/MenuText.h"
#include "Desktop/SymbolIcon.h"

namespace kelmar::desktop {

namespace {

/// Far more than a label needs, in pixels; but nobody knows what an extension says.
constexpr int longestLabel = 480;
/// In characters. What is no longer fits without being measured, which would make the menus' font
/// ready at every start although hardly anybody opens one.
constexpr qsizetype shortLabel = 32;

QString elided(const QString& label, const QFont& font) {
    return label.size() <= shortLabel
               ? label
               : QFontMetrics(font).elidedText(label, Qt::ElideRight, longestLabel);
}

}  // namespace

ControlEntries::ControlEntries(QMenu& menu, host::WidgetHost& host, const QColor& ink)
    : QObject(&menu), menu_(menu), host_(host), ink_(ink), next_(menu.actions().value(0)) {
    connect(&menu_, &QMenu::aboutToShow, this, [this] {
        takeBundle();
        host_.reloadControls();
    });
    connect(&host_, &host::WidgetHost::bundleChanged, this, &ControlEntries::takeBundle);
    connect(&host_, &host::WidgetHost::controlChanged, this, &ControlEntries::show);
    takeBundle();
}

QString ControlEntries::summary() const {
    QStringList lines;
    for (const kit::ControlDescriptor& control : offered_) {
        lines.append(label(control));
    }
    return lines.join('\n');
}

void ControlEntries::takeBundle() {
    const auto offered =
        host_.bundle() ? host_.bundle()->controls : std::vector<kit::ControlDescriptor>();
    // In an open menu entries must not move under the pointer; it looks again when it next opens.
    if (offered != offered_ && !menu_.isVisible()) {
        offered_ = offered;
        rebuild();
    }
}

void ControlEntries::rebuild() {
    delete separator_;
    separator_ = nullptr;
    for (const auto& [kind, action] : actions_) {
        delete action;
    }
    actions_.clear();
    for (const kit::ControlDescriptor& control : offered_) {
        auto* action = new QAction(&menu_);
        action->setCheckable(true);
        action->setToolTip(QString::fromStdString(control.description));
        connect(action, &QAction::triggered, this, [this, kind = control.kind] { flip(kind); });
        menu_.insertAction(next_, action);
        actions_[control.kind] = action;
        show(control.kind);
    }
    if (!actions_.empty() && next_ != nullptr) {
        separator_ = menu_.insertSeparator(next_);
    }
    emit changed();
}

void ControlEntries::show(const std::string& kind) {
    const auto control = std::find_if(offered_.begin(), offered_.end(),
                                      [&](const auto& offered) { return offered.kind == kind; });
    if (control == offered_.end()) {
        return;
    }
    const kit::ControlValue* value = host_.controlValue(kind);
    QAction& action = *actions_.at(kind);
    action.setText(escapedForMenu(elided(label(*control), menu_.font())));
    action.setEnabled(value != nullptr);
    action.setChecked(value != nullptr && value->running);
    action.setIcon(value != nullptr ? symbolIcon(symbols_, value->symbol, ink_) : QIcon());
    emit changed();
}

void ControlEntries::flip(const std::string& kind) {
    if (const kit::ControlValue* value = host_.controlValue(kind)) {
        host_.perform(value->intent);
    }
    // The press has flipped the mark, but whether it came to that only the next value tells.
    show(kind);
}

QString ControlEntries::label(const kit::ControlDescriptor& control) const {
    const kit::ControlValue* value = host_.controlValue(control.kind);
    const QString name = QString::fromStdString(control.displayName);
    return (value != nullptr ? name + ": " + QString::fromStdString(value->text) : name)
        .simplified();
}

}  // namespace kelmar::desktop
