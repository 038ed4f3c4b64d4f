// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <vector>

#include <kx/kxObject.h>

#include "findings/Shape.h"

namespace kxdrawing {

/// What a program that was made from some objects is held against.
struct CheckShapes {
    /// Lines, arcs, circles and points, in the order of the objects. Each is named by its kind, its
    /// object's place in the list from 1, and its layer on one line: "line 12 of layer CUT".
    gcode_check::Drawing drawing;
    /// The object that drawing.shapes[i] stands for, as its index in the list.
    std::vector<std::size_t> objectOfShape;
    /// How many objects, by type, give no tool path and so no shape.
    std::map<kxObjectType_e, std::size_t> noToolPath;
};

/// The unit is the value of the drawing's unit option (`kUnitInches`, else millimetres); none when
/// the drawing does not say.
CheckShapes checkShapes(const std::vector<kxObject_ptr>& objects, std::optional<short> unit);

}  // namespace kxdrawing
