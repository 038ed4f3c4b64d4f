// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "interpreter/Progress.h"

#include <algorithm>
#include <limits>

namespace gcode_check {

void Progress::beginStage(double share) {
    m_begin += m_share;
    m_share = share;
    m_next = 0;
}

bool Progress::tell(std::size_t done, std::size_t all) {
    constexpr std::size_t kTimesAStage = 500;
    if (m_listener == nullptr) {
        m_next = std::numeric_limits<std::size_t>::max();
        return true;
    }
    if (m_isStopped) {
        return false;
    }
    m_next = done + all / kTimesAStage + 1;
    const double part = all > 0 ? static_cast<double>(done) / static_cast<double>(all) : 0;
    m_isStopped = !m_listener(std::min(m_begin + m_share * part, 1.0));
    if (m_isStopped) {
        m_next = 0;
    }
    return !m_isStopped;
}

}  // namespace gcode_check
