// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "MillingProgram.h"

#include <cstdlib>
#include <random>

namespace {

/// A coordinate with three decimals, from -100 to 100; the same with every standard library.
std::string coordinate(std::mt19937_64* random) {
    const auto thousandths = static_cast<int>((*random)() % 200'001) - 100'000;
    const int size = std::abs(thousandths);
    const std::string decimals = std::to_string(1000 + size % 1000).substr(1);
    return (thousandths < 0 ? "-" : "") + std::to_string(size / 1000) + "." + decimals;
}

}  // namespace

std::string millingProgram(std::size_t lines) {
    std::mt19937_64 random(1);
    std::string text = "(surface)\nG21 G90\nG0 Z5\n";
    text.reserve(lines * 36);
    for (std::size_t i = 3; i < lines; ++i) {
        const std::string xy = "X" + coordinate(&random) + " Y" + coordinate(&random);
        if (i % 100 == 0) {
            text += "(next row)\n";
        } else if (i % 100 == 1) {
            text += "G0 Z5 " + xy + "\n";
        } else if (i % 50 == 2) {
            text += "G2 " + xy + " I1.5 J-2\n";
        } else if (i % 1000 == 503) {
            text += "G83 " + xy + " Z-6 R2 Q2 F100\n";
        } else {
            text += "G1 " + xy + " Z" + coordinate(&random) + " F800\n";
        }
    }
    text.shrink_to_fit();
    return text;
}
