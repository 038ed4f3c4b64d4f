// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Curve.h"

namespace gcode_check {

// Says of very many boxes whether a curve may come within `reach` of them; as mayReach, but sooner
// and closer.
class Reach {
public:
    // Refers to the curve.
    Reach(const Curve& curve, double reach) : m_curve(curve), m_reach(reach), m_box(boxOf(curve)) {
        // Rounding may put an arc's ends beside their place.
        const double wider = reach + 1e-12 * curve.radius;
        m_box = {m_box.minX - wider, m_box.minY - wider, m_box.maxX + wider, m_box.maxY + wider};
    }

    bool operator()(const PlaneBox& box) const {
        return box.minX <= m_box.maxX && m_box.minX <= box.maxX && box.minY <= m_box.maxY &&
               m_box.minY <= box.maxY && mayReach(m_curve, box, m_reach);
    }

private:
    const Curve& m_curve;
    double m_reach;
    PlaneBox m_box;
};

}  // namespace gcode_check
