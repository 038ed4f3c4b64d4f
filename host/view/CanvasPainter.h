// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include <QColor>
#include <QImage>
#include <QPainter>

#include "view/DrawingScene.h"
#include "view/ViewTransform.h"

enum class Canvas { Dark, Light };

/// The colours of a canvas; each pair is told apart on it.
struct CanvasColors {
    QColor background;
    QColor minorGrid;
    QColor majorGrid;
    QColor xAxis;
    QColor yAxis;
    QColor object;
    QColor selected;
    QColor hovered;
    QColor windowBox;
    QColor crossingBox;

    static CanvasColors of(Canvas canvas);
};

struct CanvasOptions {
    Canvas canvas = Canvas::Dark;
    bool grid = true;
    bool axes = true;
};

/// The distance between fine grid lines in drawing units: 1, 2 or 5 times a power of ten, at least
/// `minimumPixels` apart at the given scale. Every fifth or tenth is a major one.
struct GridStep {
    double minor = 1;
    int minorsPerMajor = 10;
};
GridStep gridStep(double scale, double minimumPixels = 8);

/// Draws a part of the scene. Lines are one device pixel wide at any zoom; curves are flattened
/// anew for the scale, within a quarter of a device pixel, and cut off outside of the part before
/// they reach the rasteriser, so any zoom and any coordinates are safe.
class CanvasPainter {
public:
    CanvasPainter(const DrawingScene& scene, const ViewTransform& transform,
                  const CanvasOptions& options);

    /// Background, grid, axes and objects inside of `part` (logical pixels); `selected` says for
    /// each object of the scene whether it is drawn as selected. Parts may be painted at once, each
    /// by a painter and a thread of its own.
    void paint(QPainter* painter, const QRectF& part, const std::vector<bool>& selected) const;
    /// One object on top, as it is drawn under the cursor.
    void paintHovered(QPainter* painter, std::size_t object) const;

private:
    bool isSmooth() const;

    const DrawingScene& m_scene;
    const ViewTransform& m_transform;
    CanvasOptions m_options;
};
