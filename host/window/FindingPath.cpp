// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/FindingPath.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "window/CheckedProgram.h"

namespace {

using gcode_check::Motion;
using gcode_check::MotionKind;
using gcode_check::Plane;
using gcode_check::Point;

constexpr double kTurn = 6.283185307179586;
/// Of an arc, one step is about two degrees.
constexpr double kStep = kTurn / 180;
constexpr int kMaxSteps = 1800;
/// A finding can be about a whole program; so many of its moves are shown.
constexpr std::size_t kMaxMoves = 2000;

const QColor kRapid(178, 0, 0);
const QColor kFeed(0, 255, 0);
const QColor kWithoutCode(0, 0, 255);

QColor colorOf(const Motion& motion, const CheckedProgram& program) {
    const std::string_view line = program.line(motion.line);
    if (line.find_first_of("Gg") == std::string_view::npos) {
        return kWithoutCode;
    }
    return motion.kind == MotionKind::Rapid ? kRapid : kFeed;
}

/// The coordinates of an arc's plane, in the order in which it turns counter-clockwise.
std::array<double Point::*, 2> axesOf(Plane plane) {
    switch (plane) {
        case Plane::XZ:
            return {&Point::z, &Point::x};
        case Plane::YZ:
            return {&Point::y, &Point::z};
        case Plane::XY:
            break;
    }
    return {&Point::x, &Point::y};
}

double sweepOf(double start, double end, int turns) {
    double part = std::fmod(end - start, kTurn);
    if (turns > 0 && part <= 0) {
        part += kTurn;
    } else if (turns < 0 && part >= 0) {
        part -= kTurn;
    }
    const int whole = turns > 0 ? turns - 1 : std::min(turns + 1, 0);
    return part + whole * kTurn;
}

/// Machine coordinates; the ends are the motion's own.
std::vector<Point> pointsOf(const Motion& motion) {
    if (motion.kind != MotionKind::Arc) {
        return {motion.from, motion.to};
    }
    const auto [first, second] = axesOf(motion.plane);
    const auto angleOf = [&, first = first, second = second](const Point& point) {
        return std::atan2(point.*second - motion.centre.*second,
                          point.*first - motion.centre.*first);
    };
    const double radius = std::hypot(motion.from.*first - motion.centre.*first,
                                     motion.from.*second - motion.centre.*second);
    const double start = angleOf(motion.from);
    const double sweep = sweepOf(start, angleOf(motion.to), motion.turns);
    const int steps = static_cast<int>(
        std::clamp(std::ceil(std::abs(sweep) / kStep), 1.0, static_cast<double>(kMaxSteps)));
    std::vector<Point> points{motion.from};
    for (int step = 1; step < steps; ++step) {
        const double angle = start + sweep * step / steps;
        Point point = motion.from;
        point.*first = motion.centre.*first + radius * std::cos(angle);
        point.*second = motion.centre.*second + radius * std::sin(angle);
        points.push_back(point);
    }
    points.push_back(motion.to);
    return points;
}

QPolygonF seenFromAbove(const Motion& motion, const gcode_check::Frame& frame, double mmPerUnit) {
    QPolygonF polygon;
    for (const Point& machine : pointsOf(motion)) {
        const Point point = toProgram(frame, machine);
        polygon.append(QPointF(point.x, point.y) / mmPerUnit);
    }
    return polygon;
}

}  // namespace

PathMark pathOfFinding(const gcode_check::CheckResult& result, const gcode_check::Finding& finding,
                       const CheckedProgram& program, double mmPerUnit) {
    PathMark mark;
    if (!finding.place) {
        return mark;
    }
    const gcode_check::Place& place = *finding.place;
    const gcode_check::Reading& reading = result.reading;
    if (place.firstMotion && place.lastMotion) {
        const std::size_t end = std::min(
            {*place.lastMotion + 1, reading.motions.size(), *place.firstMotion + kMaxMoves});
        for (std::size_t i = *place.firstMotion; i < end; ++i) {
            const Motion& motion = reading.motions[i];
            if (isMove(motion)) {
                mark.pieces.push_back(
                    {seenFromAbove(motion, reading.frames.at(motion.frame), mmPerUnit),
                     colorOf(motion, program)});
            }
        }
    }
    if (place.drawingFarthest) {
        mark.place = QPointF(place.drawingFarthest->x, place.drawingFarthest->y);
        return mark;
    }
    // Between the ends of several moves there need be none of them.
    const double part = place.firstMotion == place.lastMotion ? 0.5 : 0;
    mark.place = QPointF(place.drawingFrom.x + (place.drawingTo.x - place.drawingFrom.x) * part,
                         place.drawingFrom.y + (place.drawingTo.y - place.drawingFrom.y) * part);
    return mark;
}
