// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <utility>

namespace gcode_check {

// Hears how much of a work is done, from 0 to 1 and never less than before; false stops the work.
// Called in the thread that works, some thousand times in all; the same part may be told again.
using ProgressListener = std::function<bool(double part)>;

// How far a work of several stages is.
class Progress {
public:
    explicit Progress(ProgressListener listener) : m_listener(std::move(listener)) {}

    // What comes next is so much of the whole, which is 1.
    void beginStage(double share);
    // Said in each round of a loop; false: somebody wants to stop.
    bool goesOn(std::size_t done, std::size_t all) { return done < m_next || tell(done, all); }
    // Said in each round of a loop within such a round, which may be long.
    bool isWanted() { return ++m_rounds % kRounds != 0 || ask(); }
    bool isStopped() const { return m_isStopped; }

private:
    static constexpr std::size_t kRounds = 4096;

    bool tell(std::size_t done, std::size_t all);
    bool ask();

    ProgressListener m_listener;
    double m_begin = 0;
    double m_share = 0;
    double m_told = 0;
    std::size_t m_rounds = 0;
    std::size_t m_next = 0;  // when it is told again
    bool m_isStopped = false;
};

}  // namespace gcode_check
