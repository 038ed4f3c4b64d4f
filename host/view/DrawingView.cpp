// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/DrawingView.h"

#include <algorithm>
#include <cmath>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPen>
#include <QWheelEvent>

#include "view/SceneData.h"

namespace {

/// How far from an object a click still means it, in logical pixels: five, however the way to the
/// drawing rounds.
constexpr double kPickDistance = 5.001;
constexpr double kZoomStep = 1.25;
/// What one notch of a wheel turns.
constexpr double kWheelNotch = 120;
constexpr double kArrowPart = 0.1;
/// The hover is looked for at most this often.
constexpr int kHoverMs = 10;
constexpr int kBoxFillAlpha = 48;
constexpr double kPointMark = 6;
/// When more objects than this change, all is painted again.
constexpr std::size_t kMostParts = 200;
/// How far a mark or a bold line reaches beyond its object, in pixels.
constexpr double kReach = 6;
/// What of the drawing is shown around a short path, in pixels.
constexpr double kPathSurroundings = 150;

}  // namespace

DrawingView::DrawingView(const kxHostDocument_ptr& document, QWidget* parent)
    : QWidget(parent), m_document(document), m_scene(*document) {
    setObjectName("drawingView");
    setAccessibleName(tr("Drawing"));
    setFocusPolicy(Qt::StrongFocus);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
    markSelected();
    zoomToFit();
}

DrawingView::~DrawingView() = default;

void DrawingView::reload() {
    m_scene = DrawingScene(*m_document);
    markSelected();
    clearHovered();
    m_frame.invalidate();
    transformChanged();
}

void DrawingView::showSelected(const std::vector<kxObject_ptr>& objects) {
    m_selection = objects;
    const std::vector<bool> before = m_selected;
    markSelected();
    repaintChanged(before);
}

void DrawingView::markSelected() {
    m_selected.assign(m_scene.objects().size(), false);
    for (const kxObject_ptr& object : m_selection) {
        if (const auto index = m_scene.indexOf(object.get())) {
            m_selected[*index] = true;
        }
    }
}

void DrawingView::repaintChanged(const std::vector<bool>& before) {
    std::vector<std::size_t> changed;
    for (std::size_t i = 0; i < m_selected.size(); ++i) {
        if (m_selected[i] != before[i]) {
            changed.push_back(i);
        }
    }
    if (changed.size() > kMostParts) {
        m_frame.invalidate();
    } else {
        for (const std::size_t object : changed) {
            m_frame.invalidate(frameOf(object));
        }
    }
    update();
}

QRectF DrawingView::frameOf(std::size_t object) const {
    const WorldBox& box = m_scene.data().outlines.boxes[object];
    const QPointF topLeft = m_frame.base().toScreen({box.minX, box.maxY});
    const QPointF bottomRight = m_frame.base().toScreen({box.maxX, box.minY});
    // Letters reach beyond the box of a text by less than their height.
    const double reach = kReach + (bottomRight.y() - topLeft.y()) / 2;
    return QRectF(topLeft, bottomRight).adjusted(-reach, -reach, reach, reach);
}

void DrawingView::setOptions(const CanvasOptions& options) {
    m_options = options;
    m_frame.invalidate();
    update();
}

void DrawingView::zoomToFit() {
    m_transform.resize(size());
    m_transform.fit(m_scene.extents());
    startFrame();
}

void DrawingView::zoomTo(const WorldBox& box) {
    m_transform.fit(box, 0);
    startFrame();
}

void DrawingView::zoomIn() {
    zoomAt(QRectF(rect()).center(), kZoomStep);
}

void DrawingView::zoomOut() {
    zoomAt(QRectF(rect()).center(), 1 / kZoomStep);
}

void DrawingView::startZoomWindow() {
    m_box.reset();
    setMode(Mode::ZoomWindow);
}

void DrawingView::startPoints(int count) {
    m_box.reset();
    m_pointCount = count;
    m_points.clear();
    setMode(count > 0 ? Mode::Points : Mode::Select);
}

void DrawingView::panBy(const QPointF& delta) {
    m_frame.panBy(delta);
    followFrame();
}

void DrawingView::zoomAt(const QPointF& position, double factor) {
    m_transform.zoomAt(position, factor);
    startFrame();
}

