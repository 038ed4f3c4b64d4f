// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

#include "findings/Shape.h"
#include "geometry/BoxTree.h"

namespace gcode_check {

// One selected object in the program's unit.
struct Target {
    Curve curve;
    bool usable = true;              // its numbers can be reckoned with
    std::optional<PlanePoint> hole;  // where it would be drilled: a point, a circle's centre
};

// The selected objects, to be found by place.
class ShapeIndex {
public:
    ShapeIndex(const Drawing& drawing, double unitsPerDrawingUnit);

    const std::vector<Target>& targets() const { return m_targets; }
    bool empty() const { return m_curveTree.size() == 0; }

    // The outlines of the usable ones, which have entries of their own.
    const BoxTree& outlines() const { return m_curveTree; }
    const Curve& outlineAt(std::size_t entry) const { return m_targets[m_curves[entry]].curve; }

    // Calls visit(target index) for objects that may come within reach of the curve, until it
    // gives false.
    template <typename Visit>
    void eachNear(const Curve& curve, double reach, Visit&& visit) const {
        m_curveTree.each([&](const PlaneBox& box) { return mayReach(curve, box, reach); },
                         [&](std::size_t entry) { return visit(m_curves[entry]); });
    }

    // To the nearest object's outline; `bound` when all are farther.
    double distanceToOutline(const PlanePoint& place, double bound) const;
    // To the nearest place to drill.
    struct Nearest {
        double distance = 0;
        std::optional<std::size_t> target;
    };
    template <typename Takes>
    Nearest nearestHole(const PlanePoint& place, double bound, Takes&& takes) const {
        Nearest found{bound, {}};
        m_holeTree.nearest(place, bound, [&](std::size_t entry) {
            const std::size_t target = m_holes[entry];
            const double off = distance(*m_targets[target].hole, place);
            if (off < found.distance && takes(target)) {
                found = {off, target};
            }
            return found.distance;
        });
        return found;
    }

private:
    std::vector<Target> m_targets;
    std::vector<std::size_t> m_curves;  // targets in the tree of outlines
    std::vector<std::size_t> m_holes;   // targets in the tree of holes
    BoxTree m_curveTree;
    BoxTree m_holeTree;
};

}  // namespace gcode_check
