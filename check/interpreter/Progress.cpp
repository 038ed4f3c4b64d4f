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
    m_next = done + all / kTimesAStage + 1;
    const double part = all > 0 ? static_cast<double>(done) / static_cast<double>(all) : 0;
    m_told = std::min(m_begin + m_share * part, 1.0);
    return ask();
}

bool Progress::ask() {
    if (m_listener == nullptr) {
        return true;
    }
    m_isStopped = m_isStopped || !m_listener(m_told);
    if (m_isStopped) {
        // From now on each round is told of, and ends its loop.
        m_next = 0;
        m_rounds = kRounds - 1;
    }
    return !m_isStopped;
}

}  // namespace gcode_check
