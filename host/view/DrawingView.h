// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include <QImage>
#include <QPointer>
#include <QWidget>

#include <kx/host/kxHostDocument.h>

#include "view/CanvasPainter.h"
#include "view/DrawingScene.h"
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
    void setOptions(const CanvasOptions& options);
    const CanvasOptions& options() const { return m_options; }

    void zoomToFit();
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
};
