#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "Desktop/Screens.h"
#include "Desktop/TileFlow.h"

namespace kelmar::desktop {
namespace {

using kit::Family;
using testing::ElementsAre;

const std::vector all(kit::families.begin(), kit::families.end());

TEST(TileFlow, LargeStandsBesideTheSmallerOnesAndEndsWithThem) {
    const TileFlow flow = flowTiles(all, galleryWidth);
    EXPECT_THAT(flow.places, ElementsAre(QPoint(0, 0), QPoint(0, 212), QPoint(388, 0)));
    EXPECT_EQ(flow.size, QSize(752, 424));
}

TEST(TileFlow, SmallAndMediumShareARow) {
    const TileFlow flow = flowTiles({Family::small, Family::medium}, galleryWidth);
    EXPECT_THAT(flow.places, ElementsAre(QPoint(0, 0), QPoint(194, 0)));
    EXPECT_EQ(flow.size, QSize(558, 212));
}

TEST(TileFlow, LargeGoesBelowWhereThereIsNoRoomBesides) {
    const TileFlow flow = flowTiles(all, galleryWidth - 1);
    EXPECT_THAT(flow.places, ElementsAre(QPoint(0, 0), QPoint(194, 0), QPoint(0, 212)));
    EXPECT_EQ(flow.size, QSize(558, 636));
}

TEST(TileFlow, NarrowPageHasOneColumn) {
    EXPECT_THAT(flowTiles(all, 364).places,
                ElementsAre(QPoint(0, 0), QPoint(0, 212), QPoint(0, 424)));
}

TEST(TileFlow, LoneLargeStandsAtTheBeginning) {
    EXPECT_THAT(flowTiles({Family::large}, galleryWidth).places, ElementsAre(QPoint(0, 0)));
}

TEST(TileFlow, NothingTakesNoRoom) {
    EXPECT_EQ(flowTiles({}, galleryWidth).size, QSize(0, 0));
}

RC_GTEST_PROP(TileFlow, TilesNeverOverlapAndStayInside, ()) {
    const auto families =
        *rc::gen::container<std::vector<Family>>(rc::gen::elementOf(kit::families));
    const int width = *rc::gen::inRange(364, 1200);
    const TileFlow flow = flowTiles(families, width);
    RC_ASSERT(flow.places.size() == families.size());
    RC_ASSERT(flow.size.width() <= width);
    std::vector<QRect> tiles;
    for (std::size_t i = 0; i < families.size(); ++i) {
        const QRect tile(flow.places[i], windowSize(families[i]) + QSize(0, tileFoot));
        RC_ASSERT(QRect(QPoint(), flow.size).contains(tile));
        for (const QRect& other : tiles) {
            RC_ASSERT(!tile.intersects(other));
        }
        tiles.push_back(tile);
    }
}

}  // namespace
}  // namespace kelmar::desktop
