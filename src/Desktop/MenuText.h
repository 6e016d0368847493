#pragma once

#include <QString>

namespace kelmar::desktop {

/// A text as a menu takes it: there a lone "&" marks the letter behind it as a shortcut.
[[nodiscard]] inline QString escapedForMenu(QString text) {
    return text.replace('&', "&&");
}

}  // namespace kelmar::desktop
