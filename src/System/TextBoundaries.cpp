#include "System/TextBoundaries.h"

#include <algorithm>
#include <memory>
#include <numeric>
#include <string>
#include <unicode/brkiter.h>
#include <unicode/utext.h>

#include "System/Fatal.h"

namespace kelmar::system {
namespace {

using IcuIterator = std::unique_ptr<icu::BreakIterator>;
using Text = std::unique_ptr<UText, decltype(&utext_close)>;

IcuIterator made(icu::BreakIterator* iterator, UErrorCode status) {
    IcuIterator owned(iterator);
    if (U_FAILURE(status))
        fatal(std::string("ICU has no rules of text boundaries: ") + u_errorName(status));
    return owned;
}

/// Every boundary after the start, as byte offsets: on UTF-8 ICU counts in bytes.
std::vector<std::size_t> boundaries(icu::BreakIterator& iterator, std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    const Text bytes(
        utext_openUTF8(nullptr, text.data(), static_cast<int64_t>(text.size()), &status),
        &utext_close);
    iterator.setText(bytes.get(), status);
    if (U_FAILURE(status))
        return {text.size()};
    std::vector<std::size_t> result;
    iterator.first();
    for (int32_t at = iterator.next(); at != icu::BreakIterator::DONE; at = iterator.next())
        result.push_back(static_cast<std::size_t>(at));
    return result;
}

bool isLetterOrDigit(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9');
}

/// Words of letters and digits with spaces and the usual marks behind them: nearly every text in
/// English. A reader accepts a cut between any two of these characters, and a line break where a
/// word follows spaces. ICU's rules say the same, but reading them costs a program that draws a few
/// texts a megabyte.
bool isPlain(std::string_view text) {
    constexpr std::string_view marks = ",.:";
    char before = ' ';
    return std::ranges::all_of(text, [&](char character) {
        const bool isMarkBehindWord =
            before != ' ' && marks.find(character) != std::string_view::npos;
        before = character;
        return isLetterOrDigit(character) || character == ' ' || isMarkBehindWord;
    });
}

std::vector<std::size_t> plainCharacterBoundaries(std::string_view text) {
    std::vector<std::size_t> result(text.size());
    std::iota(result.begin(), result.end(), 1);
    return result;
}

std::vector<std::size_t> plainLineBreaks(std::string_view text) {
    std::vector<std::size_t> result;
    for (std::size_t end = 1; end <= text.size(); ++end) {
        if (end == text.size() || (text[end - 1] == ' ' && isLetterOrDigit(text[end])))
            result.push_back(end);
    }
    return result;
}

}  // namespace

// The rules are parsed once for the whole process: making an iterator costs far more than using it.

std::vector<std::size_t> characterBoundaries(std::string_view text) {
    if (isPlain(text))
        return plainCharacterBoundaries(text);
    UErrorCode status = U_ZERO_ERROR;
    static const IcuIterator iterator =
        made(icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status), status);
    return boundaries(*iterator, text);
}

std::vector<std::size_t> lineBreaks(std::string_view text) {
    if (isPlain(text))
        return plainLineBreaks(text);
    UErrorCode status = U_ZERO_ERROR;
    static const IcuIterator iterator =
        made(icu::BreakIterator::createLineInstance(icu::Locale::getRoot(), status), status);
    return boundaries(*iterator, text);
}

}  // namespace kelmar::system
