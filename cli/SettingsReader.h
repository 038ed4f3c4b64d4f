// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <set>
#include <string>

/// What is wrong with a settings file: its name, the line and the cause.
class SettingsError : public CLI::ConfigError {
public:
    SettingsError(const std::string& file, int line, const std::string& cause)
        : CLI::ConfigError(file + ":" + std::to_string(line) + ": " + cause,
                           CLI::ExitCodes::ConfigError) {}
};

using OptionSet = std::set<const CLI::Option*>;

/// Adds --config: what stands in the file it names goes to the options that the command line does
/// not give. Parsing then throws a `SettingsError` for what no option takes, or a `CLI::FileError`.
/// The options that have their value from the file are in the set once it is parsed.
std::shared_ptr<const OptionSet> addSettingsFile(CLI::App& app);
