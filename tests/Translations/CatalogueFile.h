#pragma once

#include <map>
#include <string>

namespace kelmar::translations {

/// One message of a catalogue file.
struct Message {
    std::string translation;
    bool isFuzzy = false;
};

/// The messages of a catalogue in gettext's text form (PO), by their keys, the header's empty key
/// left out. Throws std::runtime_error on what the project's own files have no use for: plural
/// forms, contexts, doubled keys.
[[nodiscard]] std::map<std::string, Message> readCatalogue(const std::string& path);

}  // namespace kelmar::translations
