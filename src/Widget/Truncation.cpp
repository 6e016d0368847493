#include "Widget/Truncation.h"

#include <fmt/format.h>

#include "System/Fatal.h"

namespace kelmar::widget {

std::int64_t truncated(double number) {
    // Both bounds are exact in binary: the least integer itself, and the first number behind the
    // greatest. No Double lies between the least integer and the next one below it.
    constexpr double least = -0x1p63;
    constexpr double behindGreatest = 0x1p63;
    if (!(number >= least && number < behindGreatest)) {
        system::fatal(fmt::format("{} fits no whole number of 64 bits.", number));
    }
    return static_cast<std::int64_t>(number);
}

}  // namespace kelmar::widget
