#include <cstdint>
#include <cstdlib>
#include <simdjson.h>

#include "Shared/JsonSyntax.h"
#include "Shared/SnapshotCoding.h"

using namespace kelmar;

namespace {

void require(bool condition) {
    if (!condition)
        std::abort();
}

/// The grammar check against a parser that knows nothing of it. That parser is stricter about
/// depth and the size of numbers, so only what it accepts must be accepted.
bool isJsonToTheParser(std::string_view bytes) {
    simdjson::dom::parser parser;
    const simdjson::padded_string padded(bytes);
    return parser.parse(padded).error() == simdjson::SUCCESS;
}

}  // namespace

/// Any bytes are decoded or refused with a reason; what is decoded is JSON and says the same once
/// written and read again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const bool isJson = !shared::findSyntaxError(bytes);
    if (isJsonToTheParser(bytes) && !bytes.starts_with("\xEF\xBB\xBF"))
        require(isJson);
    const auto snapshot = shared::decodeSnapshot(bytes);
    if (snapshot) {
        require(isJson);
        const auto again = shared::decodeSnapshot(shared::encodeSnapshot(*snapshot));
        require(again && *again == *snapshot);
    } else {
        require(!snapshot.failure().found.empty());
        // A text of white space alone is told as holding nothing, not as broken.
        const bool isEmpty = bytes.find_first_not_of(" \t\r\n") == std::string_view::npos;
        const bool hasMark = bytes.starts_with("\xEF\xBB\xBF");
        require((isJson || isEmpty || hasMark) == (snapshot.failure().expected != "valid JSON"));
    }
    return 0;
}
