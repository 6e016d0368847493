#pragma once

#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "Shared/SnapshotCoding.h"

namespace kelmar::shared {

inline void PrintTo(const SnapshotFault& fault, std::ostream* stream) {
    *stream << fault.path << ": " << fault.found << " instead of " << fault.expected;
}

/// A snapshot in which everything stands at least once.
inline constexpr std::string_view fullDocument = R"({
    "updated": 1741305600.5,
    "signedIn": true,
    "today": [
        {"id": "a1/b", "title": "Lab report", "className": "Biology", "classColor": "#10B981",
         "due": 1741305600, "hasTime": true},
        {"id": "a2", "title": "Essay", "className": "English", "classColor": "#EC4899",
         "due": 1741309200.25, "hasTime": false}
    ],
    "upcoming": [
        {"id": "a3", "title": "Presentación", "className": "Spanish", "classColor": "#EF4444",
         "due": 1741392000, "hasTime": true}
    ],
    "schedule": [
        {"day": 1741237200, "labels": ["A Day", "Early release"], "blocks": [
            {"kind": "period", "start": 1741266000, "end": 1741269000, "title": "Biology",
             "color": "#10B981", "done": false, "assignmentId": "", "classId": "c1"},
            {"kind": "study", "start": 1741269600, "end": 1741272600, "title": "Essay",
             "color": "#EC4899", "done": true, "assignmentId": "a2", "classId": null}
        ]}
    ],
    "timer": {"state": "running", "ringing": false, "total": 1500, "secsLeft": 1122.5,
              "endAt": 1741306722, "isBreak": true, "className": "Chemistry",
              "classColor": "#10B981", "sessionTitle": "Review", "presets": [15, 25, 45]},
    "streak": {"count": 12, "best": 21, "lastDate": "2025-03-06",
               "hist": {"2025-03-05": 2, "2025-03-06": 1}, "freezeNext": "2025-03-10"}
})";

/// The shortest document that is a snapshot.
inline constexpr std::string_view emptyDocument =
    R"({"updated":0,"signedIn":true,"today":[],"upcoming":[]})";

/// A document with one passage, which must be there, changed to another.
inline std::string changed(std::string_view document, std::string_view from, std::string_view to) {
    std::string result(document);
    const std::size_t place = result.find(from);
    EXPECT_NE(place, std::string::npos) << from;
    return result.replace(place, from.size(), to);
}

}  // namespace kelmar::shared
