// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// Numbering adds a number to each line, in steps of five, and takes nothing away.
#include <cstddef>
#include <cstdint>
#include <string>

#include "FuzzCheck.h"
#include "core/LineNumbering.h"

namespace {

/// The numbered text without its numbers.
std::string withoutNumbers(const std::string& numbered) {
    std::string text;
    std::size_t number = 0;
    for (std::size_t at = 0; at < numbered.size();) {
        number += 5;
        const std::string prefix = "N" + std::to_string(number) + " ";
        FUZZ_CHECK(numbered.compare(at, prefix.size(), prefix) == 0);
        const std::size_t end = numbered.find('\n', at);
        FUZZ_CHECK(end != std::string::npos);
        text.append(numbered, at + prefix.size(), end + 1 - at - prefix.size());
        at = end + 1;
    }
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string text(reinterpret_cast<const char*>(data), size);
    const std::string numbered = GCode::numberLines(text);
    if (!text.empty() && text.back() != '\n') {
        text += '\n';
    }
    FUZZ_CHECK(withoutNumbers(numbered) == text);
    return 0;
}
