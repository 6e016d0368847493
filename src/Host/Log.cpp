#include "Host/Log.h"

#include <fmt/format.h>
#include <poll.h>

#include "System/Journal.h"
#include "System/Utf8.h"

namespace kelmar::host {
namespace {

constexpr std::size_t longestLine = 1'000;

bool isControl(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20 || byte == 0x7f;
}

/// U+0080 to U+009F, which some terminals obey as they do escapes.
bool isLateControl(char first, char second) {
    return first == '\xc2' && static_cast<unsigned char>(second) < 0xa0;
}

bool continuesCharacter(char character) {
    return (static_cast<unsigned char>(character) & 0xc0U) == 0x80U;
}

/// At most `longestLine` bytes, of which the last end a character, if the text is one.
std::string_view beginning(std::string_view text) {
    constexpr std::size_t longestCharacter = 4;
    if (text.size() <= longestLine) {
        return text;
    }
    auto length = longestLine;
    while (length > longestLine - longestCharacter && continuesCharacter(text[length])) {
        --length;
    }
    return text.substr(0, length);
}

/// The journal shows nobody a line that is not UTF-8.
std::string withoutInvalidBytes(std::string_view text) {
    std::string valid;
    while (const auto invalid = system::findInvalidUtf8(text)) {
        valid.append(text.substr(0, *invalid)).append("\uFFFD");
        text.remove_prefix(*invalid + 1);
    }
    return valid.append(text);
}

/// Whether nobody would get a line: writing would wait for somebody who may never read, or end the
/// program because the reader has gone. A pipe with any room has it for more than a line.
bool isDeaf(int descriptor) {
    pollfd writing{.fd = descriptor, .events = POLLOUT, .revents = 0};
    return poll(&writing, 1, 0) == 0 || (writing.revents & POLLERR) != 0;
}

}  // namespace

std::string asLogLine(std::string_view text) {
    const auto kept = beginning(text);
    std::string line = withoutInvalidBytes(kept);
    for (std::size_t place = 0; place < line.size(); ++place) {
        if (isControl(line[place])) {
            line[place] = ' ';
        } else if (place + 1 < line.size() && isLateControl(line[place], line[place + 1])) {
            line.replace(place, 2, " ");
        }
    }
    return kept.size() < text.size() ? line + "..." : line;
}

StreamLog StreamLog::onStandardError() {
    return {stderr, system::isJournal(fileno(stderr)) ? LevelPrefix::present : LevelPrefix::absent};
}

void StreamLog::write(LogLevel level, std::string_view line) {
    if (isDeaf(fileno(stream_))) {
        return;
    }
    const auto prefix =
        prefix_ == LevelPrefix::present ? fmt::format("<{}>", static_cast<int>(level)) : "";
    // One call for the whole line: other processes write to the same stream.
    const auto whole = prefix + asLogLine(line) + '\n';
    std::fwrite(whole.data(), 1, whole.size(), stream_);
    std::fflush(stream_);
}

}  // namespace kelmar::host
