// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the process with what does not hold, in every kind of build.
#define FUZZ_CHECK(holds)                                                                   \
    do {                                                                                    \
        if (!(holds)) {                                                                     \
            std::fprintf(stderr, "%s:%d: does not hold: %s\n", __FILE__, __LINE__, #holds); \
            std::abort();                                                                   \
        }                                                                                   \
    } while (false)
