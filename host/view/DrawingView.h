// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include <QBasicTimer>
#include <QPoint>
#include <QPointF>
#include <QPolygonF>
#include <QString>
#include <QWidget>

#include <kx/host/kxHostDocument.h>

#include "view/CanvasPainter.h"
#include "view/DrawingScene.h"
#include "view/FrameCache.h"
#include "view/PathMark.h"
#include "view/SelectionBox.h"
#include "view/ViewTransform.h"

/// What the user does to the selection.
enum class SelectionEdit { Add, Remove };

/// Shows a drawing and lets the user look around and point at objects. It does not own the
/// selection: it reports what was pointed at, in order, and shows what it is told to.
/// Left: click picks, click or drag on empty ground draws a box (to the right: contained, to the
/// left: touched), Shift removes. Middle: drag pans, double click fits. Right: `confirmed`.
/// Wheel: zooms at the cursor. Keys: space or Home fits, plus and minus zoom, arrows pan,
/// Escape ends a box or is reported, Enter is reported.
class DrawingView : public QWidget {
    Q_OBJECT

public:
    explicit DrawingView(const kxHostDocument_ptr& document, QWidget* parent = nullptr);
    ~DrawingView() override;

    const kxHostDocument_ptr& document() const { return m_document; }
    const DrawingScene& scene() const { return m_scene; }
    const ViewTransform& transform() const { return m_transform; }

    /// Objects or layers changed. The part of the drawing that is shown stays.
    void reload();
    /// Shows these as selected.
    void showSelected(const std::vector<kxObject_ptr>& objects);
    /// Shows this above the drawing until the next one; an empty one ends it. What of it lies
    /// outside is brought into sight.
    void showPath(const PathMark& path);
    const PathMark& path() const { return m_path; }
    void setOptions(const CanvasOptions& options);
    const CanvasOptions& options() const { return m_options; }

    void zoomToFit();
    void zoomTo(const WorldBox& box);
    void zoomIn();
    void zoomOut();
    /// The next drag of the left button chooses the part to be shown.
    void startZoomWindow();
    /// The next `count` left clicks are reported as points and pick nothing; Escape ends it.
    void startPoints(int count);

Q_SIGNALS:
    void selectionEdited(const std::vector<kxObject_ptr>& objects, SelectionEdit edit);
    /// In drawing units.
    void cursorMoved(const QPointF& world);
    void cursorLeft();
    /// Enter or the right button.
    void confirmed();
    /// Escape, when the view itself had nothing to end.
    void cancelled();
    void pointGiven(const QPointF& world);
    /// The mode of the next click changed: what the user should do now; empty when there is none.
    void hintChanged(const QString& hint);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    enum class Mode { Select, ZoomWindow, Points };

    void markSelected();
    void repaintChanged(const std::vector<bool>& before);
    /// Where an object lies in the frame.
    QRectF frameOf(std::size_t object) const;
    void paintOverlay(QPainter* painter) const;
    void paintBox(QPainter* painter) const;
    void paintPoints(QPainter* painter) const;

    void panBy(const QPointF& delta);
    void zoomAt(const QPointF& position, double factor);
    /// The transform was set anew: nothing that was painted holds.
    void startFrame();
    /// The frame was shifted.
    void followFrame();
    void transformChanged();

    void setMode(Mode mode);
    QString hint() const;
    void pressLeft(const QPointF& position, Qt::KeyboardModifiers modifiers);
    void releaseLeft(const QPointF& position, Qt::KeyboardModifiers modifiers);
    void pressRight();
    void endPan();
    void openBox(const QPointF& position);
    void finishBox(const QPointF& position, Qt::KeyboardModifiers modifiers);
    void givePoint(const QPointF& position);
    void editSelection(const std::vector<std::size_t>& objects, Qt::KeyboardModifiers modifiers);
    void clearPoints();
    /// Enter or the right button.
    void confirm();
    /// False when there was no box and no mode to end.
    bool endGesture();
    bool pressKey(int key);

    std::optional<std::size_t> objectAt(const QPointF& position) const;
    void lookForHovered();
    void clearHovered();
    void bringIntoSight(const WorldBox& box);

    kxHostDocument_ptr m_document;
    DrawingScene m_scene;
    CanvasOptions m_options;
    ViewTransform m_transform;
    FrameCache m_frame;
    bool m_painted = false;

    std::vector<kxObject_ptr> m_selection;
    /// For each object of the scene.
    std::vector<bool> m_selected;
    std::optional<std::size_t> m_hovered;
    QBasicTimer m_hoverTimer;

    Mode m_mode = Mode::Select;
    int m_pointCount = 0;
    /// Given so far, and shown until the next click or Escape; in drawing units.
    QPolygonF m_points;
    /// Where the mouse is; nothing while it is elsewhere.
    std::optional<QPointF> m_cursor;
    /// Where the left button went down, while it is held and the click may become one thing or
    /// another.
    std::optional<QPointF> m_press;
    std::optional<QPointF> m_panFrom;
    std::optional<SelectionBox> m_box;
    PathMark m_path;
    /// What the user looked at before a path was brought into sight, and what was shown then.
    std::optional<ViewTransform> m_viewBeforePath;
    ViewTransform m_viewOfPath;
};
