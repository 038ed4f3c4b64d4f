// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <map>
#include <optional>
#include <vector>

#include <kx/host/kxHostDocument.h>

namespace kxdrawing {

/// How far the pieces of an ellipse or spline may lie from it, in drawing units.
constexpr double kDefaultTolerance = 0.01;
/// How many pieces are made at one time.
constexpr std::size_t kMostPieces = 10000000;

/// The lines, circle arcs and circles that stand for a polyline, ellipse or spline, on its layer,
/// in its direction. Where pieces join, their ends are equal bit for bit. Segments of no length
/// are dropped. A tolerance that is not greater than 0 counts as the default. Nothing when the
/// object is of another kind or has no segment with a length.
std::optional<std::vector<kxObject_ptr>> explodeObject(kxObject& object,
                                                       double tolerance = kDefaultTolerance);

struct ExplodeResult {
    /// How many objects of each kind were replaced, and by what.
    std::map<kxObjectType_e, long> exploded;
    std::map<kxObjectType_e, long> created;
    /// The new objects in drawing order, to select them.
    std::vector<kxObject_ptr> pieces;
    /// Segments of polylines that had no length.
    long droppedSegments = 0;
    /// Objects that were to be exploded and stand as they were, because the pieces became too many.
    long kept = 0;
};

/// Replaces those of the objects that can be exploded, in place: the drawing order stays. From
/// `limit` pieces on the rest stay as they are.
ExplodeResult explode(kxHostDocument_c& document, const std::vector<kxObject_ptr>& objects,
                      double tolerance = kDefaultTolerance, std::size_t limit = kMostPieces);

}  // namespace kxdrawing
