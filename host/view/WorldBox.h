// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <algorithm>
#include <limits>

#include <QPointF>

/// An axis-parallel box in drawing units, y up; empty until something is added.
struct WorldBox {
    double minX = std::numeric_limits<double>::infinity();
    double minY = std::numeric_limits<double>::infinity();
    double maxX = -std::numeric_limits<double>::infinity();
    double maxY = -std::numeric_limits<double>::infinity();

    bool isEmpty() const { return !(minX <= maxX && minY <= maxY); }
    double width() const { return isEmpty() ? 0 : maxX - minX; }
    double height() const { return isEmpty() ? 0 : maxY - minY; }
    QPointF center() const { return {minX / 2 + maxX / 2, minY / 2 + maxY / 2}; }

    void add(const QPointF& point) {
        minX = std::min(minX, point.x());
        minY = std::min(minY, point.y());
        maxX = std::max(maxX, point.x());
        maxY = std::max(maxY, point.y());
    }
    void add(const WorldBox& other) {
        minX = std::min(minX, other.minX);
        minY = std::min(minY, other.minY);
        maxX = std::max(maxX, other.maxX);
        maxY = std::max(maxY, other.maxY);
    }
    /// Edges belong to the box.
    bool contains(const WorldBox& other) const {
        return minX <= other.minX && minY <= other.minY && other.maxX <= maxX && other.maxY <= maxY;
    }
    bool meets(const WorldBox& other) const {
        return minX <= other.maxX && other.minX <= maxX && minY <= other.maxY && other.minY <= maxY;
    }
};
