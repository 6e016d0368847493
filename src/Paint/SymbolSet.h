#pragma once

#include <QCache>
#include <QColor>
#include <QImage>
#include <QPointF>
#include <QString>
#include <string>
#include <vector>

#include "Kit/Font.h"

namespace kelmar::paint {

/// Where a symbol's square starts between two device pixels, on each axis.
enum class PixelPhase { whole, half };

/// One symbol as it is asked for.
struct SymbolRequest {
    std::string name;
    kit::FontWeight weight = kit::FontWeight::regular;
    int side = 0;  ///< Of the square, in device pixels.
    QColor color{};
    PixelPhase horizontalPhase = PixelPhase::whole;
    PixelPhase verticalPhase = PixelPhase::whole;
};

/// The symbols that widgets name, drawn from vectors at the size asked for. What has been drawn is
/// kept for the next time, within limits.
///
/// A symbol's file is black on transparent; white in it is cut out of the black. A heavier weight
/// draws its lines thicker.
class SymbolSet {
public:
    SymbolSet();

    /// The names of all symbols, sorted.
    [[nodiscard]] static std::vector<std::string> names();

    /// A picture one pixel larger than the side in either direction that has a half phase. A name
    /// that is not known gives a small dot, which shows that something is missing but not more.
    [[nodiscard]] QImage image(const SymbolRequest& request) const;

private:
    mutable QCache<QString, QImage> images_;
};

}  // namespace kelmar::paint
