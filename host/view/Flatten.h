// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <vector>

#include <QLineF>

#include "view/Bezier.h"
#include "view/Outline.h"
#include "view/PixelSnap.h"
#include "view/WorldBox.h"

namespace outline {

/// Where drawing units (y up) lie on a device (pixels, y down).
struct DeviceMap {
    QPointF center;
    double scale = 1;
    /// The pixel of the centre.
    QPointF pixel;

    QPointF map(const QPointF& world) const {
        return {(world.x() - center.x()) * scale + pixel.x(),
                (center.y() - world.y()) * scale + pixel.y()};
    }
};

/// The part of a line inside of a box; nothing when it is wholly outside.
std::optional<QLineF> clipped(const QLineF& line, const WorldBox& box);

/// Turns curves into straight lines on a device, within a tolerance in pixels, and leaves out what
/// is outside of a box of pixels.
class Flattener {
public:
    Flattener(const DeviceMap& map, const WorldBox& clip, double tolerance)
        : m_map(map), m_clip(clip), m_tolerance(tolerance) {}

    /// Bends arcs to where lines along an axis will be moved, at ends that such a line may run
    /// into.
    void setSnap(const PixelSnap& snap) { m_snap = snap; }
    /// Appends an object's curves; notes are not lines.
    void add(const Outlines& outlines, std::size_t object);
    void add(const Segment& segment);
    void add(const Arc& arc);
    void add(const BezierPiece& curve);
    /// A straight line on the device.
    void addLine(const QPointF& first, const QPointF& second);

    /// Lines that are straight in the drawing, and those that follow a curve, one after the other.
    std::vector<QLineF>& straight() { return m_straight; }
    std::vector<QLineF>& curved() { return m_curved; }
    const DeviceMap& map() const { return m_map; }
    const WorldBox& clip() const { return m_clip; }

private:
    struct ArcEnd {
        double angle;
        QPointF pixel;
    };
    /// How far the ends of an arc are moved; what is between them follows.
    struct Bend {
        QPointF start;
        QPointF end;

        QPointF at(double share) const { return start * (1 - share) + end * share; }
    };
    void addChord(const QPointF& first, const QPointF& second);
    Bend bendOf(const Arc& arc) const;
    QPointF moveOf(const Arc& arc, double angle) const;
    QPointF pixelAt(const Arc& arc, double angle) const;
    void addWholeArc(const Arc& arc, double radius);
    void addVisibleArc(const Arc& arc, const ArcEnd& from, const ArcEnd& to, int depth);

    DeviceMap m_map;
    WorldBox m_clip;
    double m_tolerance;
    std::optional<PixelSnap> m_snap;
    /// Of the arc that is being added.
    Bend m_bend;
    std::vector<QLineF> m_straight;
    std::vector<QLineF> m_curved;
    BezierWalk m_walk;
};

}  // namespace outline
