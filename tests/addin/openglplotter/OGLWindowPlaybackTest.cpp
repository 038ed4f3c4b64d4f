// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The playback, tick by tick, with or without OpenGL.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>

#include "SegmentSteps.h"
#include "ViewTest.h"
#include "openglplotter/PlaybackSteps.h"

namespace {

constexpr int kFirstTicks = 51;
/// Four vertices in a scene of size 30.
const char* const kFourPoints = "G1 X10 Y0\nG1 X20 Y0\nG1 X20 Y30\nG1 X0 Y30\n";

class OGLWindowPlaybackTest : public ViewTest {
protected:
    OGLWindowPlaybackTest() { load(kFourPoints); }

    void expectMarkerAt(float x, float y, float z) const {
        EXPECT_NEAR(state.translatePoint.x, x, 1e-4);
        EXPECT_NEAR(state.translatePoint.y, y, 1e-4);
        EXPECT_NEAR(state.translatePoint.z, z, 1e-4);
    }
    /// Plays on until the steps at hand are used up.
    void tickToSegmentEnd() { tick(static_cast<int>(state.steps.size()) - state.translateAnimate); }
    std::size_t stepsFrom(const Point3d& from, const Point3d& to, double stepLength) const {
        return segmentSteps(from, to, state.pMatrix, stepLength).size();
    }
};

}  // namespace

TEST_F(OGLWindowPlaybackTest, PlayFillsFiftyOneStepsAtTheOriginAndStartsTheTimer) {
    window.Simulate(1);
    EXPECT_EQ(state.steps, std::vector<Point3d>(kFirstTicks));
    EXPECT_EQ(state.translateAnimate, 0);
    EXPECT_TRUE(state.isTicking());
    EXPECT_EQ(state.timer->interval(), 10);
}

TEST_F(OGLWindowPlaybackTest, EverySegmentAsksForTheTimer) {
    const QSignalSpy starts(&window, &OGLWindow::StartTimer);
    window.Simulate(1);
    ASSERT_EQ(starts.count(), 1);
    EXPECT_EQ(starts.at(0).at(0).toDouble(), 10.0);
    state.timer->stop();
    tick(kFirstTicks + 1);
    EXPECT_EQ(starts.count(), 2);
    EXPECT_TRUE(state.isTicking());
}

TEST_F(OGLWindowPlaybackTest, TheTimersIntervalIsTruncatedToWholeMilliseconds) {
    emit window.StartTimer(12.9);
    EXPECT_EQ(state.timer->interval(), 12);
}

TEST_F(OGLWindowPlaybackTest, TheFirst51TicksShowTheMarkerAtTheModelsOrigin) {
    state.translatePoint = {7, 8, 9};
    window.Simulate(1);
    for (int i = 1; i <= kFirstTicks; ++i) {
        tick(1);
        ASSERT_EQ(state.translatePoint, Point3d()) << "tick " << i;
        ASSERT_EQ(state.translateAnimate, i);
        ASSERT_EQ(state.verticesIndex, 0);
    }
}

TEST_F(OGLWindowPlaybackTest, TheTickThatStartsASegmentShowsNoMovement) {
    window.Simulate(1);
    tick(kFirstTicks);
    EXPECT_FALSE(drawsFrame([this] { tick(1); }));
    EXPECT_EQ(state.verticesIndex, 1);
    EXPECT_EQ(state.translateAnimate, 0);
    EXPECT_EQ(state.translatePoint, Point3d());
}

TEST_F(OGLWindowPlaybackTest, ATickThatMovesTheMarkerAsksForAFrame) {
    window.Simulate(1);
    EXPECT_TRUE(drawsFrame([this] { tick(1); }));
}

TEST_F(OGLWindowPlaybackTest, TheFirstSegmentIsNeverAnimated) {
    window.Simulate(1);
    tick(kFirstTicks + 2);
    expectMarkerAt(20, 0, 0);  // Vertex 1, not vertex 0.
}