void DrawingView::followFrame() {
    m_transform = m_frame.transform();
    // At the limits of what a transform shows it does not follow.
    const QPointF corner = m_transform.toScreen(m_frame.base().toWorld({0, 0})) - m_frame.shift();
    if (corner.manhattanLength() > 0.5) {
        m_frame.start(m_transform, devicePixelRatioF());
    }
    transformChanged();
}

void DrawingView::startFrame() {
    m_frame.start(m_transform, devicePixelRatioF());
    transformChanged();
}

void DrawingView::transformChanged() {
    update();
    lookForHovered();
    if (m_cursor) {
        Q_EMIT cursorMoved(m_transform.toWorld(*m_cursor));
    }
}

void DrawingView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!m_painted) {
        zoomToFit();
    }
}

void DrawingView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (!m_painted) {
        // A window finds its size while it is shown for the first time.
        zoomToFit();
        return;
    }
    m_frame.resize(size());
    followFrame();
}

void DrawingView::paintEvent(QPaintEvent* event) {
    m_painted = true;
    if (m_frame.devicePixelRatio() != devicePixelRatioF()) {
        m_frame.start(m_transform, devicePixelRatioF());
    }
    QPainter painter(this);
    const CanvasPainter canvas(m_scene, m_frame.base(), m_options);
    m_frame.draw(&painter, event->rect(),
                 [&](QPainter* tile, const QRectF& part) { canvas.paint(tile, part, m_selected); });
    paintOverlay(&painter);
}

void DrawingView::showPath(const PathMark& path) {
    m_path = path;
    bringIntoSight(path.box());
    update();
}

void DrawingView::bringIntoSight(const WorldBox& box) {
    if (box.isEmpty()) {
        return;
    }
    // From what the user looked at, not from where the path before lay.
    if (m_viewBeforePath && m_transform == m_viewOfPath) {
        m_transform = *m_viewBeforePath;
        startFrame();
    }
    m_viewBeforePath.reset();
    if (m_transform.visibleBox().contains(box)) {
        return;
    }
    m_viewBeforePath = m_transform;
    WorldBox wanted = box;
    // Among its neighbours rather than as large as the window.
    const double around =
        std::max({box.width(), box.height(), kPathSurroundings / m_transform.scale()});
    wanted.add(box.center() + QPointF(around, around));
    wanted.add(box.center() - QPointF(around, around));
    zoomTo(wanted);
    m_viewOfPath = m_transform;
}

void DrawingView::paintOverlay(QPainter* painter) const {
    if (!m_path.isEmpty()) {
        m_path.paint(painter, m_transform, CanvasColors::of(m_options.canvas).background);
    }
    if (m_hovered) {
        CanvasPainter(m_scene, m_transform, m_options).paintHovered(painter, *m_hovered);
    }
    if (m_box && m_cursor) {
        paintBox(painter);
    }
    if (!m_points.isEmpty()) {
        paintPoints(painter);
    }
}

void DrawingView::paintPoints(QPainter* painter) const {
    QPolygonF corners;
    for (const QPointF& point : m_points) {
        corners.append(m_transform.toScreen(point));
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(CanvasColors::of(m_options.canvas).hovered, 1));
    for (const QPointF& corner : corners) {
        const QPointF right(kPointMark, 0);
        const QPointF down(0, kPointMark);
        painter->drawLine(corner - right, corner + right);
        painter->drawLine(corner - down, corner + down);
    }
    if (m_mode == Mode::Points && m_cursor) {
        corners.append(*m_cursor);
    }
    painter->drawPolyline(corners);
    painter->restore();
}

void DrawingView::paintBox(QPainter* painter) const {
    const CanvasColors colors = CanvasColors::of(m_options.canvas);
    const bool isCrossing = m_mode == Mode::Select && m_box->isCrossing(m_transform, *m_cursor);
    const QColor color = isCrossing ? colors.crossingBox : colors.windowBox;
    QColor fill = color;
    fill.setAlpha(kBoxFillAlpha);
    QPen pen(color, 0);
    if (isCrossing) {
        pen.setDashPattern({5, 4});
    }
    // By device pixels, so that the outline is sharp.
    const double ratio = devicePixelRatioF();
    const QRectF box = m_box->onScreen(m_transform, *m_cursor);
    const QRect pixels((box.topLeft() * ratio).toPoint(), (box.size() * ratio).toSize());
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->scale(1 / ratio, 1 / ratio);
    painter->fillRect(pixels, fill);
    painter->setPen(pen);
    painter->drawRect(pixels);
    painter->restore();
}

