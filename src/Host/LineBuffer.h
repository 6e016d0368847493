#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kelmar::host {

/// Cuts a stream of bytes, which comes in pieces of any size, into lines.
class LineBuffer {
public:
    explicit LineBuffer(std::size_t longestLine) : longestLine_(longestLine) {}

    void append(std::string_view bytes) { bytes_.append(bytes); }
    /// The next whole line without its line feed, or nothing while its end has not come, or when
    /// it is too long.
    [[nodiscard]] std::optional<std::string> takeLine();
    /// Whether the next line, whole or not, is longer than allowed. It stays until it is taken as
    /// a piece; nothing behind it is seen before that.
    [[nodiscard]] bool isOverlong();
    /// The first bytes of the next line, as many as a line may have.
    [[nodiscard]] std::string takePiece();

private:
    [[nodiscard]] std::size_t findLineFeed();
    [[nodiscard]] std::string take(std::size_t length, std::size_t dropped);

    std::size_t longestLine_;
    std::string bytes_;
    std::size_t start_ = 0;  ///< Where the next line begins.
    std::size_t scanned_ =
        0;  ///< Up to where no line feed was found, so that none is sought twice.
};

}  // namespace kelmar::host
