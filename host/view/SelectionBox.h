// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPointF>
#include <QRectF>

#include "view/ViewTransform.h"
#include "view/WorldBox.h"

/// The rubber band between a point of the drawing, which stays there while the view moves, and the
/// cursor. Drawn to the right it is a window, drawn to the left a crossing.
class SelectionBox {
public:
    explicit SelectionBox(const QPointF& startInDrawing) : m_start(startInDrawing) {}

    bool isCrossing(const ViewTransform& transform, const QPointF& cursor) const;
    /// In pixels; top left and bottom right in order.
    QRectF onScreen(const ViewTransform& transform, const QPointF& cursor) const;
    WorldBox inDrawing(const ViewTransform& transform, const QPointF& cursor) const;

private:
    QPointF m_start;
};
