// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "findings/drawing/DrawingCheck.h"
#include "geometry/Reach.h"

namespace gcode_check {

// The cuts that may come within the tolerance of one object, looked for once for all rules.
class NearCuts {
public:
    explicit NearCuts(const DrawingSetting& scene) : m_scene(scene) {}

    // What is told of another object is no longer known.
    void forget();

    // Calls visit(index) for each cut in a box near an arc until visit gives false. Chords that
    // follow each other mostly come so.
    template <typename Visit>
    void eachAround(const Curve& arc, Visit&& visit) {
        if (m_runs.empty()) {
            m_scene.cutTree.findRuns(Reach(arc, m_scene.setting.tolerance), m_runs);
        }
        for (const std::size_t run : m_runs) {
            if (!m_scene.cutTree.eachOf(run, visit)) {
                return;
            }
        }
    }

    // Of a line only so many: where more cross it, what runs along is found by direction.
    void find(const Curve& object);
    // They are found, and all of them.
    bool areAll() const { return m_areAll; }
    std::size_t size() const { return m_cuts.size(); }
    // Calls visit(index) for each of them until visit gives false.
    template <typename Visit>
    void each(Visit&& visit) const {
        for (const std::size_t cut : m_cuts) {
            if (!visit(cut)) {
                return;
            }
        }
    }

    // As a tree has it.
    template <typename Wanted, typename Visit>
    void each(const Wanted&, Visit&& visit) const {
        each(visit);
    }

private:
    const DrawingSetting& m_scene;
    std::vector<std::size_t> m_cuts;
    std::vector<std::size_t> m_runs;
    bool m_areAll = false;
};

}  // namespace gcode_check
