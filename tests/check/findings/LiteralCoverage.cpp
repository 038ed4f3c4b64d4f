// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "LiteralCoverage.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using gcode_check::Motion;
using gcode_check::MotionKind;
using gcode_check::Point;
using gcode_check::Shape;
using gcode_check::ShapeKind;

constexpr double kTurn = 2 * 3.14159265358979323846;

double turnOf(const Motion& arc, double& startRad) {
    startRad = std::atan2(arc.from.y - arc.centre.y, arc.from.x - arc.centre.x);
    double sweep = std::atan2(arc.to.y - arc.centre.y, arc.to.x - arc.centre.x) - startRad;
    if (arc.turns > 0) {
        while (sweep <= 1e-12) {
            sweep += kTurn;
        }
    } else {
        while (sweep >= -1e-12) {
            sweep -= kTurn;
        }
    }
    return sweep;
}

Point placeAt(const Motion& motion, double t) {
    const double z = motion.from.z + (motion.to.z - motion.from.z) * t;
    if (motion.kind != MotionKind::Arc) {
        return {motion.from.x + (motion.to.x - motion.from.x) * t,
                motion.from.y + (motion.to.y - motion.from.y) * t, z};
    }
    double start = 0;
    const double sweep = turnOf(motion, start);
    const double radius =
        std::hypot(motion.from.x - motion.centre.x, motion.from.y - motion.centre.y);
    return {motion.centre.x + radius * std::cos(start + sweep * t),
            motion.centre.y + radius * std::sin(start + sweep * t), z};
}

double lengthOf(const Motion& motion) {
    if (motion.kind != MotionKind::Arc) {
        return std::hypot(motion.to.x - motion.from.x, motion.to.y - motion.from.y);
    }
    double start = 0;
    const double sweep = turnOf(motion, start);
    return std::abs(sweep) *
           std::hypot(motion.from.x - motion.centre.x, motion.from.y - motion.centre.y);
}

}  // namespace

LiteralCoverage::LiteralCoverage(const gcode_check::Reading& reading, double spacing)
    : m_spacing(spacing), m_cuts(reading.motions.size()) {
    for (std::size_t index = 0; index < reading.motions.size(); ++index) {
        const Motion& motion = reading.motions[index];
        const double length = lengthOf(motion);
        if ((motion.kind != MotionKind::Feed && motion.kind != MotionKind::Arc) || length < 1e-9) {
            continue;
        }
        const int steps = static_cast<int>(std::ceil(length / spacing));
        for (int step = 0; step <= steps; ++step) {
            const Point place = placeAt(motion, static_cast<double>(step) / steps);
            if (place.z < -1e-6) {
                m_cuts[index].push_back({place.x, place.y});
            }
        }
        m_all.insert(m_all.end(), m_cuts[index].begin(), m_cuts[index].end());
    }
}

std::vector<LiteralCoverage::Spot> LiteralCoverage::spotsOf(const Shape& shape, double spacing) {
    std::vector<Spot> spots;
    if (shape.kind == ShapeKind::Point) {
        return {{shape.first.x, shape.first.y}};
    }
    double sweep = shape.kind == ShapeKind::Circle ? kTurn : shape.endRad - shape.startRad;
    while (sweep <= 0) {
        sweep += kTurn;
    }
    const bool isLine = shape.kind == ShapeKind::Line;
    const double length =
        isLine ? std::hypot(shape.second.x - shape.first.x, shape.second.y - shape.first.y)
               : sweep * shape.radius;
    const int steps = std::max(1, static_cast<int>(std::ceil(length / spacing)));
    for (int step = 0; step <= steps; ++step) {
        const double t = static_cast<double>(step) / steps;
        if (isLine) {
            spots.push_back({shape.first.x + (shape.second.x - shape.first.x) * t,
                             shape.first.y + (shape.second.y - shape.first.y) * t});
        } else {
            const double angle = shape.startRad + sweep * t;
            spots.push_back({shape.centre.x + shape.radius * std::cos(angle),
                             shape.centre.y + shape.radius * std::sin(angle)});
        }
    }
    return spots;
}

double LiteralCoverage::farthest(const std::vector<Spot>& from, const std::vector<Spot>& to) {
    double worst = 0;
    for (const Spot& spot : from) {
        double least = std::numeric_limits<double>::infinity();
        for (const Spot& other : to) {
            const double dx = spot.x - other.x;
            const double dy = spot.y - other.y;
            least = std::min(least, dx * dx + dy * dy);
        }
        worst = std::max(worst, std::sqrt(least));
    }
    return worst;
}

double LiteralCoverage::farthestFromCuts(const Shape& shape) const {
    return farthest(spotsOf(shape, m_spacing), m_all);
}

double LiteralCoverage::farthestFromShapes(std::size_t motion,
                                           const std::vector<Shape>& shapes) const {
    std::vector<Spot> spots;
    for (const Shape& shape : shapes) {
        const std::vector<Spot> own = spotsOf(shape, m_spacing);
        spots.insert(spots.end(), own.begin(), own.end());
    }
    return farthest(m_cuts[motion], spots);
}
