// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/drawing/NearCuts.h"

#include "geometry/Near.h"

namespace gcode_check {

void NearCuts::find(const Curve& object) {
    constexpr std::size_t kMany = 256;
    const double reach = m_scene.setting.tolerance;
    const bool isStraight = object.kind == Curve::Kind::Segment;
    const std::size_t most = isStraight ? kMany : m_scene.cuts.cuts.size();
    m_cuts.clear();
    m_areAll = true;
    const auto visit = [&](std::size_t index) {
        if (areClear(object, m_scene.cuts.curveAt(index), reach)) {
            return true;
        }
        m_areAll = m_cuts.size() < most;
        if (m_areAll) {
            m_cuts.push_back(index);
        }
        return m_areAll && m_scene.setting.isWanted();
    };
    if (isStraight) {
        m_scene.cutTree.each(Reach(object, reach), visit);
    } else {
        eachAround(object, visit);
    }
}

void NearCuts::forget() {
    m_cuts.clear();
    m_runs.clear();
    m_areAll = false;
}

}  // namespace gcode_check
