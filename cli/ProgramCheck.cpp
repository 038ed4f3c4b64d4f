// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "ProgramCheck.h"

#include "ExitCode.h"
#include "files/PrintableText.h"

gcode_check::CheckOptions checkOptionsOf(const CheckSettings& settings) {
    gcode_check::CheckOptions options;
    options.surfaceZ = settings.surface.value_or(0);
    options.tolerance = settings.tolerance;
    options.rapidRate = settings.rapidRate;
    options.arcRadiusTolerance = settings.arcTolerance;
    options.depth = settings.depth;
    options.plungeFeed = settings.plungeFeed;
    return options;
}

gcode_check::ReportHead headOf(const std::string& program, const std::string& stream,
                               const std::string& drawing, const CheckSettings& settings) {
    const bool isStream = program.empty() || program == "-";
    return {isStream ? stream : kxfiles::printable(program), kxfiles::printable(drawing),
            settings.surface.has_value()};
}

int exitCodeOf(const gcode_check::CheckResult& result) {
    return gcode_check::hasErrors(result) ? kExitErrorsFound : kExitWritten;
}
