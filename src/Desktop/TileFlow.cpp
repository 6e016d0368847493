#include "Desktop/TileFlow.h"

#include <algorithm>
#include <iterator>

#include "Desktop/Screens.h"

namespace kelmar::desktop {

namespace {

/// Fills rows with tiles, one after the other.
class Rows {
public:
    Rows(int width, int foot) : width_(width), foot_(foot) {}

    QPoint add(QSize tile) {
        if (next_.x() > 0 && next_.x() + tile.width() > width_) {
            next_ = {0, size_.height()};
        }
        const QPoint place = next_;
        size_ = size_.expandedTo({place.x() + tile.width(), place.y() + tile.height() + foot_});
        next_.rx() += tile.width() + tileGap;
        return place;
    }

    [[nodiscard]] QSize size() const { return size_; }

private:
    int width_;
    int foot_;
    QPoint next_;
    QSize size_{0, 0};
};

/// The larger tiles in a column of their own.
TileFlow inTwoColumns(const std::vector<kit::Family>& families, int foot) {
    const int width = windowSize(kit::Family::medium).width();
    const QPoint second(width + tileGap, 0);
    Rows smaller(width, foot);
    Rows larger(width, foot);
    TileFlow flow;
    for (const kit::Family family : families) {
        flow.places.push_back(family == kit::Family::large ? second + larger.add(windowSize(family))
                                                           : smaller.add(windowSize(family)));
    }
    flow.size = smaller.size().expandedTo(larger.size() + QSize(second.x(), 0));
    return flow;
}

TileFlow inRows(const std::vector<kit::Family>& families, int width, int foot) {
    Rows rows(width, foot);
    TileFlow flow;
    for (const kit::Family family : families) {
        flow.places.push_back(rows.add(windowSize(family)));
    }
    flow.size = rows.size();
    return flow;
}

}  // namespace

TileFlow flowTiles(const std::vector<kit::Family>& families, int width, int foot) {
    const auto larges = std::count(families.begin(), families.end(), kit::Family::large);
    const bool hasBoth = larges > 0 && larges < std::ssize(families);
    return hasBoth && width >= galleryWidth ? inTwoColumns(families, foot)
                                            : inRows(families, width, foot);
}

}  // namespace kelmar::desktop
