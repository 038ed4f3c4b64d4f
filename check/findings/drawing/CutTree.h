// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <vector>

#include "findings/drawing/CutList.h"
#include "geometry/BoxTree.h"

namespace gcode_check {

// Finds cuts by place. Cuts that follow each other mostly touch, so a few in a row share a box.
class CutTree {
public:
    explicit CutTree(const CutList& cuts);

    std::size_t size() const { return m_size; }

    // Calls visit(index) for each cut in a box that `wanted(box)` takes together with all boxes
    // around it, in a fixed order, until visit gives false.
    template <typename Wanted, typename Visit>
    void each(Wanted&& wanted, Visit&& visit) const {
        m_tree.each(wanted, [&](std::size_t run) { return eachOf(run, visit); });
    }

    // The runs of cuts that `each` looks into; in the program's order unless there are very many.
    template <typename Wanted>
    void findRuns(Wanted&& wanted, std::vector<std::size_t>& runs) const {
        runs.clear();
        m_tree.each(wanted, [&runs](std::size_t run) {
            runs.push_back(run);
            return true;
        });
        if (runs.size() < kMany) {
            std::sort(runs.begin(), runs.end());
        }
    }

    // Calls visit(index) for each cut of a run until visit gives false, which is what it gives
    // then.
    template <typename Visit>
    bool eachOf(std::size_t run, Visit& visit) const {
        for (std::size_t cut = m_begins[run]; cut < m_begins[run + 1]; ++cut) {
            if (!visit(cut)) {
                return false;
            }
        }
        return true;
    }

private:
    static constexpr std::size_t kMany = 500;

    std::size_t m_size;
    std::vector<std::uint32_t> m_begins;  // of runs, and their end; arcs are alone in theirs
    BoxTree m_tree;                       // of runs
};

}  // namespace gcode_check
