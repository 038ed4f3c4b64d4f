// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "FileNames.h"

#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace {

bool isFileName(const std::string& name) {
    return !name.empty() && name != "-";
}

bool isSameFile(const std::string& a, const std::string& b) {
    if (!isFileName(a) || !isFileName(b)) {
        return false;
    }
    std::error_code error;
    if (fs::exists(a, error) && !fs::is_regular_file(a, error)) {
        return false;
    }
    // Empty when a name leads nowhere, as in a loop of links.
    const fs::path whole = fs::weakly_canonical(a, error);
    return (!whole.empty() && whole == fs::weakly_canonical(b, error)) ||
           fs::equivalent(a, b, error);
}

}  // namespace

std::string clashOfFiles(const std::vector<std::string>& inputs,
                         const std::vector<std::string>& outputs) {
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        for (const std::string& input : inputs) {
            if (isSameFile(outputs[i], input)) {
                return outputs[i] + " is an input and can't be the output as well";
            }
        }
        for (std::size_t j = 0; j < i; ++j) {
            if (isSameFile(outputs[i], outputs[j])) {
                return outputs[i] + " can't be two outputs at once";
            }
        }
    }
    return {};
}
