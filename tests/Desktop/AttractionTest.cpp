#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "Desktop/Attraction.h"
#include "Desktop/Placement.h"

namespace kelmar::desktop {

namespace {

constexpr QSize medium(364, 170);
constexpr QSize small(170, 170);

/// No length of it is a multiple of the grid's step from any other.
const QRect screen(0, 0, 1366, 765);
/// Where nothing but the grid is near.
constexpr int farFromAll = 600;

struct RestingCase {
    const char* name;
    QPoint wanted;
    QPoint rest;
    std::vector<QRect> others = {};
    QRect visible = screen;
    QPoint gridOrigin = {};
    QSize size = medium;
};

class Resting : public testing::TestWithParam<RestingCase> {};

TEST_P(Resting, IsWhereItShouldBe) {
    const RestingCase& given = GetParam();
    EXPECT_EQ(restingPlace(QRect(given.wanted, given.size),
                           {given.visible, given.gridOrigin, given.others}),
              given.rest);
}

INSTANTIATE_TEST_SUITE_P(
    OnAnEmptyScreen, Resting,
    testing::Values(
        RestingCase{"GridWhereNothingIsNear", {farFromAll + 3, 301}, {farFromAll, 304}},
        RestingCase{"GridStartsAtTheScreensCorner",
                    {2603, 305},
                    {2602, 307},
                    {},
                    QRect(2002, 3, 1366, 765),
                    {2002, 3}},
        RestingCase{"LeftEdge", {7, 301}, {0, 304}}, RestingCase{"LeftMargin", {9, 301}, {16, 304}},
        RestingCase{"MarginFromInside", {26, 301}, {16, 304}},
        RestingCase{"NoLineBeyondItsDistance", {27, 301}, {24, 304}},
        RestingCase{"RightEdge", {1366 - 364 - 6, 301}, {1366 - 364, 304}},
        RestingCase{"RightMargin", {1366 - 364 - 20, 301}, {1366 - 364 - 16, 304}},
        RestingCase{"TopEdge", {farFromAll, 5}, {farFromAll, 0}},
        RestingCase{"BottomMargin", {farFromAll, 765 - 170 - 12}, {farFromAll, 765 - 170 - 16}},
        RestingCase{"MarginOfWhatAPanelLeaves",
                    {farFromAll, 44},
                    {farFromAll, 46},
                    {},
                    QRect(0, 30, 1366, 735)},
        RestingCase{"BeyondTheLeftEdge", {-500, 301}, {0, 304}},
        RestingCase{"BeyondTheBottomRightCorner", {5000, 5000}, {1366 - 364, 765 - 170}},
        RestingCase{"TooLargeForTheScreen", {40, 40}, {0, 0}, {}, QRect(0, 0, 300, 150)}),
    [](const auto& given) { return std::string(given.param.name); });

const QRect other(503, 203, 364, 170);

INSTANTIATE_TEST_SUITE_P(
    BesideAnother, Resting,
    testing::Values(
        RestingCase{
            "RightOfItWithTheUsualGap", {503 + 364 + 9, 207}, {503 + 364 + 16, 203}, {other}},
        RestingCase{"LeftOfItWithTheUsualGap",
                    {503 - 16 - 170 - 8, 207},
                    {503 - 16 - 170, 203},
                    {other},
                    screen,
                    {},
                    small},
        RestingCase{
            "BelowItWithTheUsualGap", {499, 203 + 170 + 22}, {503, 203 + 170 + 16}, {other}},
        RestingCase{"AboveItWithTheUsualGap", {511, 4 + 16}, {503, 203 - 16 - 170}, {other}},
        RestingCase{"LeftEdgesInLineFromAfar", {497, 560}, {503, 560}, {other}},
        RestingCase{"RightEdgesInLine",
                    {503 + 364 - 170 + 5, 560},
                    {503 + 364 - 170, 560},
                    {other},
                    screen,
                    {},
                    small},
        RestingCase{"TopEdgesInLineFromAfar", {96, 209}, {96, 203}, {other}},
        RestingCase{
            "BottomEdgesInLine", {96, 203 + 170 - 170 - 3}, {96, 203}, {other}, screen, {}, small},
        RestingCase{"NoGapBesideOneThatIsFarAbove", {503 + 364 + 13, 560}, {880, 560}, {other}},
        RestingCase{
            "NearestOfSeveralLines", {505, 560}, {506, 560}, {other, QRect(506, 10, 364, 170)}},
        RestingCase{"NoLineThatLeavesTheScreen",
                    {1366 - 364 - 2, 560},
                    {1366 - 364, 560},
                    {QRect(1366 - 364 + 1, 0, 170, 170)}}),
    [](const auto& given) { return std::string(given.param.name); });

QRect anyRect(const QRect& inside, QSize size) {
    return {QPoint(*rc::gen::inRange(inside.left(), inside.right()),
                   *rc::gen::inRange(inside.top(), inside.bottom())),
            size};
}

QSize anySize() {
    return *rc::gen::element(QSize(170, 170), QSize(364, 170), QSize(364, 382));
}

struct AnyDrag {
    QRect wanted;
    Neighbourhood neighbourhood;
};

AnyDrag anyDrag() {
    const QRect geometry(*rc::gen::inRange(-3000, 3000), *rc::gen::inRange(-3000, 3000),
                         *rc::gen::inRange(640, 3000), *rc::gen::inRange(480, 2000));
    const QRect visible =
        geometry.adjusted(0, *rc::gen::inRange(0, 40), 0, -*rc::gen::inRange(0, 40));
    Neighbourhood neighbourhood{visible, geometry.topLeft(), {}};
    const int count = *rc::gen::inRange(0, 6);
    for (int i = 0; i < count; ++i) {
        neighbourhood.others.push_back(anyRect(geometry, anySize()));
    }
    return {anyRect(geometry.adjusted(-500, -500, 500, 500), anySize()), neighbourhood};
}

RC_GTEST_PROP(Attraction, LeavesAllOfTheWidgetVisible, ()) {
    const AnyDrag drag = anyDrag();
    const QPoint rest = restingPlace(drag.wanted, drag.neighbourhood);
    RC_ASSERT(drag.neighbourhood.visible.contains(QRect(rest, drag.wanted.size())));
}

RC_GTEST_PROP(Attraction, NeverMovesAVisibleWidgetFartherThanItsDistance, ()) {
    const AnyDrag drag = anyDrag();
    const QPoint held = clamped(drag.wanted, drag.neighbourhood.visible);
    const QPoint rest = restingPlace(drag.wanted, drag.neighbourhood);
    RC_ASSERT(std::abs(rest.x() - held.x()) <= attractionDistance);
    RC_ASSERT(std::abs(rest.y() - held.y()) <= attractionDistance);
}

RC_GTEST_PROP(Attraction, DoesNotDependOnTheOrderOfTheOthersButForTies, ()) {
    AnyDrag drag = anyDrag();
    const QPoint held = clamped(drag.wanted, drag.neighbourhood.visible);
    const QPoint rest = restingPlace(drag.wanted, drag.neighbourhood);
    std::reverse(drag.neighbourhood.others.begin(), drag.neighbourhood.others.end());
    const QPoint reversed = restingPlace(drag.wanted, drag.neighbourhood);
    // A widget beside another on one axis stays there, as its place on the other axis decides it.
    RC_ASSERT(std::abs(reversed.x() - held.x()) == std::abs(rest.x() - held.x()));
    RC_ASSERT(std::abs(reversed.y() - held.y()) == std::abs(rest.y() - held.y()));
}

RC_GTEST_PROP(Attraction, MovesWithTheScreen, (int right, int down)) {
    const AnyDrag drag = anyDrag();
    const QPoint way(right % 5000, down % 5000);
    Neighbourhood moved{
        drag.neighbourhood.visible.translated(way), drag.neighbourhood.gridOrigin + way, {}};
    for (const QRect& rect : drag.neighbourhood.others) {
        moved.others.push_back(rect.translated(way));
    }
    RC_ASSERT(restingPlace(drag.wanted.translated(way), moved) ==
              restingPlace(drag.wanted, drag.neighbourhood) + way);
}

}  // namespace
}  // namespace kelmar::desktop
