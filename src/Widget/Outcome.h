#pragma once

#include <functional>

#include "System/Result.h"

namespace kelmar::widget {

/// Runs once an action has ended, with what became of it.
using Outcome = std::function<void(system::Result<system::Done>)>;

}  // namespace kelmar::widget
