// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "openglplotter/OGLWindow.h"

#include <QGLShaderProgram>
#include <QTimer>
#include <cstring>

#include "openglplotter/PlaybackSteps.h"
#include "openglplotter/SceneFigures.h"

namespace {

constexpr int kPositionFloats = 3;
constexpr int kColorFloats = 4;
/// Buffers are filled only when this is the position buffer's name, the first of a context.
constexpr GLuint kFirstBufferName = 1;

void reportErrors() {
#ifndef NDEBUG
    for (GLenum error = glGetError(); error != GL_NO_ERROR; error = glGetError()) {
        qWarning("OpenGL error 0x%x in the preview", error);
    }
#endif
}

GLsizeiptr bytesOf(qsizetype count, std::size_t size) {
    return static_cast<GLsizeiptr>(count) * static_cast<GLsizeiptr>(size);
}

}  // namespace

OGLWindow::OGLWindow(QWidget* parent)
    : QGLWidget(parent), m_timer(new QTimer(this)), m_ndcSegmentLength(kStepLengthPerSpeed) {
    setMouseTracking(true);
    if (isValid()) {
        makeCurrent();
    }
    connect(this, &OGLWindow::StartTimer, this, &OGLWindow::timeStarted);
    connect(m_timer, &QTimer::timeout, this, &OGLWindow::update);
    GetAxesVertices();
    GetToolVertices();
}

void OGLWindow::GetAxesVertices() {
    m_axesVerticesVector = axesFigure();
}

void OGLWindow::GetToolVertices() {
    m_toolVerticesVector = toolFigure();
}

void OGLWindow::ShowGCode(const QString& program) {
    InitVBO(program);
}

void OGLWindow::InitVBO(const QString& program) {
    if (isValid()) {
        makeCurrent();
    }
    pMatrix.setToIdentity();
    mMatrix.setToIdentity();
    m_scale = 1;
    // The path before makes room first: what a load needs at most is that of one path.
    vertices1 = {};
    PreviewPath path = interpretProgram(QStringView(program));
    PathList<Color> colors = std::move(path.colors);
    const std::optional<PathStop> stop = path.stop;
    takePath(std::move(path));
    if (m_vectorSize > 0 && m_positionBufferObject == kFirstBufferName) {
        uploadBuffers(colors);
        colors = {};
        requestFrame();
    }
    if (stop) {
        emit PreviewStopped(static_cast<qlonglong>(stop->points));
    }
}

void OGLWindow::takePath(PreviewPath path) {
    m_minX = path.extents.minX;
    m_minY = path.extents.minY;
    m_minZ = path.extents.minZ;
    m_maxX = path.extents.maxX;
    m_maxY = path.extents.maxY;
    m_maxZ = path.extents.maxZ;
    m_min = path.extents.min;
    m_max = path.extents.max;
    maxCubeSize = sceneSize({m_minX, m_minY, m_maxX, m_maxY});
    pMatrix = fittedProjection(maxCubeSize, static_cast<double>(m_ratio));
    vertices1 = std::move(path.vertices);
    appendFigures();
}

void OGLWindow::appendFigures() {
    const std::vector<Point3d> axes = GetPoint3dFromArray(m_axesVerticesVector);
    const std::vector<Point3d> tool = GetPoint3dFromArray(m_toolVerticesVector);
    m_AxesVerticesSize = static_cast<long>(axes.size());
    m_ToolVerticesSize = static_cast<long>(tool.size());
    for (const std::vector<Point3d>* figure : {&axes, &tool}) {
        for (const Point3d& point : *figure) {
            vertices1.append(point);
        }
    }
    vertices1.squeeze();
    m_vectorSize = vertices1.size();
}

std::vector<Point3d> OGLWindow::GetPoint3dFromArray(const std::vector<float>& figure) const {
    return figurePoints(figure, pMatrix, m_ratio);
}

