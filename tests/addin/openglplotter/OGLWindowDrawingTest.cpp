// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// What reaches OpenGL: buffers and pixels at places that a textbook projection gives.
#include <gtest/gtest.h>

#include <QOpenGLFunctions_1_5>
#include <algorithm>
#include <cmath>

#include "LiteralMatrix.h"
#include "ViewTest.h"
#include "openglplotter/SceneFigures.h"

namespace {

const QRgb kRed = qRgb(179, 0, 0);
const QRgb kGreen = qRgb(0, 255, 0);
const QRgb kWhite = qRgb(255, 255, 255);

class OGLWindowDrawingTest : public ViewTest {
protected:
    template <typename Value>
    std::vector<Value> bufferContents(GLuint name) {
        QOpenGLFunctions_1_5 gl;
        window.makeCurrent();
        gl.initializeOpenGLFunctions();
        gl.glBindBuffer(GL_ARRAY_BUFFER, name);
        GLint bytes = 0;
        gl.glGetBufferParameteriv(GL_ARRAY_BUFFER, GL_BUFFER_SIZE, &bytes);
        std::vector<Value> values(static_cast<std::size_t>(bytes) / sizeof(Value));
        gl.glGetBufferSubData(GL_ARRAY_BUFFER, 0, bytes, values.data());
        return values;
    }

    LiteralMatrix projection() const {
        const double size = state.maxCubeSize;
        return LiteralMatrix::symmetricOrtho(1.5 * size, 1.5 * size, 5 * size);
    }
    LiteralMatrix turn() const {
        return LiteralMatrix::turnAboutY(-state.alpha) * LiteralMatrix::turnAboutX(-state.beta);
    }
    /// The pixel that a point is drawn at.
    static QPoint pixelOf(const LiteralMatrix& matrix, const QVector3D& point) {
        const auto device =
            matrix.map(static_cast<double>(point.x()), static_cast<double>(point.y()),
                       static_cast<double>(point.z()));
        return {static_cast<int>((device[0] + 1) * kSide / 2),
                static_cast<int>((1 - device[1]) * kSide / 2)};
    }
    static bool isNear(const QImage& image, const QPoint& pixel, QRgb color) {
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) {
                const QRgb found = image.pixel(pixel + QPoint(dx, dy));
                const int difference = std::max({std::abs(qRed(found) - qRed(color)),
                                                 std::abs(qGreen(found) - qGreen(color)),
                                                 std::abs(qBlue(found) - qBlue(color))});
                if (difference <= 1) {
                    return true;
                }
            }
        }
        return false;
    }
    static long litPixels(const QImage& image) {
        long count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                count += (image.pixel(x, y) & 0xFFFFFF) != 0 ? 1 : 0;
            }
        }
        return count;
    }
};

}  // namespace

TEST_F(OGLWindowDrawingTest, TheFirstBufferOfAViewHasTheName1) {
    SKIP_WITHOUT_DRAWING();
    EXPECT_EQ(state.positionBuffer, 1U);
    EXPECT_EQ(state.colorBuffer, 2U);
    OGLWindow second(nullptr);
    second.show();
    second.updateGL();
    EXPECT_EQ(OGLWindowState(second).positionBuffer, 1U) << "contexts share no names";
}

TEST_F(OGLWindowDrawingTest, BeforeTheFirstLoadTheViewIsBlack) {
    SKIP_WITHOUT_DRAWING();
    EXPECT_EQ(litPixels(picture()), 0);
}

TEST_F(OGLWindowDrawingTest, TheBuffersHoldPathAxesAndMarkerWithTheirColours) {
    SKIP_WITHOUT_DRAWING();
    load("G0 X10 Y20\nG1 X30\nG1 Z-4\n");
    const auto positions = bufferContents<Point3d>(state.positionBuffer);
    const auto colors = bufferContents<Color>(state.colorBuffer);
    ASSERT_EQ(positions.size(), 43U);
    ASSERT_EQ(colors.size(), 43U);
    EXPECT_TRUE(std::equal(positions.begin(), positions.end(), state.vertices.begin()));
    EXPECT_EQ(colors[0], Color(0.7F, 0, 0, 0));
    EXPECT_EQ(colors[1], Color(0, 1, 0, 0));
    EXPECT_EQ(colors[2], Color(0, 1, 0, 0));
    for (std::size_t i = 3; i < 43; ++i) {
        EXPECT_EQ(colors[i], Color(1, 1, 1, 0)) << i;
    }
}

TEST_F(OGLWindowDrawingTest, AShorterProgramShrinksTheBuffers) {
    SKIP_WITHOUT_DRAWING();
    load(kWorkpiece);
    load("G1 X5\n");
    EXPECT_EQ(bufferContents<Point3d>(state.positionBuffer).size(), 41U);
    EXPECT_EQ(bufferContents<Color>(state.colorBuffer).size(), 41U);
}

TEST_F(OGLWindowDrawingTest, ThePositionBufferUnderAnyOtherNameIsNotFilled) {
    SKIP_WITHOUT_DRAWING();
    load("G1 X5\n");
    state.positionBuffer = 3;
    EXPECT_FALSE(drawsFrame([this] { load(kWorkpiece); }));
    EXPECT_GT(state.vectorSize, 41);
    EXPECT_EQ(bufferContents<Point3d>(1).size(), 41U) << "what was loaded before";
}

