// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// Any program gives the path that the literal interpreter gives, within its limits.
#include <array>
#include <cstdint>

#include "SamePrograms.h"

namespace {

/// Most programs are to be read to their end: the last byte, often a line feed, chooses.
std::size_t limitOf(std::string_view program) {
    constexpr std::array<std::size_t, 16> kLimits{
        20000, 0, 20000, 1, 20000, 2, 20000, 31, 20000, 100, 20000, 500, 20000, 20000, 30, 5000};
    return program.empty() ? 0 : kLimits[static_cast<unsigned char>(program.back()) % 16];
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view program(reinterpret_cast<const char*>(data), size);
    checkProgram(program, limitOf(program));
    return 0;
}
