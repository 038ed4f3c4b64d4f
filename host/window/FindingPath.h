// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "findings/Check.h"
#include "view/PathMark.h"

class CheckedProgram;

/// The moves that a finding is about, seen from above in drawing units, in the preview's colours:
/// red for a line with G0, green with another G word, blue without one; and the finding's place.
/// The drawing's unit in millimetres.
PathMark pathOfFinding(const gcode_check::CheckResult& result, const gcode_check::Finding& finding,
                       const CheckedProgram& program, double mmPerUnit);
