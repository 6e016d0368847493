#include "Desktop/BusReports.h"

#include <QStringList>
#include <algorithm>
#include <iterator>

namespace kelmar::desktop {

namespace {

QString text(std::string_view words) {
    return QString::fromUtf8(words.data(), static_cast<qsizetype>(words.size()));
}

void addDate(QVariantMap& map, const char* key, const std::optional<system::Date>& date) {
    if (date) {
        map[key] = date->secondsSince1970();
    }
}

QVariantMap describeReload(const host::ReloadRecord& reload) {
    return {{"cause", text(nameOf(reload.cause))},
            {"began", reload.began.secondsSince1970()},
            {"outcome", text(nameOf(reload.outcome))},
            {"duration", std::chrono::duration<double>(reload.duration).count()},
            {"reason", text(reload.reason)}};
}

}  // namespace

QVariantMap describeItem(const DesktopItem& item, const QString& displayName,
                         const std::optional<host::WidgetReport>& report) {
    const host::WidgetContent content = report ? report->content : host::WidgetContent::nothing;
    return {{"kind", text(item.place.kind)},
            {"displayName", displayName},
            {"family", text(kit::nameOf(item.place.family))},
            {"screen", text(item.place.screen.name)},
            {"x", item.place.position.x()},
            {"y", item.place.position.y()},
            {"shown", item.id.has_value()},
            {"content", text(nameOf(content))}};
}

QVariantMap describeReport(const host::WidgetReport& report) {
    QVariantMap map{{"family", text(kit::nameOf(report.family))},
                    {"content", text(nameOf(report.content))},
                    {"why", text(report.why)}};
    if (report.entry) {
        map["entryIndex"] = static_cast<uint>(report.entry->index);
        map["entryCount"] = static_cast<uint>(report.entry->count);
        map["entryDate"] = report.entry->date.secondsSince1970();
    }
    addDate(map, "nextEntry", report.nextEntry);
    addDate(map, "nextReload", report.nextReload);
    if (report.lastReload) {
        map["lastReload"] = describeReload(*report.lastReload);
    }
    return map;
}

void addFindings(QVariantMap& explanation,
                 const system::Result<std::vector<std::string>>& findings) {
    if (!findings) {
        explanation["noFindings"] = text(findings.failure().reason);
        return;
    }
    QStringList sentences;
    std::transform(findings->begin(), findings->end(), std::back_inserter(sentences),
                   [](const std::string& finding) { return text(finding); });
    explanation["findings"] = sentences;
}

}  // namespace kelmar::desktop
