// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// What moves along straight lines: G0, G1, G53, G28, G30.
#include <cmath>

#include "interpreter/BlockRules.h"
#include "interpreter/Machine.h"
#include "interpreter/Units.h"

namespace gcode_check {
namespace {

bool hasRotary(const Axes& axes) {
    return axes[3] != 0 || axes[4] != 0 || axes[5] != 0;
}

}  // namespace

bool Machine::oneShot(const Block& block, Fault& fault) {
    switch (block.g(GGroup::OneShot)) {
        case 100:
            return setOrigin(block, fault);
        case 280:
            return goHome(block, m_home28, fault);
        case 300:
            return goHome(block, m_home30, fault);
        case 281:
            m_home28 = toMachineAxes(m_position);
            return true;
        case 301:
            m_home30 = toMachineAxes(m_position);
            return true;
        case 520:
        case 920:
            offset92(block);
            return true;
        default:
            return true;
    }
}

// Program coordinates of a machine place. A controller leaves the offset of the tool out of those
// of rotary axes.
Axes Machine::placeOf(const Axes& machine) const {
    Axes result = toProgramAxes(machine);
    for (std::size_t i = kLinearAxes; i < result.size(); ++i) {
        result[i] += m_toolOffset[i];
    }
    return result;
}

// By way of the point that the coordinates name; then only the named axes go home, or all of them
// when none is named. In a turned system those are the turned axes.
bool Machine::goHome(const Block& block, const Axes& home, Fault& fault) {
    const Axes between = target(block);
    const Axes atHome = placeOf(home);
    Axes to = between;
    for (std::size_t i = 0; i < to.size(); ++i) {
        to[i] = !block.hasAxes() || block.has(kAxisLetters[i]) ? atHome[i] : to[i];
    }
    Motion motion = step(MotionKind::Rapid);
    if (!pushMove(motion, between, fault)) {
        return false;
    }
    motion = step(MotionKind::Rapid);
    motion.toMachinePlace = true;
    return pushMove(motion, to, fault);
}

Axes Machine::targetFrom(const Axes& from, const Block& block) const {
    Axes result = from;
    for (std::size_t i = 0; i < result.size(); ++i) {
        if (block.has(kAxisLetters[i])) {
            result[i] = block.value(kAxisLetters[i]) + (m_modes.relative ? from[i] : 0);
        }
    }
    if (block.hasAny(Block::polarBits())) {
        setPolar(block, result);
    }
    return result;
}

// What is not named is that of the point where `to` stands.
void Machine::setPolar(const Block& block, Axes& to) const {
    double distance = std::hypot(to[0], to[1]);
    double angle = std::atan2(to[1], to[0]);
    if (block.has('@')) {
        distance = block.value('@') + (m_modes.relative ? distance : 0);
    }
    if (block.has('^')) {
        angle = block.value('^') * kRadiansPerDegree + (m_modes.relative ? angle : 0);
    }
    to[0] = distance * std::cos(angle);
    to[1] = distance * std::sin(angle);
}

// The plane that is in force before the line counts, not one that the line names.
bool Machine::checkPolarPlane(const Block& block, Fault& fault) const {
    if (m_modes.plane == Plane::XY) {
        return true;
    }
    const char letter = block.has('@') ? '@' : '^';
    return reject(fault, Rule::ModeForbids, block.column(letter), std::string(1, letter),
                  "G17 in force before the line");
}

// The origin lies in no direction.
bool Machine::checkPolar(const Block& block, Fault& fault) const {
    if (!block.hasAny(Block::polarBits()) || m_position[0] != 0 || m_position[1] != 0 ||
        (!m_modes.relative && block.has('^'))) {
        return true;
    }
    const char letter = block.has('@') ? '@' : '^';
    return reject(fault, Rule::ModeForbids, block.column(letter), std::string(1, letter),
                  m_modes.relative ? "a position away from the origin" : "^ too, at the origin");
}

// G53: the coordinates are the machine's, without any offset.
bool Machine::machineTarget(const Block& block, Axes& result, Fault& fault) const {
    if (m_modes.relative) {
        return reject(fault, Rule::ModeForbids, block.columnOfG(GGroup::OneShot), "G53 in G91",
                      "G90 with G53");
    }
    Axes machine = toMachineAxes(m_position);
    for (std::size_t i = 0; i < machine.size(); ++i) {
        machine[i] = block.valueOr(kAxisLetters[i], machine[i]);
    }
    result = placeOf(machine);
    for (std::size_t i = kLinearAxes; i < result.size(); ++i) {
        result[i] = block.has(kAxisLetters[i]) ? result[i] : m_position[i];
    }
    return true;
}

bool Machine::move(const Block& block, Fault& fault) {
    const int motion = motionOf(block, m_mode);
    if (motion == kNoMotion) {
        if (block.hasG(GGroup::CancelMotion)) {
            m_mode = kNoMotion;
            m_isInCycles = false;
        }
        return true;
    }
    bool isDone = checkPolar(block, fault);
    if (!isDone) {
        return false;
    }
    if (isCycle(motion)) {
        isDone = cycle(block, motion, fault);
    } else {
        m_isInCycles = false;
        isDone = motion == 0 || motion == 10 ? straight(block, motion, fault)
                                             : arc(block, motion, fault);
    }
    m_mode = motion;
    return isDone;
}

bool Machine::checkFeed(const Block& block, int motion, Fault& fault) const {
    const auto refuse = [&](Rule rule, const char* expected) {
        return reject(fault, rule, block.columnOfMotion(), textOfG(motion).text, expected);
    };
    if (m_modes.feedMode == FeedMode::InverseTime) {
        return block.has('F') || refuse(Rule::FeedMissing, "F on each line in G93");
    }
    if (m_feed == 0) {
        return refuse(Rule::FeedMissing, "F with a feed above 0 before it");
    }
    if (m_modes.feedMode == FeedMode::PerRevolution && m_modes.spindleSpeed == 0) {
        return refuse(Rule::SpindleMissing, "S with a speed above 0 before it in G95");
    }
    return true;
}

void Machine::noteInverseFeed() {
    if (m_modes.feedMode == FeedMode::InverseTime) {
        m_feedWord = -1;
    }
}

bool Machine::straight(const Block& block, int motion, Fault& fault) {
    if (motion == 10 && !checkFeed(block, motion, fault)) {
        return false;
    }
    Axes to = m_position;
    const bool toMachinePlace = block.g(GGroup::OneShot) == 530;
    if (toMachinePlace) {
        if (!machineTarget(block, to, fault)) {
            return false;
        }
    } else {
        to = target(block);
    }
    if (motion == 10) {
        noteInverseFeed();
    }
    Motion step = this->step(motion == 0 ? MotionKind::Rapid : MotionKind::Feed);
    step.toMachinePlace = toMachinePlace;
    if (m_modes.feedMode == FeedMode::InverseTime) {
        setFeedOf(step,
                  std::hypot(to[0] - m_position[0], to[1] - m_position[1], to[2] - m_position[2]));
    }
    if (m_compensation.isOn) {
        return compensated(block, step, to, {}, fault);
    }
    m_compensation.isLeaving = false;
    return pushMove(step, to, fault);
}

// Offsets change the coordinates of axes that stand still, so what was written last counts.
std::int32_t Machine::rotaryIndex(const Axes& to) {
    if (!hasRotary(to)) {
        m_rotary = -1;
        return m_rotary;
    }
    auto& known = m_reading.rotaryAxes;
    if (m_rotary == -1 || known.back().a != to[3] || known.back().b != to[4] ||
        known.back().c != to[5]) {
        m_rotary = static_cast<std::int32_t>(known.size());
        known.push_back({to[3], to[4], to[5]});
    }
    return m_rotary;
}

bool Machine::pushMove(Motion& motion, const Axes& to, Fault& fault) {
    motion.rotary = rotaryIndex(to);
    motion.to = machinePoint(to);
    m_position = to;
    m_machine = motion.to;
    return push(motion, fault);
}

}  // namespace gcode_check
