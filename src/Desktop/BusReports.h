#pragma once

#include <QList>
#include <QVariantMap>
#include <string>
#include <vector>

#include "Desktop/DesktopItem.h"
#include "Host/WidgetReport.h"
#include "Kit/Descriptor.h"
#include "System/Result.h"

/// What the host says of its widgets, in the types of D-Bus. The keys are explained in
/// packaging/com.kelmarplanner.Widgets.xml.
namespace kelmar::desktop {

/// aa{sv}
using BusReports = QList<QVariantMap>;

/// `report` is absent for a widget that the extension does not offer.
[[nodiscard]] QVariantMap describeItem(const DesktopItem& item, const QString& displayName,
                                       const std::optional<host::WidgetReport>& report);
[[nodiscard]] QVariantMap describeReport(const host::WidgetReport& report);
/// Adds what the extension says is wrong, or why it does not say.
void addFindings(QVariantMap& explanation,
                 const system::Result<std::vector<std::string>>& findings);

}  // namespace kelmar::desktop
