#pragma once

#include "Paint/FontSet.h"
#include "Paint/QtTextMeasurer.h"
#include "Paint/SymbolSet.h"

namespace kelmar::paint {

/// What all pictures of a program share: fonts with their measured widths, and symbols. A change
/// of the desktop's font means new resources, and new layouts measured with them. To be used from
/// one thread.
class PaintResources {
public:
    explicit PaintResources(const FontSet& fonts) : measurer_(fonts) {}

    [[nodiscard]] const QtTextMeasurer& measurer() const { return measurer_; }
    [[nodiscard]] const FontSet& fonts() const { return measurer_.fonts(); }
    [[nodiscard]] const SymbolSet& symbols() const { return symbols_; }

private:
    QtTextMeasurer measurer_;
    SymbolSet symbols_;
};

}  // namespace kelmar::paint
