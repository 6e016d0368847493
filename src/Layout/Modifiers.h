#pragma once

#include "Layout/Arrangement.h"
#include "Layout/Measuring.h"

/// Views that change what their one child is offered or the room it lies in.
namespace kelmar::layout {

/// A fixed length is offered to the child and kept, whatever the child takes. Up to a greatest
/// length the frame takes what it is offered, and follows a child that needs more; where nothing
/// definite is offered it follows the child.
[[nodiscard]] Arrangement arrangeModified(const kit::Frame& frame, const Proposal& proposal,
                                          Precision precision, Measuring& measuring);
[[nodiscard]] Arrangement arrangeModified(const kit::Padding& padding, const Proposal& proposal,
                                          Precision precision, Measuring& measuring);
/// The child is offered the ideal length that it has, so that what fills any room fills that.
[[nodiscard]] Arrangement arrangeModified(const kit::FixedSize& fixed, const Proposal& proposal,
                                          Precision precision, Measuring& measuring);

}  // namespace kelmar::layout
