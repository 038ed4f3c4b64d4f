// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// What the user sees, against pictures that were looked at.
#include <gtest/gtest.h>

#include <QCoreApplication>

#include "PictureComparison.h"
#include "ViewTest.h"

namespace {

class OGLWindowPicturesTest : public ViewTest {
protected:
    void resizeTo(int width, int height) {
        window.resize(width, height);
        QCoreApplication::processEvents();
    }
    void zoomInAtUpperRight() {
        window.ZoomDrawing(true);
        for (int notch = 0; notch < 4; ++notch) {
            turnWheel({190, 90}, 120);
        }
    }
};

}  // namespace

TEST_F(OGLWindowPicturesTest, NothingLoaded) {
    SKIP_WITHOUT_DRAWING();
    EXPECT_TRUE(isLikeBaseline(picture(), "nothing-loaded"));
}

TEST_F(OGLWindowPicturesTest, AxesOnly) {
    SKIP_WITHOUT_DRAWING();
    load("G21\nG90\nM30\n");
    EXPECT_TRUE(isLikeBaseline(picture(), "axes-only"));
}

TEST_F(OGLWindowPicturesTest, RapidsArcsAndDrillCycles) {
    SKIP_WITHOUT_DRAWING();
    load(kWorkpiece);
    EXPECT_TRUE(isLikeBaseline(picture(), "workpiece"));
}

TEST_F(OGLWindowPicturesTest, Turned) {
    SKIP_WITHOUT_DRAWING();
    load(kWorkpiece);
    drag({100, 100}, {65, 140});
    EXPECT_TRUE(isLikeBaseline(picture(), "turned"));
}

TEST_F(OGLWindowPicturesTest, Panned) {
    SKIP_WITHOUT_DRAWING();
    load(kWorkpiece);
    window.PanDrawing(true);
    drag({100, 100}, {160, 70});
    EXPECT_TRUE(isLikeBaseline(picture(), "panned"));
}

TEST_F(OGLWindowPicturesTest, ZoomedAtTheCursor) {
    SKIP_WITHOUT_DRAWING();
    load(kWorkpiece);
    zoomInAtUpperRight();
    EXPECT_TRUE(isLikeBaseline(picture(), "zoomed"));
}

TEST_F(OGLWindowPicturesTest, ResetAfterZoomTurnsAboutTheZoomCentre) {
    SKIP_WITHOUT_DRAWING();
    load(kWorkpiece);
    zoomInAtUpperRight();
    window.ZoomToFit();
    EXPECT_TRUE(isLikeBaseline(picture(), "reset-after-zoom"));
}

TEST_F(OGLWindowPicturesTest, ResetAfterTurningAndPanningIsTheLoadedPictureAgain) {
    SKIP_WITHOUT_DRAWING();
    load(kWorkpiece);
    const QImage loaded = picture();
    drag({100, 100}, {65, 140});
    window.PanDrawing(true);
    drag({100, 100}, {160, 70});
    ASSERT_NE(picture(), loaded);
    window.ZoomToFit();
    EXPECT_EQ(picture(), loaded);
}

TEST_F(OGLWindowPicturesTest, AfterAResizeTheProjectionIsLost) {
    SKIP_WITHOUT_DRAWING();
    load(kWorkpiece);
    resizeTo(360, 240);
    EXPECT_TRUE(isLikeBaseline(picture(), "resized"));
}

TEST_F(OGLWindowPicturesTest, ResetAfterAResizeFitsAgain) {
    SKIP_WITHOUT_DRAWING();
    load(kWorkpiece);
    resizeTo(360, 240);
    window.ZoomToFit();
    EXPECT_TRUE(isLikeBaseline(picture(), "reset-after-resize"));
}

TEST_F(OGLWindowPicturesTest, TheMarkerInTheMiddleOfAPlayback) {
    SKIP_WITHOUT_DRAWING();
    load(kWorkpiece);
    window.Simulate(4);
    tick(70);  // On the lower side, behind the 51 ticks at the origin and the plunge.
    EXPECT_TRUE(isLikeBaseline(picture(), "playing"));
}

TEST_F(OGLWindowPicturesTest, TheMarkerInAZoomedPlayback) {
    SKIP_WITHOUT_DRAWING();
    load(kWorkpiece);
    window.ZoomDrawing(true);
    turnWheel({135, 135}, 120);
    window.Simulate(4);
    tick(130);
    EXPECT_TRUE(isLikeBaseline(picture(), "playing-zoomed"));
}
