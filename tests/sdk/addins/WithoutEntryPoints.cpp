// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// A library that is no add-in.
extern "C" __attribute__((visibility("default"))) int answer() {
    return 42;
}
