// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace layers {

/// What checking a source tree gave.
struct Report {
    /// One line per include that points the wrong way: "file:line: layer must not include ...".
    std::vector<std::string> complaints;
    /// How many files of each layer were read.
    std::map<std::string, int> filesOfLayer;
};

/// Reads every `.h` and `.cpp` below `root`'s `sdk`, `addin`, `host`, `cli` and `examples`, and
/// holds each include against what its file's layer may use.
Report checkIncludes(const std::filesystem::path& root);

}  // namespace layers
