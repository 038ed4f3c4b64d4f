// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <string_view>

#include "findings/Check.h"

/// Says how far a check is, on one line of a terminal that is written anew each time and goes with
/// the object. A check that does not take its time says nothing.
class CheckProgress {
public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;
    static constexpr std::chrono::milliseconds kQuiet{1000};

    /// The open file of the terminal.
    explicit CheckProgress(int terminal, Clock clock = std::chrono::steady_clock::now);
    CheckProgress(const CheckProgress&) = delete;
    CheckProgress& operator=(const CheckProgress&) = delete;
    ~CheckProgress();

    /// From 0 to 1.
    void tell(double part);

private:
    int m_terminal;
    Clock m_clock;
    std::chrono::steady_clock::time_point m_begin;
    int m_percent = -1;
};

/// Checks, and says meanwhile how far it is, where standard error is a terminal and nobody wants it
/// quiet.
gcode_check::CheckResult checkTelling(std::string_view program,
                                      const gcode_check::CheckOptions& options,
                                      const gcode_check::Drawing* drawing, bool quiet);
