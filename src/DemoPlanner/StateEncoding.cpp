#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "DemoPlanner/StateCoding.h"
#include "DemoPlanner/StateFormat.h"

namespace kelmar::demo {

namespace {

using Streak = shared::WidgetData::Streak;

QString toText(const std::string& text) {
    return QString::fromStdString(text);
}

QString phaseName(StudyTimer::Phase phase) {
    for (const auto& [name, each] : phaseNames) {
        if (each == phase) {
            return name;
        }
    }
    return {};
}

QJsonObject write(const Assignment& assignment) {
    return {{"id", toText(assignment.item.id)},
            {"title", toText(assignment.item.title)},
            {"className", toText(assignment.item.className)},
            {"classColor", toText(assignment.item.classColor)},
            {"due", assignment.item.due.secondsSince1970()},
            {"hasTime", assignment.item.hasTime},
            {"classId", toText(assignment.classId)},
            {"done", assignment.done}};
}

QJsonObject write(const Streak& streak) {
    QJsonObject history;
    for (const auto& [day, mark] : streak.hist) {
        history.insert(toText(day), static_cast<qint64>(mark));
    }
    return {{"count", static_cast<qint64>(streak.count)},
            {"best", static_cast<qint64>(streak.best)},
            {"lastDate", toText(streak.lastDate)},
            {"hist", history},
            {"freezeNext", toText(streak.freezeNext)}};
}

QJsonObject write(const StudyTimer& timer) {
    QJsonObject object{{"phase", phaseName(timer.phase)},
                       {"isBreak", timer.isBreak},
                       {"total", timer.total},
                       {"secsLeft", timer.secsLeft},
                       {"studyLength", timer.studyLength},
                       {"className", toText(timer.subject.className)},
                       {"classColor", toText(timer.subject.classColor)},
                       {"title", toText(timer.subject.title)}};
    if (timer.endAt) {
        object.insert("endAt", timer.endAt->secondsSince1970());
    }
    return object;
}

}  // namespace

std::string encodeState(const PlannerState& state) {
    QJsonArray assignments;
    for (const Assignment& assignment : state.coursework.assignments()) {
        assignments.append(write(assignment));
    }
    QJsonObject object{{"version", stateVersion},
                       {"lastSeen", state.lastSeen.secondsSince1970()},
                       {"signedIn", state.signedIn},
                       {"schoolCalendarConnected", state.schoolCalendarConnected},
                       {"assignments", assignments},
                       {"lesson", state.coursework.lesson()},
                       {"streak", write(state.streak.streak)},
                       {"timer", write(state.timer)}};
    if (state.streak.beforeToday) {
        object.insert("streakBeforeToday", write(*state.streak.beforeToday));
    }
    return QJsonDocument(object).toJson().toStdString();
}

}  // namespace kelmar::demo
