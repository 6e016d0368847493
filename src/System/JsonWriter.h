#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace kelmar::system {

/// Writes one JSON value (RFC 8259) piece by piece, keys in the order in which they come, on one
/// line. The caller keeps the grammar: a key before each member, every object and array closed.
class JsonWriter {
public:
    JsonWriter();
    ~JsonWriter();
    JsonWriter(const JsonWriter&) = delete;
    JsonWriter& operator=(const JsonWriter&) = delete;

    void beginObject();
    void endObject();
    void beginArray();
    void endArray();
    void key(std::string_view name);

    void string(std::string_view utf8);
    /// The shortest text that reads back as the same number; no fraction where there is none.
    /// JSON knows no infinity and no NaN: they become null, which no reader here takes for one.
    void number(double value);
    void integer(std::int64_t value);
    void boolean(bool value);
    void null();
    /// A value that is JSON already.
    void raw(std::string_view json);

    /// What has been written.
    [[nodiscard]] std::string text() const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

/// The same JSON over several lines, for people; keys and numbers stay as they are. The text
/// must be valid JSON.
[[nodiscard]] std::string prettyPrinted(std::string_view json);

}  // namespace kelmar::system
