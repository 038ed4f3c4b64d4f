// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/Setting.h"

#include <algorithm>

#include "findings/ProgramText.h"

namespace gcode_check {
namespace {

constexpr double kMmPerInch = 25.4;

bool cutsBehind(std::string_view program, const Reading& reading) {
    if (reading.stopLine != 0) {
        return cutsFrom(program, reading.stopLine, reading.state.motionMode);
    }
    if (reading.endLine != 0 && reading.endLine < reading.lines) {
        return cutsFrom(program, reading.endLine + 1, reading.state.motionMode);
    }
    return false;
}

}  // namespace

bool isInches(const Reading& reading, const CheckOptions& options) {
    const auto unit = std::find_if(reading.facts.begin(), reading.facts.end(),
                                   [](const Fact& fact) { return fact.kind == FactKind::Unit; });
    return unit == reading.facts.end() ? options.machine.startsInInches : unit->value == 20;
}

Setting settingOf(std::string_view program, const Reading& reading, const CheckOptions& options,
                  const Drawing* drawing) {
    const bool inches = isInches(reading, options);
    Setting setting{program, reading, options, 1, 1, 0, 0, {}, false, Wording(inches), nullptr};
    setting.mmPerUnit = inches ? kMmPerInch : 1;
    if (drawing != nullptr && drawing->mmPerUnit.value_or(0) > 0) {
        setting.unitsPerDrawingUnit = *drawing->mmPerUnit / setting.mmPerUnit;
    }
    setting.surface = options.surfaceZ * setting.unitsPerDrawingUnit;
    setting.tolerance = options.tolerance * setting.unitsPerDrawingUnit;
    setting.known = firstAxisLines(program);
    setting.moreBehind = cutsBehind(program, reading);
    return setting;
}

}  // namespace gcode_check
