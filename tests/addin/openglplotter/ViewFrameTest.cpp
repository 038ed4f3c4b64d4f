// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The matrices of a frame, against a textbook version in double precision.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "LiteralMatrix.h"
#include "openglplotter/ViewNavigation.h"

namespace {

constexpr double kTolerance = 2e-5;

class RandomViews {
public:
    explicit RandomViews(unsigned seed) : m_random(seed) {}

    double number(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(m_random);
    }

    ViewState view() {
        ViewState view;
        view.alphaDeg = number(-30, 360);
        view.betaDeg = number(-90, 90);
        view.scale = number(0.1, 6);
        view.panX = static_cast<float>(number(-1, 1));
        view.panY = static_cast<float>(number(-1, 1));
        view.center = {static_cast<float>(number(-80, 80)), static_cast<float>(number(-80, 80)),
                       static_cast<float>(number(-80, 80))};
        return view;
    }

private:
    std::mt19937 m_random;
};

ViewState straightView() {
    ViewState view;
    view.alphaDeg = 0;
    view.betaDeg = 0;
    return view;
}

}  // namespace

TEST(LiteralMatrixItself, TheInverseTimesTheMatrixIsTheIdentity) {
    const LiteralMatrix matrix = LiteralMatrix::translation(3, -4, 5) *
                                 LiteralMatrix::turnAboutY(33) * LiteralMatrix::turnAboutX(-71) *
                                 LiteralMatrix::symmetricOrtho(10, 20, 30);
    EXPECT_LT(largestDifference(matrix * matrix.inverse(), QMatrix4x4()), 1e-12);
}

TEST(FittedProjection, ShowsOneAndAHalfScenesToEachSideAndFiveDeep) {
    const QMatrix4x4 projection = fittedProjection(30, 2);
    EXPECT_LT(largestDifference(LiteralMatrix::symmetricOrtho(90, 45, 150), projection), 1e-7);
    EXPECT_EQ(projection.map(QVector3D(90, 45, -150)), QVector3D(1, 1, 1));
    EXPECT_EQ(projection.map(QVector3D(-90, -45, 150)), QVector3D(-1, -1, -1));
}

TEST(FittedProjection, IsTheOneOfRandomScenes) {
    RandomViews random(3);
    for (int i = 0; i < 2000; ++i) {
        const double size = std::floor(random.number(1, 5000));
        const double ratio = random.number(0.1, 10);
        const LiteralMatrix literal =
            LiteralMatrix::symmetricOrtho(1.5 * size * ratio, 1.5 * size, 5 * size);
        ASSERT_LT(largestDifference(literal, fittedProjection(size, ratio)), 1e-7);
    }
}

TEST(FittedProjection, StaysTheIdentityForASceneOrARatioOfZero) {
    EXPECT_TRUE(fittedProjection(0, 1).isIdentity());
    EXPECT_TRUE(fittedProjection(30, 0).isIdentity());
}

TEST(NextModelMatrix, IsTheLiteralOneOverRandomFrames) {
    RandomViews random(4);
    for (int run = 0; run < 500; ++run) {
        const double size = random.number(1, 300);
        const QMatrix4x4 projection = fittedProjection(size, random.number(0.3, 3));
        QMatrix4x4 model;
        for (int frame = 0; frame < 8; ++frame) {
            const ViewState view = random.view();
            const LiteralMatrix literal = literalModelAfterFrame(
                LiteralMatrix::of(model), LiteralMatrix::of(projection), view);
            model = nextModelMatrix(model, projection, view);
            ASSERT_LT(largestDifference(literal, model), kTolerance)
                << "run " << run << ", frame " << frame;
        }
    }
}

TEST(NextModelMatrix, OnlyTheTranslationComesFromEarlierFrames) {
    const QMatrix4x4 projection = fittedProjection(30, 1);
    ViewState turned;
    turned.alphaDeg = 77;
    turned.scale = 3;
    const QMatrix4x4 after = nextModelMatrix(QMatrix4x4(), projection, turned);
    const QMatrix4x4 next = nextModelMatrix(after, projection, straightView());
    EXPECT_LT(largestDifference(LiteralMatrix::identity(), next), 1e-6);
}

TEST(NextModelMatrix, TheStartViewTurnsThirtyDegreesAboutYAndThenMinusThirtyAboutX) {
    const QMatrix4x4 model = nextModelMatrix(QMatrix4x4(), fittedProjection(30, 1), ViewState());
    const LiteralMatrix expected = LiteralMatrix::turnAboutY(30) * LiteralMatrix::turnAboutX(-30);
    EXPECT_LT(largestDifference(expected, model), 1e-6);
}