void OGLWindow::uploadBuffers(const PathList<Color>& pathColors) {
    glBindBuffer(GL_ARRAY_BUFFER, m_positionBufferObject);
    glBufferData(GL_ARRAY_BUFFER, bytesOf(vertices1.size(), sizeof(Point3d)), vertices1.data(),
                 GL_STATIC_DRAW);
    glBindBuffer(GL_ARRAY_BUFFER, m_colorBufferObject);
    const std::vector<Color> white(static_cast<std::size_t>(m_vectorSize - pathColors.size()),
                                   Color(1, 1, 1, 0));
    const GLsizeiptr pathBytes = bytesOf(pathColors.size(), sizeof(Color));
    const GLsizeiptr whiteBytes = bytesOf(static_cast<qsizetype>(white.size()), sizeof(Color));
    glBufferData(GL_ARRAY_BUFFER, pathBytes + whiteBytes, nullptr, GL_STATIC_DRAW);
    glBufferSubData(GL_ARRAY_BUFFER, 0, pathBytes, pathColors.data());
    glBufferSubData(GL_ARRAY_BUFFER, pathBytes, whiteBytes, white.data());
    // The frames rely on this state and set none of their own.
    glBindBuffer(GL_ARRAY_BUFFER, m_positionBufferObject);
    glEnableVertexAttribArray(m_PositionAttribLoc);
    glVertexAttribPointer(m_PositionAttribLoc, kPositionFloats, GL_FLOAT, GL_FALSE, 0, nullptr);
    glBindBuffer(GL_ARRAY_BUFFER, m_colorBufferObject);
    glEnableVertexAttribArray(m_ColorAttribLoc);
    glVertexAttribPointer(m_ColorAttribLoc, kColorFloats, GL_FLOAT, GL_FALSE, 0, nullptr);
    reportErrors();
}

void OGLWindow::initializeGL() {
    initializeGLFunctions();
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_CULL_FACE);
    glClearColor(0, 0, 0, 1);
    shaderProgram = new QGLShaderProgram(context(), this);
    shaderProgram->addShaderFromSourceFile(QGLShader::Vertex,
                                           QString::fromLatin1(":/gcodeaddin/vshader.glsl"));
    shaderProgram->addShaderFromSourceFile(QGLShader::Fragment,
                                           QString::fromLatin1(":/gcodeaddin/fshader.glsl"));
    shaderProgram->link();
    m_projMatrixLoc = static_cast<GLuint>(shaderProgram->uniformLocation("mvp_matrix"));
    m_PositionAttribLoc = static_cast<GLuint>(shaderProgram->attributeLocation("a_position"));
    m_ColorAttribLoc = static_cast<GLuint>(shaderProgram->attributeLocation("a_color"));
    glGenBuffers(1, &m_positionBufferObject);
    glGenBuffers(1, &m_colorBufferObject);
    reportErrors();
}

void OGLWindow::resizeGL(int width, int height) {
    takeSize(width, height);
    glViewport(0, 0, width, height == 0 ? 1 : height);
}

void OGLWindow::resizeEvent(QResizeEvent* event) {
    QGLWidget::resizeEvent(event);
    if (!isValid()) {
        takeSize(width(), height());
    }
}

void OGLWindow::takeSize(int width, int height) {
    // The fitted projection is lost until the next load or Reset.
    pMatrix.setToIdentity();
    m_width = static_cast<float>(width);
    m_height = static_cast<float>(height == 0 ? 1 : height);
    m_ratio = m_width / m_height;
}

ViewState OGLWindow::viewState() const {
    return {alpha, beta, m_scale, m_translateX, m_translateY, m_lastMousePositionInModelCoordinate};
}

void OGLWindow::advanceModel() {
    mMatrix = nextModelMatrix(mMatrix, pMatrix, viewState());
    m_translateX = 0;
    m_translateY = 0;
}

void OGLWindow::paintGL() {
    initializeGLFunctions();
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    advanceModel();
    shaderProgram->bind();
    uploadMatrix(pMatrix * mMatrix);
    drawRange(GL_LINE_STRIP, 0, pathSize());
    QMatrix4x4 turned = rotationOnly(viewState());
    uploadMatrix(pMatrix * turned);
    drawRange(GL_LINES, pathSize(), m_AxesVerticesSize);
    const auto scaled = [this](float value) {
        return static_cast<float>(m_scale * static_cast<double>(value));
    };
    turned.translate(scaled(m_translatePoint.x), scaled(m_translatePoint.y),
                     scaled(m_translatePoint.z));
    uploadMatrix(pMatrix * turned);
    drawRange(GL_LINES, pathSize() + m_AxesVerticesSize, m_ToolVerticesSize);
    shaderProgram->release();
    reportErrors();
}

void OGLWindow::GetFloatMatrixfromQt(const QMatrix4x4& matrix, float* values) {
    std::memcpy(values, matrix.constData(), 16 * sizeof(float));
}

void OGLWindow::uploadMatrix(const QMatrix4x4& matrix) {
    float values[16];
    GetFloatMatrixfromQt(matrix, values);
    glUniformMatrix4fv(static_cast<GLint>(m_projMatrixLoc), 1, GL_FALSE, values);
}

void OGLWindow::drawRange(GLenum mode, long first, long count) {
    if (count > 0) {
        glDrawArrays(mode, static_cast<GLint>(first), static_cast<GLsizei>(count));
    }
}

void OGLWindow::requestFrame() {
    if (isValid()) {
        updateGL();
    } else {
        // Without a frame the view still has to move as its handlers expect.
        advanceModel();
    }
}
