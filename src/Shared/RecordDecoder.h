#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Shared/JsonTokens.h"
#include "Shared/KeyFaults.h"
#include "Shared/RecordFields.h"
#include "Shared/SnapshotCoding.h"
#include "System/Date.h"

namespace kelmar::shared {

/// Reads records in one pass over the tokens of a text, by their lists of fields. Every decode
/// function fills its target from the value at a place and gives back the place behind it, or
/// nothing when it could not. Then `fault` tells why, and each caller on the way out puts its own
/// step before the fault's path: a good document pays nothing for it. Where the text is no JSON
/// any fault will do, because `findSyntaxError` has the first word about such a text.
class RecordDecoder {
public:
    using Place = JsonTokens::Place;

    explicit RecordDecoder(JsonTokens& tokens) : tokens_(tokens) {}

    template <Recorded Record>
    Place decode(Place object, Record& record);

    /// The first thing found wrong.
    [[nodiscard]] const SnapshotFault& fault() const { return fault_; }
    /// Whether values were passed over half read, so that nobody knows yet if they are JSON.
    [[nodiscard]] bool hasSkipped() const { return hasSkipped_; }

private:
    Place decode(Place value, std::string& text);
    Place decode(Place value, bool& truth);
    Place decode(Place value, double& number);
    Place decode(Place value, std::int64_t& number);
    Place decode(Place value, system::Date& date);
    template <class Element>
    Place decode(Place value, std::vector<Element>& list);
    template <class Element>
    Place decode(Place value, std::map<std::string, Element>& map);
    template <class Content>
    Place decode(Place value, std::optional<Content>& optional);

    /// Reads the entries of an object; `decodeValue(key, value)` gives the place behind the value.
    template <class DecodeValue>
    Place decodeEntries(Place object, DecodeValue decodeValue);
    /// False, with a fault, when a field that must be there has not been seen.
    template <Recorded Record>
    bool hasFields(std::uint32_t seen);

    Place decodeUnusualNumber(Place value, double& number);
    Place decodeUnusualNumber(Place value, std::int64_t& number);
    /// Passes over the value of an unknown key; nothing when it is no valid JSON.
    Place ignore(Place value);
    /// Lays the present fault aside in case that another value of the same key follows, and passes
    /// over the value.
    Place postpone(Place value, std::string_view key, const std::string& step, KeyFaults& faults);
    /// Takes up a fault that was laid aside; false when there is one.
    bool settle(const KeyFaults& faults);

    /// A value of another type than expected stands here.
    std::nullptr_t mismatch(Place value, std::string_view expected);
    bool missing(std::string_view key, std::string_view expected);

    /// Whether nothing but white space stands between the end of a scalar and the next token.
    [[nodiscard]] bool endsAt(Place value, const char* end) const;

    JsonTokens& tokens_;
    SnapshotFault fault_;
    bool hasSkipped_ = false;
};

}  // namespace kelmar::shared

#include "Shared/RecordDecoderTemplates.h"
