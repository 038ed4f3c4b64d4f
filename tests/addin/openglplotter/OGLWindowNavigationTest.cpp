// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// Turning, panning and zooming through real events, with or without OpenGL.
#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QTest>

#include "LiteralMatrix.h"
#include "ViewTest.h"

namespace {

class OGLWindowNavigationTest : public ViewTest {
protected:
    OGLWindowNavigationTest() { load(kWorkpiece); }

    /// A move at a position between pixels.
    bool moveTo(const QPointF& position, Qt::MouseButtons buttons) {
        QMouseEvent event(QEvent::MouseMove, position, Qt::NoButton, buttons, Qt::NoModifier);
        event.ignore();
        QApplication::sendEvent(&window, &event);
        return event.isAccepted();
    }
    /// Where a point of the model is on the widget, in pixels from the upper left.
    QPointF shownAt(const QVector3D& point) const {
        const QVector3D device = (state.pMatrix * state.mMatrix).map(point);
        return {(static_cast<double>(device.x()) + 1) * kSide / 2,
                (1 - static_cast<double>(device.y())) * kSide / 2};
    }
    void expectNear(const QPointF& actual, const QPointF& expected) const {
        EXPECT_NEAR(actual.x(), expected.x(), 1e-2);
        EXPECT_NEAR(actual.y(), expected.y(), 1e-2);
    }
    /// Neither turned nor tilted, after a frame.
    void useStraightView() {
        state.alpha = 1;
        state.beta = 0;
        drag({5, 5}, {6, 5});
    }
};

}  // namespace

TEST_F(OGLWindowNavigationTest, DraggingFourHundredPixelsToTheLeftTurnsToTen) {
    drag({410, 100}, {10, 100});
    EXPECT_EQ(state.alpha, 10);
    EXPECT_EQ(state.beta, 30);
}

TEST_F(OGLWindowNavigationTest, ADragTurnsOneDegreeAPixel) {
    drag({100, 100}, {110, 93});
    EXPECT_EQ(state.alpha, 320) << "-30 - 10, brought into the circle";
    EXPECT_EQ(state.beta, 37);
}

TEST_F(OGLWindowNavigationTest, DraggingDownLeavesMinusNinety) {
    drag({100, 10}, {100, 260});
    EXPECT_EQ(state.beta, -90);
    drag({100, 260}, {100, 10});
    EXPECT_EQ(state.beta, 90);
}

TEST_F(OGLWindowNavigationTest, APressOnlyTakesThePosition) {
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, {33, 44});
    EXPECT_EQ(state.lastMousePosition, QPoint(33, 44));
    EXPECT_EQ(state.alpha, -30);
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, {33, 44});
}

TEST_F(OGLWindowNavigationTest, PressesAndMovesAreAccepted) {
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 2), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    press.ignore();
    QApplication::sendEvent(&window, &press);
    EXPECT_TRUE(press.isAccepted());
    EXPECT_TRUE(moveTo({3, 4}, Qt::NoButton));
    EXPECT_TRUE(moveTo({3, 4}, Qt::LeftButton));
}

TEST_F(OGLWindowNavigationTest, OtherButtonsAndPlainMovesTurnNothing) {
    drag({100, 100}, {150, 150}, Qt::RightButton);
    drag({100, 100}, {150, 150}, Qt::MiddleButton);
    moveWithoutButtons({20, 30});
    EXPECT_EQ(state.alpha, -30);
    EXPECT_EQ(state.beta, 30);
    EXPECT_EQ(state.lastMousePosition, QPoint(20, 30));
    EXPECT_FALSE(drawsFrame([this] { moveWithoutButtons({25, 35}); }));
}

TEST_F(OGLWindowNavigationTest, PositionsAreRoundedWithHalvesUp) {
    moveTo({10.5, 20.49}, Qt::NoButton);
    EXPECT_EQ(state.lastMousePosition, QPoint(11, 20));
    moveTo({-10.5, -20.51}, Qt::NoButton);
    EXPECT_EQ(state.lastMousePosition, QPoint(-10, -21));
    state.alpha = 100;
    moveTo({0.5, -21}, Qt::LeftButton);
    EXPECT_EQ(state.alpha, 89) << "from -10 to 1";
}

TEST_F(OGLWindowNavigationTest, TurningStoresTheCursorInDeviceCoordinates) {
    drag({10, 10}, {135, 0});
    EXPECT_EQ(state.xndc, 0);
    EXPECT_EQ(state.yndc, 1);
    drag({10, 10}, {270, 270});
    EXPECT_EQ(state.xndc, 1);
    EXPECT_EQ(state.yndc, -1);
}

