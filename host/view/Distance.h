// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "view/Outline.h"
#include "view/WorldBox.h"

namespace outline {

/// Distances of a point from the true curve; from a note 0 inside of its box.
double distance(const Segment& segment, const QPointF& point);
double distance(const Arc& arc, const QPointF& point);
double distance(const Note& note, const QPointF& point);
/// The distance from an object, exact to `precision`; a distance above `limit` may be any above it.
double distance(const Outlines& outlines, std::size_t object, const QPointF& point, double limit,
                double precision);

/// Whether any point lies inside of the box; edges belong to it.
bool touches(const Segment& segment, const WorldBox& box);
bool touches(const Arc& arc, const WorldBox& box);
bool touches(const Note& note, const WorldBox& box);
bool touches(const Outlines& outlines, std::size_t object, const WorldBox& box);

}  // namespace outline
