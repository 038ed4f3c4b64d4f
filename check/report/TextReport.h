// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "report/Report.h"

namespace gcode_check {

// For people: a line a finding ("3: error: ... [rapid-in-material]"), then the figures. UTF-8,
// every line ends in a line feed; equal results give equal bytes, whatever the locale.
std::string textReport(const CheckResult& result, const ReportHead& head = {});

}  // namespace gcode_check
