// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/drawing/CutList.h"

#include <algorithm>

namespace gcode_check {
namespace {

constexpr std::size_t kMostReserved = std::size_t{1} << 22U;
constexpr int kChordsPerTurn = 64;
constexpr int kChordsAtMost = 200000;  // of one arc, however often it turns
constexpr double kSpiralStep = 0.05;   // of the tolerance
constexpr int kSpiralArcsAtMost = 1000;

PlanePoint flat(const Point& place) {
    return {place.x, place.y};
}

}  // namespace

class CutCollector::Work {
public:
    Work(const Setting& setting, Heights heights) : m_setting(setting), m_heights(heights) {
        // Growing would copy all of them, and the pages that are not needed are never touched.
        m_list.cuts.reserve(std::min(setting.reading.motions.size(), kMostReserved));
    }

    // The drawing is the contour that was programmed, also where the tool's centre goes beside it.
    void step(const Step& asDone) {
        if (!asDone.isMove() || (asDone.motion->contour == kRoundCorner && !asDone.isRapid())) {
            return;
        }
        if (asDone.motion->contour >= 0) {
            programmed(programmedOf(m_setting, asDone));
        } else {
            programmed(asDone);
        }
    }

    CutList finish() {
        endVisit();
        return std::move(m_list);
    }

private:
    void programmed(const Step& step) {
        m_isOut = m_isOut || step.to.z >= m_setting.surface - kSame;
        const Stroke stroke = step.motion->stroke;
        // A cycle is at its next hole then, be it the same place.
        const bool endsHole = stroke == Stroke::Retract || stroke == Stroke::FedRetract;
        if (endsHole || (step.isRapid() && step.isSideways())) {
            endVisit();
        }
        if (step.isRapid()) {
            return;
        }
        m_anyHeight = m_heights == Heights::Any || !step.heightKnown;
        if (step.motion->kind == MotionKind::Arc) {
            arc(step);
        } else if (step.isSideways()) {
            segment(step, step.from, step.to);
        } else if (step.isDown()) {
            plunge(step);
        }
    }

    // A visit is what happens between two travels.
    void endVisit() {
        if (m_hasHole && !m_hasCut) {
            m_list.holes.push_back(m_hole);
        }
        m_hasHole = false;
        m_hasCut = false;
    }

    void plunge(const Step& step) {
        const bool below = step.to.z < m_setting.surface - kSame;
        if ((!below && !m_anyHeight) || !isFinite(flat(step.to))) {
            return;
        }
        const bool isOfCycle = step.motion->cycle != 0;
        // Pecks go deeper. Who has come out and goes down as far again, or comes from a cut, drills
        // a hole of its own.
        const bool isAgain = m_isOut && below && !isOfCycle &&
                             (m_hasCut || (m_hasHole && step.to.z >= m_hole.bottom - kSame));
        const bool isOther = m_hasHole ? isOfCycle != m_hole.inCycle : isOfCycle && m_hasCut;
        if (isOther || isAgain) {
            endVisit();
        }
        m_isOut = false;
        if (!m_hasHole || step.to.z < m_hole.bottom) {
            m_hole = {flat(step.to), step.to.z, static_cast<std::uint32_t>(step.index), step.line(),
                      isOfCycle};
        }
        m_hasHole = true;
    }

    // The stretch of a straight change of height that cuts, as parameters. False: none.
    bool clip(double fromZ, double toZ, double& begin, double& end) const {
        begin = 0;
        end = 1;
        const double bound = m_setting.surface - kSame;
        if (m_anyHeight || (fromZ < bound && toZ < bound)) {
            return true;
        }
        if (fromZ >= bound && toZ >= bound) {
            return false;
        }
        const double through = (m_setting.surface - fromZ) / (toZ - fromZ);
        (fromZ < bound ? end : begin) = std::clamp(through, 0.0, 1.0);
        return true;
    }

    void addSegment(const Step& step, const Point& from, const Point& to) {
        const PlanePoint a = flat(from);
        const PlanePoint b = flat(to);
        if (!isFinite(a) || !isFinite(b) || (a.x == b.x && a.y == b.y)) {
            return;
        }
        m_hasCut = true;
        m_list.cuts.push_back(
            {a, b, from.z, to.z, static_cast<std::uint32_t>(step.index), Cut::kStraight});
    }

    void addArc(const Step& step, const CutArc& arc, double fromZ, double toZ) {
        if (arc.curve.kind == Curve::Kind::Point || !isFinite(arc.curve)) {
            return;
        }
        m_hasCut = true;
        m_list.cuts.push_back({{},
                               {},
                               arc.reversed ? toZ : fromZ,
                               arc.reversed ? fromZ : toZ,
                               static_cast<std::uint32_t>(step.index),
                               static_cast<std::uint32_t>(m_list.arcs.size())});
        m_list.arcs.push_back(arc);
    }

