#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>
#include <limits>
#include <optional>
#include <stdexcept>

#include "DemoPlanner/StateCoding.h"
#include "DemoPlanner/StateFormat.h"

namespace kelmar::demo {

namespace {

using Phase = StudyTimer::Phase;
using Streak = shared::WidgetData::Streak;

/// Thrown inside this file only, so that reading stays a straight line.
class Unusable : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

QJsonValue need(const QJsonObject& object, const char* key, QJsonValue::Type type) {
    QJsonValue value = object.value(QLatin1String(key));
    if (value.type() != type) {
        throw Unusable(std::string("\"") + key + "\" is missing or of the wrong type");
    }
    return value;
}

std::string text(const QJsonObject& object, const char* key) {
    return need(object, key, QJsonValue::String).toString().toStdString();
}

bool flag(const QJsonObject& object, const char* key) {
    return need(object, key, QJsonValue::Bool).toBool();
}

double number(const QJsonObject& object, const char* key) {
    return need(object, key, QJsonValue::Double).toDouble();
}

std::int64_t integer(const QJsonValue& value) {
    const double exact = value.toDouble(std::nan(""));
    const qint64 whole = value.toInteger(-1);
    if (exact != static_cast<double>(whole)) {
        throw Unusable("a number is no integer");
    }
    return whole;
}

system::Seconds sessionLength(const QJsonObject& object, const char* key) {
    const double seconds = number(object, key);
    if (seconds < 0 || seconds > static_cast<double>(StudyTimer::longestMinutes * 60)) {
        throw Unusable(std::string("\"") + key + "\" is no length of a session");
    }
    return seconds;
}

Assignment readAssignment(const QJsonObject& object) {
    Assignment assignment;
    assignment.item.id = text(object, "id");
    assignment.item.title = text(object, "title");
    assignment.item.className = text(object, "className");
    assignment.item.classColor = text(object, "classColor");
    assignment.item.due = system::Date::since1970(number(object, "due"));
    assignment.item.hasTime = flag(object, "hasTime");
    assignment.classId = text(object, "classId");
    assignment.done = flag(object, "done");
    return assignment;
}

Streak readStreak(const QJsonObject& object) {
    Streak streak;
    streak.count = integer(need(object, "count", QJsonValue::Double));
    streak.best = integer(need(object, "best", QJsonValue::Double));
    streak.lastDate = text(object, "lastDate");
    const QJsonObject history = need(object, "hist", QJsonValue::Object).toObject();
    for (auto day = history.begin(); day != history.end(); ++day) {
        streak.hist[day.key().toStdString()] = integer(day.value());
    }
    streak.freezeNext = text(object, "freezeNext");
    return streak;
}

Phase readPhase(const QJsonObject& object) {
    const std::string written = text(object, "phase");
    for (const auto& [name, phase] : phaseNames) {
        if (written == name) {
            return phase;
        }
    }
    throw Unusable("the timer's phase is unknown");
}

StudyTimer readTimer(const QJsonObject& object) {
    StudyTimer timer;
    timer.phase = readPhase(object);
    timer.isBreak = flag(object, "isBreak");
    timer.total = sessionLength(object, "total");
    timer.secsLeft = sessionLength(object, "secsLeft");
    timer.studyLength = sessionLength(object, "studyLength");
    timer.subject.className = text(object, "className");
    timer.subject.classColor = text(object, "classColor");
    timer.subject.title = text(object, "title");
    if (object.contains(QLatin1String("endAt"))) {
        timer.endAt = system::Date::since1970(number(object, "endAt"));
    }
    const bool needsEnd = timer.phase == Phase::running || timer.phase == Phase::ringing;
    if (needsEnd != timer.endAt.has_value()) {
        throw Unusable("the timer's phase and its end do not fit together");
    }
    return timer;
}

PlannerState readState(const QJsonObject& object) {
    if (integer(need(object, "version", QJsonValue::Double)) != stateVersion) {
        throw Unusable("it is of another version");
    }
    PlannerState state;
    state.lastSeen = system::Date::since1970(number(object, "lastSeen"));
    state.signedIn = flag(object, "signedIn");
    state.schoolCalendarConnected = flag(object, "schoolCalendarConnected");
    std::vector<Assignment> assignments;
    for (const QJsonValue value : need(object, "assignments", QJsonValue::Array).toArray()) {
        assignments.push_back(readAssignment(value.toObject()));
    }
    const std::int64_t lesson = integer(need(object, "lesson", QJsonValue::Double));
    if (lesson < 0 || lesson > std::numeric_limits<int>::max()) {
        throw Unusable("the lesson is no count");
    }
    state.coursework = Coursework(std::move(assignments), static_cast<int>(lesson));
    state.streak.streak = readStreak(need(object, "streak", QJsonValue::Object).toObject());
    if (object.contains(QLatin1String("streakBeforeToday"))) {
        state.streak.beforeToday =
            readStreak(need(object, "streakBeforeToday", QJsonValue::Object).toObject());
    }
    state.timer = readTimer(need(object, "timer", QJsonValue::Object).toObject());
    return state;
}

}  // namespace

system::Result<PlannerState> decodeState(std::string_view json) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(
        QByteArray(json.data(), static_cast<qsizetype>(json.size())), &error);
    if (!document.isObject()) {
        return system::Failure{"it is no JSON object"};
    }
    try {
        return readState(document.object());
    } catch (const Unusable& unusable) {
        return system::Failure{unusable.what()};
    }
}

}  // namespace kelmar::demo
