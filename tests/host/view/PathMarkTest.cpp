// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/PathMark.h"

#include "ViewFixture.h"

namespace {

class PathMarkTest : public ViewFixture {
public:
    QColor colorAt(double x, double y) {
        const QPoint pixel = at(x, y);
        const QImage image = picture();
        return image.pixelColor(pixel * image.width() / view->width());
    }
};

const QColor kRed(178, 0, 0);
const QColor kGreen(0, 255, 0);

PathPiece strip(const QVector<QPointF>& points, const QColor& color) {
    return {QPolygonF(points), color};
}

TEST_F(PathMarkTest, boxHoldsAllPiecesAndThePlace) {
    EXPECT_TRUE(PathMark().box().isEmpty());
    PathMark mark;
    mark.pieces = {strip({{1, 2}, {3, 4}}, kRed), strip({{-5, 0}, {0, 9}}, kGreen)};
    mark.place = QPointF(7, -1);
    const WorldBox box = mark.box();
    EXPECT_EQ(box.minX, -5);
    EXPECT_EQ(box.minY, -1);
    EXPECT_EQ(box.maxX, 7);
    EXPECT_EQ(box.maxY, 9);
}

TEST_F(PathMarkTest, piecesAreShownInTheirColoursUntilTheNextPath) {
    PathMark mark;
    mark.pieces = {strip({{100, 100}, {200, 100}}, kRed), strip({{200, 100}, {200, 200}}, kGreen)};
    const QImage before = picture();
    view->showPath(mark);
    EXPECT_EQ(colorAt(150, 100), kRed);
    EXPECT_EQ(colorAt(200, 150), kGreen);
    view->showPath({});
    EXPECT_EQ(differences(before, picture()), 0);
}

TEST_F(PathMarkTest, aStrokeSeenFromAboveIsAPoint) {
    PathMark mark;
    mark.pieces = {strip({{100, 100}, {100, 100}}, kGreen)};
    const QImage before = picture();
    view->showPath(mark);
    EXPECT_GT(differences(before, picture()), 20);
}

TEST_F(PathMarkTest, aPathInSightLeavesThePartThatIsShown) {
    const double scale = view->transform().scale();
    PathMark mark;
    mark.pieces = {strip({{100, 100}, {200, 100}}, kRed)};
    view->showPath(mark);
    EXPECT_EQ(view->transform().scale(), scale);
    EXPECT_EQ(at(0, 0), QPoint(24, 376));
}

TEST_F(PathMarkTest, aPathOutOfSightIsBroughtIntoSight) {
    PathMark mark;
    mark.pieces = {strip({{5000, 5000}, {5100, 5000}}, kRed)};
    mark.place = QPointF(5100, 5000);
    view->showPath(mark);
    const WorldBox shown = view->transform().visibleBox();
    EXPECT_TRUE(shown.contains(mark.box()));
    EXPECT_LT(shown.width(), 2000) << "near enough to be seen";
    EXPECT_EQ(colorAt(5050, 5000), kRed);
}

TEST_F(PathMarkTest, behindAPathOutOfSightTheNextOneIsShownWhereTheUserLooked) {
    const ViewTransform looked = view->transform();
    PathMark far;
    far.pieces = {strip({{50000, 5000}, {90000, 5000}}, kRed)};
    PathMark near;
    near.pieces = {strip({{100, 100}, {200, 100}}, kGreen)};
    view->showPath(far);
    ASSERT_FALSE(view->transform() == looked);
    view->showPath(near);
    EXPECT_TRUE(view->transform() == looked);
    // Two far ones behind one another come out as each does alone.
    view->showPath(far);
    const ViewTransform once = view->transform();
    view->showPath(far);
    EXPECT_TRUE(view->transform() == once);
}

TEST_F(PathMarkTest, aViewThatTheUserChangedStays) {
    PathMark far;
    far.pieces = {strip({{5000, 5000}, {5100, 5000}}, kRed)};
    view->showPath(far);
    view->zoomOut();
    const ViewTransform own = view->transform();
    view->showPath(far);
    EXPECT_TRUE(view->transform() == own);
}

TEST_F(PathMarkTest, aPathWiderThanTheWindowIsShownWhole) {
    PathMark mark;
    mark.pieces = {strip({{-4000, 0}, {9000, 10}}, kRed)};
    view->showPath(mark);
    EXPECT_TRUE(view->transform().visibleBox().contains(mark.box()));
}

}  // namespace
