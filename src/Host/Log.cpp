#include "Host/Log.h"

#include <fmt/format.h>

#include "System/Journal.h"

namespace kelmar::host {
namespace {

constexpr std::size_t longestLine = 1'000;

bool isControl(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20 || byte == 0x7f;
}

bool continuesCharacter(char character) {
    return (static_cast<unsigned char>(character) & 0xc0U) == 0x80U;
}

}  // namespace

std::string asLogLine(std::string_view text) {
    auto length = text.size();
    if (length > longestLine) {
        length = longestLine;
        while (length > 0 && continuesCharacter(text[length])) {
            --length;
        }
    }
    std::string line(text.substr(0, length));
    for (char& character : line) {
        if (isControl(character)) {
            character = ' ';
        }
    }
    return length < text.size() ? line + "..." : line;
}

StreamLog StreamLog::onStandardError() {
    return {stderr, system::isJournal(fileno(stderr)) ? LevelPrefix::present : LevelPrefix::absent};
}

void StreamLog::write(LogLevel level, std::string_view line) {
    const auto prefix =
        prefix_ == LevelPrefix::present ? fmt::format("<{}>", static_cast<int>(level)) : "";
    // One call for the whole line: other processes write to the same stream.
    const auto whole = prefix + asLogLine(line) + '\n';
    std::fwrite(whole.data(), 1, whole.size(), stream_);
    std::fflush(stream_);
}

}  // namespace kelmar::host
