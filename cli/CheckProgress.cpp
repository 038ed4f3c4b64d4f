// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "CheckProgress.h"

#include <unistd.h>

#include <string>
#include <utility>

#include "files/FileDescriptor.h"

namespace {

// The same length for each number, so that one covers the other.
std::string lineFor(int percent) {
    const std::string number = std::to_string(percent);
    return "\rChecking: " + std::string(3 - number.size(), ' ') + number + " %";
}

}  // namespace

CheckProgress::CheckProgress(int terminal, Clock clock)
    : m_terminal(terminal), m_clock(std::move(clock)), m_begin(m_clock()) {}

CheckProgress::~CheckProgress() {
    if (m_percent >= 0) {
        const std::string blanks(lineFor(m_percent).size() - 1, ' ');
        kxfiles::writeAll(m_terminal, '\r' + blanks + '\r');
    }
}

void CheckProgress::tell(double part) {
    const int percent = static_cast<int>(part * 100);
    if (percent != m_percent && m_clock() - m_begin >= kQuiet) {
        m_percent = percent;
        kxfiles::writeAll(m_terminal, lineFor(percent));
    }
}

gcode_check::CheckResult checkTelling(std::string_view program,
                                      const gcode_check::CheckOptions& options,
                                      const gcode_check::Drawing* drawing, bool quiet) {
    if (quiet || isatty(STDERR_FILENO) == 0) {
        return gcode_check::check(program, options, drawing);
    }
    CheckProgress progress(STDERR_FILENO);
    gcode_check::CheckOptions told = options;
    told.progress = [&progress](double part) {
        progress.tell(part);
        return true;
    };
    return gcode_check::check(program, told, drawing);
}
