// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstddef>

#include "findings/Setting.h"

namespace gcode_check {

// One motion in program coordinates and the program's unit.
struct Step {
    const Motion* motion = nullptr;
    std::size_t index = 0;  // of Reading::motions
    Point from;
    Point to;
    Point centre;
    double lowest = 0;      // least z on the way
    double feed = 0;        // per minute in the program's unit, else as Motion::feed
    bool relative = false;  // G91
    bool heightKnown =
        false;  // the height above the work has been told, and is not a place of the machine
    bool endKnown = false;       // the same of its end alone
    std::uint32_t feedLine = 0;  // of the F word; 0: none yet

    std::uint32_t line() const { return motion->line; }
    bool isMove() const { return gcode_check::isMove(*motion); }
    bool isRapid() const { return motion->kind == MotionKind::Rapid; }
    bool isFeed() const {
        return motion->kind == MotionKind::Feed || motion->kind == MotionKind::Arc;
    }
    bool isSideways() const {
        return motion->kind == MotionKind::Arc || std::abs(to.x - from.x) > kSame ||
               std::abs(to.y - from.y) > kSame;
    }
    bool isDown() const { return !isSideways() && to.z < from.z - kSame; }
    bool isUp() const { return !isSideways() && to.z > from.z + kSame; }
};

// Angle and height along an arc. Its plane has the axes u, v and w, as seen by G2 and G3.
struct ArcSpan {
    double radius = 0;
    double start = 0;  // radians, from u to v
    double sweep = 0;  // below 0: clockwise; more than a full turn: a helix
    double endRadius = 0;
};
ArcSpan spanOf(const Step& arc);
struct ArcRadii {
    double start = 0;
    double end = 0;
};
ArcRadii radiiOf(const Step& arc);
Point pointOn(const Step& arc, const ArcSpan& span, double t);

// The step as it was programmed: without the radius compensation that moves the tool beside it.
Step programmedOf(const Setting& setting, const Step& step);

// Motions one after the other as steps.
class StepWalk {
public:
    explicit StepWalk(const Setting& setting) : m_setting(setting) {}
    bool next();
    const Step& step() const { return m_step; }

private:
    void passFacts(std::uint32_t line);
    void followHeight();
    // In the same system from where the move before ended.
    bool followsOn(const Motion& motion) const;

    const Setting& m_setting;
    Step m_step;
    std::size_t m_next = 0;
    std::size_t m_fact = 0;
    bool m_isHeightLost = false;
};

// A place for findings: the whole of a step, or a part of it.
Place placeOf(const Setting& setting, const Step& step);
Place placeOf(const Setting& setting, const Point& from, const Point& to);

}  // namespace gcode_check
