#pragma once

#include <future>
#include <utility>

#include "Paint/FontSet.h"
#include "Paint/QtTextMeasurer.h"
#include "Paint/SymbolSet.h"

namespace kelmar::paint {

/// What all pictures of a program share: fonts with their measured widths, and symbols. A change
/// of the desktop's font or text scale means new resources, and new layouts measured with them. To
/// be used from one thread.
class PaintResources {
public:
    explicit PaintResources(const FontSet& fonts, double textScale = 1)
        : measurer_(fonts), textScale_(textScale) {}
    /// Fonts that are still being looked for, and are waited for when first they are needed.
    explicit PaintResources(std::shared_future<FontSet> fonts, double textScale = 1)
        : measurer_(std::move(fonts)), textScale_(textScale) {}

    [[nodiscard]] const QtTextMeasurer& measurer() const { return measurer_; }
    [[nodiscard]] const FontSet& fonts() const { return measurer_.fonts(); }
    [[nodiscard]] const SymbolSet& symbols() const { return symbols_; }
    /// How much larger than usual the user wants texts, from 1 on; pictures follow as far as they
    /// have room.
    [[nodiscard]] double textScale() const { return textScale_; }

private:
    QtTextMeasurer measurer_;
    SymbolSet symbols_;
    double textScale_;
};

}  // namespace kelmar::paint
