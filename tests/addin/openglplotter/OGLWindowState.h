// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <QTimer>

#include "openglplotter/OGLWindow.h"

/// The inside of a view, for tests. Lives no longer than the view.
struct OGLWindowState {
    explicit OGLWindowState(OGLWindow& view) : window(view) {}

    void initializeGL() const { window.initializeGL(); }
    void resizeGL(int w, int h) const { window.resizeGL(w, h); }
    void paintGL() const { window.paintGL(); }
    void Interpolate(const Point3d& from, const Point3d& to) const { window.Interpolate(from, to); }
    double GetDistance(const Point3d& a, const Point3d& b) const {
        return window.GetDistance(a, b);
    }
    std::vector<Point3d> GetPoint3dFromArray(const std::vector<float>& figure) const {
        return window.GetPoint3dFromArray(figure);
    }
    static void GetFloatMatrixfromQt(const QMatrix4x4& matrix, float* values) {
        OGLWindow::GetFloatMatrixfromQt(matrix, values);
    }
    long pathSize() const { return window.pathSize(); }
    bool isTicking() const { return timer->isActive(); }

    OGLWindow& window;
    const bool& isPan = window.m_isPan;
    const bool& wheelZoom = window.m_wheelZoom;
    float& translateX = window.m_translateX;
    float& translateY = window.m_translateY;
    const float& xndc = window.m_xndc;
    const float& yndc = window.m_yndc;
    const float& width = window.m_width;
    const float& height = window.m_height;
    const float& ratio = window.m_ratio;
    const QMatrix4x4& pMatrix = window.pMatrix;
    const QMatrix4x4& mMatrix = window.mMatrix;
    GLuint& positionBuffer = window.m_positionBufferObject;
    const GLuint& colorBuffer = window.m_colorBufferObject;
    QVector3D& center = window.m_lastMousePositionInModelCoordinate;
    const long& vectorSize = window.m_vectorSize;
    double& alpha = window.alpha;
    double& beta = window.beta;
    double& scale = window.m_scale;
    const QPoint& lastMousePosition = window.lastMousePosition;
    const QPoint& positionOnWheel = window.positionOnWheel;
    const float& min = window.m_min;
    const float& max = window.m_max;
    const qreal& maxCubeSize = window.maxCubeSize;
    const float& minX = window.m_minX;
    const float& minY = window.m_minY;
    const float& minZ = window.m_minZ;
    const float& maxX = window.m_maxX;
    const float& maxY = window.m_maxY;
    const float& maxZ = window.m_maxZ;
    const long& axesSize = window.m_AxesVerticesSize;
    const long& toolSize = window.m_ToolVerticesSize;
    Point3d& translatePoint = window.m_translatePoint;
    const bool& isPaused = window.m_IsPaused;
    bool& isStopped = window.m_IsStopped;
    const int& translateAnimate = window.m_translateAnimate;
    const int& verticesIndex = window.m_VerticesIndex;
    const PathList<Point3d>& vertices = window.vertices1;
    QTimer* const& timer = window.m_timer;
    const std::vector<Point3d>& steps = window.m_interpolatedPoints;
    double& stepLength = window.m_ndcSegmentLength;
    const std::vector<float>& axesFigure = window.m_axesVerticesVector;
    const std::vector<float>& toolFigure = window.m_toolVerticesVector;
    const int& sliderValue = window.m_sliderValue;
};
