// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "findings/Step.h"
#include "geometry/Curve.h"

namespace gcode_check {

// One stretch at feed in the material, seen from above. Program coordinates and unit.
// There are very many, nearly all of them straight.
struct Cut {
    static constexpr std::uint32_t kStraight = std::numeric_limits<std::uint32_t>::max();
    PlanePoint a;  // ends of a straight one
    PlanePoint b;
    double startZ = 0;  // where the curve begins
    double endZ = 0;
    std::uint32_t motion = 0;       // of Reading::motions
    std::uint32_t arc = kStraight;  // else of CutList::arcs
};

struct CutArc {
    Curve curve;
    bool reversed = false;  // the tool runs against the curve's parameter
};

// Straight down and out again.
struct Hole {
    PlanePoint place;
    double bottom = 0;
    std::uint32_t motion = 0;
    std::uint32_t line = 0;
    bool inCycle = false;
};

// All that a program cuts, in its order.
struct CutList {
    std::vector<Cut> cuts;
    std::vector<CutArc> arcs;
    std::vector<Hole> holes;

    // Never a point.
    Curve curveOf(const Cut& cut) const {
        if (cut.arc != Cut::kStraight) {
            return arcs[cut.arc].curve;
        }
        Curve curve;
        curve.kind = Curve::Kind::Segment;
        curve.a = cut.a;
        curve.b = cut.b;
        return curve;
    }
    Curve curveAt(std::size_t index) const { return curveOf(cuts[index]); }
    bool isReversed(const Cut& cut) const {
        return cut.arc != Cut::kStraight && arcs[cut.arc].reversed;
    }
};

enum class Heights : std::uint8_t {
    BelowSurface,  // what feeds below the surface cuts
    Any,           // what feeds cuts: the heights are known to be wrong
};

// Gathers cuts from one step after the other. What lies on infinite or unusable places is left out.
class CutCollector {
public:
    CutCollector(const Setting& setting, Heights heights);
    CutCollector(const CutCollector&) = delete;
    CutCollector& operator=(const CutCollector&) = delete;
    ~CutCollector();

    void step(const Step& step);
    // Leaves nothing here.
    CutList finish();

private:
    class Work;
    std::unique_ptr<Work> m_work;
};

// Those of all steps.
CutList cutsOf(const Setting& setting, Heights heights);

}  // namespace gcode_check
