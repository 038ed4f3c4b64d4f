// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

namespace GCode {

/// a - b with each operand rounded up to a multiple of 0.0001 first. A difference of at most 0.01
/// in magnitude, in either unit, is +0; a NaN passes through.
double roundedDifference(double a, double b);

}  // namespace GCode