    void segment(const Step& step, const Point& from, const Point& to) {
        double begin = 0;
        double end = 1;
        if (!clip(from.z, to.z, begin, end)) {
            // Through the air, so this is a travel.
            endVisit();
            return;
        }
        const auto at = [&from, &to](double t) {
            return Point{from.x + (to.x - from.x) * t, from.y + (to.y - from.y) * t,
                         from.z + (to.z - from.z) * t};
        };
        const Point first = begin == 0 ? from : at(begin);
        const Point last = end == 1 ? to : at(end);
        addSegment(step, first, last);
    }

    void arc(const Step& step) {
        const ArcSpan span = spanOf(step);
        const double spiral = std::abs(span.endRadius - span.radius);
        if (step.motion->plane != Plane::XY) {
            uprightArc(step, span);
            return;
        }
        const double parts = std::ceil(spiral / (kSpiralStep * m_setting.tolerance));
        const int count =
            parts > 1 ? static_cast<int>(std::min<double>(parts, kSpiralArcsAtMost)) : 1;
        for (int part = 0; part < count; ++part) {
            flatArc(step, span, static_cast<double>(part) / count,
                    static_cast<double>(part + 1) / count);
        }
    }

    // In G18 and G19: chords that leave the arc by a part of the tolerance, with their ends where
    // it goes through the surface, so that what cuts begins and ends exactly.
    void uprightArc(const Step& step, const ArcSpan& span) {
        const double off = kSpiralStep * m_setting.tolerance;
        const double radius = std::max(span.radius, span.endRadius);
        const double half = std::acos(std::clamp(1 - off / radius, -1.0, 1.0));
        const double wanted = std::ceil(std::abs(span.sweep) / (2 * std::max(half, 1e-9)));
        const double least = std::ceil(std::abs(span.sweep) / (2 * kPi) * kChordsPerTurn);
        const auto count =
            static_cast<int>(std::min<double>(std::max({wanted, least, 1.0}), kChordsAtMost));
        double before = 0;
        for (int part = 1; part <= count; ++part) {
            const double next = static_cast<double>(part) / count;
            const double turning = turningBetween(step, span, before, next);
            toSurface(step, span, before, turning);
            toSurface(step, span, turning, next);
            before = next;
        }
    }

    // Where the arc stops sinking or rising; the end of the stretch when it does not.
    static double turningBetween(const Step& step, const ArcSpan& span, double from, double to) {
        const double across = step.motion->plane == Plane::XZ ? 0 : kPi / 2;
        const double first = (span.start + span.sweep * from - across) / kPi;
        const double last = (span.start + span.sweep * to - across) / kPi;
        const double turn = std::ceil(std::min(first, last));
        return turn > std::min(first, last) && turn < std::max(first, last)
                   ? std::clamp((turn * kPi + across - span.start) / span.sweep, from, to)
                   : to;
    }

    // A stretch on which the arc only sinks or only rises.
    void toSurface(const Step& step, const ArcSpan& span, double from, double to) {
        if (from == to) {
            return;
        }
        const Point first = pointOn(step, span, from);
        const Point last = pointOn(step, span, to);
        const double surface = m_setting.surface;
        if ((first.z < surface) == (last.z < surface) || m_anyHeight) {
            segment(step, first, last);
            return;
        }
        double below = first.z < surface ? from : to;
        double above = first.z < surface ? to : from;
        for (int round = 0; round < 50; ++round) {
            const double middle = (below + above) / 2;
            (pointOn(step, span, middle).z < surface ? below : above) = middle;
        }
        Point through = pointOn(step, span, below);
        through.z = surface;
        segment(step, first, through);
        segment(step, through, last);
    }

    void flatArc(const Step& step, const ArcSpan& span, double from, double to) {
        const double rise = step.to.z - step.from.z;
        double begin = 0;
        double end = 1;
        if (!clip(step.from.z + rise * from, step.from.z + rise * to, begin, end)) {
            endVisit();
            return;
        }
        const double first = from + (to - from) * begin;
        const double last = from + (to - from) * end;
        const double radius = span.radius + (span.endRadius - span.radius) * (first + last) / 2;
        const Curve curve = arcCurve(flat(step.centre), radius, span.start + span.sweep * first,
                                     span.sweep * (last - first));
        addArc(step, {curve, span.sweep < 0}, step.from.z + rise * first,
               step.from.z + rise * last);
    }

    const Setting& m_setting;
    Heights m_heights;
    CutList m_list;
    Hole m_hole;
    bool m_hasHole = false;
    bool m_hasCut = false;
    bool m_isOut = false;  // of the material, since the last stroke
    bool m_anyHeight = false;
};

CutCollector::CutCollector(const Setting& setting, Heights heights)
    : m_work(std::make_unique<Work>(setting, heights)) {}

CutCollector::~CutCollector() = default;

void CutCollector::step(const Step& step) {
    m_work->step(step);
}

CutList CutCollector::finish() {
    return m_work->finish();
}

CutList cutsOf(const Setting& setting, Heights heights) {
    CutCollector collector(setting, heights);
    StepWalk walk(setting);
    const std::size_t steps = setting.reading.motions.size();
    while (walk.next() && setting.goesOn(walk.step().index, steps)) {
        collector.step(walk.step());
    }
    return collector.finish();
}

}  // namespace gcode_check
