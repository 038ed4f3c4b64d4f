// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace GCode {

/// What goes to a file: a program and the comment above it, in UTF-8.
struct OutputText {
    std::string comment;
    std::string program;
    bool numbersLines = false;  // of the whole file, once the texts are in it
};

/// What is written to a new file: no line for an empty comment.
std::string savedText(const OutputText& output);

/// What is added to a file, and what is kept of a new one for rebuilding it: a line for the comment
/// in any case.
std::string appendedText(const OutputText& output);

}  // namespace GCode
