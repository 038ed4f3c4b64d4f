// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "findings/Finding.h"

namespace gcode_check {

// At most 6 decimals without trailing zeros, "-0" as "0", very large ones with an exponent, the
// others as "infinite" and "not a number". Independent of the locale.
std::string numberText(double value, int decimals = 6);

// Numbers of one program with their units: "2.5 mm", "4 in/min".
class Wording {
public:
    explicit Wording(bool inches) : m_inches(inches) {}
    std::string length(double value) const;
    std::string feed(double value) const;
    std::string place(const PlanePoint& place) const;  // "X2 Y3"
    std::string height(double z) const;                // "Z-1.5"
    const char* unit() const { return m_inches ? "in" : "mm"; }

private:
    bool m_inches;
};

// "one line", "3 lines"
std::string counted(std::size_t count, const char* one, const char* many);

}  // namespace gcode_check
