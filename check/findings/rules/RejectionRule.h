// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include "findings/Findings.h"
#include "findings/Setting.h"

namespace gcode_check {

// What the interpreter has to say: lines that a controller rejects or that are not interpreted.
void findRejections(const Setting& setting, Findings& findings);

}  // namespace gcode_check
