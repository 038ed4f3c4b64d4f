// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "core/PathEntity.h"
#include "core/Point.h"

namespace GCode {

/// sqrt((bx-ax)^2 + (by-ay)^2 + (bz-az)^2) in double.
double distance(const Point& a, const Point& b);

/// The selection in machining order: a greedy nearest-neighbour walk from `start` that returns
/// every entity exactly once, lines turned to begin at their nearer end. Of equally near entities a
/// line wins against what stands before it in the list; circles, arcs and points lose. Other types
/// are taken only when they head the remaining list and nothing is nearer than their first point.
std::vector<Entity> sortEntities(std::vector<Entity> selection, const Point& start);

}  // namespace GCode
