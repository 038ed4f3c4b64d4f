// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

/// What a program that was run gave.
struct ChildRun {
    /// The exit code; a negative number is that of the signal that ended it, SIGALRM after a hang.
    int code = 0;
    std::string output;
    std::string messages;
};

struct ChildOptions {
    /// Names with values, "NAME=value", or to be taken away, "NAME".
    std::vector<std::string> environment;
    std::string workFolder;
    /// Standard output, when it is not to be read.
    std::string outputTo;
    /// Done in the program's process before it starts; system calls only.
    std::function<void()> prepare;
    unsigned limitSeconds = 20;
};

/// Runs a program with arguments of any bytes, the first of which is its file.
ChildRun runChild(const std::vector<std::string>& arguments, const ChildOptions& options = {});
