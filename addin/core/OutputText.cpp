// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/OutputText.h"

namespace GCode {

std::string savedText(const OutputText& output) {
    return output.comment.empty() ? output.program : appendedText(output);
}

std::string appendedText(const OutputText& output) {
    return output.comment + "\n" + output.program;
}

}  // namespace GCode
