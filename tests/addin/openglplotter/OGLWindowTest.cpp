// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The view's start, its loads and its resizes, with or without OpenGL.
#include "openglplotter/OGLWindow.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QSignalSpy>
#include <limits>

#include "ViewTest.h"
#include "openglplotter/SceneFigures.h"

namespace {

class OGLWindowTest : public ViewTest {
protected:
    QSignalSpy stops{&window, &OGLWindow::PreviewStopped};
};

constexpr long kFigurePoints = 40;

}  // namespace

TEST_F(OGLWindowTest, HasAContextWhereverThereIsADisplay) {
    EXPECT_EQ(window.isValid(), !isPlatformWithoutDrawing());
}

TEST(OGLWindowStart, HasTheFirstValues) {
    OGLWindow window(nullptr);
    const OGLWindowState state(window);
    EXPECT_FALSE(state.isPan);
    EXPECT_FALSE(state.wheelZoom);
    EXPECT_EQ(state.translateX, 0);
    EXPECT_EQ(state.translateY, 0);
    EXPECT_TRUE(state.pMatrix.isIdentity());
    EXPECT_TRUE(state.mMatrix.isIdentity());
    EXPECT_EQ(state.scale, 1);
    EXPECT_EQ(state.width, 0);
    EXPECT_EQ(state.height, 0);
    EXPECT_EQ(state.vectorSize, 0);
    EXPECT_EQ(state.alpha, -30);
    EXPECT_EQ(state.beta, 30);
    EXPECT_EQ(state.stepLength, 0.005);
    EXPECT_EQ(state.sliderValue, 1);
    EXPECT_FALSE(state.isPaused);
    EXPECT_FALSE(state.isStopped);
    EXPECT_EQ(state.translateAnimate, 0);
    EXPECT_EQ(state.verticesIndex, 0);
}

TEST(OGLWindowStart, TracksTheMouseAndOwnsAStoppedTimer) {
    OGLWindow window(nullptr);
    const OGLWindowState state(window);
    EXPECT_TRUE(window.hasMouseTracking());
    EXPECT_EQ(state.timer->parent(), &window);
    EXPECT_FALSE(state.isTicking());
}

TEST(OGLWindowStart, HasTheTwoFigures) {
    OGLWindow window(nullptr);
    const OGLWindowState state(window);
    EXPECT_EQ(state.axesFigure, axesFigure());
    EXPECT_EQ(state.toolFigure, toolFigure());
    EXPECT_EQ(state.axesFigure.size(), 34U * 3);
    EXPECT_EQ(state.toolFigure.size(), 6U * 3);
}

TEST(OGLWindowStart, AViewThatWasNeverShownTakesEveryOperation) {
    OGLWindow window(nullptr);
    const OGLWindowState state(window);
    window.ShowGCode(QString::fromUtf8(kWorkpiece));
    window.PanDrawing(true);
    window.ZoomDrawing(true);
    window.ZoomToFit();
    window.Simulate(1);
    window.update();
    window.PauseSimulation();
    window.SimulationSpeed(3);
    window.StopSimulation();
    EXPECT_EQ(state.maxCubeSize, 100);
    EXPECT_TRUE(state.pMatrix.isIdentity()) << "without a size there is no ratio";
}

TEST_F(OGLWindowTest, TakesItsSizeWhenShown) {
    EXPECT_EQ(state.width, 270);
    EXPECT_EQ(state.height, 270);
    EXPECT_EQ(state.ratio, 1);
    EXPECT_EQ(state.vectorSize, 0);
}

TEST_F(OGLWindowTest, AProgramWithoutMotionStillHasTheFigures) {
    load("G21\nG90\nM30\n");
    EXPECT_EQ(state.vectorSize, kFigurePoints);
    EXPECT_EQ(state.axesSize, 34);
    EXPECT_EQ(state.toolSize, 6);
    EXPECT_EQ(state.pathSize(), 0);
    EXPECT_EQ(state.maxCubeSize, 0);
    EXPECT_TRUE(state.pMatrix.isIdentity());
}

TEST_F(OGLWindowTest, AnEmptyTextIsAProgramWithoutMotion) {
    load("");
    EXPECT_EQ(state.vectorSize, kFigurePoints);
    EXPECT_EQ(state.pathSize(), 0);
}

