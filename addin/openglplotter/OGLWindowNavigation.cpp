// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The view's handlers of mouse and wheel, and its view buttons.
#include <QMouseEvent>
#include <QWheelEvent>
#include <cstdlib>

#include "openglplotter/OGLWindow.h"

void OGLWindow::PanDrawing(bool on) {
    m_isPan = on;
    setCursor(on ? Qt::SizeAllCursor : Qt::ArrowCursor);
}

void OGLWindow::ZoomDrawing(bool on) {
    m_wheelZoom = on;
}

void OGLWindow::ZoomToFit() {
    mMatrix.setToIdentity();
    m_scale = 1;
    alpha = kStartAlphaDeg;
    beta = kStartBetaDeg;
    pMatrix = fittedProjection(maxCubeSize, static_cast<double>(m_ratio));
    requestFrame();
}

/// Cursor positions count in units of which a screen of high resolution has several pixels in one.
float OGLWindow::cursorUnits(float pixels) const {
    return pixels / static_cast<float>(devicePixelRatioF());
}

void OGLWindow::CalculateNDC(float x, float y) {
    m_xndc = deviceCoordinate(x, cursorUnits(m_width));
    m_yndc = deviceCoordinate(y, cursorUnits(m_height));
}

void OGLWindow::mousePressEvent(QMouseEvent* event) {
    lastMousePosition = roundedPosition(event->localPos());
    event->accept();
}

void OGLWindow::mouseMoveEvent(QMouseEvent* event) {
    const QPoint position = roundedPosition(event->localPos());
    const QPoint drag = position - lastMousePosition;
    if ((event->buttons() & Qt::LeftButton) != 0 && !m_isPan) {
        turnBy(drag, position);
    }
    const Qt::MouseButtons anyButton = Qt::LeftButton | Qt::RightButton | Qt::MiddleButton;
    if (m_isPan && (event->buttons() & anyButton) != 0) {
        panBy(drag);
    }
    lastMousePosition = position;
    event->accept();
}

void OGLWindow::turnBy(const QPoint& drag, const QPoint& position) {
    alpha = turnedAlpha(alpha, drag.x());
    beta = tiltedBeta(beta, drag.y());
    CalculateNDC(static_cast<float>(position.x()),
                 cursorUnits(m_height) - static_cast<float>(position.y()));
    // Turning is about the model's origin: the centre of the last zoom is dropped.
    m_lastMousePositionInModelCoordinate = QVector3D();
    requestFrame();
}

void OGLWindow::panBy(const QPoint& drag) {
    m_translateX = pannedOffset(m_translateX, drag.x(), cursorUnits(m_width));
    m_translateY = pannedOffset(m_translateY, drag.y(), cursorUnits(m_height));
    requestFrame();
}

void OGLWindow::wheelEvent(QWheelEvent* event) {
    if (!m_wheelZoom) {
        event->ignore();
        return;
    }
    const QPoint turn = event->angleDelta();
    const QPoint position = roundedPosition(event->position());
    positionOnWheel = position;
    m_scale = std::abs(turn.x()) > std::abs(turn.y()) ? zoomedByHorizontalWheel(m_scale, turn.x())
                                                      : zoomedByVerticalWheel(m_scale, turn.y());
    event->accept();
    CalculateNDC(static_cast<float>(position.x()),
                 cursorUnits(m_height) - static_cast<float>(position.y()));
    m_lastMousePositionInModelCoordinate =
        modelPointAt({static_cast<double>(m_xndc), static_cast<double>(m_yndc)}, mMatrix, pMatrix);
    requestFrame();
}
