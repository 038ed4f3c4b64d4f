// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include <QLineF>
#include <QPainter>
#include <QPen>

#include "view/Flatten.h"
#include "view/PixelSnap.h"
#include "view/ViewTransform.h"

/// A pen of a width in device pixels.
QPen devicePen(const QColor& color, double width);

/// Draws in device pixels on a painter that is set up for logical ones, and leaves the painter as
/// it was.
class DeviceCanvas {
public:
    DeviceCanvas(QPainter* painter, const ViewTransform& transform, const QRectF& part);
    DeviceCanvas(const DeviceCanvas&) = delete;
    DeviceCanvas& operator=(const DeviceCanvas&) = delete;
    ~DeviceCanvas();

    QPainter& painter() { return m_painter; }
    const outline::DeviceMap& map() const { return m_map; }
    /// What is drawn, in device pixels.
    const WorldBox& part() const { return m_part; }
    /// Device pixels per logical pixel.
    double ratio() const { return m_ratio; }
    /// Where `drawSharp` moves lines of a width.
    PixelSnap snap(double width) const { return {m_shift, width}; }

    void drawLines(const std::vector<QLineF>& lines, const QPen& pen);
    /// The same, smoothed, with lines along an axis moved so that they cover whole pixels.
    void drawSharp(std::vector<QLineF> lines, const QPen& pen);
    /// The same, smoothed, with lines that follow each other joined.
    void drawJoined(const std::vector<QLineF>& lines, const QPen& pen);

private:
    QPainter& m_painter;
    double m_ratio = 1;
    outline::DeviceMap m_map;
    WorldBox m_part;
    /// Where the device's pixels begin for the painter.
    QPointF m_shift;
};
