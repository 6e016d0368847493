#pragma once

#include <QColor>
#include <QIcon>
#include <string>

#include "Paint/SymbolSet.h"

namespace kelmar::desktop {

/// A symbol as an icon in the sizes that menus show, in one colour.
[[nodiscard]] QIcon symbolIcon(const paint::SymbolSet& symbols, const std::string& name,
                               const QColor& ink);

/// A symbol in white on a rounded card: to be told from its background wherever it lies, since a
/// tray does not say whether it is light or dark.
[[nodiscard]] QIcon cardIcon(const paint::SymbolSet& symbols, const std::string& name,
                             const QColor& card);

}  // namespace kelmar::desktop
