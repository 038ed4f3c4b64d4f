// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPointF>
#include <QSizeF>

#include "view/WorldBox.h"

/// Where drawing units (y up) lie on the screen (logical pixels, y down). Scale and position stay
/// within what a double shows without jumping.
class ViewTransform {
public:
    QPointF toScreen(const QPointF& world) const;
    QPointF toWorld(const QPointF& screen) const;
    /// Pixels per drawing unit; above 0.
    double scale() const { return m_scale; }
    QSizeF size() const { return m_size; }

    /// Keeps the world point in the middle of the screen there.
    void resize(const QSizeF& size);
    /// The world point at `screen` stays where it is.
    void zoomAt(const QPointF& screen, double factor);
    void panBy(const QPointF& screenDelta);
    /// Shows all of the box with a margin in pixels; an empty box or one without extent is shown
    /// around its middle at a usable scale.
    void fit(const WorldBox& box, double margin = 24);
    WorldBox visibleBox() const;

    friend bool operator==(const ViewTransform& a, const ViewTransform& b) {
        return a.m_size == b.m_size && a.m_center == b.m_center && a.m_scale == b.m_scale;
    }

private:
    QSizeF m_size{1, 1};
    /// The world point in the middle of the screen.
    QPointF m_center;
    double m_scale = 1;
};
