// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The view's playback: the marker moves along the path, one segment after another.
#include <QTimer>

#include "openglplotter/OGLWindow.h"
#include "openglplotter/PlaybackSteps.h"

namespace {

constexpr double kTickMs = 10;

}  // namespace

void OGLWindow::Simulate(int speed) {
    if (m_IsPaused) {
        // The timer never stopped: the next tick goes on where the pause left off.
        m_IsPaused = false;
        return;
    }
    m_IsStopped = false;
    m_IsPaused = false;
    m_sliderValue = speed;
    m_VerticesIndex = 0;
    m_ndcSegmentLength = speed * kStepLengthPerSpeed;
    Interpolate(Point3d(), Point3d());
}

void OGLWindow::PauseSimulation() {
    m_IsPaused = true;
}

void OGLWindow::StopSimulation() {
    Interpolate(Point3d(), Point3d());
    m_IsStopped = false;
    m_IsPaused = false;
    m_timer->stop();
    update();
}

void OGLWindow::SimulationSpeed(int value) {
    const int change = value - m_sliderValue;
    m_sliderValue = value;
    m_ndcSegmentLength = changedStepLength(m_ndcSegmentLength, change);
}

void OGLWindow::update() {
    if (m_IsPaused || m_IsStopped) {
        return;
    }
    if (m_translateAnimate < static_cast<int>(m_interpolatedPoints.size())) {
        const auto index = static_cast<std::size_t>(m_translateAnimate);
        m_translatePoint = modelPointOf(m_interpolatedPoints[index], pMatrix);
        ++m_translateAnimate;
        requestFrame();
        return;
    }
    // The first segment, from vertex 0 to vertex 1, is never played.
    const long end = static_cast<long>(m_VerticesIndex) + 2;
    ++m_VerticesIndex;
    const long count = vertices1.size();
    if (end >= count - m_ToolVerticesSize - m_AxesVerticesSize || end >= count) {
        return;
    }
    Interpolate(vertices1.at(end - 1), vertices1.at(end));
}

void OGLWindow::Interpolate(const Point3d& from, const Point3d& to) {
    m_translateAnimate = 0;
    // So that no tick has to ask for memory; what no segment fills is never used.
    m_interpolatedPoints.reserve(kMostStepPoints);
    segmentSteps({from, to}, pMatrix, m_ndcSegmentLength, &m_interpolatedPoints);
    emit StartTimer(kTickMs);
}

double OGLWindow::GetDistance(const Point3d& a, const Point3d& b) const {
    return deviceDistance(a, b);
}

void OGLWindow::timeStarted(double intervalMs) {
    m_timer->start(static_cast<int>(intervalMs));
}
