// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ObjectChoice.h"
#include "ProgramCheck.h"

// What the command lines of several commands are made of.

/// The number that a whole text is, with a decimal point whatever the locale is; finite.
std::optional<double> numberIn(const std::string& text);

// Whole texts that are finite numbers with a decimal point, whatever the locale is.
CLI::Validator isNumber();
CLI::Validator isPositive();
CLI::Validator isNotNegative();

/// Accepts the given words only, and names them.
CLI::Validator oneOf(const std::vector<std::string>& words);

/// Makes letters small before they are compared.
CLI::Validator lowered();

/// An option that takes one of some words, in any case.
template <class Enum>
void addChoice(CLI::App& app, const std::string& name, Enum& value,
               const std::vector<std::pair<std::string, Enum>>& words, const std::string& text) {
    std::vector<std::string> names;
    for (const auto& word : words) {
        names.push_back(word.first);
    }
    const auto take = [&value, words](const std::string& given) {
        for (const auto& [word, meaning] : words) {
            if (word == given) {
                value = meaning;
            }
        }
    };
    app.add_option_function<std::string>(name, take, text)
        ->type_name(CLI::detail::join(names, "|"))
        ->check(oneOf(names))
        ->transform(lowered());
}

/// The options that choose objects; `tolerance` is the name of the chord tolerance, or its names.
void addObjectChoice(CLI::App& app, ObjectChoice& choice, const std::string& tolerance);

/// What a check is told; `tolerance` is the name of how far a cut may lie off, or its names, and
/// `group` where they stand in the help.
void addCheckSettings(CLI::App& app, CheckSettings& settings, const std::string& tolerance,
                      const std::string& group);
