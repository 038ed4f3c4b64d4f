// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/SelectionBox.h"

bool SelectionBox::isCrossing(const ViewTransform& transform, const QPointF& cursor) const {
    // The way to the drawing and back rounds: a box of no width is a window.
    constexpr double kTolerance = 0.01;
    return cursor.x() < transform.toScreen(m_start).x() - kTolerance;
}

QRectF SelectionBox::onScreen(const ViewTransform& transform, const QPointF& cursor) const {
    return QRectF(transform.toScreen(m_start), cursor).normalized();
}

WorldBox SelectionBox::inDrawing(const ViewTransform& transform, const QPointF& cursor) const {
    WorldBox box;
    box.add(m_start);
    box.add(transform.toWorld(cursor));
    return box;
}
