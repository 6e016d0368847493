#include "System/JsonWriter.h"

#include <cmath>
#include <rapidjson/memorystream.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace kelmar::system {

namespace {

/// Integers up to here are doubles without a gap (2 to the 53rd).
constexpr double largestExactInteger = 9'007'199'254'740'992;

rapidjson::SizeType sizeOf(std::string_view text) {
    return static_cast<rapidjson::SizeType>(text.size());
}

/// Writes numbers as they stand; the library's own writer would put them in quotes.
class NumberKeepingWriter final : public rapidjson::PrettyWriter<rapidjson::StringBuffer> {
public:
    using PrettyWriter::PrettyWriter;

    bool RawNumber(const Ch* digits, rapidjson::SizeType length, bool /*copy*/) {  // NOLINT
        return RawValue(digits, length, rapidjson::kNumberType);
    }
};

}  // namespace

struct JsonWriter::State {
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer{buffer};
};

JsonWriter::JsonWriter() : state_(std::make_unique<State>()) {}
JsonWriter::~JsonWriter() = default;

void JsonWriter::beginObject() {
    state_->writer.StartObject();
}
void JsonWriter::endObject() {
    state_->writer.EndObject();
}
void JsonWriter::beginArray() {
    state_->writer.StartArray();
}
void JsonWriter::endArray() {
    state_->writer.EndArray();
}
void JsonWriter::key(std::string_view name) {
    state_->writer.Key(name.data(), sizeOf(name));
}
void JsonWriter::string(std::string_view utf8) {
    state_->writer.String(utf8.data(), sizeOf(utf8));
}

void JsonWriter::number(double value) {
    if (!std::isfinite(value)) {
        null();
    } else if (std::trunc(value) == value && std::abs(value) <= largestExactInteger) {
        integer(static_cast<std::int64_t>(value));
    } else {
        state_->writer.Double(value);
    }
}

void JsonWriter::integer(std::int64_t value) {
    state_->writer.Int64(value);
}
void JsonWriter::boolean(bool value) {
    state_->writer.Bool(value);
}
void JsonWriter::null() {
    state_->writer.Null();
}

void JsonWriter::raw(std::string_view json) {
    // The writer asks for a type only to keep its own books, which are the same for every value.
    state_->writer.RawValue(json.data(), json.size(), rapidjson::kObjectType);
}

std::string JsonWriter::text() const {
    return {state_->buffer.GetString(), state_->buffer.GetSize()};
}

std::string prettyPrinted(std::string_view json) {
    rapidjson::MemoryStream input(json.data(), json.size());
    rapidjson::StringBuffer output;
    NumberKeepingWriter writer(output);
    writer.SetIndent(' ', 2);
    rapidjson::Reader reader;
    reader.Parse<rapidjson::kParseNumbersAsStringsFlag>(input, writer);
    return {output.GetString(), output.GetSize()};
}

}  // namespace kelmar::system
