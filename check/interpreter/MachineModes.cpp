// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// M70 and M73 save the modes, M71 forgets them, M72 brings them back.
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "interpreter/Machine.h"
#include "interpreter/Units.h"

namespace gcode_check {
namespace {

constexpr std::uint8_t kMist = 1;
constexpr std::uint8_t kFlood = 2;

// A controller writes the words again that it brings back: F with so many decimals, S whole.
double rewritten(double value, int decimals) {
    std::array<char, 400> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::fixed, decimals);
    double result = value;
    std::from_chars(text.data(), end.ptr, result);
    return result;
}

bool isOnlyForModes(const Block& block) {
    constexpr std::array<GGroup, 14> kLater = {
        GGroup::OneShot,     GGroup::Motion,      GGroup::CancelMotion, GGroup::Plane,
        GGroup::Distance,    GGroup::ArcDistance, GGroup::Unit,         GGroup::RadiusOffset,
        GGroup::ToolLength,  GGroup::Retract,     GGroup::System,       GGroup::Path,
        GGroup::SpindleMode, GGroup::OffsetOff};
    constexpr std::array<MGroup, 4> kLaterM = {MGroup::Stop, MGroup::Coolant, MGroup::Override,
                                               MGroup::Output};
    return !block.hasAxes() && !block.hasG(GGroup::Diameter) &&
           std::none_of(kLater.begin(), kLater.end(),
                        [&](GGroup group) { return block.hasG(group); }) &&
           std::none_of(kLaterM.begin(), kLaterM.end(),
                        [&](MGroup group) { return block.hasM(group); });
}

}  // namespace

bool Machine::saveOrRestoreModes(const Block& block, Fault& fault) {
    switch (block.m(MGroup::Spindle)) {
        case 70:
        case 73:
            saveModes();
            return true;
        case 71:
            m_saved.reset();
            return true;
        case 72:
            break;
        default:
            return true;
    }
    const std::uint32_t column = block.columnOfM(MGroup::Spindle);
    if (!m_saved) {
        return reject(fault, Rule::ModesNotSaved, column, "M72", "M70 or M73 before it");
    }
    // A controller forgets the rest of the line when it has something to bring back.
    if (!isOnlyForModes(block)) {
        return reject(fault, Rule::NotInterpretedCode, column, "M72 beside other words",
                      "M72 on a line of its own");
    }
    if (m_saved->isCompensated || m_compensation.isOn) {
        return reject(fault, Rule::NotInterpretedCode, column, "M72 with radius compensation",
                      "G40 before M70 and M72");
    }
    return restoreModes(fault);
}

void Machine::saveModes() {
    m_saved = SavedModes{m_modes, m_feedWord, m_compensation.isOn, m_toolOffset != Axes{}};
}

// The motion code stays as it is, and so do origins and by how much G92 shifts.
bool Machine::restoreModes(Fault& fault) {
    const Modes& saved = m_saved->modes;
    changeUnit(saved.inches);
    restoreFeed();
    restoreSpindle();
    if (!restoreToolLength(fault)) {
        return false;
    }
    changeSystem(saved.system - std::size_t{1});
    if (m_modes.offset92On != saved.offset92On) {
        switch92(saved.offset92On ? 923 : 922);
    }
    Modes restored = saved;
    // Not as they were: the speed is whole now, and coolant has rules of its own.
    restored.spindleSpeed = m_modes.spindleSpeed;
    restored.coolant = m_modes.coolant;
    m_modes = restored;
    restoreCoolant();
    return true;
}

// A new mode takes the feed away, and F comes back only when the number was another before that.
void Machine::restoreFeed() {
    const bool isOther = m_feedWord != m_saved->feedWord;
    const bool isChanged = m_modes.feedMode != m_saved->modes.feedMode;
    m_modes.feedMode = m_saved->modes.feedMode;
    if (m_modes.feedMode == FeedMode::InverseTime) {
        return;
    }
    if (isChanged) {
        m_feed = 0;
        m_feedWord = 0;
    }
    if (isOther) {
        m_feedWord = rewritten(m_saved->feedWord, 1);
        m_feed = m_feedWord * m_mmPerUnit;
    }
}

void Machine::restoreSpindle() {
    if (m_modes.spindleSpeed != m_saved->modes.spindleSpeed) {
        m_modes.spindleSpeed = rewritten(m_saved->modes.spindleSpeed, 0);
        pushSpindle(m_modes.spindle);
    }
    if (m_modes.spindle != m_saved->modes.spindle) {
        pushSpindle(m_saved->modes.spindle);
    }
}

// What was on is switched on again; what was off goes off only when both were off.
void Machine::restoreCoolant() {
    if (m_saved->modes.coolant == 0 && m_modes.coolant != 0) {
        m_modes.coolant = 0;
        m_reading.motions.push_back(step(MotionKind::Coolant));
    }
    for (const std::uint8_t kind : {kMist, kFlood}) {
        if ((m_saved->modes.coolant & kind) != 0 && (m_modes.coolant & kind) == 0) {
            m_modes.coolant |= kind;
            m_reading.motions.push_back(step(MotionKind::Coolant));
        }
    }
}

// The offset of the tool in the spindle, whichever it was before.
bool Machine::restoreToolLength(Fault& fault) {
    const bool hasOffset = m_toolOffset != Axes{};
    if (hasOffset == m_saved->hasToolOffset) {
        return true;
    }
    Block block;
    block.clear();
    block.setG(GGroup::ToolLength, hasOffset ? 490 : 430, 1);
    return setToolLength(block, fault);
}

}  // namespace gcode_check
