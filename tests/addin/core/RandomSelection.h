// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <random>
#include <vector>

#include "core/PathEntity.h"
#include "core/Point.h"

/// Random selections full of exact ties: grid coordinates, shared ends, zero-length lines, lines
/// with equidistant ends, types without a path, negative zeros, values that differ in the last
/// place, squares that overflow or vanish, and some NaN and infinities. The seed decides it all.
class RandomSelection {
public:
    explicit RandomSelection(std::uint64_t seed);

    /// A point from which a path may start; the origin in most cases.
    GCode::Point start();
    /// Entity i of the result has `objectAt(i)` as its object.
    std::vector<GCode::Entity> entities(int count);

    static kxObject* objectAt(std::size_t index);
    static std::size_t indexOf(const kxObject* object);

private:
    enum class Coordinates { grid, offGrid, lastPlace, tiny, vanishing, huge, special, count };

    int below(int limit);
    bool oneIn(int chances) { return below(chances) == 0; }
    double gridValue();
    double coordinate();
    GCode::Point point();
    kxObjectType_e type();
    void placeLine(const std::vector<GCode::Entity>& before, GCode::Entity* line);

    std::mt19937_64 m_random;
    Coordinates m_coordinates;
    int m_gridSize;
    bool m_flat;
};
