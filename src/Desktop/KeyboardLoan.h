#pragma once

#include <cstdint>
#include <optional>

class QWindow;

namespace kelmar::desktop {

/// The keyboard, lent to windows that window managers never give it to. Does nothing off X11.
class KeyboardLoan {
public:
    void takeFor(QWindow& window);
    /// To the window that had it before the first of ours took it.
    void giveBack();

private:
    std::optional<std::uint32_t> formerOwner_;
};

}  // namespace kelmar::desktop
