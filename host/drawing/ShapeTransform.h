// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "drawing/Affine.h"
#include "drawing/EntityModel.h"

namespace kxdrawing {

/// Appends the image of a shape. Circles and arcs stay what they are where lengths scale alike in
/// all directions of the plane, else they become ellipses and, in polylines, lines and ellipse
/// arcs; true when that happened.
bool transformShape(const Shape& shape, const Affine& map, std::vector<Shape>* result);

/// Why a shape can't be an object of a drawing: degenerate, or not finite within 1e12 drawing
/// units; nothing when it can.
std::optional<std::string> shapeProblem(const Shape& shape);

/// How many points a shape consists of, by what it takes in memory.
std::size_t pointsOf(const Shape& shape);

/// The object of a shape. Null for a spline whose numbers do not fit together.
kxObject_ptr makeObject(const kxString& layer, const Shape& shape);

}  // namespace kxdrawing
