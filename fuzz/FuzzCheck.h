// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <cstdlib>

[[noreturn]] inline void endWithWhatFails(const char* file, int line, const char* what) {
    std::fprintf(stderr, "%s:%d: does not hold: %s\n", file, line, what);
    std::abort();
}

/// Ends the process with what does not hold, in every kind of build.
#define FUZZ_CHECK(holds) \
    ((holds) ? static_cast<void>(0) : endWithWhatFails(__FILE__, __LINE__, #holds))
