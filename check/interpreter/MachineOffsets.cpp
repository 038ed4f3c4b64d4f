// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// How program coordinates lie in the machine: G10, G52, G54 to G59.3, G92, G43.
#include <cmath>

#include "interpreter/Machine.h"
#include "interpreter/Units.h"

namespace gcode_check {
namespace {

bool isZero(const Axes& axes) {
    return axes == Axes{};
}

void scaleLinear(Axes& axes, double factor) {
    for (std::size_t i = 0; i < kLinearAxes; ++i) {
        axes[i] *= factor;
    }
}

Axes combined(Axes axes, double factor, const Axes& other) {
    for (std::size_t i = 0; i < axes.size(); ++i) {
        axes[i] += factor * other[i];
    }
    return axes;
}

}  // namespace

void Machine::scale(double factor) {
    for (Axes* axes : {&m_position, &m_offset92, &m_kept92, &m_toolOffset, &m_home28, &m_home30}) {
        scaleLinear(*axes, factor);
    }
    for (Axes& origin : m_origins) {
        scaleLinear(origin, factor);
    }
    for (double* value : {&m_sticky.r, &m_sticky.bottom, &m_sticky.peck, &m_initialLevel}) {
        *value *= factor;
    }
}

void Machine::useSystem(std::size_t system) {
    m_modes.system = static_cast<std::uint8_t>(system + 1);
    const double rotation = m_rotationsDeg[system];
    m_cosine = rotation == 0 ? 1 : std::cos(rotation * kRadiansPerDegree);
    m_sine = rotation == 0 ? 0 : std::sin(rotation * kRadiansPerDegree);
    m_isPlain =
        rotation == 0 && isZero(m_origins[system]) && isZero(m_offset92) && isZero(m_toolOffset);
}

void Machine::enterFrame() {
    useSystem(systemInForce());
    Frame frame;
    frame.offset = pointOf(toMachineAxes(Axes{}), m_mmPerUnit);
    frame.rotationDeg = m_rotationsDeg[systemInForce()];
    frame.inches = m_modes.inches;
    frame.system = m_modes.system;
    const Point tool = pointOf(m_toolOffset, m_mmPerUnit);
    frame.zero = {frame.offset.x - tool.x, frame.offset.y - tool.y, frame.offset.z - tool.z};
    frame.zeroLine = m_zeroLine;
    const auto& frames = m_reading.frames;
    if (frames.empty() || frames.back().offset != frame.offset ||
        frames.back().rotationDeg != frame.rotationDeg || frames.back().inches != frame.inches ||
        frames.back().system != frame.system || frames.back().zeroLine != frame.zeroLine) {
        m_reading.frames.push_back(frame);
    }
}

Axes Machine::toMachineAxes(const Axes& program) const {
    if (m_isPlain) {
        return program;
    }
    Axes result;
    for (std::size_t i = 0; i < result.size(); ++i) {
        result[i] = program[i] + m_offset92[i];
    }
    const double x = result[0] * m_cosine - result[1] * m_sine;
    result[1] = result[0] * m_sine + result[1] * m_cosine;
    result[0] = x;
    for (std::size_t i = 0; i < result.size(); ++i) {
        result[i] += m_origins[systemInForce()][i] + m_toolOffset[i];
    }
    return result;
}

Axes Machine::toProgramAxes(const Axes& machine) const {
    if (m_isPlain) {
        return machine;
    }
    Axes result;
    for (std::size_t i = 0; i < result.size(); ++i) {
        result[i] = machine[i] - m_origins[systemInForce()][i] - m_toolOffset[i];
    }
    const double x = result[0] * m_cosine + result[1] * m_sine;
    result[1] = result[1] * m_cosine - result[0] * m_sine;
    result[0] = x;
    for (std::size_t i = 0; i < result.size(); ++i) {
        result[i] -= m_offset92[i];
    }
    return result;
}

Point Machine::machinePoint(const Axes& program) const {
    return pointOf(toMachineAxes(program), m_mmPerUnit);
}

bool Machine::setToolLength(const Block& block, Fault& fault) {
    const int code = block.g(GGroup::ToolLength);
    if (code == Block::kNone) {
        return true;
    }
    const Axes machine = toMachineAxes(m_position);
    if (code == 431) {
        for (std::size_t i = 0; i < m_toolOffset.size(); ++i) {
            m_toolOffset[i] = block.valueOr(kAxisLetters[i], m_toolOffset[i]);
        }
    } else if (code == 490) {
        m_toolOffset = {};
    } else if (!addToolOffset(block, code == 432, fault)) {
        return false;
    }
    enterFrame();
    m_position = toProgramAxes(machine);
    return true;
}

// G43 takes the tool's offset, G43.2 takes it besides what is in force.
bool Machine::addToolOffset(const Block& block, bool isBesides, Fault& fault) {
    if (isBesides && !block.has('H')) {
        return reject(fault, Rule::WordMissing, block.columnOfG(GGroup::ToolLength), "G43.2",
                      "H with a tool's number");
    }
    if (isBesides && block.hasAxes()) {
        return reject(fault, Rule::CodesClash, block.columnOfG(GGroup::ToolLength), "G43.2",
                      "no coordinates beside it");
    }
    if (block.has('H') && !isTool(block, 'H', fault)) {
        return false;
    }
    const auto asked = static_cast<std::int32_t>(std::lround(block.valueOr('H', 0)));
    const Tool* tool = findTool(asked == 0 ? m_tool : asked);
    const Axes offset = tool == nullptr ? Axes{} : axesOf(tool->offset, m_mmPerUnit);
    for (std::size_t i = 0; i < m_toolOffset.size(); ++i) {
        m_toolOffset[i] = offset[i] + (isBesides ? m_toolOffset[i] : 0);
    }
    return true;
}

void Machine::setSystem(const Block& block) {
    const int code = block.g(GGroup::System);
    if (code != Block::kNone) {
        changeSystem(static_cast<std::size_t>(code <= 590 ? (code - 540) / 10 : code - 590 + 5));
    }
}

void Machine::changeSystem(std::size_t system) {
    const Axes machine = toMachineAxes(m_position);
    m_modes.system = static_cast<std::uint8_t>(system + 1);
    m_zeroLine = m_line;
    enterFrame();
    m_position = toProgramAxes(machine);
}

bool Machine::checkOrigin(const Block& block, Fault& fault) const {
    const double kind = block.valueOr('L', -1);
    const std::uint32_t column = block.columnOfG(GGroup::OneShot);
    if (kind == 0 || kind == 1 || kind == 10 || kind == 11) {
        return reject(fault, Rule::NotInterpretedCode, column,
                      "G10 L" + std::to_string(std::lround(kind)), "G10 L2 or L20");
    }
    if (std::lround(kind) != 2 && std::lround(kind) != 20) {
        return reject(fault, Rule::WordMissing, column, "G10", "L2 or L20");
    }
    const double system = block.valueOr('P', -1);
    if (system < 0 || system > 9 || std::floor(system) != system) {
        return reject(fault, Rule::OffsetOutOfRange, column, "G10",
                      "P with 0 to 9: the system in force, G54 to G59.3");
    }
    for (const char letter : {'I', 'J', 'K', 'R'}) {
        if (block.has(letter) && (letter != 'R' || std::lround(kind) == 20)) {
            return reject(fault, Rule::WordWithoutUse, block.column(letter), std::string(1, letter),
                          "coordinates only");
        }
    }
    return true;
}

// G10 L2 says where an origin lies, L20 where the tool stands in the system.
bool Machine::setOrigin(const Block& block, Fault& fault) {
    if (!checkOrigin(block, fault)) {
        return false;
    }
    const bool isFromPosition = std::lround(block.value('L')) == 20;
    const auto number = static_cast<std::size_t>(block.value('P'));
    const std::size_t system = number == 0 ? systemInForce() : number - 1;
    // A controller that turns the system in force turns the coordinate without G52 and G92: the
    // axes of the next move that are not named go to where it believes the tool to be.
    const Axes besides = block.has('R') && system == systemInForce() ? m_offset92 : Axes{};
    const Axes machine = toMachineAxes(combined(m_position, -1, besides));
    if (block.has('R')) {
        m_rotationsDeg[system] = block.value('R');
    }
    if (isFromPosition) {
        setOriginFromPosition(block, system, machine);
    } else {
        for (std::size_t i = 0; i < machine.size(); ++i) {
            m_origins[system][i] = block.valueOr(kAxisLetters[i], m_origins[system][i]);
        }
    }
    if (system == systemInForce()) {
        m_zeroLine = m_line;
        enterFrame();
        m_position = combined(toProgramAxes(machine), 1, besides);
    }
    return true;
}

// Axes that are not named keep their coordinate in that system, turned with it.
void Machine::setOriginFromPosition(const Block& block, std::size_t system, const Axes& machine) {
    const std::size_t inForce = systemInForce();
    useSystem(system);
    const Axes before = toProgramAxes(machine);
    Axes wanted = before;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        wanted[i] = block.valueOr(kAxisLetters[i], before[i]);
    }
    const Axes there = toMachineAxes(wanted);
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        m_origins[system][i] += machine[i] - there[i];
    }
    useSystem(inForce);
}

// G92 says where the tool stands, G52 by how much the origin is shifted.
void Machine::offset92(const Block& block) {
    const bool isShift = block.g(GGroup::OneShot) == 520;
    const Axes machine = toMachineAxes(m_position);
    for (std::size_t i = 0; i < m_offset92.size(); ++i) {
        if (!block.has(kAxisLetters[i])) {
            continue;
        }
        const double value = block.value(kAxisLetters[i]);
        m_offset92[i] = isShift ? value : m_position[i] + m_offset92[i] - value;
    }
    m_kept92 = m_offset92;
    m_modes.offset92On = true;
    m_zeroLine = m_line;
    enterFrame();
    m_position = toProgramAxes(machine);
}

// G92.1 forgets the offset, G92.2 keeps it for G92.3.
void Machine::switch92(int code) {
    const Axes machine = toMachineAxes(m_position);
    m_kept92 = code == 921 ? Axes{} : m_kept92;
    m_offset92 = code == 923 ? m_kept92 : Axes{};
    m_modes.offset92On = code == 923;
    m_zeroLine = m_line;
    enterFrame();
    m_position = toProgramAxes(machine);
}

}  // namespace gcode_check
