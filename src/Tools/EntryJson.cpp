#include "Tools/EntryJson.h"

#include "Kit/Archive.h"
#include "Kit/Protocol.h"
#include "Shared/SnapshotCoding.h"
#include "System/JsonWriter.h"

namespace kelmar::tools {

namespace {

using system::JsonWriter;

void writeUndo(JsonWriter& json, const std::optional<shared::WidgetTicks::Tick>& undo) {
    if (!undo) {
        json.null();
        return;
    }
    json.beginObject();
    json.key("id");
    json.string(undo->id);
    json.key("title");
    json.string(undo->note.title);
    json.key("at");
    json.number(undo->note.at.secondsSince1970());
    json.endObject();
}

void writeEntry(JsonWriter& json, const widget::ProvidedEntry& entry, const std::string& kind,
                const kit::Environment& environment) {
    json.beginObject();
    json.key("date");
    json.number(entry.date.secondsSince1970());
    json.key("data");
    if (entry.data) {
        json.raw(shared::encodeSnapshot(*entry.data));
    } else {
        json.null();
    }
    if (kind == "DueToday") {
        json.key("undo");
        writeUndo(json, entry.undo);
    }
    json.key("view");
    kit::writeDrawnEntry(json, entry.draw(environment));
    json.endObject();
}

}  // namespace

std::string entryJson(const widget::ProvidedEntry& entry, const std::string& kind,
                      const kit::Environment& environment) {
    JsonWriter json;
    writeEntry(json, entry, kind, environment);
    return json.text();
}

std::string timelineJson(const widget::ProvidedTimeline& timeline, const std::string& kind,
                         const kit::Environment& environment) {
    JsonWriter json;
    json.beginObject();
    json.key("entries");
    json.beginArray();
    for (const widget::ProvidedEntry& entry : timeline.entries) {
        writeEntry(json, entry, kind, environment);
    }
    json.endArray();
    json.key("policy");
    kit::writePolicy(json, timeline.policy);
    json.endObject();
    return json.text();
}

}  // namespace kelmar::tools
