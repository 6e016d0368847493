#pragma once

#include <QColor>
#include <QObject>
#include <QString>
#include <map>
#include <string>
#include <vector>

#include "Host/WidgetHost.h"
#include "Kit/Descriptor.h"
#include "Paint/SymbolSet.h"

class QAction;
class QMenu;

namespace kelmar::desktop {

/// The extension's controls at the top of a menu, a toggle each. They are asked for anew whenever
/// the menu opens, and what comes while it is open is seen at once.
class ControlEntries final : public QObject {
    Q_OBJECT

public:
    /// In front of what `menu` holds already; they go with it. The host must outlive it. Symbols
    /// are drawn in `ink`.
    ControlEntries(QMenu& menu, host::WidgetHost& host, const QColor& ink);

    /// What the entries say, a line each.
    [[nodiscard]] QString summary() const;

signals:
    void changed();

private:
    void takeBundle();
    void rebuild();
    void show(const std::string& kind);
    void flip(const std::string& kind);
    [[nodiscard]] QString label(const kit::ControlDescriptor& control) const;

    QMenu& menu_;
    host::WidgetHost& host_;
    QColor ink_;
    QAction* next_;  ///< The menu's own first entry; null in an empty menu.
    paint::SymbolSet symbols_;
    std::vector<kit::ControlDescriptor> offered_;
    std::map<std::string, QAction*> actions_;
    QAction* separator_ = nullptr;
};

}  // namespace kelmar::desktop