TEST_F(OGLWindowPlaybackTest, TheSegmentsArePlayedInOrderUpToTheLastVertex) {
    window.Simulate(2);
    tick(kFirstTicks + 1);
    ASSERT_EQ(state.steps.size(), stepsFrom({20, 0, 0}, {20, 30, 0}, 0.01));
    tick(1);
    expectMarkerAt(20, 0, 0);
    tickToSegmentEnd();
    EXPECT_NEAR(state.translatePoint.y, 30, 0.5);
    tick(2);
    expectMarkerAt(20, 30, 0);
    EXPECT_EQ(state.steps.size(), stepsFrom({20, 30, 0}, {0, 30, 0}, 0.01));
    tickToSegmentEnd();
    EXPECT_NEAR(state.translatePoint.x, 0, 0.5);
    EXPECT_NEAR(state.translatePoint.y, 30, 1e-4);
}

TEST_F(OGLWindowPlaybackTest, EveryStepIsTheNextPointMappedBackIntoTheModel) {
    window.Simulate(5);
    tick(kFirstTicks + 1);
    const std::vector<Point3d> steps =
        segmentSteps({20, 0, 0}, {20, 30, 0}, state.pMatrix, 5 * 0.005);
    for (const Point3d& step : steps) {
        tick(1);
        ASSERT_EQ(state.translatePoint, modelPointOf(step, state.pMatrix));
    }
}

TEST_F(OGLWindowPlaybackTest, AtTheEndTheTicksAreIdle) {
    window.Simulate(10);
    tick(2000);
    const Point3d last = state.translatePoint;
    const std::vector<Point3d> steps = state.steps;
    EXPECT_FALSE(drawsFrame([this] { tick(1000); }));
    EXPECT_EQ(state.translatePoint, last);
    EXPECT_EQ(state.steps, steps);
    EXPECT_NEAR(last.x, 0, 2.5);
    EXPECT_NEAR(last.y, 30, 1e-4);
}

TEST_F(OGLWindowPlaybackTest, APathOfTwoVerticesIsNeverAnimated) {
    load("G1 X10\nG1 X20\n");
    window.Simulate(1);
    for (int i = 0; i < 500; ++i) {
        tick(1);
        ASSERT_EQ(state.translatePoint, Point3d());
    }
    EXPECT_EQ(state.steps.size(), static_cast<std::size_t>(kFirstTicks));
}

TEST_F(OGLWindowPlaybackTest, WithoutAProgramTheMarkerStandsAtTheOrigin) {
    OGLWindow empty(nullptr);
    const OGLWindowState inside(empty);
    empty.Simulate(1);
    for (int i = 0; i < 200; ++i) {
        empty.update();
        ASSERT_EQ(inside.translatePoint, Point3d());
    }
    EXPECT_EQ(inside.steps.size(), static_cast<std::size_t>(kFirstTicks));
}

TEST_F(OGLWindowPlaybackTest, ASegmentWithEqualEndsIs51TicksWithoutMovement) {
    load("G1 X10\nG1 X20\nG1 X20\nG1 X0\n");
    window.Simulate(1);
    tick(kFirstTicks + 1);
    ASSERT_EQ(state.steps.size(), static_cast<std::size_t>(kFirstTicks));
    for (int i = 0; i < kFirstTicks; ++i) {
        tick(1);
        expectMarkerAt(20, 0, 0);
    }
    tick(1);
    EXPECT_GT(state.steps.size(), static_cast<std::size_t>(kFirstTicks));
}

TEST_F(OGLWindowPlaybackTest, PauseStopsTheMovementAndNotTheTimer) {
    window.Simulate(1);
    tick(kFirstTicks + 5);
    const Point3d place = state.translatePoint;
    const int step = state.translateAnimate;
    window.PauseSimulation();
    EXPECT_TRUE(state.isPaused);
    EXPECT_FALSE(drawsFrame([this] { tick(100); }));
    EXPECT_EQ(state.translatePoint, place);
    EXPECT_EQ(state.translateAnimate, step);
    EXPECT_TRUE(state.isTicking());
}

