// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/DeviceCanvas.h"

#include <cmath>

#include <QPolygonF>

QPen devicePen(const QColor& color, double width) {
    QPen pen(color, width, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin);
    pen.setCosmetic(true);
    return pen;
}

DeviceCanvas::DeviceCanvas(QPainter* painter, const ViewTransform& transform, const QRectF& part)
    : m_painter(*painter) {
    m_painter.save();
    m_painter.setClipRect(part, Qt::IntersectClip);
    const double ratio = m_painter.deviceTransform().m11();
    m_ratio = ratio > 0 ? ratio : 1;
    m_painter.scale(1 / m_ratio, 1 / m_ratio);
    m_shift = {m_painter.deviceTransform().dx(), m_painter.deviceTransform().dy()};
    m_part = {part.left() * m_ratio, part.top() * m_ratio, part.right() * m_ratio,
              part.bottom() * m_ratio};
    const QPointF middle(transform.size().width() / 2, transform.size().height() / 2);
    m_map = {transform.toWorld(middle), transform.scale() * m_ratio, middle * m_ratio};
}

DeviceCanvas::~DeviceCanvas() {
    m_painter.restore();
}

void DeviceCanvas::drawLines(const std::vector<QLineF>& lines, const QPen& pen) {
    m_painter.setRenderHint(QPainter::Antialiasing, false);
    m_painter.setPen(pen);
    m_painter.drawLines(lines.data(), static_cast<int>(lines.size()));
}

void DeviceCanvas::drawSharp(std::vector<QLineF> lines, const QPen& pen) {
    const PixelSnap pixels = snap(pen.widthF());
    for (QLineF& line : lines) {
        if (std::abs(line.dy()) < 0.01) {
            const double y = pixels.y(line.y1());
            line.setLine(line.x1(), y, line.x2(), y);
        } else if (std::abs(line.dx()) < 0.01) {
            const double x = pixels.x(line.x1());
            line.setLine(x, line.y1(), x, line.y2());
        }
    }
    m_painter.setRenderHint(QPainter::Antialiasing, true);
    m_painter.setPen(pen);
    m_painter.drawLines(lines.data(), static_cast<int>(lines.size()));
}

void DeviceCanvas::drawJoined(const std::vector<QLineF>& lines, const QPen& pen) {
    m_painter.setRenderHint(QPainter::Antialiasing, true);
    m_painter.setPen(pen);
    QPolygonF chain;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (chain.isEmpty()) {
            chain.append(lines[i].p1());
        }
        chain.append(lines[i].p2());
        const bool ends = i + 1 == lines.size() || lines[i + 1].p1() != lines[i].p2();
        if (ends) {
            m_painter.drawPolyline(chain);
            chain.clear();
        }
    }
}
