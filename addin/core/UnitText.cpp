// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/UnitText.h"

#include <string_view>

namespace GCode {

namespace {

std::string replaceAll(const std::string& text, std::string_view from, std::string_view to) {
    std::string result;
    std::size_t done = 0;
    for (std::size_t found = text.find(from); found != std::string::npos;
         found = text.find(from, done)) {
        result.append(text, done, found - done).append(to);
        done = found + from.size();
    }
    return result.append(text, done);
}

}  // namespace

std::string textInMillimetres(std::string text) {
    return replaceAll(replaceAll(text, "G20", "G21"), "inch", "mm");
}

std::string textInInches(std::string text) {
    return replaceAll(replaceAll(text, "G21", "G20"), "mm", "inch");
}

}  // namespace GCode