TEST_F(OGLWindowNavigationTest, TurningDropsTheCentreOfTheLastZoom) {
    window.ZoomDrawing(true);
    turnWheel({200, 60}, 120);
    ASSERT_NE(state.center, QVector3D());
    drag({100, 100}, {101, 100});
    EXPECT_EQ(state.center, QVector3D());
}

TEST_F(OGLWindowNavigationTest, PanModeShowsItselfInTheCursor) {
    window.PanDrawing(true);
    EXPECT_TRUE(state.isPan);
    EXPECT_EQ(window.cursor().shape(), Qt::SizeAllCursor);
    window.PanDrawing(false);
    EXPECT_FALSE(state.isPan);
    EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(OGLWindowNavigationTest, InPanModeEveryButtonPansWithTheCursorAndNoneTurns) {
    useStraightView();
    window.PanDrawing(true);
    for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        const QPointF before = shownAt({});
        drag({100, 100}, {110, 85}, button);
        expectNear(shownAt({}), before + QPointF(10, -15));
    }
    EXPECT_EQ(state.alpha, 0);
    EXPECT_EQ(state.beta, 0);
}

TEST_F(OGLWindowNavigationTest, InATurnedViewThePanGoesAlongTheModelsTurnedAxes) {
    // The last frame's turn is still in the model matrix when the pan moves it.
    drag({5, 5}, {6, 5});
    window.PanDrawing(true);
    const LiteralMatrix model = LiteralMatrix::of(state.mMatrix);
    const LiteralMatrix projection = LiteralMatrix::of(state.pMatrix);
    ViewState view{state.alpha, state.beta, 1, 2 * 10.0F / kSide, 2 * -15.0F / kSide, {}};
    drag({100, 100}, {110, 85});
    EXPECT_LT(largestDifference(literalModelAfterFrame(model, projection, view), state.mMatrix),
              1e-5);
}

TEST_F(OGLWindowNavigationTest, AFrameConsumesThePanOffset) {
    window.PanDrawing(true);
    drag({100, 100}, {127, 100});
    EXPECT_EQ(state.translateX, 0);
    EXPECT_EQ(state.translateY, 0);
}

TEST_F(OGLWindowNavigationTest, ThePanFollowsTheCursorUnderAnyScale) {
    useStraightView();
    window.ZoomDrawing(true);
    for (int i = 0; i < 4; ++i) {
        turnWheel({135, 135}, 120);
    }
    window.PanDrawing(true);
    const QPointF before = shownAt({10, 10, 0});
    drag({100, 100}, {140, 80});
    expectNear(shownAt({10, 10, 0}), before + QPointF(40, -20));
}

TEST_F(OGLWindowNavigationTest, TwoMovesBeforeAFrameAddTheOffsetToThePixels) {
    SKIP_WITHOUT_DRAWING();
    window.hide();  // No frames.
    window.PanDrawing(true);
    moveTo({0, 0}, Qt::NoButton);
    moveTo({135, 54}, Qt::LeftButton);
    EXPECT_EQ(state.translateX, 1);
    EXPECT_EQ(state.translateY, 2 * 54.0F / 270.0F);
    moveTo({270, 54}, Qt::LeftButton);
    EXPECT_EQ(state.translateX, 2 * (1.0F + 135.0F) / 270.0F);
    EXPECT_EQ(state.translateY, 2 * (2 * 54.0F / 270.0F) / 270.0F);
}

TEST_F(OGLWindowNavigationTest, PanWithoutAButtonDoesNothing) {
    window.PanDrawing(true);
    moveTo({0, 0}, Qt::NoButton);
    EXPECT_FALSE(drawsFrame([this] { moveTo({50, 50}, Qt::NoButton); }));
    EXPECT_EQ(state.lastMousePosition, QPoint(50, 50));
}

TEST_F(OGLWindowNavigationTest, WithWheelZoomOffTheWheelChangesNothing) {
    const QMatrix4x4 model = state.mMatrix;
    turnWheel({200, 60}, 120);
    turnHorizontalWheel({200, 60}, 120);
    EXPECT_EQ(state.scale, 1);
    EXPECT_EQ(state.center, QVector3D());
    EXPECT_EQ(state.positionOnWheel, QPoint());
    EXPECT_EQ(state.mMatrix, model);
    EXPECT_FALSE(drawsFrame([this] { turnWheel({200, 60}, 120); }));
}

TEST_F(OGLWindowNavigationTest, ZoomDrawingChangesNothingButTheMode) {
    const Qt::CursorShape cursor = window.cursor().shape();
    EXPECT_FALSE(drawsFrame([this] { window.ZoomDrawing(true); }));
    EXPECT_TRUE(state.wheelZoom);
    EXPECT_EQ(window.cursor().shape(), cursor);
    window.ZoomDrawing(false);
    EXPECT_FALSE(state.wheelZoom);
}

