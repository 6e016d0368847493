#include "Tools/Explanation.h"

#include <fmt/format.h>
#include <map>

#include "Tools/Moment.h"

namespace kelmar::tools {

namespace {

std::string textIn(const QVariantMap& map, const char* key) {
    return map.value(key).toString().toStdString();
}

std::string momentIn(const QVariantMap& map, const char* key, const char* otherwise) {
    return map.contains(key) ? describedMoment(system::Date::since1970(map.value(key).toDouble()))
                             : otherwise;
}

/// A cause that a newer host knows is shown as it came.
std::string causeWords(const std::string& cause) {
    static const std::map<std::string, std::string> words{
        {"placed", "it was put on the desktop"},
        {"environment", "its size or colours were changed"},
        {"policyDate", "its timeline wished to be replaced"},
        {"refusedBefore", "the timeline before was refused"},
        {"fileChanged", "the planner's file or its widgets' program changed"},
        {"action", "an action of a widget had run"},
        {"asked", "another program asked for it"},
        {"clockStepped", "the clock was set, or the machine woke up"},
        {"timeZoneChanged", "the time zone changed"},
        {"localeChanged", "the language changed"}};
    const auto found = words.find(cause);
    return found != words.end() ? found->second : cause;
}

std::string outcomeWords(const QVariantMap& reload) {
    const std::string outcome = textIn(reload, "outcome");
    const double duration = reload.value("duration").toDouble();
    const std::string reason = textIn(reload, "reason");
    const std::string behind = reason.empty() ? "" : ": " + reason;
    if (outcome == "taken") {
        return fmt::format("taken after {:.3f} s{}", duration, behind);
    }
    if (outcome == "refused") {
        return fmt::format("refused after {:.3f} s{}", duration, behind);
    }
    return fmt::format("not answered yet after {:.3f} s{}", duration, behind);
}

std::string explainedWidget(const QVariantMap& widget) {
    std::string text = fmt::format("  {}: ", textIn(widget, "family"));
    if (widget.contains("entryIndex")) {
        text +=
            fmt::format("shows entry {} of {}, dated {}. ", widget.value("entryIndex").toUInt() + 1,
                        widget.value("entryCount").toUInt(), momentIn(widget, "entryDate", ""));
    }
    text += textIn(widget, "why") + '\n';
    text += fmt::format("    next entry   {}\n", momentIn(widget, "nextEntry", "none"));
    text += fmt::format("    next reload  {}\n", momentIn(widget, "nextReload", "when asked"));
    if (widget.contains("lastReload")) {
        const QVariantMap reload = widget.value("lastReload").toMap();
        text += fmt::format("    last reload  {}, because {}; {}\n", momentIn(reload, "began", ""),
                            causeWords(textIn(reload, "cause")), outcomeWords(reload));
    }
    return text;
}

}  // namespace

std::string explained(const QVariantMap& explanation) {
    std::string text = fmt::format("{} (\"{}\")\n", textIn(explanation, "kind"),
                                   textIn(explanation, "displayName"));
    const QVariantList widgets = explanation.value("widgets").toList();
    for (const QVariant& widget : widgets) {
        text += explainedWidget(widget.toMap());
    }
    if (widgets.isEmpty()) {
        text += "  none of this kind is on the desktop\n";
    }
    for (const QVariant& finding : explanation.value("findings").toList()) {
        text += fmt::format("  {}\n", finding.toString().toStdString());
    }
    if (explanation.contains("noFindings")) {
        text += fmt::format("  The extension does not say what it lacks: {}\n",
                            textIn(explanation, "noFindings"));
    }
    return text;
}

}  // namespace kelmar::tools
