// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The canned cycles: G73, G81, G82, G83, G85, G86, G89.
#include <array>
#include <cmath>

#include "interpreter/Machine.h"
#include "interpreter/Units.h"

namespace gcode_check {
namespace {

// So far from the bottom of a peck the rapid ends that goes back into the hole, and so far G73
// lifts to break the chip.
constexpr double kPeckGapMm = 0.254;
constexpr double kPeckGapInches = 0.010;

}  // namespace

struct Machine::Cycle {
    int code = 0;
    std::size_t depth = 2;  // of Axes
    double level = 0;       // where the tool travels to the next hole
    double r = 0;
    double bottom = 0;
    double clear = 0;  // where it retracts to
};

bool Machine::cycle(const Block& block, int motion, Fault& fault) {
    if (m_compensation.isOn) {
        return reject(fault, Rule::CompensationForbids, block.columnOfMotion(),
                      std::string(textOfG(motion).text) + " in radius compensation",
                      "G40 before it");
    }
    if (m_modes.feedMode == FeedMode::InverseTime) {
        return reject(fault, Rule::CycleInverseTime, 1, textOfG(motion).text,
                      "G94 or G95 with a cycle");
    }
    if (!checkFeed(block, motion, fault) || !cycleWords(block, motion, fault)) {
        return false;
    }
    Cycle cycle;
    cycle.code = motion;
    cycle.depth = axesOf(m_modes.plane).third;
    if (!m_isInCycles) {
        m_initialLevel = m_position[cycle.depth];
        m_isInCycles = true;
    }
    return cycleHoles(block, cycle, fault);
}

// A word that a line of the same cycle lacks is the one before.
bool Machine::cycleWord(const Block& block, char letter, bool isSame, double& value, Fault& fault) {
    if (block.has(letter)) {
        value = block.value(letter);
        return true;
    }
    return isSame || reject(fault, Rule::WordMissing, block.columnOfMotion(), "a cycle",
                            std::string(1, letter) + " in its first line");
}

bool Machine::cycleWords(const Block& block, int motion, Fault& fault) {
    const bool isSame = m_mode == motion;
    const char depth = kAxisLetters[axesOf(m_modes.plane).third];
    if (!block.hasAxes()) {
        return reject(fault, Rule::AxesMissing, 1, textOfG(motion).text, "a coordinate");
    }
    if (!cycleWord(block, 'R', isSame, m_sticky.r, fault) ||
        !cycleWord(block, depth, isSame, m_sticky.bottom, fault)) {
        return false;
    }
    const bool dwells = motion == 820 || motion == 860 || motion == 890;
    if (dwells && !cycleWord(block, 'P', isSame, m_sticky.dwell, fault)) {
        return false;
    }
    const bool pecks = motion == 730 || motion == 830;
    if (pecks && !cycleWord(block, 'Q', isSame, m_sticky.peck, fault)) {
        return false;
    }
    if (pecks && m_sticky.peck <= 0) {
        return reject(fault, Rule::PeckNotPositive, block.column('Q'), "Q0", "Q above 0");
    }
    if (motion == 860 && m_modes.spindle == Spindle::Off) {
        return reject(fault, Rule::SpindleMissing, 1, "G86", "M3 or M4 before it");
    }
    if (block.has('L') && std::lround(block.value('L')) == 0) {
        return reject(fault, Rule::CycleRepeats, block.column('L'), "L0", "L with 1 or more");
    }
    return true;
}

bool Machine::cycleHoles(const Block& block, Cycle& cycle, Fault& fault) {
    const std::size_t depth = cycle.depth;
    const double before = m_modes.relative ? m_initialLevel : 0;
    cycle.r = m_sticky.r + before;
    cycle.bottom = m_sticky.bottom + (m_modes.relative ? cycle.r : 0);
    if (cycle.r < cycle.bottom) {
        return reject(fault, Rule::CycleRetractBelow, 1, "R below the bottom of the hole",
                      "R above it");
    }
    double initial = m_initialLevel;
    if (initial < cycle.r) {
        Motion up = step(MotionKind::Rapid);
        up.cycle = static_cast<std::uint8_t>(cycle.code / 10);
        up.stroke = Stroke::Approach;
        Axes to = m_position;
        to[depth] = cycle.r;
        if (!pushMove(up, to, fault)) {
            return false;
        }
        initial = cycle.r;
    }
    cycle.clear = m_modes.retractToR ? cycle.r : initial;
    cycle.level = m_position[depth] > cycle.r ? m_position[depth] : cycle.clear;
    Axes at = target(block);
    const double repeats = std::round(block.valueOr('L', 1));
    for (double i = 0; i < repeats; ++i) {
        if (i > 0 && m_modes.relative) {
            at = targetFrom(at, block);
        }
        at[depth] = cycle.level;
        Motion across = step(MotionKind::Rapid);
        across.cycle = static_cast<std::uint8_t>(cycle.code / 10);
        across.stroke = Stroke::Approach;
        if (!pushMove(across, at, fault) || !hole(cycle, fault)) {
            return false;
        }
        cycle.level = cycle.clear;
    }
    return true;
}

bool Machine::strokeTo(const Cycle& cycle, double depth, Stroke stroke, Fault& fault) {
    const bool isFed = stroke == Stroke::Drill || stroke == Stroke::FedRetract;
    Motion motion = step(isFed ? MotionKind::Feed : MotionKind::Rapid);
    motion.cycle = static_cast<std::uint8_t>(cycle.code / 10);
    motion.stroke = stroke;
    Axes to = m_position;
    to[cycle.depth] = depth;
    return pushMove(motion, to, fault);
}

bool Machine::hole(const Cycle& cycle, Fault& fault) {
    if (cycle.level != cycle.r && !strokeTo(cycle, cycle.r, Stroke::Approach, fault)) {
        return false;
    }
    if ((cycle.code == 730 || cycle.code == 830) && !pecks(cycle, fault)) {
        return false;
    }
    return strokeTo(cycle, cycle.bottom, Stroke::Drill, fault) && holeEnd(cycle, fault);
}

// All strokes but the last.
bool Machine::pecks(const Cycle& cycle, Fault& fault) {
    const double gap = m_modes.inches ? kPeckGapInches : kPeckGapMm;
    for (double depth = cycle.r - m_sticky.peck; depth > cycle.bottom; depth -= m_sticky.peck) {
        if (!strokeTo(cycle, depth, Stroke::Drill, fault)) {
            return false;
        }
        if (cycle.code == 830 && !strokeTo(cycle, cycle.r, Stroke::Peck, fault)) {
            return false;
        }
        if (!strokeTo(cycle, depth + gap, Stroke::Peck, fault)) {
            return false;
        }
    }
    return true;
}

bool Machine::holeEnd(const Cycle& cycle, Fault& fault) {
    const Spindle turning = m_modes.spindle;
    if (cycle.code == 820 || cycle.code == 860 || cycle.code == 890) {
        pushDwell(m_sticky.dwell);
    }
    if (cycle.code == 860) {
        pushSpindle(Spindle::Off);
    }
    // G85 is fed out up to R, G89 all of the way.
    if (cycle.code == 850 && !strokeTo(cycle, cycle.r, Stroke::FedRetract, fault)) {
        return false;
    }
    const Stroke out = cycle.code == 890 ? Stroke::FedRetract : Stroke::Retract;
    if (!strokeTo(cycle, cycle.clear, out, fault)) {
        return false;
    }
    if (cycle.code == 860) {
        pushSpindle(turning);
    }
    return true;
}

}  // namespace gcode_check
