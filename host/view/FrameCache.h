// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>

#include <QHash>
#include <QImage>
#include <QPainter>
#include <QPair>
#include <QPoint>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include "view/ViewTransform.h"

/// What a view has painted of its drawing, in tiles at the resolution of the screen. The tiles lie
/// fixed on the drawing as it was when the frame started, and panning shifts them by whole device
/// pixels: a panned picture is the same, pixel for pixel, as one that is painted anew.
class FrameCache {
public:
    /// Side of a tile in device pixels.
    static constexpr int kTileSize = 256;
    /// Paints a part of the frame, given in pixels of `base()`. Called for several parts at once,
    /// from several threads.
    using PaintPart = std::function<void(QPainter* painter, const QRectF& part)>;

    /// Forgets all tiles; the frame lies where `transform` shows the drawing.
    void start(const ViewTransform& transform, double devicePixelRatio);
    const ViewTransform& base() const { return m_base; }
    double devicePixelRatio() const { return m_ratio; }

    /// Shifts the frame. Fractions of a device pixel are kept for the next time.
    void panBy(const QPointF& delta);
    /// Keeps the middle there.
    void resize(const QSizeF& size);
    /// How far the frame lies from where it started: whole device pixels, in logical ones.
    QPointF shift() const;
    /// The transform that fits what is shown.
    ViewTransform transform() const;

    /// What was painted there is painted again; in pixels of `base()`.
    void invalidate(const QRectF& part);
    void invalidate() { m_tiles.clear(); }

    /// Draws the frame on `target` (logical pixels), painting the tiles it lacks. Returns how many
    /// those were.
    int draw(QPainter* painter, const QRectF& target, const PaintPart& paint);

private:
    using TileKey = QPair<int, int>;

    QPoint deviceShift() const;
    QRect tilesOf(const QRectF& devicePart) const;
    int paintMissing(const QRect& tiles, const PaintPart& paint);
    QImage paintTile(const TileKey& key, const PaintPart& paint) const;
    void forgetFarTiles();

    ViewTransform m_base;
    double m_ratio = 1;
    QPointF m_wantedShift;
    QSizeF m_size{1, 1};
    QHash<TileKey, QImage> m_tiles;
};