void DrawingView::setMode(Mode mode) {
    m_mode = mode;
    clearHovered();
    lookForHovered();
    update();
    Q_EMIT hintChanged(hint());
}

QString DrawingView::hint() const {
    if (m_mode == Mode::Points) {
        return tr("Point %1 of %2").arg(m_points.size() + 1).arg(m_pointCount);
    }
    if (m_mode == Mode::ZoomWindow) {
        return m_box ? tr("Zoom window: opposite corner") : tr("Zoom window: first corner");
    }
    return {};
}

void DrawingView::mousePressEvent(QMouseEvent* event) {
    m_cursor = event->localPos();
    switch (event->button()) {
        case Qt::LeftButton:
            pressLeft(event->localPos(), event->modifiers());
            break;
        case Qt::MiddleButton:
            m_panFrom = event->localPos();
            setCursor(Qt::ClosedHandCursor);
            break;
        case Qt::RightButton:
            pressRight();
            break;
        default:
            event->ignore();
    }
}

void DrawingView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) {
        zoomToFit();
        return;
    }
    // The second of two fast clicks is a click.
    mousePressEvent(event);
}

void DrawingView::mouseMoveEvent(QMouseEvent* event) {
    const QPointF position = event->localPos();
    m_cursor = position;
    if (m_panFrom) {
        const QPointF delta = position - *m_panFrom;
        m_panFrom = position;
        panBy(delta);
        return;
    }
    if (m_press && !m_box &&
        (position - *m_press).manhattanLength() >= QApplication::startDragDistance()) {
        openBox(*m_press);
    }
    if (m_box || m_mode == Mode::Points) {
        update();
    }
    lookForHovered();
    Q_EMIT cursorMoved(m_transform.toWorld(position));
}

void DrawingView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) {
        endPan();
    } else if (event->button() == Qt::LeftButton) {
        releaseLeft(event->localPos(), event->modifiers());
    }
}

bool DrawingView::event(QEvent* event) {
    if (event->type() == QEvent::WindowDeactivate) {
        // A dialog that comes up in the middle of a drag takes the release of the button.
        m_press.reset();
        endPan();
    }
    return QWidget::event(event);
}

void DrawingView::endPan() {
    if (m_panFrom) {
        m_panFrom.reset();
        setCursor(Qt::CrossCursor);
        lookForHovered();
    }
}

void DrawingView::pressLeft(const QPointF& position, Qt::KeyboardModifiers modifiers) {
    if (m_mode != Mode::Points) {
        clearPoints();
    }
    if (m_mode == Mode::Points) {
        givePoint(position);
    } else if (m_box) {
        finishBox(position, modifiers);
    } else {
        m_press = position;
    }
}

void DrawingView::releaseLeft(const QPointF& position, Qt::KeyboardModifiers modifiers) {
    if (!m_press) {
        return;
    }
    const QPointF pressed = *m_press;
    m_press.reset();
    m_cursor = position;
    if (m_box) {
        finishBox(position, modifiers);
        return;
    }
    const auto object = m_mode == Mode::Select ? objectAt(pressed) : std::nullopt;
    if (object) {
        editSelection({*object}, modifiers);
    } else {
        openBox(pressed);
    }
}

void DrawingView::openBox(const QPointF& position) {
    m_box.emplace(m_transform.toWorld(position));
    clearHovered();
    update();
    if (m_mode != Mode::Select) {
        Q_EMIT hintChanged(hint());
    }
}

void DrawingView::finishBox(const QPointF& position, Qt::KeyboardModifiers modifiers) {
    const bool isCrossing = m_box->isCrossing(m_transform, position);
    const WorldBox box = m_box->inDrawing(m_transform, position);
    const QSizeF pixels = m_box->onScreen(m_transform, position).size();
    if (m_mode == Mode::ZoomWindow && std::max(pixels.width(), pixels.height()) < 2) {
        return;  // A second click at the same place shows nothing: the corner is still asked for.
    }
    m_box.reset();
    update();
    lookForHovered();
    if (m_mode == Mode::ZoomWindow) {
        zoomTo(box);
        setMode(Mode::Select);
        return;
    }
    editSelection(isCrossing ? m_scene.crossing(box) : m_scene.contained(box), modifiers);
}

