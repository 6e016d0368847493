#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "Desktop/Press.h"

namespace kelmar::desktop {

enum class FocusStep { next, previous };

/// What the Tab key goes through in one widget, and where it stands. A widget's content changes
/// under the user's hands; the place is kept as well as it can be.
class FocusChain {
public:
    /// The place stays on the same action; where that is gone, on what has taken its place in the
    /// order.
    void setTargets(std::vector<PressTarget> targets);

    /// Null when nothing is chosen.
    [[nodiscard]] const PressTarget* current() const;
    [[nodiscard]] bool isEmpty() const { return targets_.empty(); }

    /// To the first target, or the last one when going backwards.
    void enter(FocusStep step);
    /// One target on; false at the end, where it stays.
    [[nodiscard]] bool move(FocusStep step);
    /// To this target; nowhere else if there is no such.
    void choose(const PressTarget& target);

private:
    std::vector<PressTarget> targets_;
    std::optional<std::size_t> place_;  ///< Always less than the number of targets.
};

}  // namespace kelmar::desktop
