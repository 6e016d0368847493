#include "Shared/JsonSyntax.h"

#include <charconv>
#include <simdjson.h>
#include <vector>

#include "Shared/JsonNumber.h"
#include "System/Utf8.h"

namespace kelmar::shared {
namespace {

/// One walk over a text. What is open is kept in a list rather than on the stack of calls, so that
/// no depth of nesting exhausts it. Every function that meets an error notes it and gives false.
class Scanner {
public:
    explicit Scanner(std::string_view json) : json_(json), rest_(json) {}

    std::optional<SyntaxError> run() {
        bool isGood = scanValue();
        while (isGood && !open_.empty())
            isGood = scanNext();
        skipSpace();
        if (isGood && !rest_.empty())
            fail("something follows the end");
        return error_;
    }

private:
    /// What comes next in the innermost open list or object: an element, or its end.
    bool scanNext() {
        skipSpace();
        if (take(open_.back())) {
            open_.pop_back();
            isAtStart_ = false;
            return true;
        }
        if (!isAtStart_ && !take(","))
            return fail("a comma or a closing bracket is missing");
        isAtStart_ = false;
        return (open_.back() != "}" || scanKey()) && scanValue();
    }

    /// A whole scalar, or the opening bracket of a value that holds others.
    bool scanValue() {
        skipSpace();
        if (take("{"))
            return open("}");
        if (take("["))
            return open("]");
        if (take("\""))
            return scanText();
        if (take("true") || take("false") || take("null"))
            return true;
        return takeJsonNumber(rest_) || fail("a value is missing or misspelt");
    }

    bool open(std::string_view closingBracket) {
        open_.push_back(closingBracket);
        isAtStart_ = true;
        return true;
    }

    bool scanKey() {
        skipSpace();
        if (!take("\""))
            return fail("a key in quotation marks is missing");
        if (!scanText())
            return false;
        skipSpace();
        return take(":") || fail("a colon is missing");
    }

    /// The rest of a text behind its first quotation mark.
    bool scanText() {
        while (!rest_.empty()) {
            if (take("\""))
                return true;
            if (static_cast<unsigned char>(rest_.front()) < ' ')
                return fail("a text holds a control character");
            if (!take("\\"))
                rest_.remove_prefix(1);
            else if (!takeEscape())
                return fail("a text holds a broken escape");
        }
        return fail("a text has no end");
    }

    /// An escape behind its backslash; two of them where they are halves of one character.
    bool takeEscape() {
        if (!take("u"))
            return takeOneOf("\"\\/bfnrt");
        const std::optional<unsigned> unit = takeCodeUnit();
        if (unit && isHighSurrogate(*unit)) {
            const std::optional<unsigned> second = take("\\u") ? takeCodeUnit() : std::nullopt;
            return second && isLowSurrogate(*second);
        }
        return unit && !isLowSurrogate(*unit);
    }

    std::optional<unsigned> takeCodeUnit() {
        unsigned unit = 0;
        const std::string_view digits = rest_.substr(0, 4);
        const char* const end = digits.data() + digits.size();
        if (digits.size() < 4 || std::from_chars(digits.data(), end, unit, 16).ptr != end)
            return std::nullopt;
        rest_.remove_prefix(4);
        return unit;
    }

    static bool isHighSurrogate(unsigned unit) { return unit >= 0xD800 && unit < 0xDC00; }
    static bool isLowSurrogate(unsigned unit) { return unit >= 0xDC00 && unit < 0xE000; }

    void skipSpace() {
        while (takeOneOf(" \t\r\n")) {
        }
    }

    bool take(std::string_view token) {
        if (!rest_.starts_with(token))
            return false;
        rest_.remove_prefix(token.size());
        return true;
    }

    bool takeOneOf(std::string_view characters) {
        if (rest_.empty() || characters.find(rest_.front()) == std::string_view::npos)
            return false;
        rest_.remove_prefix(1);
        return true;
    }

    bool fail(std::string_view reason) {
        error_ = SyntaxError{json_.size() - rest_.size(), reason};
        return false;
    }

    std::string_view json_;
    std::string_view rest_;
    std::vector<std::string_view> open_;  ///< The closing bracket of each open list and object.
    bool isAtStart_ = false;  ///< Whether nothing has come yet in the innermost of them.
    std::optional<SyntaxError> error_;
};

}  // namespace

std::optional<SyntaxError> findSyntaxError(std::string_view json) {
    if (!simdjson::validate_utf8(json)) {
        const std::size_t offset = system::findInvalidUtf8(json).value_or(0);
        return SyntaxError{offset, "a byte is not UTF-8"};
    }
    return Scanner(json).run();
}

}  // namespace kelmar::shared
