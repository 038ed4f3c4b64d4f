// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxObjectType.h>

#include "core/Point.h"

class kxObject;

namespace GCode {

/// One selected drawing object: what it is, and the points at which the tool path for it begins and
/// ends. The host owns `object`.
struct Entity {
    kxObjectType_e type = kxUnknownType;
    kxObject* object = nullptr;
    Point firstPoint;
    Point secondPoint;
    bool flipPoints = false;
};

}  // namespace GCode
