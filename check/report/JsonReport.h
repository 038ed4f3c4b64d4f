// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "report/Report.h"

namespace gcode_check {

// For programs: one JSON object, UTF-8, indented, members in fixed order; docs/dev/check-json.md
// describes it. Equal results give equal bytes, whatever the locale.
std::string jsonReport(const CheckResult& result, const ReportHead& head = {});

}  // namespace gcode_check
