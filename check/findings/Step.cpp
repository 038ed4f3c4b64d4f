// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/Step.h"

#include <algorithm>

#include "geometry/Curve.h"

namespace gcode_check {
namespace {

constexpr double kClosed = 1e-9;

// G17 turns from X to Y, G18 from Z to X, G19 from Y to Z.
Point toPlane(Plane plane, const Point& place) {
    switch (plane) {
        case Plane::XZ:
            return {place.z, place.x, place.y};
        case Plane::YZ:
            return {place.y, place.z, place.x};
        case Plane::XY:
            break;
    }
    return place;
}

Point fromPlane(Plane plane, const Point& place) {
    switch (plane) {
        case Plane::XZ:
            return {place.y, place.z, place.x};
        case Plane::YZ:
            return {place.z, place.x, place.y};
        case Plane::XY:
            break;
    }
    return place;
}

Point inUnit(const Frame& frame, const Point& machine, double mmPerUnit) {
    const Point place = toProgram(frame, machine);
    return {place.x / mmPerUnit, place.y / mmPerUnit, place.z / mmPerUnit};
}

double lowestOf(const Step& step) {
    const double ends = std::min(step.from.z, step.to.z);
    if (step.motion->kind != MotionKind::Arc || step.motion->plane == Plane::XY) {
        return ends;
    }
    const ArcSpan span = spanOf(step);
    // Where the arc points down: towards smaller z.
    const double down = step.motion->plane == Plane::XZ ? kPi : -kPi / 2;
    const double turned =
        span.sweep < 0 ? wholeTurn(span.start - down) : wholeTurn(down - span.start);
    return turned <= std::abs(span.sweep) ? std::min(ends, step.centre.z - span.radius) : ends;
}

PlanePoint onDrawing(const Setting& setting, const Point& place) {
    return {place.x / setting.unitsPerDrawingUnit, place.y / setting.unitsPerDrawingUnit};
}

}  // namespace

ArcRadii radiiOf(const Step& arc) {
    const Plane plane = arc.motion->plane;
    const Point from = toPlane(plane, arc.from);
    const Point to = toPlane(plane, arc.to);
    const Point centre = toPlane(plane, arc.centre);
    return {std::hypot(from.x - centre.x, from.y - centre.y),
            std::hypot(to.x - centre.x, to.y - centre.y)};
}

ArcSpan spanOf(const Step& arc) {
    const Plane plane = arc.motion->plane;
    const Point from = toPlane(plane, arc.from);
    const Point to = toPlane(plane, arc.to);
    const Point centre = toPlane(plane, arc.centre);
    ArcSpan span;
    span.radius = std::hypot(from.x - centre.x, from.y - centre.y);
    span.endRadius = std::hypot(to.x - centre.x, to.y - centre.y);
    span.start = std::atan2(from.y - centre.y, from.x - centre.x);
    const double end = std::atan2(to.y - centre.y, to.x - centre.x);
    const int turns = arc.motion->turns;
    const double turned = turns < 0 ? wholeTurn(span.start - end) : wholeTurn(end - span.start);
    const bool closed = std::hypot(from.x - to.x, from.y - to.y) <= kClosed;
    const double first = closed || turned == 0 ? 2 * kPi : turned;
    const double full = 2 * kPi * (std::max(std::abs(turns), 1) - 1);
    span.sweep = turns < 0 ? -first - full : first + full;
    return span;
}

Point pointOn(const Step& arc, const ArcSpan& span, double t) {
    if (t == 0) {
        return arc.from;
    }
    if (t == 1) {
        return arc.to;
    }
    const Plane plane = arc.motion->plane;
    const Point from = toPlane(plane, arc.from);
    const Point to = toPlane(plane, arc.to);
    const Point centre = toPlane(plane, arc.centre);
    const double angle = span.start + span.sweep * t;
    const double radius = span.radius + (span.endRadius - span.radius) * t;
    return fromPlane(plane, {centre.x + radius * std::cos(angle),
                             centre.y + radius * std::sin(angle), from.z + (to.z - from.z) * t});
}

Step programmedOf(const Setting& setting, const Step& step) {
    Step result = step;
    if (step.motion->contour >= 0) {
        const Reading& reading = setting.reading;
        const Contour& contour = reading.contours[static_cast<std::size_t>(step.motion->contour)];
        const Frame& frame = reading.frames[step.motion->frame];
        result.from = inUnit(frame, contour.from, setting.mmPerUnit);
        result.to = inUnit(frame, contour.to, setting.mmPerUnit);
        result.centre = inUnit(frame, contour.centre, setting.mmPerUnit);
    }
    return result;
}

bool StepWalk::next() {
    const Reading& reading = m_setting.reading;
    if (m_next >= reading.motions.size()) {
        return false;
    }
    const Motion& motion = reading.motions[m_next];
    passFacts(motion.line);
    m_step.motion = &motion;
    m_step.index = m_next++;
    m_step.heightKnown = motion.line >= m_setting.known.z && !m_isHeightLost;
    m_step.endKnown = m_step.heightKnown;
    const Frame& frame = reading.frames[motion.frame];
    const double unit = m_setting.mmPerUnit;
    if (!isMove(motion)) {
        m_step.from = inUnit(frame, motion.from, unit);
        m_step.to = m_step.from;
        m_step.lowest = m_step.to.z;
        return true;
    }
    // It begins where the one before ended.
    m_step.from = followsOn(motion) ? m_step.to : inUnit(frame, motion.from, unit);
    m_step.to = inUnit(frame, motion.to, unit);
    if (motion.kind == MotionKind::Arc) {
        m_step.centre = inUnit(frame, motion.centre, unit);
    }
    m_step.feed = motion.feedMode == FeedMode::InverseTime ? motion.feed : motion.feed / unit;
    m_step.lowest = lowestOf(m_step);
    followHeight();
    return true;
}

bool StepWalk::followsOn(const Motion& motion) const {
    if (m_step.index == 0) {
        return false;
    }
    const Motion& before = m_setting.reading.motions[m_step.index - 1];
    return isMove(before) && before.frame == motion.frame && before.to == motion.from;
}

// Where the machine's places lie above the work is set at the machine. The height is lost there
// until the program gives one of the work; a travel on the way to it comes from nobody knows where.
void StepWalk::followHeight() {
    if (m_step.motion->toMachinePlace) {
        m_isHeightLost = true;
        m_step.heightKnown = false;
        m_step.endKnown = false;
    } else if (m_isHeightLost && !m_step.relative &&
               std::abs(m_step.to.z - m_step.from.z) > kSame) {
        m_isHeightLost = false;
        m_step.heightKnown = !m_step.isSideways();
        m_step.endKnown = true;
    }
}

void StepWalk::passFacts(std::uint32_t line) {
    const std::vector<Fact>& facts = m_setting.reading.facts;
    for (; m_fact < facts.size() && facts[m_fact].line <= line; ++m_fact) {
        const Fact& fact = facts[m_fact];
        if (fact.kind == FactKind::Distance) {
            m_step.relative = fact.value == 91;
        } else if (fact.kind == FactKind::Feed) {
            m_step.feedLine = fact.line;
        }
    }
}

Place placeOf(const Setting& setting, const Step& step) {
    Place place = placeOf(setting, step.from, step.to);
    place.firstMotion = step.index;
    place.lastMotion = step.index;
    return place;
}

Place placeOf(const Setting& setting, const Point& from, const Point& to) {
    Place place;
    place.from = from;
    place.to = to;
    place.drawingFrom = onDrawing(setting, from);
    place.drawingTo = onDrawing(setting, to);
    return place;
}

}  // namespace gcode_check
