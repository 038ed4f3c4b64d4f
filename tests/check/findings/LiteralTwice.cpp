// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "LiteralTwice.h"

#include <algorithm>
#include <cmath>

namespace {

using gcode_check::Motion;
using gcode_check::MotionKind;
using gcode_check::Shape;
using gcode_check::ShapeKind;

constexpr double kTurn = 2 * 3.14159265358979323846;

// Signed, of a motion in the plane; a full circle where both ends are one.
double turnOf(const Motion& arc, double* startRad) {
    *startRad = std::atan2(arc.from.y - arc.centre.y, arc.from.x - arc.centre.x);
    double sweep = std::atan2(arc.to.y - arc.centre.y, arc.to.x - arc.centre.x) - *startRad;
    const double sign = arc.turns > 0 ? 1 : -1;
    while (sweep * sign <= 1e-9) {
        sweep += sign * kTurn;
    }
    return sweep;
}

double lengthOf(const Motion& cut) {
    if (cut.kind != MotionKind::Arc) {
        return std::hypot(cut.to.x - cut.from.x, cut.to.y - cut.from.y);
    }
    double start = 0;
    return std::abs(turnOf(cut, &start)) *
           std::hypot(cut.from.x - cut.centre.x, cut.from.y - cut.centre.y);
}

double sweepOf(const Shape& shape) {
    double sweep = shape.kind == ShapeKind::Circle ? kTurn : shape.endRad - shape.startRad;
    while (sweep <= 0) {
        sweep += kTurn;
    }
    return sweep;
}

}  // namespace

LiteralTwice::LiteralTwice(const gcode_check::Reading& reading, std::size_t places)
    : m_places(places) {
    for (const Motion& motion : reading.motions) {
        const bool feeds = motion.kind == MotionKind::Feed || motion.kind == MotionKind::Arc;
        if (feeds && ::lengthOf(motion) > 1e-9) {
            m_cuts.push_back(motion);
        }
    }
}

double LiteralTwice::lengthOf(const Shape& shape) {
    return shape.kind == ShapeKind::Line
               ? std::hypot(shape.second.x - shape.first.x, shape.second.y - shape.first.y)
               : sweepOf(shape) * shape.radius;
}

LiteralTwice::Spot LiteralTwice::spotOf(const Shape& shape, double t) {
    if (shape.kind == ShapeKind::Line) {
        const double dx = shape.second.x - shape.first.x;
        const double dy = shape.second.y - shape.first.y;
        const double length = std::hypot(dx, dy);
        return {shape.first.x + dx * t, shape.first.y + dy * t, dx / length, dy / length};
    }
    const double angle =
        (shape.kind == ShapeKind::Circle ? 0 : shape.startRad) + sweepOf(shape) * t;
    return {shape.centre.x + shape.radius * std::cos(angle),
            shape.centre.y + shape.radius * std::sin(angle), -std::sin(angle), std::cos(angle)};
}

LiteralTwice::Beside LiteralTwice::besideOf(const Motion& cut, const Spot& spot) {
    Beside beside;
    double t = 0;
    if (cut.kind == MotionKind::Arc) {
        double start = 0;
        const double sweep = turnOf(cut, &start);
        const double sign = sweep > 0 ? 1 : -1;
        double angle = std::atan2(spot.y - cut.centre.y, spot.x - cut.centre.x);
        beside.alongX = -std::sin(angle);
        beside.alongY = std::cos(angle);
        while ((angle - start) * sign < 0) {
            angle += sign * kTurn;
        }
        while ((angle - start) * sign >= kTurn) {
            angle -= sign * kTurn;
        }
        t = (angle - start) / sweep;
        beside.off = std::abs(std::hypot(spot.x - cut.centre.x, spot.y - cut.centre.y) -
                              std::hypot(cut.from.x - cut.centre.x, cut.from.y - cut.centre.y));
    } else {
        const double length = ::lengthOf(cut);
        beside.alongX = (cut.to.x - cut.from.x) / length;
        beside.alongY = (cut.to.y - cut.from.y) / length;
        const double dx = spot.x - cut.from.x;
        const double dy = spot.y - cut.from.y;
        t = (dx * beside.alongX + dy * beside.alongY) / length;
        beside.off = std::abs(dx * beside.alongY - dy * beside.alongX);
    }
    beside.isBeside = t >= 0 && t <= 1;
    beside.z = cut.from.z + (cut.to.z - cut.from.z) * t;
    return beside;
}

