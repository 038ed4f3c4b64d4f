// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <vector>

#include <QColor>
#include <QPointF>
#include <QPolygonF>

#include "view/WorldBox.h"

class QPainter;
class ViewTransform;

/// A line strip in drawing units.
struct PathPiece {
    QPolygonF points;
    QColor color;
};

/// Part of a tool's path, and a place on it, shown above the drawing.
struct PathMark {
    std::vector<PathPiece> pieces;
    std::optional<QPointF> place;

    bool isEmpty() const { return pieces.empty() && !place; }
    WorldBox box() const;
    /// With an edge in `ground`, so that each colour stands out from any drawing.
    void paint(QPainter* painter, const ViewTransform& transform, const QColor& ground) const;
};
