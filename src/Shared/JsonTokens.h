#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <simdjson.h>
#include <string>
#include <string_view>

namespace kelmar::shared {

/// Where each token of a JSON text begins: its brackets, colons and commas, and the first character
/// of its texts, numbers and words. This is simdjson's first stage, which also makes sure of the
/// UTF-8, of the quotation marks, and that no text holds a control character. Everything else about
/// the grammar is for the reader of the tokens to hold.
class JsonTokens {
public:
    /// A place among the tokens. The place behind the last token may be asked about as well: it
    /// begins with no character that begins a token.
    using Place = const std::uint32_t*;

    /// Finds the tokens of a text, which must outlive their use; false when it has none, or is
    /// broken in one of the ways above. The text is not copied, but room is made behind it, because
    /// whole blocks are read beyond its end. Room for the places is kept from text to text.
    [[nodiscard]] bool find(std::string& json);

    [[nodiscard]] Place begin() const { return parser_->structural_indexes.get(); }
    [[nodiscard]] Place end() const { return begin() + parser_->n_structural_indexes; }

    [[nodiscard]] char front(Place token) const { return text_[*token]; }
    [[nodiscard]] const char* address(Place token) const { return text_ + *token; }
    /// From the token's first character to the next token, white space between them included.
    [[nodiscard]] std::string_view region(Place token) const {
        return {text_ + token[0], token[1] - token[0]};
    }
    /// The token alone.
    [[nodiscard]] std::string_view token(Place token) const;
    /// What stands between the quotation marks of a text, as it is written.
    [[nodiscard]] std::string_view quoted(Place token) const {
        const char* const start = text_ + token[0] + 1;
        const char* const next = text_ + token[1];
        return next[-1] == '"' ? std::string_view(start, static_cast<std::size_t>(next - 1 - start))
                               : quotedBeforeSpace(token);
    }
    /// Whether anything is escaped in a quoted text. Ask in the order of the text: each backslash
    /// is looked for once.
    [[nodiscard]] bool hasEscapes(std::string_view quoted) {
        if (nextBackslash_ < quoted.data())
            findBackslash(quoted.data());
        return nextBackslash_ < quoted.data() + quoted.size();
    }

    /// A whole value, the tokens of what it holds included.
    [[nodiscard]] std::string_view value(Place first) const;
    /// The place behind a whole value; the end when a bracket is not closed.
    [[nodiscard]] Place behind(Place first) const;

    /// The characters that a quoted text stands for, appended to nothing else in `text`; false when
    /// an escape is none, or stands for half a character.
    [[nodiscard]] bool unescape(std::string_view quoted, std::string& text) const;

private:
    [[nodiscard]] std::string_view quotedBeforeSpace(Place token) const;
    void findBackslash(const char* from);

    std::unique_ptr<simdjson::internal::dom_parser_implementation> parser_;
    const char* text_ = nullptr;
    const char* textEnd_ = nullptr;
    const char* nextBackslash_ = nullptr;
};

}  // namespace kelmar::shared
