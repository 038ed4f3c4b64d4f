// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/rules/ZeroRule.h"

#include <algorithm>

namespace gcode_check {
namespace {

constexpr double kSameMm = 1e-6;
constexpr const char* kAxes = "XYZ";
constexpr const char* kNames[] = {"x", "y", "z"};

std::array<double, 3> coordinatesOf(const Point& place) {
    return {place.x, place.y, place.z};
}

bool areNear(const Point& a, const Point& b) {
    return std::abs(a.x - b.x) <= kSameMm && std::abs(a.y - b.y) <= kSameMm &&
           std::abs(a.z - b.z) <= kSameMm;
}

std::string codeText(const ZeroWords& words) {
    const int code = words.sets != 0       ? words.sets
                     : words.switches != 0 ? words.switches
                                           : words.selects;
    if (code == 100) {
        return words.fromTool ? "G10 L20" : "G10 L2";
    }
    // Nothing else brings a work offset back than the modes that were saved.
    return code == 0 ? "M72" : 'G' + numberText(code / 10.0);
}

}  // namespace

ZeroRule::ZeroRule(const Setting& setting, Findings& findings)
    : m_setting(setting), m_findings(findings), m_lines(setting.program) {
    for (Origins& system : m_systems) {
        system.fill(Origin::Table);
    }
    if (!setting.reading.frames.empty()) {
        const Frame& frame = setting.reading.frames.front();
        m_systems[frame.system - 1U] = {};
        m_first = zeroOf(frame);
        m_last = m_first;
        m_now = m_first;
    }
}

bool ZeroRule::areSame(const Zero& a, const Zero& b) {
    return a.system == b.system && a.origins == b.origins && areNear(a.place, b.place) &&
           std::abs(a.rotationDeg - b.rotationDeg) <= kSameMm;
}

ZeroRule::Zero ZeroRule::zeroOf(const Frame& frame) const {
    Zero zero{frame.zero, frame.rotationDeg, frame.system, m_systems[frame.system - 1U]};
    for (std::size_t axis = 0; axis < zero.origins.size(); ++axis) {
        if (m_shift[axis] != Origin::Beginning) {
            zero.origins[axis] = m_shift[axis];
        }
    }
    return zero;
}

void ZeroRule::step(const Step& step) {
    if (!step.isMove()) {
        return;
    }
    const std::vector<Frame>& frames = m_setting.reading.frames;
    for (; m_frame <= step.motion->frame; ++m_frame) {
        change(frames[m_frame]);
    }
    followTool(step);
    if (!step.isFeed() || !(step.isSideways() || step.isDown())) {
        return;
    }
    if (!m_isChanged) {
        return;
    }
    m_isChanged = false;
    if (areSame(m_now, m_last)) {
        return;
    }
    m_last = m_now;
    if (!areSame(m_now, m_first)) {
        report(step);
    }
}

// Where the tool is known to stand when the next G92 comes.
void ZeroRule::followTool(const Step& step) {
    m_hasMoved = true;
    const bool isAllTold = m_told[0] && m_told[1] && m_told[2];
    if (isAllTold && !step.motion->toMachinePlace) {
        return;
    }
    const AxisLines& known = m_setting.known;
    const std::array<std::uint32_t, 3> lines = {known.x, known.y, known.z};
    const std::array<double, 3> from = coordinatesOf(step.from);
    const std::array<double, 3> to = coordinatesOf(step.to);
    for (std::size_t axis = 0; axis < m_told.size(); ++axis) {
        const bool moves = std::abs(to[axis] - from[axis]) > kSame;
        if (step.motion->toMachinePlace) {
            // Which axes went there does not show where home is taken to lie at 0.
            m_told[axis] = false;
        } else if (!step.relative && (moves || lines[axis] == step.line())) {
            m_told[axis] = true;
        }
    }
}

void ZeroRule::change(const Frame& frame) {
    if (frame.zeroLine == m_changed) {
        return;
    }
    m_changed = frame.zeroLine;
    m_isChanged = true;
    while (m_lines.number() < m_changed && m_lines.next()) {
    }
    const ZeroWords words = zeroWordsOf(m_lines.text());
    if (words.switches != 0) {
        m_kept = words.switches == 921 ? Origins{} : m_kept;
        m_shift = words.switches == 923 ? m_kept : Origins{};
    }
    const bool isFromTool = words.sets == 920 || (words.sets == 100 && words.fromTool);
    if (words.sets != 0) {
        set(words, frame);
    }
    if (isFromTool && !m_hasMoved) {
        begin(words, frame);
    }
    const Zero zero = zeroOf(frame);
    if (!areSame(zero, m_now)) {
        m_now = zero;
        m_line = frame.zeroLine;
        m_code = codeText(words);
    }
}

// The tool stands where the operator has put it.
void ZeroRule::begin(const ZeroWords& words, const Frame& frame) {
    m_first = zeroOf(frame);
    m_last = m_first;
    Finding* const finding = m_findings.add(FindingKind::ZeroMoved, Severity::Note, frame.zeroLine);
    if (finding == nullptr) {
        return;
    }
    std::string place;
    for (std::size_t axis = 0; axis < words.axes.size(); ++axis) {
        if (words.axes[axis]) {
            place += std::string(" ") + kAxes[axis] + numberText(*words.axes[axis], 4);
        }
    }
    finding->sentence = "The program takes the place where the tool stands at its start as" +
                        place + " (" + codeText(words) +
                        "): put the tool there before you start it. Surface and drawing are "
                        "measured from that zero.";
}

void ZeroRule::set(const ZeroWords& words, const Frame& frame) {
    if (words.sets == 100) {
        setSystem(words, frame);
        return;
    }
    for (std::size_t axis = 0; axis < m_shift.size(); ++axis) {
        if (words.axes[axis]) {
            m_shift[axis] = words.sets == 520 ? Origin::Beginning : originFromTool(axis, frame);
        }
    }
    m_kept = m_shift;
}

void ZeroRule::setSystem(const ZeroWords& words, const Frame& frame) {
    const std::size_t inForce = frame.system - 1U;
    Origins& system = m_systems[words.system == ZeroWords::kInForce ? inForce : words.system];
    for (std::size_t axis = 0; axis < system.size(); ++axis) {
        if (words.axes[axis]) {
            system[axis] = words.fromTool ? originFromTool(axis, frame) : Origin::Machine;
        }
    }
}

ZeroRule::Origin ZeroRule::originFromTool(std::size_t axis, const Frame& frame) const {
    const Origin before =
        m_shift[axis] != Origin::Beginning ? m_shift[axis] : m_systems[frame.system - 1U][axis];
    return m_told[axis] ? before : Origin::Tool;
}

std::string ZeroRule::shiftWords(std::vector<NamedNumber>& numbers) const {
    const std::array<double, 3> first = coordinatesOf(m_first.place);
    const std::array<double, 3> now = coordinatesOf(m_now.place);
    std::string known;
    std::string unknown;
    bool isShifted = false;
    for (std::size_t axis = 0; axis < now.size(); ++axis) {
        const bool isOther = m_now.origins[axis] == Origin::Table && m_now.system != m_first.system;
        if (m_now.origins[axis] == m_first.origins[axis] && !isOther) {
            const double shift = (now[axis] - first[axis]) / m_setting.mmPerUnit;
            known += std::string(known.empty() ? "" : " ") + kAxes[axis] + numberText(shift, 4);
            numbers.push_back({kNames[axis], shift});
            isShifted = isShifted || std::abs(shift) > kSame;
        } else {
            unknown += std::string(unknown.empty() ? "" : ", ") + kAxes[axis];
        }
    }
    std::string text = isShifted ? ", by " + known + ' ' + m_setting.words.unit() : "";
    if (!unknown.empty()) {
        text += ", how far in " + unknown + " the program does not tell";
    }
    if (std::abs(m_now.rotationDeg - m_first.rotationDeg) > kSameMm) {
        text +=
            ", turned by " + numberText(m_now.rotationDeg - m_first.rotationDeg, 4) + " degrees";
    }
    return text;
}

void ZeroRule::report(const Step& step) {
    Finding* const finding = m_findings.add(FindingKind::ZeroMoved, Severity::Warning, m_line);
    if (finding == nullptr) {
        return;
    }
    finding->sentence = "The zero is moved here (" + m_code + ')' + shiftWords(finding->numbers) +
                        ". From this line on surface and drawing are measured from the moved "
                        "zero; if that is not meant, take " +
                        m_code + " out.";
    finding->place = placeOf(m_setting, step);
}

}  // namespace gcode_check
