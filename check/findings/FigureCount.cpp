// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/FigureCount.h"

#include <algorithm>

#include "geometry/Curve.h"

namespace gcode_check {
namespace {

constexpr double kSecondsPerMinute = 60;

void include(Box& box, const Point& place) {
    if (box.empty()) {
        box = {place, place};
        return;
    }
    box.min = {std::min(box.min.x, place.x), std::min(box.min.y, place.y),
               std::min(box.min.z, place.z)};
    box.max = {std::max(box.max.x, place.x), std::max(box.max.y, place.y),
               std::max(box.max.z, place.z)};
}

// Where an arc turns back along an axis of its plane.
void includeBulges(Box& box, const Step& arc) {
    const ArcSpan span = spanOf(arc);
    const double turn = std::abs(span.sweep);
    for (int quarter = 0; quarter < 4; ++quarter) {
        const double angle = quarter * kPi / 2;
        const double off =
            span.sweep < 0 ? wholeTurn(span.start - angle) : wholeTurn(angle - span.start);
        if (off < turn) {
            include(box, pointOn(arc, span, off / turn));
        }
    }
}

void include(Box& box, const Step& step) {
    include(box, step.from);
    include(box, step.to);
    if (step.motion->kind == MotionKind::Arc) {
        includeBulges(box, step);
    }
}

double straight(const Step& step) {
    const double sideways = std::hypot(step.to.x - step.from.x, step.to.y - step.from.y);
    const double up = step.to.z - step.from.z;
    return up == 0 ? sideways : std::hypot(sideways, up);
}

double lengthOf(const Step& step) {
    if (step.motion->kind != MotionKind::Arc) {
        return straight(step);
    }
    const ArcSpan span = spanOf(step);
    double along = step.to.z - step.from.z;
    if (step.motion->plane != Plane::XY) {
        along = step.motion->plane == Plane::XZ ? step.to.y - step.from.y : step.to.x - step.from.x;
    }
    return std::hypot(span.radius * span.sweep, along);
}

// How much of a move lies below the surface.
double partBelow(const Step& step, double surface) {
    const double above = surface - kSame;
    if (step.from.z < above && step.to.z < above) {
        return 1;
    }
    if (step.lowest >= above || step.from.z == step.to.z) {
        return step.lowest < above ? 1 : 0;
    }
    const double depth = surface - std::min(step.from.z, step.to.z);
    return std::clamp(depth / std::abs(step.to.z - step.from.z), 0.0, 1.0);
}

// A straight move without what of it lies above the surface.
Step belowOnly(Step step, double part, double surface) {
    if (step.motion->kind == MotionKind::Arc || part == 1) {
        return step;
    }
    Point& above = step.from.z > step.to.z ? step.from : step.to;
    const Point& below = step.from.z > step.to.z ? step.to : step.from;
    above = {below.x + (above.x - below.x) * part, below.y + (above.y - below.y) * part, surface};
    return step;
}

}  // namespace

void FigureCount::step(const Step& step) {
    switch (step.motion->kind) {
        case MotionKind::Dwell:
            ++m_figures.dwells;
            m_figures.dwellSeconds += step.motion->seconds;
            break;
        case MotionKind::ToolChange:
            ++m_figures.toolChanges;
            break;
        case MotionKind::Rapid:
        case MotionKind::Feed:
        case MotionKind::Arc:
            move(step);
            break;
        default:
            break;
    }
}

void FigureCount::move(const Step& step) {
    const double length = lengthOf(step);
    if (m_first && step.isRapid()) {
        // Where it comes from is not known.
        include(m_figures.moves, step.to);
    } else {
        include(m_figures.moves, step);
    }
    if (step.isRapid()) {
        const double rate = m_setting.options.rapidRate / m_setting.mmPerUnit;
        m_figures.rapidLength += length;
        m_figures.rapidSeconds += rate > 0 ? length / rate * kSecondsPerMinute : 0;
    } else {
        feed(step, length);
    }
    m_first = false;
    followHeight(step);
    const Stroke stroke = step.motion->stroke;
    // A cycle is at its next hole then, be it the same place.
    m_movedSinceHole =
        m_movedSinceHole || stroke == Stroke::Retract || stroke == Stroke::FedRetract;
}

void FigureCount::feed(const Step& step, double length) {
    m_figures.feedLength += length;
    double rate = step.feed;  // units a minute
    if (step.motion->feedMode == FeedMode::PerRevolution) {
        rate *= step.motion->spindleSpeed;
    } else if (step.motion->feedMode == FeedMode::InverseTime) {
        rate *= length;
    }
    m_figures.feedSeconds += rate > 0 ? length / rate * kSecondsPerMinute : 0;
    const double part = partBelow(step, m_setting.surface);
    if (part > 0) {
        m_figures.cutLength += length * part;
        Box cut;
        include(cut, belowOnly(step, part, m_setting.surface));
        cut.max.z = std::min(cut.max.z, m_setting.surface);
        include(m_figures.cutting, cut.min);
        include(m_figures.cutting, cut.max);
        m_lowest = std::min(m_lowest, step.lowest - m_setting.surface);
    }
}

void FigureCount::followHeight(const Step& step) {
    const double bound = m_setting.surface - kSame;
    const bool from = !m_first && m_below;
    if (step.isSideways()) {
        m_sideways = true;
        m_movedSinceHole = true;
    }
    if (!from && step.to.z < bound) {
        goDown(step);
    } else if (from && step.to.z >= bound) {
        goUp(step);
    } else if (!from && step.lowest < bound) {
        goDown(step);
        goUp(step);
    }
    m_bottom = std::min(m_bottom, step.lowest);
}

void FigureCount::goDown(const Step& step) {
    m_below = true;
    m_sideways = step.isSideways();
    m_bottom = step.lowest;
    ++m_figures.toolDowns;
    // Pecks of a cycle stand in one line; the same place in another line is drilled again.
    if (step.motion->cycle != 0 && step.line() != m_strokeLine) {
        m_movedSinceHole = true;
    }
    m_strokeLine = step.line();
}

void FigureCount::goUp(const Step& step) {
    m_below = false;
    ++m_figures.toolUps;
    // The same hole, deeper, as in pecking, is no other.
    const bool isDeeper = step.motion->cycle != 0 || m_bottom < m_holeBottom - kSame;
    const bool isSame = m_hasHole && !m_movedSinceHole && isDeeper;
    if (m_sideways) {
        return;
    }
    m_holeBottom = m_bottom;
    if (!isSame) {
        ++m_figures.strokes;
        m_hasHole = true;
        m_movedSinceHole = false;
    }
}

Figures FigureCount::finish() {
    m_figures.cuttingDepth = -m_lowest;
    return m_figures;
}

}  // namespace gcode_check
