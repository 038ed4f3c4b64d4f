// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/PathMark.h"

#include <QPainter>
#include <QPen>

#include "view/ViewTransform.h"

namespace {

constexpr double kLineWidth = 3;
constexpr double kEdgeWidth = 7;
constexpr double kPlaceRadius = 9;
constexpr double kPointRadius = 3;

QPen roundPen(const QColor& color, double width) {
    return QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void stroke(QPainter* painter, const QPolygonF& points, const QPen& pen) {
    painter->setPen(pen);
    // A stroke into the material has no length when it is seen from above.
    const QRectF box = points.boundingRect();
    if (box.width() < 1 && box.height() < 1) {
        painter->drawEllipse(box.center(), kPointRadius, kPointRadius);
    } else {
        painter->drawPolyline(points);
    }
}

}  // namespace

WorldBox PathMark::box() const {
    WorldBox box;
    for (const PathPiece& piece : pieces) {
        for (const QPointF& point : piece.points) {
            box.add(point);
        }
    }
    if (place) {
        box.add(*place);
    }
    return box;
}

void PathMark::paint(QPainter* painter, const ViewTransform& transform,
                     const QColor& ground) const {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    std::vector<QPolygonF> onScreen;
    for (const PathPiece& piece : pieces) {
        QPolygonF points;
        for (const QPointF& point : piece.points) {
            points.append(transform.toScreen(point));
        }
        onScreen.push_back(points);
        stroke(painter, points, roundPen(ground, kEdgeWidth));
    }
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        stroke(painter, onScreen[i], roundPen(pieces[i].color, kLineWidth));
    }
    if (place) {
        const QPointF middle = transform.toScreen(*place);
        painter->setPen(roundPen(ground, kEdgeWidth));
        painter->drawEllipse(middle, kPlaceRadius, kPlaceRadius);
        painter->setPen(roundPen(QColor(255, 140, 0), kLineWidth));
        painter->drawEllipse(middle, kPlaceRadius, kPlaceRadius);
    }
    painter->restore();
}
