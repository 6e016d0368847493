#include "Shared/RecordDecoding.h"

#include <algorithm>

namespace kelmar::shared {
namespace {

/// A place as an editor shows it: lines and bytes in the line, both from 1.
std::string placeOf(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, offset);
    const std::size_t lineStart = before.find_last_of('\n') + 1;
    return "line " + std::to_string(std::ranges::count(before, '\n') + 1) + ", column " +
           std::to_string(before.size() - lineStart + 1);
}

}  // namespace

bool startsWithByteOrderMark(std::string_view text) {
    return text.starts_with("\xEF\xBB\xBF");
}

SnapshotFault explain(std::string_view json, SnapshotFault found) {
    constexpr const char* root = "$";
    constexpr const char* objectName = "an object";
    if (startsWithByteOrderMark(json))
        return {root, "a byte order mark", objectName};
    const std::size_t start = json.find_first_not_of(" \t\r\n");
    if (start == std::string_view::npos)
        return {root, "nothing", objectName};
    if (const std::optional<SyntaxError> error = findSyntaxError(json))
        return {root, placeOf(json, error->offset) + ": " + std::string(error->reason),
                "valid JSON"};
    if (json[start] == '[')
        return {root, "a list", objectName};
    if (json[start] != '{')
        return {root, "a single value", objectName};
    found.path.insert(0, root);
    return found;
}

}  // namespace kelmar::shared
