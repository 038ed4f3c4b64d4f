// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "core/PathEntity.h"

namespace GCode {

/// Tells which parts of a list of entities can't hold a point nearer than some distance, much
/// faster than measuring it. What it lets through may still be farther away; what it rules out
/// never is nearer, by the distances as they are rounded. Distances count in the plane: a third
/// coordinate only makes them longer.
class DistanceFilter {
public:
    /// Rows are ruled out in blocks of as many.
    static constexpr std::size_t kBlock = 64;

    struct Found {
        std::size_t block = 0;
        /// Bit i stands for the block's row i.
        std::uint64_t rows = 0;
    };

    /// Takes over the points of the rows: both ends of lines, the first point of circles, arcs and
    /// points, none of other types.
    void load(const std::vector<Entity>& rows);
    void remove(std::size_t row);

    /// From here on distances are measured from this point.
    void measureFrom(const Point& from);
    /// The first block from `block` on with rows that may hold a point not farther away than
    /// `bar`; the number of blocks when there is none. No row does when `bar` is not a number.
    Found next(std::size_t block, double bar) const;
    std::size_t blockCount() const { return m_blocks.size(); }

    /// Whether all coordinates, and so all distances, are numbers of a usual size.
    bool isTame() const;
    static bool isTame(const Point& point);

private:
    static constexpr std::size_t kGroup = 16;

    /// A box around the points of some rows, and how many rows are left in it.
    struct Part {
        double minX = std::numeric_limits<double>::infinity();
        double minY = std::numeric_limits<double>::infinity();
        double maxX = -std::numeric_limits<double>::infinity();
        double maxY = -std::numeric_limits<double>::infinity();
        std::size_t rows = 0;
        /// It holds coordinates that are no numbers or beyond what single precision measures.
        bool isWild = false;

        void add(const Point& point);
        void add(const Part& other);
    };
    /// The points of a block in single precision, relative to the middle of the list.
    struct Points {
        std::array<float, kBlock> firstX;
        std::array<float, kBlock> firstY;
        std::array<float, kBlock> secondX;
        std::array<float, kBlock> secondY;
    };
    struct Limits {
        double squaredBar = 0;
        float squaredReach = 0;
    };

    void surround(const std::vector<Entity>& rows);
    void findMiddle();
    void narrow(const std::vector<Entity>& rows);
    bool isOutside(const Part& part, const Limits& limits) const;
    std::uint64_t nearRows(std::size_t block, const Limits& limits) const;
    Limits limitsOf(double bar) const;

    std::vector<Part> m_blocks;
    std::vector<Part> m_groups;
    std::vector<Points> m_points;
    double m_middleX = 0;
    double m_middleY = 0;
    /// No tame coordinate lies farther from the middle.
    double m_extent = 0;
    Point m_from;
    float m_fromX = 0;
    float m_fromY = 0;
    /// How far single precision may be off in a difference of coordinates.
    double m_error = 0;
    bool m_isFromWild = false;
};

}  // namespace GCode
