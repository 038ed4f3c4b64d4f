// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <kx/kxObject.h>

/// Ends the process unless all numbers of an object are finite and within what a drawing may hold.
void checkNumbers(kxObject& object);
/// The same of a piece of an exploded object, whose numbers are computed.
void checkPieceNumbers(kxObject& piece);

/// Explodes an object and ends the process unless the pieces are lines, arcs and circles on its
/// layer, bounded in number, join, and lie where the object lies.
void checkExplode(kxObject& object);
