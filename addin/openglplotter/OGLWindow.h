// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QGLFunctions>
#include <QGLWidget>
#include <QMatrix4x4>
#include <QPoint>
#include <QVector3D>
#include <vector>

#include "openglplotter/Point3d.h"
#include "openglplotter/PreviewPath.h"
#include "openglplotter/ViewNavigation.h"

class QGLShaderProgram;
class QTimer;

/// The preview: shows a program's path with the axes and the tool's marker, lets the user turn, pan
/// and zoom, and moves the marker along the path. Without a valid OpenGL context everything but
/// the drawing works.
class OGLWindow : public QGLWidget, protected QGLFunctions {
    Q_OBJECT

public:
    explicit OGLWindow(QWidget* parent);

public slots:
    /// Loads a whole program and shows its path.
    void ShowGCode(const QString& program);
    void PanDrawing(bool on);
    void ZoomDrawing(bool on);
    /// Goes back to the fitted view; the centre of the last zoom stays.
    void ZoomToFit();
    /// Plays from the start, or goes on after a pause. `speed` is 1 or more.
    void Simulate(int speed);
    void PauseSimulation();
    /// Ends the playback and brings the marker back to the model's origin.
    void StopSimulation();
    /// Takes effect from the next segment on.
    void SimulationSpeed(int value);
    /// Advances the playback by one step; hides the widget's own request to be repainted.
    void update();

signals:
    void StartTimer(double intervalMs);
    /// The program has more points than the view takes; it shows the first `points`.
    void PreviewStopped(qlonglong points);

protected:
    void initializeGL() override;
    void resizeGL(int width, int height) override;
    void paintGL() override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private slots:
    void timeStarted(double intervalMs);

private:
    friend struct OGLWindowState;

    void GetAxesVertices();
    void GetToolVertices();
    void InitVBO(const QString& program);
    void takePath(PreviewPath path);
    void appendFigures();
    void uploadBuffers(const PathList<Color>& pathColors);
    std::vector<Point3d> GetPoint3dFromArray(const std::vector<float>& figure) const;
    static void GetFloatMatrixfromQt(const QMatrix4x4& matrix, float* values);
    float cursorUnits(float pixels) const;
    void CalculateNDC(float x, float y);
    void turnBy(const QPoint& drag, const QPoint& position);
    void panBy(const QPoint& drag);
    void takeSize(int width, int height);
    void advanceModel();
    void uploadMatrix(const QMatrix4x4& matrix);
    void drawRange(GLenum mode, long first, long count);
    ViewState viewState() const;
    long pathSize() const { return m_vectorSize - m_AxesVerticesSize - m_ToolVerticesSize; }
    void Interpolate(const Point3d& from, const Point3d& to);
    double GetDistance(const Point3d& a, const Point3d& b) const;
    void requestFrame();

    bool m_isPan = false;
    bool m_wheelZoom = false;
    float m_translateX = 0;
    float m_translateY = 0;
    float m_xndc = 0;
    float m_yndc = 0;
    float m_width = 0;
    float m_height = 0;
    QMatrix4x4 pMatrix;
    QGLShaderProgram* shaderProgram = nullptr;
    GLuint m_positionBufferObject = 0;
    GLuint m_colorBufferObject = 0;
    QVector3D m_lastMousePositionInModelCoordinate;
    QMatrix4x4 mMatrix;
    long m_vectorSize = 0;
    double alpha = kStartAlphaDeg;
    double beta = kStartBetaDeg;
    double m_scale = 1;
    QPoint lastMousePosition;
    QPoint positionOnWheel;
    float m_min = 0;
    float m_max = 0;
    qreal maxCubeSize = 0;
    float m_minX = 0;
    float m_minY = 0;
    float m_minZ = 0;
    float m_maxX = 0;
    float m_maxY = 0;
    float m_maxZ = 0;
    float m_ratio = 0;
    long m_AxesVerticesSize = 0;
    long m_ToolVerticesSize = 0;
    Point3d m_translatePoint;
    GLuint m_projMatrixLoc = 0;
    GLuint m_PositionAttribLoc = 0;
    GLuint m_ColorAttribLoc = 0;
    bool m_IsPaused = false;
    /// Never set: stopping halts the timer instead.
    bool m_IsStopped = false;
    int m_translateAnimate = 0;
    int m_VerticesIndex = 0;
    /// The path, then the axes, then the marker.
    PathList<Point3d> vertices1;
    QTimer* m_timer;
    std::vector<Point3d> m_interpolatedPoints;
    double m_ndcSegmentLength;
    std::vector<float> m_axesVerticesVector;
    std::vector<float> m_toolVerticesVector;
    int m_sliderValue = 1;
};
