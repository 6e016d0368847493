#include "Desktop/FocusChain.h"

#include <algorithm>
#include <utility>

namespace kelmar::desktop {

void FocusChain::setTargets(std::vector<PressTarget> targets) {
    const std::vector<PressTarget> former = std::exchange(targets_, std::move(targets));
    if (!place_) {
        return;
    }
    const auto same = std::ranges::find(targets_, former[*place_].action, &PressTarget::action);
    if (same != targets_.end()) {
        place_ = static_cast<std::size_t>(same - targets_.begin());
    } else if (targets_.empty()) {
        place_.reset();
    } else {
        place_ = std::min(*place_, targets_.size() - 1);
    }
}

const PressTarget* FocusChain::current() const {
    return place_ ? &targets_[*place_] : nullptr;
}

void FocusChain::enter(FocusStep step) {
    if (!targets_.empty()) {
        place_ = step == FocusStep::next ? 0 : targets_.size() - 1;
    }
}

bool FocusChain::move(FocusStep step) {
    if (!place_) {
        enter(step);
        return place_.has_value();
    }
    const bool isAtEnd = *place_ == (step == FocusStep::next ? targets_.size() - 1 : 0);
    if (!isAtEnd) {
        place_ = step == FocusStep::next ? *place_ + 1 : *place_ - 1;
    }
    return !isAtEnd;
}

void FocusChain::choose(const PressTarget& target) {
    const auto found = std::ranges::find(targets_, target);
    if (found != targets_.end()) {
        place_ = static_cast<std::size_t>(found - targets_.begin());
    }
}

}  // namespace kelmar::desktop