TEST_F(OGLWindowPlaybackTest, PlayAfterPauseResumesFromTheSameStep) {
    window.Simulate(4);
    tick(kFirstTicks + 5);
    const int step = state.translateAnimate;
    const int segment = state.verticesIndex;
    const std::vector<Point3d> steps = state.steps;
    window.PauseSimulation();
    tick(10);
    window.Simulate(9);
    EXPECT_FALSE(state.isPaused);
    EXPECT_EQ(state.translateAnimate, step);
    EXPECT_EQ(state.verticesIndex, segment);
    EXPECT_EQ(state.steps, steps);
    EXPECT_EQ(state.sliderValue, 4) << "the value of a resume isn't taken";
    EXPECT_EQ(state.stepLength, 4 * 0.005);
    tick(1);
    EXPECT_EQ(state.translateAnimate, step + 1);
    EXPECT_EQ(state.translatePoint,
              modelPointOf(steps.at(static_cast<std::size_t>(step)), state.pMatrix));
}

TEST_F(OGLWindowPlaybackTest, PauseWhileIdleThenPlayOnlyClearsTheFlag) {
    window.PauseSimulation();
    window.Simulate(3);
    EXPECT_FALSE(state.isPaused);
    EXPECT_FALSE(state.isTicking());
    EXPECT_TRUE(state.steps.empty());
    EXPECT_EQ(state.sliderValue, 1);
    window.Simulate(3);
    EXPECT_TRUE(state.isTicking());
    EXPECT_EQ(state.sliderValue, 3);
}

TEST_F(OGLWindowPlaybackTest, StopBringsTheMarkerToTheOriginAndHaltsTheTimer) {
    window.Simulate(1);
    tick(kFirstTicks + 20);
    ASSERT_NE(state.translatePoint, Point3d());
    EXPECT_TRUE(drawsFrame([this] { window.StopSimulation(); }));
    EXPECT_EQ(state.translatePoint, Point3d());
    EXPECT_FALSE(state.isTicking());
    EXPECT_FALSE(state.isPaused);
    EXPECT_FALSE(state.isStopped);
    EXPECT_EQ(state.translateAnimate, 1);
    EXPECT_EQ(state.steps, std::vector<Point3d>(kFirstTicks));
}

TEST_F(OGLWindowPlaybackTest, PlayAfterStopBeginsFromTheStart) {
    window.Simulate(1);
    tick(kFirstTicks + 200);
    window.StopSimulation();
    window.Simulate(2);
    EXPECT_EQ(state.verticesIndex, 0);
    EXPECT_EQ(state.translateAnimate, 0);
    tick(kFirstTicks + 2);
    expectMarkerAt(20, 0, 0);
}

TEST_F(OGLWindowPlaybackTest, PauseThenStopThenPlayBeginsFromTheStart) {
    window.Simulate(1);
    tick(kFirstTicks + 20);
    window.PauseSimulation();
    window.StopSimulation();
    EXPECT_EQ(state.translatePoint, Point3d());
    EXPECT_FALSE(state.isPaused);
    EXPECT_FALSE(state.isTicking());
    window.Simulate(1);
    EXPECT_TRUE(state.isTicking());
    EXPECT_EQ(state.verticesIndex, 0);
    EXPECT_EQ(state.translateAnimate, 0);
}

TEST_F(OGLWindowPlaybackTest, StopWithoutPlayIsHarmless) {
    window.StopSimulation();
    EXPECT_FALSE(state.isTicking());
    EXPECT_EQ(state.translatePoint, Point3d());
}

TEST_F(OGLWindowPlaybackTest, PlayDuringPlayBeginsFromTheStart) {
    window.Simulate(1);
    tick(kFirstTicks + 20);
    window.Simulate(2);
    EXPECT_EQ(state.verticesIndex, 0);
    EXPECT_EQ(state.translateAnimate, 0);
    EXPECT_EQ(state.stepLength, 0.01);
}

TEST_F(OGLWindowPlaybackTest, TheSpeedChangesTheStepLength) {
    window.Simulate(4);
    EXPECT_DOUBLE_EQ(state.stepLength, 0.02);
    window.SimulationSpeed(10);
    EXPECT_DOUBLE_EQ(state.stepLength, 0.05);
    EXPECT_EQ(state.sliderValue, 10);
    window.SimulationSpeed(1);
    EXPECT_NEAR(state.stepLength, 0.005, 1e-15);
    EXPECT_EQ(state.sliderValue, 1);
}

