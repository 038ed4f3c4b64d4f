// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "RingProgram.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace {

constexpr std::size_t kLinesPerRing = 100;
constexpr int kChords = 96;
constexpr double kTurn = 2 * 3.14159265358979323846;

struct Centre {
    double x = 0;
    double y = 0;
};

Centre centreOf(std::size_t ring) {
    const std::size_t row = ring / 100;
    return {static_cast<double>(ring % 100) * 25, static_cast<double>(row) * 25};
}

// Without the four lines around them.
std::size_t ringsIn(std::size_t lines) {
    return (lines - 4) / kLinesPerRing;
}

template <typename... Numbers>
void add(std::string& text, const char* format, Numbers... numbers) {
    std::array<char, 100> line{};
    std::snprintf(line.data(), line.size(), format, numbers...);
    text += line.data();
}

}  // namespace

std::string ringProgram(std::size_t lines) {
    std::string text = "G21 G90 G17 G94\nS12000 M3\nG0 Z15\n";
    text.reserve(lines * 28);
    for (std::size_t ring = 0; ring < ringsIn(lines); ++ring) {
        const Centre centre = centreOf(ring);
        add(text, "(ring %zu)\nG0 X%.4f Y%.4f\nG1 Z-1.5 F120\n", ring, centre.x + 10, centre.y);
        for (int chord = 1; chord <= kChords; ++chord) {
            const double angle = chord * kTurn / kChords;
            add(text, "G1 X%.4f Y%.4f F600\n", centre.x + 10 * std::cos(angle),
                centre.y + 10 * std::sin(angle));
        }
        text += "G0 Z15\n";
    }
    for (std::size_t rest = 4 + ringsIn(lines) * kLinesPerRing; rest < lines; ++rest) {
        text += "(the end is near)\n";
    }
    return text + "M2\n";
}

std::string ringDrawing(std::size_t lines) {
    std::string text = "0\nSECTION\n2\nENTITIES\n";
    for (std::size_t ring = 0; ring < ringsIn(lines); ++ring) {
        const Centre centre = centreOf(ring);
        add(text, "0\nCIRCLE\n8\n0\n10\n%.1f\n20\n%.1f\n40\n10.0\n", centre.x, centre.y);
    }
    return text + "0\nENDSEC\n0\nEOF\n";
}
