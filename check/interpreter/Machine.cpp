// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The order in which a line's words come into force, and the modes that move nothing.
#include "interpreter/Machine.h"

#include <algorithm>
#include <cmath>

#include "interpreter/BlockRules.h"
#include "interpreter/Units.h"

namespace gcode_check {
namespace {

constexpr std::uint8_t kMist = 1;
constexpr std::uint8_t kFlood = 2;

}  // namespace

Machine::Machine(const MachineOptions& options, Reading& reading)
    : m_options(options), m_reading(reading), m_machine(options.start) {
    m_modes.inches = options.startsInInches;
    m_mmPerUnit = m_modes.inches ? kMmPerInch : 1;
    for (std::size_t i = 0; i < m_origins.size(); ++i) {
        m_origins[i] = axesOf(options.systems[i], m_mmPerUnit);
    }
    m_home28 = axesOf(options.home28, m_mmPerUnit);
    m_home30 = axesOf(options.home30, m_mmPerUnit);
    enterFrame();
    m_position = toProgramAxes(axesOf(options.start, m_mmPerUnit));
}

bool Machine::execute(const Block& block, Fault& fault) {
    m_line = block.line;
    if (!checkBlock(block, m_mode, fault) ||
        (block.hasAny(Block::polarBits()) && !checkPolarPlane(block, fault))) {
        return false;
    }
    if (m_compensation.isOn && !checkBeforeCompensation(block, fault)) {
        return false;
    }
    constexpr std::uint32_t kModalWords = Block::bit('F') | Block::bit('S') | Block::bit('T');
    if ((block.hasAnyCode() || block.hasAny(kModalWords)) && !putInForce(block, fault)) {
        return false;
    }
    return move(block, fault) && stop(block, fault);
}

// In the order in which a controller does it, whatever the order of the words.
bool Machine::putInForce(const Block& block, Fault& fault) {
    setFeedMode(block);
    setFeedAndSpeed(block);
    if (!selectTool(block, fault) || !changeTool(block, fault)) {
        return false;
    }
    setSpindle(block);
    if (!saveOrRestoreModes(block, fault)) {
        return false;
    }
    setCoolant(block);
    dwell(block);
    setPlane(block);
    setUnit(block);
    if (!setCompensation(block, fault) ||
        (m_compensation.isOn && !checkBehindCompensation(block, fault)) ||
        !setToolLength(block, fault)) {
        return false;
    }
    setSystem(block);
    setDistances(block);
    if (!oneShot(block, fault)) {
        return false;
    }
    if (block.hasG(GGroup::OffsetOff)) {
        switch92(block.g(GGroup::OffsetOff));
    }
    return true;
}

void Machine::end(std::uint32_t line) {
    m_line = line;
    m_hasEnded = true;
    dropPending();
    m_reading.endLine = line;
    m_reading.motions.push_back(step(MotionKind::ProgramEnd));
}

// A new mode has no feed: the number before meant something else. G94 beside G94 loses it, too.
void Machine::setFeedMode(const Block& block) {
    switch (block.g(GGroup::FeedMode)) {
        case 930:
            m_modes.feedMode = FeedMode::InverseTime;
            break;
        case 940:
            m_modes.feedMode = FeedMode::PerMinute;
            m_feed = 0;
            m_feedWord = 0;
            break;
        case 950:
            m_modes.feedMode = FeedMode::PerRevolution;
            m_feed = 0;
            m_feedWord = 0;
            break;
        default:
            break;
    }
}

// The feed is in the unit before the line: a unit word comes into force after F.
void Machine::setFeedAndSpeed(const Block& block) {
    if (block.has('F')) {
        const bool isInverse = m_modes.feedMode == FeedMode::InverseTime;
        m_feedWord = isInverse ? m_feedWord : block.value('F');
        m_feed = block.value('F') * (isInverse ? 1 : m_mmPerUnit);
    }
    if (block.has('S')) {
        m_modes.spindleSpeed = block.value('S');
        pushSpindle(m_modes.spindle);
    }
}

const Tool* Machine::findTool(std::int32_t number) const {
    const auto found = std::find_if(m_options.tools.begin(), m_options.tools.end(),
                                    [number](const Tool& tool) { return tool.number == number; });
    return found == m_options.tools.end() ? nullptr : &*found;
}

bool Machine::isTool(const Block& block, char letter, Fault& fault) const {
    const auto number = static_cast<std::int32_t>(std::lround(block.value(letter)));
    if (number == 0 || m_options.anyTool || findTool(number) != nullptr) {
        return true;
    }
    return reject(fault, Rule::ToolUnknown, block.column(letter), letter + std::to_string(number),
                  "a tool of the machine's table");
}

bool Machine::selectTool(const Block& block, Fault& fault) {
    if (!block.has('T')) {
        return true;
    }
    m_nextTool = static_cast<std::int32_t>(std::lround(block.value('T')));
    return isTool(block, 'T', fault);
}

bool Machine::changeTool(const Block& block, Fault& fault) {
    const int code = block.m(MGroup::Tool);
    if (code == 6) {
        pushSpindle(Spindle::Off);
        m_tool = m_nextTool;
        synchronise();
        return push(step(MotionKind::ToolChange), fault);
    }
    return code != 61 || setTool(block, fault);
}

// A controller asks the machine where it is: behind G40 that is beside the programmed path.
void Machine::synchronise() {
    if (m_compensation.isLeaving) {
        const Axes machine = axesOf(m_machine, m_mmPerUnit);
        Axes position = toProgramAxes(machine);
        std::copy(m_position.begin() + 3, m_position.end(), position.begin() + 3);
        m_position = position;
    }
}

bool Machine::setTool(const Block& block, Fault& fault) {
    if (!block.has('Q') || std::floor(block.value('Q')) != block.value('Q') ||
        block.value('Q') > kLargestWhole) {
        return reject(fault, Rule::WordMissing, block.columnOfM(MGroup::Tool), "M61",
                      "Q with a tool's number");
    }
    if (!isTool(block, 'Q', fault)) {
        return false;
    }
    m_tool = static_cast<std::int32_t>(block.value('Q'));
    return true;
}

void Machine::setSpindle(const Block& block) {
    switch (block.m(MGroup::Spindle)) {
        case 3:
            pushSpindle(Spindle::Clockwise);
            break;
        case 4:
            pushSpindle(Spindle::CounterClockwise);
            break;
        case 5:
            pushSpindle(Spindle::Off);
            break;
        default:
            break;
    }
}

void Machine::pushSpindle(Spindle spindle) {
    m_modes.spindle = spindle;
    m_reading.motions.push_back(step(MotionKind::Spindle));
}

void Machine::setCoolant(const Block& block) {
    switch (block.m(MGroup::Coolant)) {
        case 7:
            m_modes.coolant |= kMist;
            break;
        case 8:
            m_modes.coolant |= kFlood;
            break;
        case 9:
            m_modes.coolant = 0;
            break;
        default:
            return;
    }
    m_reading.motions.push_back(step(MotionKind::Coolant));
}

void Machine::dwell(const Block& block) {
    if (block.g(GGroup::OneShot) == 40) {
        pushDwell(block.value('P'));
    }
}

void Machine::pushDwell(double seconds) {
    Motion motion = step(MotionKind::Dwell);
    motion.seconds = seconds;
    m_reading.motions.push_back(motion);
}

void Machine::setPlane(const Block& block) {
    if (block.hasG(GGroup::Plane)) {
        m_modes.plane = static_cast<Plane>(block.g(GGroup::Plane) / 10 - 17);
    }
}

void Machine::setUnit(const Block& block) {
    if (block.hasG(GGroup::Unit)) {
        changeUnit(block.g(GGroup::Unit) == 200);
    }
}

void Machine::changeUnit(bool toInches) {
    if (toInches == m_modes.inches) {
        return;
    }
    m_modes.inches = toInches;
    m_mmPerUnit = m_modes.inches ? kMmPerInch : 1;
    scale(m_modes.inches ? 1 / kMmPerInch : kMmPerInch);
    enterFrame();
}

void Machine::setDistances(const Block& block) {
    if (block.hasG(GGroup::Path)) {
        m_modes.pathMode = block.g(GGroup::Path) == 640   ? PathMode::Continuous
                           : block.g(GGroup::Path) == 610 ? PathMode::ExactPath
                                                          : PathMode::ExactStop;
    }
    if (block.hasG(GGroup::Distance)) {
        m_modes.relative = block.g(GGroup::Distance) == 910;
    }
    if (block.hasG(GGroup::ArcDistance)) {
        m_modes.arcCentresAbsolute = block.g(GGroup::ArcDistance) == 901;
    }
    if (block.hasG(GGroup::Retract)) {
        m_modes.retractToR = block.g(GGroup::Retract) == 990;
    }
}

bool Machine::stop(const Block& block, Fault& fault) {
    switch (block.m(MGroup::Stop)) {
        case 0:
        case 1:
        case 60:
            return settleForStop(block.columnOfM(MGroup::Stop), fault) &&
                   push(step(MotionKind::Stop), fault);
        case 2:
        case 30:
            if (!settle(block.columnOfM(MGroup::Stop), fault)) {
                return false;
            }
            end(block.line);
            resetModes();
            return true;
        default:
            return true;
    }
}

// What M2 and M30 leave behind.
void Machine::resetModes() {
    m_modes.spindle = Spindle::Off;
    m_modes.coolant = 0;
    m_mode = 10;
    m_modes.plane = Plane::XY;
    m_modes.relative = false;
    m_modes.feedMode = FeedMode::PerMinute;
    m_feed = 0;
    m_feedWord = 0;
    const Axes machine = toMachineAxes(m_position);
    m_modes.system = 1;
    m_offset92 = {};
    m_modes.offset92On = false;
    enterFrame();
    m_position = toProgramAxes(machine);
}

Motion Machine::step(MotionKind kind) const {
    Motion motion;
    motion.line = m_line;
    motion.kind = kind;
    motion.plane = m_modes.plane;
    motion.feedMode = m_modes.feedMode;
    motion.spindle = m_modes.spindle;
    motion.coolant = m_modes.coolant;
    motion.frame = static_cast<std::uint32_t>(m_reading.frames.size() - 1);
    motion.rotary = m_rotary;
    motion.tool = m_tool;
    motion.from = m_machine;
    motion.to = m_machine;
    motion.feed = m_feed;
    motion.spindleSpeed = m_modes.spindleSpeed;
    return motion;
}

bool Machine::push(const Motion& motion, Fault& fault) {
    const std::size_t most =
        m_options.motionsBesides + std::size_t{m_options.motionsPerLine} * m_line;
    if (m_reading.motions.size() >= most) {
        return reject(fault, Rule::TooManyMotions, 1,
                      "more than " + std::to_string(most) + " steps up to here", "fewer steps");
    }
    m_reading.motions.push_back(motion);
    return true;
}

void Machine::finish() {
    dropPending();
    MachineState& state = m_reading.state;
    static_cast<Modes&>(state) = m_modes;
    state.position = m_machine;
    state.rotary = {m_position[3], m_position[4], m_position[5]};
    state.motionMode = static_cast<std::int16_t>(m_mode);
    state.feed = m_feed;
    state.tool = m_tool;
    state.nextTool = m_nextTool;
    for (std::size_t i = 0; i < m_origins.size(); ++i) {
        state.systems[i] = pointOf(m_origins[i], m_mmPerUnit);
    }
    state.rotationsDeg = m_rotationsDeg;
    state.offset92 = pointOf(m_offset92, m_mmPerUnit);
    state.toolOffset = pointOf(m_toolOffset, m_mmPerUnit);
}

}  // namespace gcode_check
