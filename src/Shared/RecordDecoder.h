#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <simdjson.h>
#include <string>
#include <string_view>
#include <vector>

#include "Shared/KeyFaults.h"
#include "Shared/RecordFields.h"
#include "Shared/SnapshotCoding.h"
#include "System/Date.h"

namespace kelmar::shared {

/// Reads records in one pass over a text, by their lists of fields. Every decode function fills
/// its target and says whether it could. When it could not, `fault` tells why, and each caller on
/// the way out puts its own step before the fault's path: a good document pays nothing for it.
class RecordDecoder {
public:
    using Value = simdjson::ondemand::value;
    using Object = simdjson::ondemand::object;

    template <Recorded Record>
    bool decode(Object object, Record& record);

    /// The first thing found wrong, unless the text is no JSON at all.
    [[nodiscard]] const SnapshotFault& fault() const { return fault_; }
    /// Whether values were passed over half read, so that nobody knows yet if they are JSON.
    [[nodiscard]] bool hasSkipped() const { return hasSkipped_; }

private:
    bool decode(Value value, std::string& text);
    bool decode(Value value, bool& truth);
    bool decode(Value value, double& number);
    bool decode(Value value, std::int64_t& number);
    bool decode(Value value, system::Date& date);
    template <Recorded Record>
    bool decode(Value value, Record& record);
    template <class Element>
    bool decode(Value value, std::vector<Element>& list);
    template <class Element>
    bool decode(Value value, std::map<std::string, Element>& map);
    template <class Content>
    bool decode(Value value, std::optional<Content>& optional);

    template <Recorded Record>
    bool decodeField(Value value, std::size_t place, Record& record, KeyFaults& faults);
    template <Recorded Record>
    bool hasAllFields(const std::array<bool, fieldCount<Record>>& seen);

    /// Passes over the value of an unknown key; false when it is no valid JSON.
    bool ignore(Value value);

    /// A value of another type than expected stands here; reading can go on behind it.
    bool mismatch(Value value, std::string_view expected);
    bool missing(std::string_view key, std::string_view expected);
    /// The text is no JSON from here on; reading cannot go on.
    bool broken();
    /// Lays the present fault aside in case that another value of the same key follows; false
    /// when reading cannot go on.
    bool postpone(std::string_view key, const std::string& step, KeyFaults& faults);
    /// Takes up a fault that was laid aside; false when there is one.
    bool settle(const KeyFaults& faults);

    SnapshotFault fault_;
    bool isBroken_ = false;
    bool hasSkipped_ = false;
};

}  // namespace kelmar::shared

#include "Shared/RecordDecoderTemplates.h"
