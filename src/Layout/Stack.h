#pragma once

#include "Layout/Arrangement.h"
#include "Layout/Measuring.h"

namespace kelmar::layout {

/// Children side by side or one below the other, or, in a ZStack, on top of each other. A row or
/// column offers each child its part of the stack's length and is as long as what they take,
/// with the spacing between every two of them; across it is as large as the largest child.
[[nodiscard]] Arrangement arrangeStack(const kit::HStack& stack, const Proposal& proposal,
                                       Precision precision, Measuring& measuring);
[[nodiscard]] Arrangement arrangeStack(const kit::VStack& stack, const Proposal& proposal,
                                       Precision precision, Measuring& measuring);
[[nodiscard]] Arrangement arrangeStack(const kit::ZStack& stack, const Proposal& proposal,
                                       Precision precision, Measuring& measuring);

}  // namespace kelmar::layout
