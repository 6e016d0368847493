#include "Kit/Archive.h"
#include "Kit/ArchiveFields.h"
#include "Kit/ArchiveNames.h"
#include "Kit/FieldWriting.h"

namespace kelmar::kit {

using system::JsonWriter;

void writeValue(JsonWriter& json, const View& view) {
    writeView(json, view);
}

void writeValue(JsonWriter& json, const Child& child) {
    writeView(json, *child);
}

void writeValue(JsonWriter& json, const Children& views) {
    json.beginArray();
    for (const View& view : views) {
        writeView(json, view);
    }
    json.endArray();
}

void writeView(JsonWriter& json, const View& view) {
    json.beginObject();
    json.key(typeKey);
    json.string(nodeTypeNames.at(view.node.index()));
    std::visit([&](const auto& node) { writeMembers(json, node); }, view.node);
    json.endObject();
}

void writeDrawnEntry(JsonWriter& json, const DrawnEntry& entry) {
    writeValue(json, entry);
}

void writeIntent(JsonWriter& json, const Intent& intent) {
    writeValue(json, intent);
}

std::string encodeView(const View& view) {
    JsonWriter json;
    writeView(json, view);
    return json.text();
}

std::string encodeDrawnEntry(const DrawnEntry& entry) {
    JsonWriter json;
    writeDrawnEntry(json, entry);
    return json.text();
}

}  // namespace kelmar::kit