TEST_F(OGLWindowTest, ThePathComesFirstThenTheAxesThenTheMarker) {
    load("G0 X10 Y20\nG1 X30\nG1 Z-4\n");
    ASSERT_EQ(state.vectorSize, 3 + kFigurePoints);
    ASSERT_EQ(state.vertices.size(), 3 + kFigurePoints);
    EXPECT_EQ(state.pathSize(), 3);
    EXPECT_EQ(state.vertices.at(0), Point3d(10, 20, 0));
    EXPECT_EQ(state.vertices.at(1), Point3d(30, 20, 0));
    EXPECT_EQ(state.vertices.at(2), Point3d(30, 20, -4));
    const std::vector<Point3d> axes = figurePoints(axesFigure(), state.pMatrix, state.ratio);
    const std::vector<Point3d> tool = figurePoints(toolFigure(), state.pMatrix, state.ratio);
    for (int i = 0; i < 34; ++i) {
        EXPECT_EQ(state.vertices.at(3 + i), axes.at(static_cast<std::size_t>(i))) << i;
    }
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(state.vertices.at(37 + i), tool.at(static_cast<std::size_t>(i))) << i;
    }
}

TEST_F(OGLWindowTest, TheExtentsAreThoseOfThePathAndTheOrigin) {
    load("G1 X-10.7 Y5 Z3\nG1 X20.9 Y8 Z-2\n");
    EXPECT_EQ(state.minX, -10.7F);
    EXPECT_EQ(state.maxX, 20.9F);
    EXPECT_EQ(state.minY, 0);
    EXPECT_EQ(state.maxY, 8);
    EXPECT_EQ(state.minZ, -2);
    EXPECT_EQ(state.maxZ, 3);
    EXPECT_EQ(state.min, -10.7F);
    EXPECT_EQ(state.max, 20.9F);
}

TEST_F(OGLWindowTest, TheSceneSizeIsTheLargerSpanWithoutFractions) {
    load("G1 X-10.7\nG1 X20.9\n");
    EXPECT_EQ(state.maxCubeSize, 30);
    load("G1 Y-10.7\nG1 Y20.9\n");
    EXPECT_EQ(state.maxCubeSize, 30);
    load("G1 X3 Y8 Z500\n");
    EXPECT_EQ(state.maxCubeSize, 8) << "Z does not enter";
    load("G1 X0.9 Y0.9\n");
    EXPECT_EQ(state.maxCubeSize, 0);
    EXPECT_TRUE(state.pMatrix.isIdentity());
}

TEST_F(OGLWindowTest, TheProjectionIsTheFittedOne) {
    load("G1 X-10.7\nG1 X20.9\n");
    EXPECT_EQ(state.pMatrix, fittedProjection(30, 1));
}

TEST_F(OGLWindowTest, MixedLineEndsGiveTheSameLinesAndBlankOnesAreSkipped) {
    load("G1 X1\nG1 X2\nG1 X3\nG1 X4\nG1 X5\n");
    const QVector<Point3d> expected = state.vertices.toVector();
    ASSERT_EQ(state.pathSize(), 5);
    load("G1 X1\r\nG1 X2\n\rG1 X3\rG1 X4\nG1 X5");
    EXPECT_EQ(state.vertices.toVector(), expected);
    load("\n\n\r\nG1 X1\r\r\rG1 X2\n\n\rG1 X3\r\n\r\nG1 X4\n\r\n\r\nG1 X5\r");
    EXPECT_EQ(state.vertices.toVector(), expected);
}

TEST_F(OGLWindowTest, ALoadReplacesThePathAndTheExtents) {
    load("G1 X100\nG1 X-100\nG1 Y50\n");
    load("G1 X5\n");
    EXPECT_EQ(state.pathSize(), 1);
    EXPECT_EQ(state.minX, 0);
    EXPECT_EQ(state.maxX, 5);
    EXPECT_EQ(state.maxY, 0);
    EXPECT_EQ(state.maxCubeSize, 5);
}

TEST_F(OGLWindowTest, ALoadStartsWithAFreshInterpreter) {
    load("G91\nG1 X5\n");
    load("X7\nG1 X1\nG1 X1\n");
    ASSERT_EQ(state.pathSize(), 2) << "the first line has no G number to repeat";
    EXPECT_EQ(state.vertices.at(1), Point3d(1, 0, 0)) << "absolute again";
}

