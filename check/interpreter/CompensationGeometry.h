// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace gcode_check {

// Where a round tool's centre goes beside programmed lines and arcs. All in one plane, seen from
// the positive end of its third axis, in any one unit. `left` is the tool's radius when the tool is
// to the left of the path, and minus the radius when it is to the right.

// Along the first and the second axis of the plane.
struct AxisPair {
    double first = 0;
    double second = 0;
};

// A programmed line or arc.
struct ProgrammedPath {
    AxisPair start;
    AxisPair end;
    AxisPair centre;  // of an arc
    bool isArc = false;
    bool isClockwise = false;
    // Of an arc as the first move: round what the tool goes.
    std::optional<AxisPair> entryCentre;
};

enum class Corner {
    Straight,  // next to none: the tool goes on from where it is
    Convex,    // the tool goes round the corner
    Concave,   // the tool turns before the corner
};

double distance(const AxisPair& a, const AxisPair& b);
// From its start to its end.
double lengthOf(const ProgrammedPath& path);
// Along an arc of up to a full turn.
double arcLength(const ProgrammedPath& arc);

// Has an arc room for the tool? Lines have.
bool hasRoom(const ProgrammedPath& path, double left);
// The centre of the tool beside the path's ends.
AxisPair besideStart(const ProgrammedPath& path, double left);
AxisPair besideEnd(const ProgrammedPath& path, double left);

Corner cornerOf(const ProgrammedPath& before, const ProgrammedPath& after, double left);
// Of a concave corner: where the tool touches both paths. None: there it does not fit in.
std::optional<AxisPair> meetingPoint(const ProgrammedPath& before, const ProgrammedPath& after,
                                     double left);
// From `from` to `to`, both beside the path: is that the other way than the programmed one? An arc
// may go further than programmed by so many radians.
bool isTurnedRound(const ProgrammedPath& path, const AxisPair& from, const AxisPair& to,
                   double arcTolerance);

// The centre of the arc that begins where `path` begins and ends beside its end, in its direction.
// None: such an arc would turn the other way.
std::optional<AxisPair> entryCentre(const ProgrammedPath& path, double left);

}  // namespace gcode_check
