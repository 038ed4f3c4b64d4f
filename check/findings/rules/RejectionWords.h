// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "findings/Setting.h"

namespace gcode_check {

// What is told of a line that a controller rejects: what was found, what would have been right,
// and what mends it.
std::string rejectionSentence(const Setting& setting, const Diagnostic& diagnostic,
                              std::string_view text);

// What is told of a line that is not interpreted: what it is, what was not checked, what to do.
std::string notInterpretedSentence(const Setting& setting, const Diagnostic& diagnostic,
                                   std::string_view text);

}  // namespace gcode_check
