// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "interpreter/CompensationGeometry.h"

#include <array>
#include <cmath>

namespace gcode_check {
namespace {

constexpr double kPi = 3.14159265358979323846;
// A corner that turns by less than that (radians) is none, nor is one that turns back by as much.
constexpr double kNoTurn = 0.05;

AxisPair operator+(const AxisPair& a, const AxisPair& b) {
    return {a.first + b.first, a.second + b.second};
}
AxisPair operator-(const AxisPair& a, const AxisPair& b) {
    return {a.first - b.first, a.second - b.second};
}
AxisPair operator*(const AxisPair& a, double factor) {
    return {a.first * factor, a.second * factor};
}
double dot(const AxisPair& a, const AxisPair& b) {
    return a.first * b.first + a.second * b.second;
}
double cross(const AxisPair& a, const AxisPair& b) {
    return a.first * b.second - a.second * b.first;
}
AxisPair leftOf(const AxisPair& direction) {
    return {-direction.second, direction.first};
}
AxisPair unit(const AxisPair& vector) {
    return vector * (1 / std::hypot(vector.first, vector.second));
}

AxisPair directionAt(const ProgrammedPath& path, const AxisPair& point) {
    if (!path.isArc) {
        return unit(path.end - path.start);
    }
    const AxisPair outward = unit(point - path.centre);
    return path.isClockwise ? leftOf(outward) * -1 : leftOf(outward);
}

// How far from its centre the tool goes along an arc. The radius is that of the end.
double toolRadius(const ProgrammedPath& arc, double left) {
    return distance(arc.end, arc.centre) + (arc.isClockwise ? left : -left);
}

bool isToolOutside(const ProgrammedPath& arc, double left) {
    return arc.isClockwise == (left > 0);
}

// From -pi to pi, counter-clockwise is positive.
double turnBetween(const ProgrammedPath& before, const ProgrammedPath& after) {
    const AxisPair in = directionAt(before, before.end);
    const AxisPair out = directionAt(after, after.start);
    return std::atan2(cross(in, out), dot(in, out));
}

// Turned right round: what lies beyond is decided by the way the arc bends.
bool isConcaveReversal(const ProgrammedPath& before, const ProgrammedPath& after, double left) {
    if (after.isArc) {
        return isToolOutside(after, left);
    }
    return before.isArc && isToolOutside(before, left);
}

// Along what the tool's centre goes, with no ends.
struct Track {
    AxisPair point;      // of a line
    AxisPair direction;  // of a line
    AxisPair centre;     // of a circle
    double radius = 0;
    bool isCircle = false;
    bool isClockwise = false;
};
using Meetings = std::array<AxisPair, 2>;

AxisPair directionAt(const Track& track, const AxisPair& point) {
    if (!track.isCircle) {
        return track.direction;
    }
    const AxisPair left = leftOf(point - track.centre);
    return track.isClockwise ? left * -1 : left;
}

std::optional<Meetings> lineAndCircle(const Track& line, const Track& circle) {
    const AxisPair foot =
        line.point + line.direction * dot(circle.centre - line.point, line.direction);
    const double away = distance(foot, circle.centre);
    if (away > circle.radius) {
        return std::nullopt;
    }
    const double along = std::sqrt((circle.radius - away) * (circle.radius + away));
    return Meetings{foot - line.direction * along, foot + line.direction * along};
}

std::optional<Meetings> twoCircles(const Track& a, const Track& b) {
    const double apart = distance(a.centre, b.centre);
    if (apart == 0 || apart > a.radius + b.radius || apart < std::abs(a.radius - b.radius)) {
        return std::nullopt;
    }
    const double along = (apart + (a.radius - b.radius) * (a.radius + b.radius) / apart) / 2;
    const double height = std::sqrt(std::fmax(0, (a.radius - along) * (a.radius + along)));
    const AxisPair direction = unit(b.centre - a.centre);
    const AxisPair foot = a.centre + direction * along;
    return Meetings{foot + leftOf(direction) * height, foot - leftOf(direction) * height};
}

Track circleOf(const ProgrammedPath& arc, double left) {
    Track result;
    result.isCircle = true;
    result.isClockwise = arc.isClockwise;
    result.centre = arc.centre;
    result.radius = toolRadius(arc, left);
    if (arc.entryCentre) {
        result.centre = *arc.entryCentre;
        result.radius = distance(*arc.entryCentre, arc.start);
    }
    return result;
}

Track lineOf(const ProgrammedPath& line, const AxisPair& through, double left) {
    Track result;
    result.direction = directionAt(line, line.end);
    result.point = through + leftOf(result.direction) * left;
    return result;
}

// The corner as the arc behind it has it, whose radius is that of its end.
AxisPair startOnCircle(const ProgrammedPath& arc) {
    return arc.centre + unit(arc.start - arc.centre) * distance(arc.end, arc.centre);
}

AxisPair meetingOfLines(const ProgrammedPath& before, const ProgrammedPath& after, double left) {
    const AxisPair in = leftOf(directionAt(before, before.end));
    const AxisPair out = leftOf(directionAt(after, after.start));
    return before.end + (in + out) * (left / (1 + dot(in, out)));
}

double sweepOf(const ProgrammedPath& arc, const AxisPair& from, const AxisPair& to) {
    const AxisPair a = from - arc.centre;
    const AxisPair b = to - arc.centre;
    const double angle = std::atan2(cross(a, b), dot(a, b)) * (arc.isClockwise ? -1 : 1);
    return angle < 0 ? angle + 2 * kPi : angle;
}

}  // namespace

double distance(const AxisPair& a, const AxisPair& b) {
    return std::hypot(a.first - b.first, a.second - b.second);
}

double lengthOf(const ProgrammedPath& path) {
    return distance(path.start, path.end);
}

double arcLength(const ProgrammedPath& arc) {
    const double sweep = sweepOf(arc, arc.start, arc.end);
    return distance(arc.start, arc.centre) * (sweep == 0 ? 2 * kPi : sweep);
}

bool hasRoom(const ProgrammedPath& path, double left) {
    return !path.isArc || toolRadius(path, left) > 0;
}

AxisPair besideStart(const ProgrammedPath& path, double left) {
    return path.start + leftOf(directionAt(path, path.start)) * left;
}

AxisPair besideEnd(const ProgrammedPath& path, double left) {
    return path.end + leftOf(directionAt(path, path.end)) * left;
}

Corner cornerOf(const ProgrammedPath& before, const ProgrammedPath& after, double left) {
    const double turn = turnBetween(before, after) * (left < 0 ? -1 : 1);
    if (std::abs(turn) < kNoTurn || left == 0) {
        return Corner::Straight;
    }
    const bool isReversal = std::abs(turn) > kPi - kNoTurn;
    const bool isConcave = isReversal ? isConcaveReversal(before, after, left) : turn > 0;
    return isConcave ? Corner::Concave : Corner::Convex;
}

std::optional<AxisPair> meetingPoint(const ProgrammedPath& before, const ProgrammedPath& after,
                                     double left) {
    if (!before.isArc && !after.isArc) {
        return meetingOfLines(before, after, left);
    }
    const Track in =
        before.isArc ? circleOf(before, left) : lineOf(before, startOnCircle(after), left);
    const Track out = after.isArc ? circleOf(after, left) : lineOf(after, after.start, left);
    const auto both = !in.isCircle    ? lineAndCircle(in, out)
                      : !out.isCircle ? lineAndCircle(out, in)
                                      : twoCircles(in, out);
    if (!both) {
        return std::nullopt;
    }
    // At one of the two the tool turns to its own side.
    const double turn = cross(directionAt(in, (*both)[0]), directionAt(out, (*both)[0])) * left;
    return (*both)[turn > 0 ? 0 : 1];
}

bool isTurnedRound(const ProgrammedPath& path, const AxisPair& from, const AxisPair& to,
                   double arcTolerance) {
    if (!path.isArc) {
        return dot(to - from, path.end - path.start) < 0;
    }
    const double programmed = sweepOf(path, path.start, path.end);
    const bool isFull = programmed == 0;
    return !isFull && sweepOf(path, from, to) > programmed + arcTolerance;
}

std::optional<AxisPair> entryCentre(const ProgrammedPath& path, double left) {
    const AxisPair to = besideEnd(path, left);
    const AxisPair inward = unit(path.centre - path.end);
    const AxisPair chord = path.start - to;
    const double radius = dot(chord, chord) / (2 * dot(chord, inward));
    return radius > 0 ? std::optional<AxisPair>(to + inward * radius) : std::nullopt;
}

}  // namespace gcode_check