TEST_F(OGLWindowPlaybackTest, ANewSpeedTakesEffectFromTheNextSegment) {
    window.Simulate(1);
    tick(kFirstTicks + 3);
    const std::vector<Point3d> steps = state.steps;
    const int step = state.translateAnimate;
    window.SimulationSpeed(10);
    EXPECT_EQ(state.steps, steps);
    EXPECT_EQ(state.translateAnimate, step);
    tickToSegmentEnd();
    tick(1);
    EXPECT_EQ(state.steps.size(), stepsFrom({20, 30, 0}, {0, 30, 0}, 0.05));
}

TEST_F(OGLWindowPlaybackTest, ANegativeStepLengthStartsAgainFromTheLowest) {
    state.stepLength = -0.01;
    window.SimulationSpeed(3);
    EXPECT_DOUBLE_EQ(state.stepLength, 0.005 + 2 * 0.005);
}

TEST_F(OGLWindowPlaybackTest, TheStoppedFlagHaltsTheTicks) {
    window.Simulate(1);
    state.isStopped = true;
    tick(10);
    EXPECT_EQ(state.translateAnimate, 0);
    window.Simulate(1);
    EXPECT_FALSE(state.isStopped);
    tick(1);
    EXPECT_EQ(state.translateAnimate, 1);
}

TEST_F(OGLWindowPlaybackTest, LoadingDuringPlaybackKeepsItsState) {
    window.Simulate(3);
    tick(kFirstTicks + 5);
    const int step = state.translateAnimate;
    const std::vector<Point3d> steps = state.steps;
    const Point3d place = state.translatePoint;
    load("G1 X1\nG1 X2\nG1 X3\nG1 X50\nG1 X60 Y7\n");
    EXPECT_EQ(state.translateAnimate, step);
    EXPECT_EQ(state.verticesIndex, 1);
    EXPECT_EQ(state.steps, steps);
    EXPECT_EQ(state.translatePoint, place);
    EXPECT_TRUE(state.isTicking());
    EXPECT_FALSE(state.isPaused);
    EXPECT_EQ(state.sliderValue, 3);
    tickToSegmentEnd();
    tick(2);
    expectMarkerAt(3, 0, 0);  // On with segment 2 of the new path.
}

TEST_F(OGLWindowPlaybackTest, LoadingAShorterProgramDuringPlaybackEndsTheMovement) {
    window.Simulate(10);
    tick(kFirstTicks + 5);
    load("G1 X1\n");
    tickToSegmentEnd();
    const Point3d place = state.translatePoint;
    tick(100);
    EXPECT_EQ(state.translatePoint, place);
}

TEST_F(OGLWindowPlaybackTest, LoadingWhilePausedKeepsThePause) {
    window.Simulate(1);
    window.PauseSimulation();
    load(kWorkpiece);
    EXPECT_TRUE(state.isPaused);
}

TEST_F(OGLWindowPlaybackTest, ASegmentOfAnyLengthNeitherHangsNorGrows) {
    load("G1 X1\nG1 X2\nG1 X1e30\nG1 X3\n");
    window.Simulate(1);
    window.resize(200, 200);  // The projection is the identity: the segment is 1e30 long.
    QCoreApplication::processEvents();
    state.timer->stop();
    state.Interpolate({2, 0, 0}, {1e30F, 0, 0});
    EXPECT_LE(state.steps.size(), 84000U);
    EXPECT_GE(state.steps.size(), 78000U);
}

TEST_F(OGLWindowPlaybackTest, TheDistanceIsTheOneIn3d) {
    EXPECT_EQ(state.GetDistance({1, 2, 3}, {3, 5, 9}), 7);
}

TEST_F(OGLWindowPlaybackTest, TheTimerReallyRuns) {
    window.Simulate(1);
    EXPECT_TRUE(QTest::qWaitFor([this] { return state.translateAnimate >= 3; }, 30000));
    window.StopSimulation();
    const int step = state.translateAnimate;
    QTest::qWait(50);
    EXPECT_EQ(state.translateAnimate, step);
}
