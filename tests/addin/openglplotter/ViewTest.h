// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QPoint>
#include <QPointF>
#include <QString>

#include "OGLWindowState.h"
#include "openglplotter/OGLWindow.h"

/// A shown view of 270 x 270 pixels and what a user does to it, through Qt's events.
class ViewTest : public testing::Test {
protected:
    static constexpr int kSide = 270;

    ViewTest();

    void load(const char* program) { window.ShowGCode(QString::fromUtf8(program)); }
    /// With `button` held from one place to the next, then released.
    void drag(const QPoint& from, const QPoint& to, Qt::MouseButton button = Qt::LeftButton);
    void moveWithoutButtons(const QPoint& to);
    /// Turns a vertical wheel by `delta`, 120 a notch.
    bool turnWheel(const QPointF& position, int delta) { return wheel(position, {0, delta}); }
    bool turnHorizontalWheel(const QPointF& position, int delta) {
        return wheel(position, {delta, 0});
    }
    void tick(int times);
    /// What the view draws now, without what is still pending of a pan.
    QImage picture();
    /// Whether a frame is drawn while `act` runs: a frame consumes what is pending of a pan.
    template <typename Action>
    bool drawsFrame(const Action& act) {
        state.translateX = 0.125F;
        act();
        const bool drawn = state.translateX == 0;
        state.translateX = 0;
        return drawn;
    }

    OGLWindow window{nullptr};
    OGLWindowState state{window};

private:
    bool wheel(const QPointF& position, const QPoint& delta);
};

/// Whether this platform has no OpenGL at all; elsewhere a view that can't draw is a failure.
bool isPlatformWithoutDrawing();

#define SKIP_WITHOUT_DRAWING()                                                           \
    if (isPlatformWithoutDrawing()) {                                                    \
        GTEST_SKIP() << "needs pixels, and the platform \"offscreen\" without a display" \
                        " has no OpenGL";                                                \
    }                                                                                    \
    static_assert(true, "")

/// A program with rapids, lines, arcs and two drill cycles; the scene is 100 in size.
extern const char* const kWorkpiece;
