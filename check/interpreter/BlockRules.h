// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include "interpreter/Block.h"

namespace gcode_check {

constexpr int kNoMotion = 800;

// By which motion code a line moves: its own, the one in force, or none.
int motionOf(const Block& block, int mode);

// Do the words of the line belong together, with `mode` the motion code in force before it?
bool checkBlock(const Block& block, int mode, Fault& fault);

}  // namespace gcode_check