TEST_F(OGLWindowTest, ALoadResetsScaleAndModelAndLeavesTheAngles) {
    load(kWorkpiece);
    window.PanDrawing(true);
    drag({100, 100}, {150, 130});
    state.alpha = 77;
    state.beta = -12;
    state.scale = 3;
    load("G1 X10\n");
    EXPECT_EQ(state.scale, 1);
    EXPECT_EQ(state.alpha, 77);
    EXPECT_EQ(state.beta, -12);
    EXPECT_TRUE(state.isPan);
    EXPECT_EQ(state.mMatrix.column(3), QVector4D(0, 0, 0, 1)) << "the pan is gone";
}

TEST_F(OGLWindowTest, AResizeResetsTheProjectionUntilTheNextLoad) {
    load(kWorkpiece);
    ASSERT_FALSE(state.pMatrix.isIdentity());
    window.resize(300, 200);
    QCoreApplication::processEvents();
    EXPECT_TRUE(state.pMatrix.isIdentity());
    EXPECT_EQ(state.width, 300);
    EXPECT_EQ(state.height, 200);
    EXPECT_EQ(state.ratio, 1.5F);
    load(kWorkpiece);
    EXPECT_EQ(state.pMatrix, fittedProjection(100, 1.5));
}

TEST_F(OGLWindowTest, ResetRestoresTheProjectionAfterAResize) {
    load(kWorkpiece);
    window.resize(300, 200);
    QCoreApplication::processEvents();
    window.ZoomToFit();
    EXPECT_EQ(state.pMatrix, fittedProjection(100, 1.5));
}

TEST_F(OGLWindowTest, AHeightOfZeroCountsAsOne) {
    SKIP_WITHOUT_DRAWING();
    window.makeCurrent();
    state.resizeGL(200, 0);
    EXPECT_EQ(state.height, 1);
    EXPECT_EQ(state.ratio, 200);
}

TEST_F(OGLWindowTest, NormalProgramsAreNotReportedAsStopped) {
    load(kWorkpiece);
    load("");
    load("G81 X1 Y1 Z-5 R2\nX2\nX3\n");
    EXPECT_EQ(stops.count(), 0);
}

TEST_F(OGLWindowTest, NumbersThatOverflowCrashNothing) {
    load("G1 X1e39\nG1 X99999999999999999999999999999999999999999999999999 Y-1\nG1 X0 Y0\n");
    window.Simulate(1);
    tick(200);
    window.ZoomToFit();
    window.ZoomDrawing(true);
    turnWheel({10, 20}, 120);
    drag({10, 10}, {50, 60});
    window.StopSimulation();
    EXPECT_EQ(state.vectorSize, state.pathSize() + kFigurePoints);
}

TEST_F(OGLWindowTest, TextThatIsNoProgramCrashesNothing) {
    QString bytes;
    for (char16_t unit = 0; unit < 0x3000; ++unit) {
        bytes.append(QChar(unit));
    }
    bytes.append(QChar(0xD800));  // Half of a pair.
    window.ShowGCode(bytes);
    EXPECT_GE(state.vectorSize, kFigurePoints);
}

TEST(OGLWindowMatrix, IsCopiedColumnByColumn) {
    QMatrix4x4 matrix;
    matrix.translate(7, 8, 9);
    matrix.scale(2, 3, 4);
    float values[16] = {};
    OGLWindowState::GetFloatMatrixfromQt(matrix, values);
    const float expected[16] = {2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 4, 0, 7, 8, 9, 1};
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(values[i], expected[i]) << i;
    }
}

TEST_F(OGLWindowTest, FiguresAreConvertedUnderTheCurrentProjection) {
    load("G1 X10\n");
    const std::vector<Point3d> points = state.GetPoint3dFromArray({1, 1, 1, 5, 5});
    ASSERT_EQ(points.size(), 1U);
    EXPECT_NEAR(points[0].x, 30, 1e-4);
    EXPECT_NEAR(points[0].y, 30, 1e-4);
    EXPECT_NEAR(points[0].z, -40, 1e-4);
}