TEST(NextModelMatrix, APanMovesTheModelWithTheCursor) {
    const QMatrix4x4 projection = fittedProjection(30, 1);
    ViewState view = straightView();
    view.panX = 0.5F;
    view.panY = 0.25F;  // Downwards on the screen.
    const QMatrix4x4 model = nextModelMatrix(QMatrix4x4(), projection, view);
    const QVector3D origin = (projection * model).map(QVector3D());
    EXPECT_NEAR(origin.x(), 0.5, 1e-6);
    EXPECT_NEAR(origin.y(), -0.25, 1e-6);
}

TEST(NextModelMatrix, APanUnderAScaleMovesByTheSameDistanceOnTheScreen) {
    const QMatrix4x4 projection = fittedProjection(30, 1);
    ViewState view = straightView();
    view.scale = 4;
    QMatrix4x4 model = nextModelMatrix(QMatrix4x4(), projection, view);
    view.panX = 0.5F;
    model = nextModelMatrix(model, projection, view);
    EXPECT_NEAR((projection * model).map(QVector3D()).x(), 0.5, 1e-6);
}

TEST(NextModelMatrix, AFrameWithoutChangesDrawsTheSameAgain) {
    RandomViews random(5);
    const QMatrix4x4 projection = fittedProjection(50, 1.5);
    for (int i = 0; i < 200; ++i) {
        ViewState view = random.view();
        view.panX = view.panY = 0;
        const QMatrix4x4 first = nextModelMatrix(QMatrix4x4(), projection, view);
        // The first frame after a change of angles moves the model; from then on it stands.
        const QMatrix4x4 second = nextModelMatrix(first, projection, view);
        ASSERT_LT(largestDifference(LiteralMatrix::of(first), second), kTolerance);
    }
}

TEST(ModelPointAt, IsTheInverseOfProjectionTimesModelOverRandomViews) {
    RandomViews random(6);
    for (int i = 0; i < 1000; ++i) {
        const QMatrix4x4 projection = fittedProjection(random.number(1, 300), 1.2);
        const QMatrix4x4 model = nextModelMatrix(QMatrix4x4(), projection, random.view());
        const double x = random.number(-1, 1);
        const double y = random.number(-1, 1);
        const QVector3D point = modelPointAt({x, y}, model, projection);
        const auto back = (LiteralMatrix::of(projection) * LiteralMatrix::of(model))
                              .map(static_cast<double>(point.x()), static_cast<double>(point.y()),
                                   static_cast<double>(point.z()));
        ASSERT_NEAR(back[0], x, 1e-4);
        ASSERT_NEAR(back[1], y, 1e-4);
        ASSERT_NEAR(back[2], 0, 1e-4);
    }
}

TEST(ModelPointAt, StaysUnderTheCursorWhileTheScaleChangesInAStraightView) {
    RandomViews random(7);
    const QMatrix4x4 projection = fittedProjection(40, 1);
    for (int run = 0; run < 100; ++run) {
        ViewState view = straightView();
        QMatrix4x4 model = nextModelMatrix(QMatrix4x4(), projection, view);
        for (int notch = 0; notch < 5; ++notch) {
            const QPointF cursor(random.number(-1, 1), random.number(-1, 1));
            view.scale = zoomedByVerticalWheel(view.scale, notch == 2 ? -120 : 120);
            view.center = modelPointAt(cursor, model, projection);
            model = nextModelMatrix(model, projection, view);
            const QVector3D shown = (projection * model).map(view.center);
            ASSERT_NEAR(static_cast<double>(shown.x()), cursor.x(), 1e-5);
            ASSERT_NEAR(static_cast<double>(shown.y()), cursor.y(), 1e-5);
        }
    }
}

TEST(ModelPointAt, InATurnedViewTheFootOfTheCentreInTheXyPlaneStaysPut) {
    // The frame moves by the centre's X and Y only, so its foot at Z 0 is the fixed point.
    RandomViews random(8);
    const QMatrix4x4 projection = fittedProjection(40, 1);
    for (int run = 0; run < 200; ++run) {
        ViewState view = random.view();
        view.panX = view.panY = 0;
        view.center = QVector3D();
        QMatrix4x4 model = nextModelMatrix(QMatrix4x4(), projection, view);
        const QVector3D center =
            modelPointAt({random.number(-1, 1), random.number(-1, 1)}, model, projection);
        const QVector3D foot(center.x(), center.y(), 0);
        const QVector3D before = (projection * model).map(foot);
        view.scale = zoomedByVerticalWheel(view.scale, 120);
        view.center = center;
        model = nextModelMatrix(model, projection, view);
        const QVector3D after = (projection * model).map(foot);
        ASSERT_LT((after - before).length(), 1e-4F);
    }
}

TEST(RotationOnly, HasNeitherTranslationNorScale) {
    RandomViews random(9);
    for (int i = 0; i < 500; ++i) {
        const ViewState view = random.view();
        const LiteralMatrix expected =
            LiteralMatrix::turnAboutY(-view.alphaDeg) * LiteralMatrix::turnAboutX(-view.betaDeg);
        ASSERT_LT(largestDifference(expected, rotationOnly(view)), 1e-5);
    }
}
