#include "Shared/WidgetTicks.h"

#include <algorithm>
#include <simdjson.h>

#include "Shared/RecordDecoding.h"
#include "Shared/RecordEncoding.h"
#include "System/Base64.h"

namespace kelmar::shared {
namespace {

/// A note as its file has it, counting from the other epoch.
struct NoteFile {
    std::string title;
    system::Seconds at = 0;
};

/// By how much a tick may lie in the future, because clocks are set back a little now and then.
constexpr system::Seconds clockSkew = 1;

bool isOffered(const WidgetTicks::Note& note, system::Date now) {
    return now - note.at < WidgetTicks::undoAge && note.at <= now + clockSkew;
}

}  // namespace

template <>
struct Fields<NoteFile> {
    static constexpr std::tuple all{
        Field{"title", &NoteFile::title},
        Field{"at", &NoteFile::at},
    };
};

std::string WidgetTicks::name(std::string_view id) {
    std::string name = system::encodeBase64(id);
    std::ranges::replace(name, '+', '-');
    std::ranges::replace(name, '/', '_');
    std::erase(name, '=');
    return name;
}

std::optional<std::string> WidgetTicks::id(std::string_view fileName, std::string_view prefix) {
    if (!fileName.starts_with(prefix))
        return std::nullopt;
    std::string name(fileName.substr(prefix.size()));
    std::ranges::replace(name, '-', '+');
    std::ranges::replace(name, '_', '/');
    while (name.size() % 4 != 0)
        name += '=';
    std::optional<std::string> id = system::decodeBase64(name);
    if (!id || id->empty() || !simdjson::validate_utf8(*id))
        return std::nullopt;
    return id;
}

std::string WidgetTicks::fileName(std::string_view id) {
    return std::string(tickPrefix) + name(id);
}

std::string WidgetTicks::encode(const Note& note) {
    return encodeRecord(NoteFile{note.title, note.at.secondsSince2001()});
}

std::optional<WidgetTicks::Note> WidgetTicks::decode(std::string_view json) {
    std::string text(json);
    const system::Result<NoteFile, SnapshotFault> file = decodeRecord<NoteFile>(text);
    if (!file)
        return std::nullopt;
    return Note{file->title, system::Date::since2001(file->at)};
}

std::vector<std::string> WidgetTicks::pending() const {
    std::vector<std::string> ids;
    for (const std::string& name : folder_.names()) {
        if (std::optional<std::string> ticked = id(name, tickPrefix))
            ids.push_back(*std::move(ticked));
    }
    return ids;
}

std::optional<WidgetTicks::Tick> WidgetTicks::latest(system::Date now) const {
    std::optional<Tick> youngest;
    for (const std::string& name : folder_.names()) {
        std::optional<std::string> ticked = id(name, tickPrefix);
        if (!ticked)
            ticked = id(name, donePrefix);
        if (!ticked)
            continue;
        const system::Result<std::string> json = folder_.read(name);
        const std::optional<Note> note = json ? decode(*json) : std::nullopt;
        if (note && isOffered(*note, now) && (!youngest || note->at > youngest->note.at))
            youngest = Tick{*std::move(ticked), *note};
    }
    return youngest;
}

system::Result<system::Done> WidgetTicks::write(std::string_view id, const Note& note) {
    return folder_.write(fileName(id), encode(note));
}

void WidgetTicks::remove(std::string_view id) {
    const std::string name = WidgetTicks::name(id);
    for (const std::string_view prefix : {tickPrefix, donePrefix})
        static_cast<void>(folder_.remove(std::string(prefix) + name));
}

}  // namespace kelmar::shared
