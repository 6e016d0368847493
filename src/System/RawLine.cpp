#include "System/RawLine.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <sys/uio.h>
#include <unistd.h>

namespace kelmar::system {

void writeRawLine(std::initializer_list<std::string_view> pieces) noexcept {
    constexpr std::size_t most = 8;
    std::array<iovec, most + 3> line = {};
    std::size_t count = 0;
    const auto add = [&](std::string_view piece) {
        // The call only reads, but its structure is made for both ways.
        line[count++] = {.iov_base = const_cast<char*>(piece.data()), .iov_len = piece.size()};
    };
    add(program_invocation_short_name);
    add(": ");
    for (const std::string_view piece : pieces) {
        if (count < most + 2)
            add(piece);
    }
    add("\n");
    // There is nobody left to tell when it fails.
    [[maybe_unused]] const ssize_t written =
        ::writev(STDERR_FILENO, line.data(), static_cast<int>(count));
}

}  // namespace kelmar::system
