// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <cstdio>
#include <cstring>

/// A program without guards, for the test of the test that looks for them.
int main(int argc, char** argv) {
    char text[16] = "";
    std::strncpy(text, argv[argc - 1], sizeof text - 1);
    return std::puts(text) < 0 ? 1 : 0;
}
