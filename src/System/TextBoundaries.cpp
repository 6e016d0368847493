#include "System/TextBoundaries.h"

#include <memory>
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

}  // namespace

// The rules are parsed once for the whole process: making an iterator costs far more than using it.

std::vector<std::size_t> characterBoundaries(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    static const IcuIterator iterator =
        made(icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status), status);
    return boundaries(*iterator, text);
}

std::vector<std::size_t> lineBreaks(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    static const IcuIterator iterator =
        made(icu::BreakIterator::createLineInstance(icu::Locale::getRoot(), status), status);
    return boundaries(*iterator, text);
}

}  // namespace kelmar::system