TEST_F(OGLWindowNavigationTest, ANotchOfTheWheelChangesTheScaleByThreeTenths) {
    window.ZoomDrawing(true);
    EXPECT_TRUE(turnWheel({200.5, 60.2}, 120));
    EXPECT_EQ(state.scale, 1 + static_cast<double>(0.3F));
    EXPECT_EQ(state.positionOnWheel, QPoint(201, 60));
    EXPECT_EQ(state.xndc, static_cast<float>(201 / 135.0 - 1));
    EXPECT_EQ(state.yndc, static_cast<float>(210 / 135.0 - 1));
}

TEST_F(OGLWindowNavigationTest, AVerticalNotchNeverGoesToZeroOrBelow) {
    window.ZoomDrawing(true);
    state.scale = 0.2;
    turnWheel({135, 135}, -120);
    EXPECT_EQ(state.scale, 0.01);
}

TEST_F(OGLWindowNavigationTest, AHorizontalNotchHasTheOtherSignAndNoGuard) {
    window.ZoomDrawing(true);
    state.scale = 0.2;
    turnHorizontalWheel({135, 135}, 120);
    EXPECT_EQ(state.scale, 0.2 - static_cast<double>(0.3F));
    turnHorizontalWheel({135, 135}, -240);
    EXPECT_GT(state.scale, 0);
}

TEST_F(OGLWindowNavigationTest, SmallDeltasAreTruncated) {
    window.ZoomDrawing(true);
    turnWheel({135, 135}, 7);
    EXPECT_EQ(state.scale, 1);
    turnWheel({135, 135}, -15);
    EXPECT_EQ(state.scale, 1 + static_cast<double>(-0.02F));
}

TEST_F(OGLWindowNavigationTest, TheWheelKeepsTheModelPointUnderTheCursor) {
    useStraightView();
    window.ZoomDrawing(true);
    const QPointF cursor(201, 77);
    turnWheel(cursor, 120);
    const QVector3D point = state.center;
    expectNear(shownAt(point), cursor);
    turnWheel(cursor, 240);
    expectNear(shownAt(point), cursor);
    const QPointF other(40, 222);
    turnWheel(other, -120);
    expectNear(shownAt(state.center), other);
}

TEST_F(OGLWindowNavigationTest, InATurnedViewTheFootOfTheZoomCentreStaysPut) {
    drag({5, 5}, {6, 5});
    window.ZoomDrawing(true);
    const QMatrix4x4 before = state.pMatrix * state.mMatrix;
    turnWheel({201, 77}, 120);
    const QVector3D foot(state.center.x(), state.center.y(), 0);
    const QVector3D old = before.map(foot);
    const QVector3D now = (state.pMatrix * state.mMatrix).map(foot);
    EXPECT_LT((now - old).length(), 1e-4F);
}

TEST_F(OGLWindowNavigationTest, ResetRestoresScaleAnglesAndMatricesButNotTheZoomCentre) {
    drag({100, 100}, {140, 120});
    window.ZoomDrawing(true);
    turnWheel({200, 60}, 360);
    const QVector3D center = state.center;
    ASSERT_NE(center, QVector3D());
    window.ZoomToFit();
    EXPECT_EQ(state.scale, 1);
    EXPECT_EQ(state.alpha, -30);
    EXPECT_EQ(state.beta, 30);
    EXPECT_EQ(state.pMatrix, fittedProjection(100, 1));
    EXPECT_EQ(state.center, center);
    ViewState view;
    view.center = center;
    EXPECT_EQ(state.mMatrix, nextModelMatrix(QMatrix4x4(), state.pMatrix, view))
        << "the frame turns about the old centre";
}

TEST_F(OGLWindowNavigationTest, ResetLeavesThePendingPanToTheFrame) {
    state.translateX = 0.5F;
    window.ZoomToFit();
    ViewState view;
    view.panX = 0.5F;
    EXPECT_EQ(state.mMatrix, nextModelMatrix(QMatrix4x4(), state.pMatrix, view));
}

TEST_F(OGLWindowNavigationTest, WhatChangesTheViewAsksForAFrame) {
    window.ZoomDrawing(true);
    EXPECT_TRUE(drawsFrame([this] { window.ZoomToFit(); }));
    EXPECT_TRUE(drawsFrame([this] { turnWheel({9, 9}, 120); }));
    moveTo({0, 0}, Qt::NoButton);
    EXPECT_TRUE(drawsFrame([this] { moveTo({5, 5}, Qt::LeftButton); }));
}
