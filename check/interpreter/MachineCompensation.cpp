// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// G40 to G42.1: the tool goes beside the programmed path. A move is written with the end that it
// has when the path goes straight on; the next move in the plane says where it really ends.
#include <algorithm>
#include <array>
#include <cmath>

#include "interpreter/BlockRules.h"
#include "interpreter/Machine.h"
#include "interpreter/Units.h"

namespace gcode_check {
namespace {

// D may be off by this much from a tool's number.
constexpr double kNumberTolerance = 0.0001;
// So many radians an arc may be longer than programmed, because the move before it ended early: a
// controller takes a length for it, and so the unit counts.
constexpr double kLongerArcMm = 0.0254;
constexpr double kLongerArcInches = 0.001;
// Units a minute, whichever the unit is.
constexpr double kLeastInverseTimeFeed = 0.1;

bool forbid(std::uint32_t column, const std::string& code, Fault& fault) {
    return reject(fault, Rule::CompensationForbids, column, code + " in radius compensation",
                  "G40 before it");
}

bool notFollowed(std::uint32_t column, const std::string& code, Fault& fault) {
    return reject(fault, Rule::NotInterpretedCode, column, code + " in radius compensation",
                  "G40 before it");
}

// From the tool's centre to the corner of the square around it that is the tip. Z and X.
AxisPair tipOf(int orientation, double radius) {
    static constexpr std::array<std::array<int, 2>, 9> kTips = {
        {{0, 0}, {1, -1}, {-1, -1}, {-1, 1}, {1, 1}, {1, 0}, {0, -1}, {-1, 0}, {0, 1}}};
    if (orientation < 0 || orientation > 8) {
        return {};
    }
    const auto& tip = kTips[static_cast<std::size_t>(orientation)];
    return {tip[0] * radius, tip[1] * radius};
}

bool checkOneShot(const Block& block, std::size_t systemInForce, Fault& fault) {
    const int code = block.g(GGroup::OneShot);
    if (code == Block::kNone || code == 40) {
        return true;
    }
    if (code == 100) {
        const double system = block.valueOr('P', -1);
        if (system != 0 && system != static_cast<double>(systemInForce + 1)) {
            return true;
        }
    }
    return forbid(block.columnOfG(GGroup::OneShot), textOfG(code).text, fault);
}

}  // namespace

AxisPair Machine::inPlane(const Axes& axes) const {
    const PlaneAxes& plane = axesOf(m_modes.plane);
    return {axes[plane.first], axes[plane.second]};
}

Axes Machine::besideAxes(const Axes& program, const AxisPair& tool) const {
    const PlaneAxes& plane = axesOf(m_modes.plane);
    Axes result = program;
    result[plane.first] = tool.first + m_compensation.shift.first;
    result[plane.second] = tool.second + m_compensation.shift.second;
    return result;
}

// What comes into force before G40 does.
bool Machine::checkBeforeCompensation(const Block& block, Fault& fault) const {
    for (const MGroup group : {MGroup::Tool, MGroup::Override, MGroup::Output}) {
        if (block.hasM(group)) {
            const int code = block.m(group);
            const auto refuse = code == 61 ? notFollowed : forbid;
            return refuse(block.columnOfM(group), "M" + std::to_string(code), fault);
        }
    }
    if (block.hasG(GGroup::Plane) &&
        block.g(GGroup::Plane) / 10 - 17 != static_cast<int>(m_modes.plane)) {
        return forbid(block.columnOfG(GGroup::Plane), textOfG(block.g(GGroup::Plane)).text, fault);
    }
    if (block.hasG(GGroup::Unit) && (block.g(GGroup::Unit) == 200) != m_modes.inches) {
        return notFollowed(block.columnOfG(GGroup::Unit), textOfG(block.g(GGroup::Unit)).text,
                           fault);
    }
    return true;
}

// What comes into force after G41 or G42 does.
bool Machine::checkBehindCompensation(const Block& block, Fault& fault) const {
    for (const GGroup group : {GGroup::ToolLength, GGroup::System, GGroup::Path, GGroup::Retract}) {
        if (block.hasG(group)) {
            return forbid(block.columnOfG(group), textOfG(block.g(group)).text, fault);
        }
    }
    const int off = block.g(GGroup::OffsetOff);
    if (off != Block::kNone && (off == 923 ? m_kept92 : m_offset92) != Axes{}) {
        return notFollowed(block.columnOfG(GGroup::OffsetOff), textOfG(off).text, fault);
    }
    return checkOneShot(block, systemInForce(), fault);
}

bool Machine::setCompensation(const Block& block, Fault& fault) {
    const int code = block.g(GGroup::RadiusOffset);
    if (code == Block::kNone) {
        return true;
    }
    if (code != 400) {
        return turnOn(block, fault);
    }
    if (m_compensation.isOn) {
        if (!settle(block.columnOfG(GGroup::RadiusOffset), fault)) {
            return false;
        }
        m_compensation.isLeaving = m_compensation.isEntered || m_compensation.isLeaving;
        m_compensation.isOn = false;
    }
    return true;
}

bool Machine::turnOn(const Block& block, Fault& fault) {
    const int code = block.g(GGroup::RadiusOffset);
    const std::uint32_t column = block.columnOfG(GGroup::RadiusOffset);
    if (m_compensation.isOn) {
        return reject(fault, Rule::CompensationOn, column, textOfG(code).text, "G40 before it");
    }
    if (m_modes.plane == Plane::YZ) {
        return reject(fault, Rule::CompensationPlane, column,
                      std::string(textOfG(code).text) + " in G19", "G17 or G18");
    }
    double radius = 0;
    int orientation = 0;
    if (!(code % 10 == 0 ? radiusOfTool(block, radius, orientation, fault)
                         : programmedRadius(block, radius, orientation, fault))) {
        return false;
    }
    const bool isLeaving = m_compensation.isLeaving;
    m_compensation = {};
    m_compensation.isOn = true;
    m_compensation.isLeaving = isLeaving;
    m_compensation.left = code < 420 ? radius : -radius;
    m_compensation.shift =
        m_modes.plane == Plane::XZ ? tipOf(orientation, std::abs(radius)) : AxisPair{};
    return true;
}

// G41.1 and G42.1: D is the diameter.
bool Machine::programmedRadius(const Block& block, double& radius, int& orientation,
                               Fault& fault) const {
    const std::uint32_t column = block.columnOfG(GGroup::RadiusOffset);
    const CodeText code = textOfG(block.g(GGroup::RadiusOffset));
    if (!block.has('D')) {
        return reject(fault, Rule::WordMissing, column, code.text, "D with the tool's diameter");
    }
    if (block.has('L') && m_modes.plane != Plane::XZ) {
        return reject(fault, Rule::WordWithoutUse, block.column('L'), "L", "G18 with L");
    }
    orientation = static_cast<int>(std::lround(block.valueOr('L', 0)));
    radius = block.value('D') / 2;
    return true;
}

// G41 and G42: D is a tool's number, without it the tool is that in the spindle.
bool Machine::radiusOfTool(const Block& block, double& radius, int& orientation,
                           Fault& fault) const {
    std::int32_t number = m_tool;
    if (block.has('D')) {
        const double value = block.value('D');
        if (value < 0 || value > kLargestWhole ||
            std::abs(value - std::round(value)) > kNumberTolerance) {
            return reject(fault, Rule::NumberOutOfRange, block.column('D'), "D",
                          "D with a tool's number");
        }
        const auto asked = static_cast<std::int32_t>(std::lround(value));
        if (!isTool(block, 'D', fault)) {
            return false;
        }
        number = asked == 0 ? m_tool : asked;
    }
    const Tool* tool = findTool(number);
    // Without a tool in the spindle the radius is 0, if it is known that there is none.
    if (tool == nullptr && (number != 0 || m_options.anyTool)) {
        const std::string whose =
            number == 0 ? "the tool in the spindle" : "tool " + std::to_string(number);
        return reject(fault, Rule::NotInterpretedCode, block.columnOfG(GGroup::RadiusOffset),
                      std::string(textOfG(block.g(GGroup::RadiusOffset)).text) +
                          " without a known diameter of " + whose,
                      "a tool whose diameter is known, or G41.1 and G42.1 with the diameter as D");
    }
    orientation = tool == nullptr ? 0 : tool->orientation;
    if (orientation != 0 && m_modes.plane != Plane::XZ) {
        return reject(fault, Rule::CompensationPlane, block.columnOfG(GGroup::RadiusOffset),
                      "a lathe tool", "G18 for a lathe tool");
    }
    radius = tool == nullptr ? 0 : tool->diameterMm / 2 / m_mmPerUnit;
    return true;
}

// In inverse time a controller makes the feed of the programmed length, and none below a least one.
// Where neither changes anything the word is kept.
void Machine::setFeedOf(Motion& motion, double programmedLength) const {
    const double feed = m_feed * programmedLength;
    const bool isOther =
        m_compensation.isOn || m_compensation.isLeaving || feed < kLeastInverseTimeFeed;
    if (motion.feedMode == FeedMode::InverseTime && motion.kind != MotionKind::Rapid &&
        programmedLength > 0 && isOther) {
        motion.feedMode = FeedMode::PerMinute;
        motion.feed = std::max(feed, kLeastInverseTimeFeed) * m_mmPerUnit;
    }
}

bool Machine::compensated(const Block& block, Motion& motion, const Axes& to, ProgrammedPath path,
                          Fault& fault) {
    Compensation& state = m_compensation;
    const std::uint32_t column = block.columnOfMotion();
    path.start = inPlane(m_position);
    path.end = inPlane(to);
    motion.contour = static_cast<std::int32_t>(m_reading.contours.size());
    m_reading.contours.push_back({machinePoint(m_position), machinePoint(to), motion.centre});
    motion.centre = machinePoint(besideAxes(m_position, path.centre));
    if (!state.isEntered) {
        return enter(column, motion, to, path, fault);
    }
    if (!path.isArc && lengthOf(path) == 0) {
        return pushBeside(motion, to, state.to, fault);
    }
    if (!hasRoom(path, state.left)) {
        return reject(fault, Rule::CompensationArcTooSmall, column, "an arc around the tool",
                      "a radius larger than the tool's");
    }
    // The step round a corner has the rotary axes of the move behind it already.
    std::copy(to.begin() + kLinearAxes, to.end(), m_position.begin() + kLinearAxes);
    if (!turnCorner(column, motion, path, fault)) {
        return false;
    }
    return follow(motion, to, path, fault);
}

bool Machine::follow(Motion& motion, const Axes& to, const ProgrammedPath& path, Fault& fault) {
    Compensation& state = m_compensation;
    state.hasPending = true;
    state.pending = m_reading.motions.size();
    state.path = path;
    state.to = besideEnd(path, state.left);
    motion.from = m_machine;
    return pushBeside(motion, to, state.to, fault);
}

// The first move begins where the tool is and ends beside the path.
bool Machine::enter(std::uint32_t column, Motion& motion, const Axes& to, ProgrammedPath& path,
                    Fault& fault) {
    Compensation& state = m_compensation;
    if (path.isArc && state.isLeaving) {
        return leavesByArc(column, fault);
    }
    if (!(lengthOf(path) > std::abs(state.left))) {
        return reject(fault, Rule::CompensationEntryShort, column,
                      "a first move as long as the tool's radius or shorter",
                      "ends further apart than the tool's radius");
    }
    if (!hasRoom(path, state.left)) {
        return reject(fault, Rule::CompensationArcTooSmall, column, "an arc around the tool",
                      "a radius larger than the tool's");
    }
    if (path.isArc) {
        if (state.shift.first != 0 || state.shift.second != 0) {
            return reject(fault, Rule::NotInterpretedCode, column,
                          "an arc as the first move of a lathe tool", "a straight first move");
        }
        path.entryCentre = entryCentre(path, state.left);
        if (!path.entryCentre) {
            return reject(fault, Rule::NotInterpretedCode, column,
                          "a first arc that the tool would go against its direction",
                          "a first move that ends in the direction of its arc");
        }
        motion.centre = machinePoint(besideAxes(m_position, *path.entryCentre));
    }
    state.isEntered = true;
    state.isLeaving = false;
    state.from = path.start;
    if (!follow(motion, to, path, fault)) {
        return false;
    }
    state.isUnchecked = true;
    return true;
}

bool Machine::leavesByArc(std::uint32_t column, Fault& fault) const {
    return reject(fault, Rule::CompensationExitArc, column, "an arc as the first move behind G40",
                  "a straight move");
}

bool Machine::turnCorner(std::uint32_t column, const Motion& after, const ProgrammedPath& path,
                         Fault& fault) {
    Compensation& state = m_compensation;
    const Corner corner = cornerOf(state.path, path, state.left);
    if (corner == Corner::Straight) {
        state.hasPending = false;
        state.isUnchecked = false;
        state.from = state.to;
        return true;
    }
    if (corner == Corner::Concave) {
        return turnInside(column, path, fault);
    }
    // Before an arc a controller does not look whether the move behind was turned round.
    if (path.isArc) {
        state.hasPending = false;
        state.isUnchecked = false;
    }
    return settle(column, fault) && goRoundCorner(after, path, fault);
}

bool Machine::turnInside(std::uint32_t column, const ProgrammedPath& path, Fault& fault) {
    Compensation& state = m_compensation;
    const auto end = meetingPoint(state.path, path, state.left);
    if (!end) {
        return reject(fault, Rule::CompensationNoRoom, column,
                      "a corner that the tool does not fit into", "a smaller tool");
    }
    // Behind a stop the tool stands at the end already, and where it begins is not looked at.
    const bool isBehindStop = !canMoveEnd();
    if (!isBehindStop) {
        movePendingEnd(*end);
    }
    if (!settle(column, fault)) {
        return false;
    }
    state.from = state.to;
    state.isUnchecked = isBehindStop;
    return true;
}

bool Machine::goRoundCorner(const Motion& after, const ProgrammedPath& path, Fault& fault) {
    Compensation& state = m_compensation;
    Motion round = after;
    if (round.kind != MotionKind::Rapid) {
        round.kind = MotionKind::Arc;
        round.turns = state.left > 0 ? -1 : 1;
        round.centre = machinePoint(besideAxes(m_position, inPlane(m_position)));
    }
    round.contour = kRoundCorner;
    round.from = m_machine;
    state.to = besideStart(path, state.left);
    state.from = state.to;
    return pushBeside(round, m_position, state.to, fault);
}

// The end of the last move is known now.
bool Machine::settle(std::uint32_t column, Fault& fault) {
    Compensation& state = m_compensation;
    if (!state.hasPending) {
        return true;
    }
    const double tolerance = m_modes.inches ? kLongerArcInches : kLongerArcMm;
    if (!state.isUnchecked && isTurnedRound(state.path, state.from, state.to, tolerance)) {
        const std::uint32_t line = m_reading.motions[state.pending].line;
        return reject(fault, Rule::CompensationGouge, column,
                      "line " + std::to_string(line) + " is too short for the tool",
                      "a smaller tool");
    }
    state.hasPending = false;
    state.isUnchecked = false;
    return true;
}

std::size_t Machine::firstMoveFrom(std::size_t index) const {
    const auto& motions = m_reading.motions;
    while (index < motions.size() && !isMove(motions[index])) {
        ++index;
    }
    return index;
}

bool Machine::canMoveEnd() const {
    return m_compensation.hasPending ||
           firstMoveFrom(m_compensation.pending) < m_reading.motions.size();
}

// A stop takes place where the tool would be if the path went straight on.
bool Machine::settleForStop(std::uint32_t column, Fault& fault) {
    if (!m_compensation.isOn) {
        return true;
    }
    if (!settle(column, fault)) {
        return false;
    }
    m_compensation.pending = m_reading.motions.size();
    return true;
}

// What does not move in the plane goes on at the end that the last move in the plane really has.
void Machine::movePendingEnd(const AxisPair& end) {
    Compensation& state = m_compensation;
    const Point before = machinePoint(besideAxes(m_position, state.to));
    const Point after = machinePoint(besideAxes(m_position, end));
    const auto move = [&](Point& point) {
        point.x += after.x - before.x;
        point.y += after.y - before.y;
        point.z += after.z - before.z;
    };
    auto& motions = m_reading.motions;
    const std::size_t first = firstMoveFrom(state.pending);
    for (std::size_t i = first; i < motions.size(); ++i) {
        if (i > first) {
            move(motions[i].from);
        }
        move(motions[i].to);
    }
    move(m_machine);
    state.to = end;
}

bool Machine::pushBeside(Motion& motion, const Axes& to, const AxisPair& tool, Fault& fault) {
    motion.rotary = rotaryIndex(to);
    motion.to = machinePoint(besideAxes(to, tool));
    m_position = to;
    m_machine = motion.to;
    return push(motion, fault);
}

void Machine::dropPending() {
    if (m_compensation.isOn && m_compensation.hasPending) {
        auto& motions = m_reading.motions;
        m_machine = motions[m_compensation.pending].from;
        motions.resize(m_compensation.pending);
        m_compensation.hasPending = false;
    }
}

}  // namespace gcode_check
