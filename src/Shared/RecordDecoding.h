#pragma once

#include <string>
#include <utility>

#include "Shared/JsonSyntax.h"
#include "Shared/RecordDecoder.h"
#include "Shared/SnapshotCoding.h"
#include "System/Result.h"

namespace kelmar::shared {

[[nodiscard]] bool startsWithByteOrderMark(std::string_view text);

/// Why a text that did not become a record did not: that it is no JSON comes first, then what the
/// decoder found in it.
[[nodiscard]] SnapshotFault explain(std::string_view json, SnapshotFault found);

/// The record that the whole text stands for, or the first fault. The text is not copied; room is
/// made behind it for the parser, which reads ahead of the end.
template <Recorded Record>
[[nodiscard]] system::Result<Record, SnapshotFault> decodeRecord(std::string& json) {
    // Its room is kept for the next text.
    thread_local JsonTokens tokens;
    if (startsWithByteOrderMark(json) || !tokens.find(json))
        return explain(json, {"", "more text than there is room for", "an object"});
    RecordDecoder decoder(tokens);
    Record record;
    const bool isDecoded = decoder.decode(tokens.begin(), record) == tokens.end() &&
                           (!decoder.hasSkipped() || !findSyntaxError(json));
    if (!isDecoded)
        return explain(json, decoder.fault());
    return record;
}

}  // namespace kelmar::shared
