// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/LineNumbering.h"

#include <algorithm>
#include <cstddef>

namespace GCode {

std::string numberLines(const std::string& text) {
    constexpr std::size_t kStep = 5;
    std::string numbered;
    std::size_t number = 0;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        number += kStep;
        numbered += "N" + std::to_string(number) + " ";
        numbered.append(text, begin, end - begin) += '\n';
        begin = end + 1;
    }
    return numbered;
}

}  // namespace GCode
