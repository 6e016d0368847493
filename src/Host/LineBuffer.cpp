#include "Host/LineBuffer.h"

#include <algorithm>

namespace kelmar::host {

std::size_t LineBuffer::findLineFeed() {
    const auto found = bytes_.find('\n', scanned_);
    scanned_ = found == std::string::npos ? bytes_.size() : found;
    return found;
}

std::string LineBuffer::take(std::size_t length, std::size_t dropped) {
    auto taken = bytes_.substr(start_, length);
    start_ += length + dropped;
    scanned_ = std::max(scanned_, start_);
    // The bytes of taken lines go in one piece, else a burst of short lines would move the rest
    // of the buffer once for each.
    if (start_ == bytes_.size() || start_ > longestLine_) {
        bytes_.erase(0, start_);
        scanned_ -= start_;
        start_ = 0;
    }
    return taken;
}

bool LineBuffer::isOverlong() {
    const auto lineFeed = findLineFeed();
    return std::min(lineFeed, bytes_.size()) - start_ > longestLine_;
}

std::optional<std::string> LineBuffer::takeLine() {
    const auto lineFeed = findLineFeed();
    if (lineFeed == std::string::npos || lineFeed - start_ > longestLine_) {
        return std::nullopt;
    }
    return take(lineFeed - start_, 1);
}

std::string LineBuffer::takePiece() {
    return take(std::min(longestLine_, bytes_.size() - start_), 0);
}

}  // namespace kelmar::host
