// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "findings/Check.h"

// What is cut twice, found by looking at one place of an object after the other and at every two
// cuts: slow, and the judge of what is fast. Program and drawing are in millimetres, all that feeds
// sideways lies below the surface at 0.
class LiteralTwice {
public:
    // Where the rule draws its lines, to be moved a little to see what is too close to call.
    struct Bounds {
        double reach = 0.02;
        double parallel = 1e-3;  // sine
        double rough = 0.5;      // sine
        double mostOfCut = 0.5;
        double least = 0.2;  // millimetres
        double height = 1e-6;
    };
    struct Part {
        double from = 0;  // of the object's length, 0 to 1
        double to = 0;
    };
    struct Pair {
        std::uint32_t first = 0;  // line
        std::uint32_t second = 0;
    };
    struct Found {
        std::vector<Part> parts;  // long enough to be told
        std::vector<Pair> pairs;  // all that make them up
    };

    LiteralTwice(const gcode_check::Reading& reading, std::size_t places);

    Found look(const gcode_check::Shape& shape, const Bounds& bounds) const;
    static double lengthOf(const gcode_check::Shape& shape);

private:
    struct Spot {
        double x = 0;
        double y = 0;
        double alongX = 0;  // unit vector
        double alongY = 0;
    };
    struct Beside {
        bool isBeside = false;
        double off = 0;
        double alongX = 0;
        double alongY = 0;
        double z = 0;
    };
    // Stretches of places that lie beside a cut which runs along the object there.
    struct Stretch {
        std::size_t cut = 0;
        std::size_t begin = 0;
        std::size_t end = 0;  // last place
    };

    static Spot spotOf(const gcode_check::Shape& shape, double t);
    static Beside besideOf(const gcode_check::Motion& cut, const Spot& spot);
    std::vector<Stretch> stretchesOf(const std::vector<Spot>& spots, double length,
                                     const Bounds& bounds) const;

    void addParts(const std::vector<bool>& isTwice, double length, const Bounds& bounds,
                  Found& found) const;

    std::size_t m_places;
    std::vector<gcode_check::Motion> m_cuts;
};
