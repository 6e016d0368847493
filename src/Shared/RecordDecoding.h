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
    simdjson::ondemand::parser parser;
    simdjson::ondemand::document document;
    RecordDecoder::Object root;
    RecordDecoder decoder;
    Record record;
    json.reserve(json.size() + simdjson::SIMDJSON_PADDING);
    const bool isDecoded =
        !startsWithByteOrderMark(json) &&
        parser.iterate(json.data(), json.size(), json.capacity()).get(document) ==
            simdjson::SUCCESS &&
        document.get_object().get(root) == simdjson::SUCCESS && decoder.decode(root, record) &&
        document.current_location().error() == simdjson::OUT_OF_BOUNDS &&
        (!decoder.hasSkipped() || !findSyntaxError(json));
    if (!isDecoded)
        return explain(json, decoder.fault());
    return record;
}

}  // namespace kelmar::shared