void DrawingView::editSelection(const std::vector<std::size_t>& objects,
                                Qt::KeyboardModifiers modifiers) {
    std::vector<kxObject_ptr> result;
    result.reserve(objects.size());
    for (const std::size_t object : objects) {
        result.push_back(m_scene.objects()[object]);
    }
    const bool isRemoved = modifiers.testFlag(Qt::ShiftModifier);
    if (!result.empty()) {
        Q_EMIT selectionEdited(result, isRemoved ? SelectionEdit::Remove : SelectionEdit::Add);
    }
}

void DrawingView::givePoint(const QPointF& position) {
    const QPointF point = m_transform.toWorld(position);
    m_points.append(point);
    // The mode first: who is told of the last point may start the next mode.
    setMode(m_points.size() < m_pointCount ? Mode::Points : Mode::Select);
    Q_EMIT pointGiven(point);
}

void DrawingView::pressRight() {
    if (m_press) {
        // In the middle of a drag it takes the drag back.
        m_press.reset();
        endGesture();
        return;
    }
    confirm();
}

void DrawingView::confirm() {
    if (m_mode != Mode::Select) {
        endGesture();
        return;
    }
    endGesture();
    Q_EMIT confirmed();
}

void DrawingView::clearPoints() {
    if (!m_points.isEmpty()) {
        m_points.clear();
        update();
    }
}

bool DrawingView::endGesture() {
    clearPoints();
    const bool hadBox = m_box.has_value();
    m_box.reset();
    m_press.reset();
    if (m_mode != Mode::Select) {
        setMode(Mode::Select);
        return true;
    }
    if (hadBox) {
        update();
        lookForHovered();
    }
    return hadBox;
}

void DrawingView::wheelEvent(QWheelEvent* event) {
    const double notches = event->angleDelta().y() / kWheelNotch;
    if (notches != 0) {
        m_cursor = event->position();
        zoomAt(event->position(), std::pow(kZoomStep, notches));
    }
    event->accept();
}

void DrawingView::keyPressEvent(QKeyEvent* event) {
    const Qt::KeyboardModifiers held =
        event->modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier | Qt::ShiftModifier);
    if (held != Qt::NoModifier || !pressKey(event->key())) {
        QWidget::keyPressEvent(event);
    }
}

bool DrawingView::pressKey(int key) {
    switch (key) {
        case Qt::Key_Space:
        case Qt::Key_Home:
            zoomToFit();
            return true;
        case Qt::Key_Plus:
            zoomIn();
            return true;
        case Qt::Key_Minus:
            zoomOut();
            return true;
        // The arrows move the view over the drawing, so the drawing goes the other way.
        case Qt::Key_Left:
            panBy({width() * kArrowPart, 0});
            return true;
        case Qt::Key_Right:
            panBy({-width() * kArrowPart, 0});
            return true;
        case Qt::Key_Up:
            panBy({0, height() * kArrowPart});
            return true;
        case Qt::Key_Down:
            panBy({0, -height() * kArrowPart});
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            confirm();
            return true;
        case Qt::Key_Escape:
            if (!endGesture()) {
                Q_EMIT cancelled();
            }
            return true;
        default:
            return false;
    }
}

void DrawingView::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    m_cursor.reset();
    clearHovered();
    update();
    Q_EMIT cursorLeft();
}

std::optional<std::size_t> DrawingView::objectAt(const QPointF& position) const {
    return m_scene.nearest(m_transform.toWorld(position), kPickDistance / m_transform.scale());
}

void DrawingView::lookForHovered() {
    if (!m_hoverTimer.isActive()) {
        m_hoverTimer.start(kHoverMs, this);
    }
}

void DrawingView::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_hoverTimer.timerId()) {
        QWidget::timerEvent(event);
        return;
    }
    m_hoverTimer.stop();
    const bool mayHover = m_cursor && !m_box && !m_panFrom && m_mode == Mode::Select;
    const auto hovered = mayHover ? objectAt(*m_cursor) : std::nullopt;
    if (hovered != m_hovered) {
        m_hovered = hovered;
        update();
    }
}

void DrawingView::clearHovered() {
    if (m_hovered) {
        m_hovered.reset();
        update();
    }
}
