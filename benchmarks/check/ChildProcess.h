// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

/// What a process cost.
struct ChildCost {
    double seconds = 0;  // user and system time
    double peakMegabytes = 0;
    int exitCode = 0;
};

/// Runs a program in a folder, with variables "NAME=value" besides the own ones; what it prints
/// goes nowhere. Nothing when it can't be run or ends by a signal.
std::optional<ChildCost> runChild(const std::vector<std::string>& arguments,
                                  const std::string& folder,
                                  const std::vector<std::string>& variables = {});
