// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "geometry/Curve.h"
#include "geometry/Intervals.h"

namespace gcode_check {

enum class Ends : std::uint8_t {
    Round,   // all that is within reach of the other curve
    Square,  // only what lies beside it, not what lies beyond its ends
};

// A place as seen from the centre of a circle.
struct CentredPlace {
    PlanePoint out;
    double square = 0;  // of the distance
};

// Gathers what of an arc segments lie beside: the parts between their ends, as seen from the
// centre. Cheap; of a row of segments that go round a full turn only the ends are looked at.
class ChordsOfArc {
public:
    // Refers to the arc and keeps the room of `parts`, which it empties.
    ChordsOfArc(const Curve& arc, double reach, std::vector<Interval>& parts);

    // False: nothing is gathered, the segment is to be looked at by `appendNear`. Otherwise it
    // stays within reach of the arc, and the part of the arc within reach of it.
    bool add(const Curve& segment);
    // When all are added: the parts, which may overlap, are all there.
    void finish() { close(); }
    // So far beyond the parts' ends may lie what is beside the segments, all ends together, as
    // parameter of the arc.
    double slack() const { return m_slack; }

private:
    struct End {
        PlanePoint place;
        CentredPlace seen;
        double radius = 0;
        double lean = 0;        // so much slack a length along the segment
        bool isBefore = false;  // of a full turn: in the half of it that ends where it begins
    };
    // Segments that go on where the one before ended, round the same way.
    struct Row {
        bool isOpen = false;
        bool isReversed = false;
        int passes = 0;  // of the full turn's begin
        End first;
        End last;
    };

    End endAt(const PlanePoint& place, const CentredPlace& seen) const;
    double slackAt(const End& end, const PlanePoint& along) const;
    double parameterAt(const End& end) const;
    bool close();

    const Curve& m_arc;
    double m_reach;
    bool m_isFullTurn;
    PlanePoint m_begin;  // direction from the centre
    double m_leanPerOff;
    double m_slack = 0;
    Row m_row;
    std::vector<Interval>& m_parts;
};

// Whether nothing of one is within reach of the other. Cheap; false too often, never true when
// something is.
bool areClear(const Curve& curve, const Curve& other, double reach);

// Appends the parts of `curve` within `reach` of `other`. Exact: the parts end where the distance
// is the reach, apart from rounding. A point has the part 0 to 1 or none.
void appendNear(const Curve& curve, const Curve& other, double reach, Ends ends,
                std::vector<Interval>& parts);

}  // namespace gcode_check
