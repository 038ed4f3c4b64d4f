// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "drawing/DxfRecord.h"

namespace kxdrawing {

/// How an entity's plane lies to the world's XY plane.
enum class Orientation { Upright, Mirrored, Oblique };
Orientation orientationOf(const DxfRecord& record);

/// Why an entity is left out before its geometry is looked at: its type, paper space, being
/// invisible, a number that is missing, its plane. Empty when it is not.
std::string reasonToLeaveOut(const DxfRecord& record);

}  // namespace kxdrawing
