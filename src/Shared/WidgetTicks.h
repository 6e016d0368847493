#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "System/Date.h"
#include "System/Folder.h"
#include "System/Result.h"

namespace kelmar::shared {

/// The tick journal: one small file for each assignment that was ticked off on a widget and that
/// the planner has not taken over yet ("tick-"), or has ("done-"). The folder is the state; every
/// call reads it afresh and tolerates files that vanish in between.
class WidgetTicks {
public:
    /// What a tick file holds.
    struct Note {
        std::string title;
        system::Date at;  ///< In the file: seconds since 2001.

        bool operator==(const Note&) const = default;
    };

    struct Tick {
        std::string id;
        Note note;

        bool operator==(const Tick&) const = default;
    };

    static constexpr std::string_view tickPrefix = "tick-";
    static constexpr std::string_view donePrefix = "done-";
    /// For how long a tick is offered for undo.
    static constexpr system::Seconds undoAge = 10;

    explicit WidgetTicks(system::Folder& folder) : folder_(folder) {}

    /// The file-name form of an id: unpadded URL-safe Base64 of its UTF-8 bytes.
    [[nodiscard]] static std::string name(std::string_view id);
    [[nodiscard]] static std::optional<std::string> id(std::string_view fileName,
                                                       std::string_view prefix);
    /// The name of an id's tick file in the folder.
    [[nodiscard]] static std::string fileName(std::string_view id);

    [[nodiscard]] static std::string encode(const Note& note);
    [[nodiscard]] static std::optional<Note> decode(std::string_view json);

    /// The ids of all "tick-" files in listing order; the names alone decide.
    [[nodiscard]] std::vector<std::string> pending() const;
    /// The youngest tick that may still be undone at `now`, if any.
    [[nodiscard]] std::optional<Tick> latest(system::Date now) const;
    /// Records a tick, replacing an earlier one of the same id. The folder is never created.
    system::Result<system::Done> write(std::string_view id, const Note& note);
    /// Deletes both files of an id; a failure is ignored.
    void remove(std::string_view id);

private:
    system::Folder& folder_;
};

}  // namespace kelmar::shared
