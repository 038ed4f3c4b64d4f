// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "core/DistanceFilter.h"
#include "core/PathEntity.h"

namespace GCode {

/// Finds out afterwards which way round a line stands. Each pass over the list turns every line
/// that is at least as near as all before it, the nearer end first, or the other way round when
/// both ends are equally near. That is seldom asked for: a line that is taken turns to its nearer
/// end whatever was before, unless both ends are equally near.
class SwapHistory {
public:
    /// The list before the first pass; all of its coordinates are finite.
    explicit SwapHistory(const std::vector<Entity>& list);

    /// A pass: measured from where, the first row of the list at that time, and the row it took.
    void add(const Point& from, std::size_t head, std::size_t taken);

    /// Whether the passes before the last one left the ends of a line swapped. Nothing when
    /// looking back has already taken so long that walking the whole list each time is faster.
    std::optional<bool> isSwapped(std::size_t row);

private:
    struct Pass {
        Point from;
        std::size_t head = 0;
        std::size_t taken = 0;
    };

    double reach(const Pass& pass, std::size_t row) const;
    bool turned(std::size_t pass, std::size_t row);
    bool blocks(std::size_t blocker, std::size_t pass, double bar) const;
    bool findBlocker(std::size_t pass, std::size_t row, double bar);

    const std::vector<Entity> m_list;
    DistanceFilter m_filter;
    std::vector<Pass> m_passes;
    /// The number of the pass that took a row; the greatest number while it is in the list.
    std::vector<std::size_t> m_takenIn;
    std::size_t m_blocker = 0;
    std::size_t m_work = 0;
};

}  // namespace GCode