TEST_F(OGLWindowDrawingTest, ALoadDrawsAFrame) {
    SKIP_WITHOUT_DRAWING();
    EXPECT_TRUE(drawsFrame([this] { load(kWorkpiece); }));
}

TEST_F(OGLWindowDrawingTest, RapidsAreRedAndFeedsGreenWhereTheProjectionPutsThem) {
    SKIP_WITHOUT_DRAWING();
    load("G0 X-40 Y-30\nG0 X40 Y-30\nG1 X40 Y-30\nG1 X40 Y30 Z10\nG1 X-40 Y20 Z-10\n");
    const QImage image = picture();
    const LiteralMatrix matrix = projection() * turn();
    EXPECT_TRUE(isNear(image, pixelOf(matrix, {-20, -30, 0}), kRed));
    EXPECT_TRUE(isNear(image, pixelOf(matrix, {20, -30, 0}), kRed));
    EXPECT_TRUE(isNear(image, pixelOf(matrix, {40, -15, 2.5F}), kGreen));
    EXPECT_TRUE(isNear(image, pixelOf(matrix, {40, 15, 7.5F}), kGreen));
    EXPECT_TRUE(isNear(image, pixelOf(matrix, {0, 25, 0}), kGreen));
    EXPECT_FALSE(isNear(image, pixelOf(matrix, {0, -10, 0}), kGreen));
    EXPECT_FALSE(isNear(image, pixelOf(matrix, {20, -30, 0}), kGreen));
}

TEST_F(OGLWindowDrawingTest, TheAxesNeitherMoveNorGrowWithPanAndScale) {
    SKIP_WITHOUT_DRAWING();
    load("G0 Z0\nG0 X100\nG0 X0\n");
    const LiteralMatrix matrix = projection() * turn();
    const QVector3D halfwayY(0, 30, 0);  // The Y axis is 0.2 device units, 60 of 300 here.
    const QVector3D halfwayZ(0, 0, -40);
    const auto expectAxes = [&] {
        const QImage image = picture();
        EXPECT_TRUE(isNear(image, pixelOf(matrix, halfwayY * 0.5F), kWhite));
        EXPECT_TRUE(isNear(image, pixelOf(matrix, halfwayZ * 0.5F), kWhite));
    };
    expectAxes();
    window.ZoomDrawing(true);
    turnWheel({200, 200}, 240);
    window.PanDrawing(true);
    drag({100, 100}, {180, 150});
    expectAxes();
}

TEST_F(OGLWindowDrawingTest, TheMarkerStandsAtItsPointTimesTheScale) {
    SKIP_WITHOUT_DRAWING();
    load("G0 X100\nG0 X0\n");
    window.ZoomDrawing(true);
    turnWheel({135, 135}, 120);
    state.translatePoint = {0, 70, 20};
    const auto scale = static_cast<float>(state.scale);
    const QImage image = picture();
    const LiteralMatrix matrix = projection() * turn();
    const QVector3D tip = QVector3D(0, 70, 20) * scale;
    // The shaft of 0.08 / 2.5 * 2 device units is 32 model units long here, against the axes.
    for (const float part : {0.25F, 0.5F, 0.75F}) {
        const QVector3D shaft = tip + QVector3D(0, 0, 32 * part);
        EXPECT_TRUE(isNear(image, pixelOf(matrix, shaft), kWhite)) << part;
    }
    state.translatePoint = {};
    EXPECT_FALSE(isNear(picture(), pixelOf(matrix, tip + QVector3D(0, 0, 16)), kWhite));
}

TEST_F(OGLWindowDrawingTest, AHorizontalNotchBelowZeroMirrorsThePicture) {
    SKIP_WITHOUT_DRAWING();
    load("G1 X0 Y0\nG1 X60 Y80\n");
    state.scale = -1;
    const QImage image = picture();
    const LiteralMatrix matrix = projection() * turn();
    EXPECT_TRUE(isNear(image, pixelOf(matrix, {-45, -60, 0}), kGreen));
    EXPECT_FALSE(isNear(image, pixelOf(matrix, {45, 60, 0}), kGreen));
}

TEST_F(OGLWindowDrawingTest, LoadingANewProgramWithoutMotionTakesTheOldPathAway) {
    SKIP_WITHOUT_DRAWING();
    load("G1 X0 Y0\nG1 X60 Y80\n");
    const LiteralMatrix matrix = projection() * turn();
    ASSERT_TRUE(isNear(picture(), pixelOf(matrix, {45, 60, 0}), kGreen));
    load("M30\n");
    EXPECT_FALSE(isNear(picture(), pixelOf(matrix, {45, 60, 0}), kGreen));
    EXPECT_GT(litPixels(picture()), 0) << "the axes stay";
}

TEST_F(OGLWindowDrawingTest, FramesOfAPlaybackMoveTheMarkerOnly) {
    SKIP_WITHOUT_DRAWING();
    load(kWorkpiece);
    const QImage before = picture();
    window.Simulate(10);
    tick(51);
    EXPECT_EQ(picture(), before) << "the marker still stands at the origin";
    tick(40);
    EXPECT_NE(picture(), before);
    window.StopSimulation();
    EXPECT_EQ(picture(), before);
}