std::vector<LiteralTwice::Stretch> LiteralTwice::stretchesOf(const std::vector<Spot>& spots,
                                                             double length,
                                                             const Bounds& bounds) const {
    std::vector<Stretch> stretches;
    const auto across = [](const Spot& spot, const Beside& beside) {
        return std::abs(spot.alongX * beside.alongY - spot.alongY * beside.alongX);
    };
    for (std::size_t cut = 0; cut < m_cuts.size(); ++cut) {
        const auto near = [&](std::size_t place) {
            const Beside beside = besideOf(m_cuts[cut], spots[place]);
            return beside.isBeside && beside.off <= bounds.reach;
        };
        for (std::size_t begin = 0; begin < spots.size(); ++begin) {
            if (!near(begin)) {
                continue;
            }
            std::size_t end = begin;
            while (end + 1 < spots.size() && near(end + 1)) {
                ++end;
            }
            const Spot& middle = spots[(begin + end) / 2];
            const double shared =
                length * static_cast<double>(end - begin) / static_cast<double>(m_places);
            const bool isParallel =
                across(spots[begin], besideOf(m_cuts[cut], spots[begin])) <= bounds.parallel &&
                across(spots[end], besideOf(m_cuts[cut], spots[end])) <= bounds.parallel;
            const bool isRough = across(middle, besideOf(m_cuts[cut], middle)) <= bounds.rough &&
                                 shared >= ::lengthOf(m_cuts[cut]) * bounds.mostOfCut;
            if (isParallel || isRough) {
                stretches.push_back({cut, begin, end});
            }
            begin = end;
        }
    }
    return stretches;
}

void LiteralTwice::addParts(const std::vector<bool>& isTwice, double length, const Bounds& bounds,
                            Found& found) const {
    struct Run {
        std::size_t begin = 0;
        std::size_t end = 0;
    };
    std::vector<Run> runs;
    for (std::size_t place = 0; place <= m_places; ++place) {
        if (!isTwice[place]) {
            continue;
        }
        if (place == 0 || !isTwice[place - 1]) {
            runs.push_back({place, place});
        }
        runs.back().end = place;
    }
    const double step = 1 / static_cast<double>(m_places);
    std::size_t shorter = 0;
    for (std::size_t next = 0; next < runs.size(); ++next) {
        const Part part{static_cast<double>(runs[next].begin) * step,
                        static_cast<double>(runs[next].end) * step};
        const std::size_t width = runs[next].end - runs[next].begin;
        // A hair between two long ones is none.
        const double missing = found.parts.empty() ? 1 : part.from - found.parts.back().to;
        shorter = std::min(shorter, width);
        if (missing * length <= bounds.reach &&
            missing * 10 <= static_cast<double>(shorter) * step) {
            found.parts.back().to = part.to;
        } else {
            found.parts.push_back(part);
        }
        shorter = width;
    }
    found.parts.erase(std::remove_if(found.parts.begin(), found.parts.end(),
                                     [&](const Part& part) {
                                         return (part.to - part.from) * length <
                                                std::min(bounds.least, 0.95 * length);
                                     }),
                      found.parts.end());
}

LiteralTwice::Found LiteralTwice::look(const Shape& shape, const Bounds& bounds) const {
    std::vector<Spot> spots;
    for (std::size_t place = 0; place <= m_places; ++place) {
        spots.push_back(spotOf(shape, static_cast<double>(place) / static_cast<double>(m_places)));
    }
    const double length = lengthOf(shape);
    const std::vector<Stretch> stretches = stretchesOf(spots, length, bounds);
    std::vector<bool> isTwice(m_places + 1, false);
    Found found;
    for (const Stretch& a : stretches) {
        for (const Stretch& b : stretches) {
            const std::size_t begin = std::max(a.begin, b.begin);
            const std::size_t end = std::min(a.end, b.end);
            if (a.cut >= b.cut || begin > end) {
                continue;
            }
            const Spot& middle = spots[(begin + end) / 2];
            if (besideOf(m_cuts[b.cut], middle).z <
                besideOf(m_cuts[a.cut], middle).z - bounds.height) {
                continue;
            }
            std::fill(isTwice.begin() + static_cast<std::ptrdiff_t>(begin),
                      isTwice.begin() + static_cast<std::ptrdiff_t>(end) + 1, true);
            found.pairs.push_back({m_cuts[a.cut].line, m_cuts[b.cut].line});
        }
    }
    addParts(isTwice, length, bounds, found);
    return found;
}
