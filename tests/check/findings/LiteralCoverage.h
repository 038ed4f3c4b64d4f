// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

#include "findings/Check.h"

// What is cut and what is not, found by looking at one place after the other: slow, and the judge
// of what is fast. Program and drawing are in millimetres, the surface is at 0.
class LiteralCoverage {
public:
    // Looks every `spacing` millimetres.
    LiteralCoverage(const gcode_check::Reading& reading, double spacing);

    // The worst distance from a place of the shape to the nearest cut.
    double farthestFromCuts(const gcode_check::Shape& shape) const;
    // The worst distance from what a motion cuts to the nearest shape; 0 when it cuts nothing.
    double farthestFromShapes(std::size_t motion,
                              const std::vector<gcode_check::Shape>& shapes) const;

private:
    struct Spot {
        double x = 0;
        double y = 0;
    };
    static std::vector<Spot> spotsOf(const gcode_check::Shape& shape, double spacing);
    static double farthest(const std::vector<Spot>& from, const std::vector<Spot>& to);

    double m_spacing;
    std::vector<std::vector<Spot>> m_cuts;  // by motion
    std::vector<Spot> m_all;
};
