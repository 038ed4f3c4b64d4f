// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/PathOrder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <list>
#include <random>

#include "LiteralPathOrder.h"
#include "RandomSelection.h"

using GCode::distance;
using GCode::Entity;
using GCode::Point;
using GCode::sortEntities;
using testing::ElementsAre;

namespace {

const Point kOrigin;
const double kInfinity = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

Entity line(const Point& first, const Point& second) {
    return {kxLineType, nullptr, first, second, false};
}

Entity at(kxObjectType_e type, const Point& point) {
    return {type, nullptr, point, {}, false};
}

Entity point(double x, double y) {
    return at(kxPointType, {x, y, 0});
}

/// Sorts from `start` with each entity's place in the list as its object.
std::vector<Entity> sorted(std::vector<Entity> selection, const Point& start = kOrigin) {
    for (std::size_t i = 0; i < selection.size(); ++i) {
        selection[i].object = RandomSelection::objectAt(i);
    }
    return sortEntities(selection, start);
}

std::vector<std::size_t> order(const std::vector<Entity>& path) {
    std::vector<std::size_t> places;
    for (const Entity& entity : path) {
        places.push_back(RandomSelection::indexOf(entity.object));
    }
    return places;
}

bool sameBits(const Point& a, const Point& b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

/// Whether both results hold the same objects in the same order with the same points, bit for bit.
testing::AssertionResult same(const std::vector<Entity>& path, const std::list<Entity>& judge) {
    if (path.size() != judge.size()) {
        return testing::AssertionFailure() << path.size() << " entities, not " << judge.size();
    }
    auto expected = judge.begin();
    for (std::size_t i = 0; i < path.size(); ++i, ++expected) {
        if (path[i].object != expected->object || path[i].type != expected->type) {
            return testing::AssertionFailure()
                   << "place " << i << " holds entity " << RandomSelection::indexOf(path[i].object)
                   << ", not " << RandomSelection::indexOf(expected->object);
        }
        if (!sameBits(path[i].firstPoint, expected->firstPoint) ||
            !sameBits(path[i].secondPoint, expected->secondPoint)) {
            return testing::AssertionFailure() << "the points at place " << i << " differ";
        }
    }
    return testing::AssertionSuccess();
}

/// A contour of lines around a centre, with a hole in the middle.
void addContour(const Point& centre, std::mt19937_64* random, std::vector<Entity>* selection) {
    constexpr int kCorners = 11;
    std::uniform_real_distribution<> radius(2.0, 9.0);
    std::vector<Point> corners;
    for (int corner = 0; corner < kCorners; ++corner) {
        const double angle = 6.25 * corner / kCorners;
        const double r = radius(*random);
        corners.emplace_back(centre.m_x + r * std::cos(angle), centre.m_y + r * std::sin(angle), 0);
    }
    for (std::size_t corner = 0; corner < corners.size(); ++corner) {
        selection->push_back(line(corners[corner], corners[(corner + 1) % corners.size()]));
    }
    selection->push_back(at(kxCircleType, centre));
}

/// Contours in rows, drawn one after the other, as in a sheet of parts.
std::vector<Entity> sheet(const Point& corner, std::size_t count) {
    std::mt19937_64 random(count);
    std::vector<Entity> selection;
    for (int contour = 0; selection.size() < count; ++contour) {
        const int row = contour / 15;
        const double x = corner.m_x + 20.0 * (contour % 15);
        const double y = corner.m_y + 20.0 * row;
        addContour(Point(x, y, 0), &random, &selection);
    }
    selection.resize(count);
    return selection;
}

void compareWithJudge(std::vector<Entity> selection, const Point& start = kOrigin) {
    for (std::size_t i = 0; i < selection.size(); ++i) {
        selection[i].object = RandomSelection::objectAt(i);
    }
    EXPECT_TRUE(same(sortEntities(selection, start),
                     literalPathOrder({selection.begin(), selection.end()}, start)));
}

void compareWithJudge(std::uint64_t seed, int maximumCount) {
    SCOPED_TRACE(testing::Message() << "seed " << seed << ", up to " << maximumCount);
    RandomSelection random(seed);
    const Point start = random.start();
    const int count = static_cast<int>(seed % (static_cast<std::uint64_t>(maximumCount) + 1));
    compareWithJudge(random.entities(count), start);
}

}  // namespace

TEST(PathDistance, IsTheEuclideanDistanceInSpace) {
    EXPECT_EQ(distance(Point(1, 2, 3), Point(3, 5, 9)), 7.0);
    EXPECT_EQ(distance(Point(0, 0, 0), Point(3, 4, 0)), 5.0);
    EXPECT_EQ(distance(Point(0, 0, 2), Point(0, 0, -2)), 4.0);
    EXPECT_EQ(distance(Point(1, 1, 1), Point(1, 1, 1)), 0.0);
}

TEST(PathDistance, OverflowsAndVanishesAsItsSquaresDo) {
    EXPECT_EQ(distance(kOrigin, Point(1e200, 0, 0)), kInfinity);
    EXPECT_EQ(distance(kOrigin, Point(1e-200, 0, 0)), 0.0);
    EXPECT_TRUE(std::isnan(distance(kOrigin, Point(kNaN, 0, 0))));
}

TEST(PathOrder, AnEmptySelectionGivesAnEmptyPath) {
    EXPECT_TRUE(sorted({}).empty());
}

TEST(PathOrder, WalksToTheNearestEntityEachTime) {
    EXPECT_THAT(order(sorted({point(30, 0), point(10, 0), point(20, 0)})), ElementsAre(1, 2, 0));
}

TEST(PathOrder, StartsFromTheGivenPoint) {
    EXPECT_THAT(order(sorted({point(10, 0), point(20, 0), point(30, 0)}, Point(29, 0, 0))),
                ElementsAre(2, 1, 0));
}

TEST(PathOrder, OfTwoEquallyNearPointsTheEarlierComesFirst) {
    EXPECT_THAT(order(sorted({point(3, 4), point(4, 3)})), ElementsAre(0, 1));
    EXPECT_THAT(order(sorted({point(50, 0), point(3, 4), point(4, 3)})), ElementsAre(1, 2, 0));
}

TEST(PathOrder, OfTwoEquallyNearLinesTheLaterComesFirst) {
    EXPECT_THAT(order(sorted({line({5, 0, 0}, {9, 0, 0}), line({3, 4, 0}, {9, 9, 0})})),
                ElementsAre(1, 0));
}

TEST(PathOrder, ALineWinsATieAgainstAnEarlierPointCircleOrArc) {
    for (const auto type : {kxPointType, kxCircleType, kxCircleArcType}) {
        EXPECT_THAT(order(sorted({at(type, {5, 0, 0}), line({3, 4, 0}, {9, 9, 0})})),
                    ElementsAre(1, 0));
    }
}

TEST(PathOrder, APointCircleOrArcLosesATieAgainstAnEarlierLine) {
    for (const auto type : {kxPointType, kxCircleType, kxCircleArcType}) {
        EXPECT_THAT(order(sorted({line({3, 4, 0}, {9, 9, 0}), at(type, {5, 0, 0})})),
                    ElementsAre(0, 1));
    }
}

TEST(PathOrder, DistancesWhoseRootsRoundToTheSameValueAreTies) {
    // The squares differ in the last place, their roots do not.
    const double nearer = 1.0 + 0x1p-52;
    const double other = 0x1p-26;
    ASSERT_LT(nearer * nearer, nearer * nearer + other * other);
    ASSERT_EQ(std::sqrt(nearer * nearer), std::sqrt(nearer * nearer + other * other));
    EXPECT_THAT(order(sorted({point(nearer, other), point(nearer, 0)})), ElementsAre(0, 1));
}

TEST(PathOrder, ALineIsTurnedToBeginAtItsNearerEnd) {
    const auto path = sorted({line({9, 0, 0}, {2, 0, 0})});
    EXPECT_EQ(path[0].firstPoint, Point(2, 0, 0));
    EXPECT_EQ(path[0].secondPoint, Point(9, 0, 0));
    EXPECT_FALSE(path[0].flipPoints);
}

TEST(PathOrder, ALineWithItsFirstEndNearerStaysAsItIs) {
    const auto path = sorted({line({2, 0, 0}, {9, 0, 0})});
    EXPECT_EQ(path[0].firstPoint, Point(2, 0, 0));
    EXPECT_EQ(path[0].secondPoint, Point(9, 0, 0));
}

TEST(PathOrder, ALineWithEquidistantEndsIsTurned) {
    const auto path = sorted({line({3, 4, 0}, {5, 0, 0})});
    EXPECT_EQ(path[0].firstPoint, Point(5, 0, 0));
    EXPECT_EQ(path[0].secondPoint, Point(3, 4, 0));
}

TEST(PathOrder, ALineThatWasCandidateAndLostStaysTurned) {
    // From the origin line 0 is turned to begin at (5,0), then loses against line 1, from whose far
    // end both its ends are equally near: the tie turns it again, back to how it was drawn.
    const auto tie = sorted({line({7, 0, 0}, {5, 0, 0}), line({1, 0, 0}, {6, 3, 0})});
    ASSERT_THAT(order(tie), ElementsAre(1, 0));
    EXPECT_EQ(tie[1].firstPoint, Point(7, 0, 0));
}

TEST(PathOrder, TheWalkGoesOnFromTheFarEndOfALine) {
    EXPECT_THAT(order(sorted({point(2, 1), point(9, 1), line({10, 0, 0}, {1, 0, 0})})),
                ElementsAre(2, 1, 0));
}

TEST(PathOrder, CirclesAndArcsAreOrderedByTheirCentreAndLeftFromThere) {
    for (const auto type : {kxCircleType, kxCircleArcType}) {
        EXPECT_THAT(order(sorted({point(0, 12), at(type, {10, 0, 0}), point(13, 0)})),
                    ElementsAre(1, 2, 0));
    }
}

TEST(PathOrder, TheSecondPointOfWhatIsNoLineDoesNotCount) {
    EXPECT_THAT(order(sorted({point(5, 0), {kxCircleType, nullptr, {9, 0, 0}, {1, 0, 0}, false}})),
                ElementsAre(0, 1));
}

TEST(PathOrder, AnUnsupportedTypeAtTheHeadIsTakenWhenNothingIsNearerThanTheOrigin) {
    for (const auto type : {kxSimpleNoteType, kxEllipseArcType, kxPolyLineType, kxSplineType}) {
        EXPECT_THAT(order(sorted({at(type, {}), point(1, 0)})), ElementsAre(0, 1));
        EXPECT_THAT(order(sorted({at(type, {}), point(0, 0)})), ElementsAre(0, 1));
    }
}

TEST(PathOrder, AnUnsupportedTypeAtTheHeadIsPassedOverForWhatIsNearer) {
    EXPECT_THAT(order(sorted({at(kxPolyLineType, {}), point(7, 0)}, Point(8, 0, 0))),
                ElementsAre(1, 0));
    EXPECT_THAT(order(sorted({at(kxPolyLineType, {}), line({0, 0, 0}, {1, 0, 0})})),
                ElementsAre(1, 0));
}

TEST(PathOrder, AnUnsupportedTypeBehindTheHeadIsNeverChosenByItsDistance) {
    EXPECT_THAT(order(sorted({point(5, 0), at(kxPolyLineType, {}), point(50, 0)})),
                ElementsAre(0, 1, 2));
    EXPECT_THAT(order(sorted({point(5, 0), at(kxPolyLineType, {}), point(6, 0)})),
                ElementsAre(0, 2, 1));
}

TEST(PathOrder, AfterAnUnsupportedTypeTheWalkGoesOnFromTheOrigin) {
    EXPECT_THAT(order(sorted({point(100, 0), at(kxSimpleNoteType, {}), point(205, 0), point(1, 0)},
                             Point(100, 0, 0))),
                ElementsAre(0, 3, 1, 2));
    EXPECT_THAT(
        order(sorted({at(kxSimpleNoteType, {}), point(90, 0), point(2, 0)}, Point(40, 0, 0))),
        ElementsAre(2, 0, 1));
}

TEST(PathOrder, AnUnsupportedTypeStaysInTheListWithItsPoints) {
    const auto path = sorted({at(kxPolyLineType, {}), at(kxSimpleNoteType, {})});
    ASSERT_EQ(path.size(), 2U);
    EXPECT_EQ(path[0].firstPoint, kOrigin);
    EXPECT_EQ(path[0].secondPoint, kOrigin);
}

TEST(PathOrder, BothEndsOfALineAtTheHeadSetTheFirstBar) {
    EXPECT_THAT(order(sorted({line({50, 0, 0}, {5, 0, 0}), point(6, 0)})), ElementsAre(0, 1));
}

TEST(PathOrder, NaNIsNeverNearerAndAHeadWithNaNIsTakenAtOnce) {
    EXPECT_THAT(order(sorted({point(kNaN, 0), point(1, 0), point(2, 0)})), ElementsAre(0, 1, 2));
    EXPECT_THAT(order(sorted({point(3, 0), point(kNaN, 0), point(1, 0)})), ElementsAre(2, 0, 1));
}

TEST(PathOrder, ALineWithOneEndThatIsNoNumberIsReachedByItsSecondEndOnly) {
    const auto bySecond = sorted({point(9, 0), line({kNaN, 0, 0}, {1, 0, 0})});
    EXPECT_THAT(order(bySecond), ElementsAre(1, 0));
    EXPECT_EQ(bySecond[0].firstPoint, Point(1, 0, 0));
    EXPECT_THAT(order(sorted({point(9, 0), line({1, 0, 0}, {kNaN, 0, 0})})), ElementsAre(0, 1));
}

TEST(PathOrder, AHeadLineWhoseFirstEndIsNoNumberIsTakenAtOnceAsItIs) {
    const auto path = sorted({line({kNaN, 0, 0}, {3, 0, 0}), point(1, 0)});
    EXPECT_THAT(order(path), ElementsAre(0, 1));
    EXPECT_EQ(path[0].secondPoint, Point(3, 0, 0));
}

TEST(PathOrder, InfinitelyFarLinesTieWithEachOther) {
    EXPECT_THAT(order(sorted({line({kInfinity, 0, 0}, {kInfinity, 1, 0}),
                              line({0, kInfinity, 0}, {1, kInfinity, 0})})),
                ElementsAre(1, 0));
}

TEST(PathOrder, MatchesTheLiteralWalkForTwelveThousandRandomLists) {
    constexpr std::uint64_t kFirstSeed = 1'000'000;
    for (std::uint64_t seed = kFirstSeed; seed < kFirstSeed + 12'500 && !HasFailure(); ++seed) {
        compareWithJudge(seed, 24);
    }
}

TEST(PathOrder, MatchesTheLiteralWalkForRandomListsOfManyBlocks) {
    constexpr std::uint64_t kFirstSeed = 7'000'000;
    for (std::uint64_t seed = kFirstSeed; seed < kFirstSeed + 250 && !HasFailure(); ++seed) {
        compareWithJudge(seed, 300);
    }
}

TEST(PathOrder, MatchesTheLiteralWalkForALongScatteredList) {
    std::mt19937_64 random(42);
    std::uniform_real_distribution<> anywhere(-500.0, 500.0);
    std::vector<Entity> selection;
    for (std::size_t i = 0; i < 1500; ++i) {
        const Point first(anywhere(random), anywhere(random), 0);
        const Point second(anywhere(random), anywhere(random), 0);
        selection.push_back(i % 3 == 0 ? at(kxPointType, first) : line(first, second));
    }
    compareWithJudge(selection);
}

TEST(PathOrder, MatchesTheLiteralWalkForADrawingOfManyContoursWhereverItLies) {
    for (const Point& corner : {Point(0, 0, 0), Point(4.5e6, -5.2e6, 0), Point(1e15, 3e14, 0)}) {
        compareWithJudge(sheet(corner, 3000));
    }
}

TEST(PathOrder, MatchesTheLiteralWalkWhereTheToolStandsBetweenTheEndsOfLines) {
    // From the middle of each square both ends of its sides are equally far.
    std::vector<Entity> selection;
    for (int square = 0; square < 600; ++square) {
        const int row = square / 25;
        const double x = 10.0 * (square % 25);
        const double y = 10.0 * row;
        selection.push_back(point(x, y));
        const Point corners[] = {{x - 3, y - 3, 0}, {x + 3, y - 3, 0}, {x + 3, y + 3, 0}};
        selection.push_back(line(corners[0], corners[1]));
        selection.push_back(line(corners[2], corners[1]));
    }
    compareWithJudge(selection);
    std::mt19937_64 random(1);
    for (int round = 0; round < 4; ++round) {
        std::shuffle(selection.begin(), selection.end(), random);
        compareWithJudge(selection);
    }
}

TEST(PathOrder, MatchesTheLiteralWalkWhenFarPointsLieBetweenTheContours) {
    for (const double far : {1e16, 1e17, 1e18, 1e30, 1e154, kInfinity, kNaN}) {
        std::vector<Entity> selection = sheet(kOrigin, 1000);
        for (const std::size_t place : {0U, 70U, 71U, 500U, 998U}) {
            selection[place] = at(kxPointType, {far, -far, 0});
        }
        selection[300] = line({far, 0, 0}, {5, 5, 0});
        compareWithJudge(selection);
    }
}
