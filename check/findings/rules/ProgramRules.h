// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include "findings/Findings.h"
#include "findings/Step.h"

namespace gcode_check {

// The tool is left in the material by the program's last move.
void findEndInMaterial(const Setting& setting, const Step& last, Findings& findings);

// No end code; text behind the end; two ends.
void findEnds(const Setting& setting, Findings& findings);

// No unit word; two that differ.
void findUnits(const Setting& setting, Findings& findings);

// Nothing moves, in a program that is read to its end.
void findNoMotion(const Setting& setting, Findings& findings);

// Line numbers that do not grow.
void findLineNumbers(const Setting& setting, Findings& findings);

}  // namespace gcode_check
