// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/SelectionBox.h"

#include <gtest/gtest.h>

namespace {

ViewTransform someTransform() {
    ViewTransform transform;
    transform.resize({600, 400});
    transform.fit({10, 20, 17, 25});
    return transform;
}

TEST(SelectionBoxTest, directionOnTheScreenTellsTheKind) {
    const ViewTransform transform = someTransform();
    const SelectionBox box(transform.toWorld({100, 100}));
    EXPECT_FALSE(box.isCrossing(transform, {101, 50}));
    EXPECT_FALSE(box.isCrossing(transform, {100, 150})) << "no width";
    EXPECT_TRUE(box.isCrossing(transform, {99, 150}));
}

TEST(SelectionBoxTest, cornersAreInOrderOnTheScreenAndInTheDrawing) {
    const ViewTransform transform = someTransform();
    const SelectionBox box(transform.toWorld({300, 100}));
    const QRectF screen = box.onScreen(transform, {250, 180});
    EXPECT_NEAR(screen.left(), 250, 1e-9);
    EXPECT_NEAR(screen.top(), 100, 1e-9);
    EXPECT_NEAR(screen.width(), 50, 1e-9);
    EXPECT_NEAR(screen.height(), 80, 1e-9);
    const WorldBox world = box.inDrawing(transform, {250, 180});
    EXPECT_NEAR(world.width(), 50 / transform.scale(), 1e-9);
    EXPECT_NEAR(world.height(), 80 / transform.scale(), 1e-9);
}

TEST(SelectionBoxTest, startStaysInTheDrawingWhileTheViewMoves) {
    ViewTransform transform = someTransform();
    const SelectionBox box(transform.toWorld({100, 100}));
    transform.panBy({70, 0});
    EXPECT_TRUE(box.isCrossing(transform, {160, 150}));
    EXPECT_NEAR(box.onScreen(transform, {200, 100}).width(), 30, 1e-9);
}

}  // namespace
