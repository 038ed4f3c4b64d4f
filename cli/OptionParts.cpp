// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "OptionParts.h"

#include <algorithm>
#include <charconv>
#include <cmath>

std::optional<double> numberIn(const std::string& text) {
    double value = 0;
    const char* const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, value);
    const bool whole = error == std::errc() && last == end && std::isfinite(value);
    return whole ? std::optional(value) : std::nullopt;
}

namespace {

std::string checkNumber(const std::string& text) {
    return numberIn(text) ? std::string() : "'" + text + "' is not a number";
}

std::string checkPositive(const std::string& text) {
    const std::optional<double> value = numberIn(text);
    return value && *value > 0 ? std::string() : "'" + text + "' is not a number above 0";
}

std::string checkNotNegative(const std::string& text) {
    const std::optional<double> value = numberIn(text);
    return value && *value >= 0 ? std::string() : "'" + text + "' is not a number of at least 0";
}

}  // namespace

// The validators have no descriptions of their own: the help would print them beside the types.
CLI::Validator isNumber() {
    return {checkNumber, ""};
}

CLI::Validator isPositive() {
    return {checkPositive, ""};
}

CLI::Validator isNotNegative() {
    return {checkNotNegative, ""};
}

CLI::Validator oneOf(const std::vector<std::string>& words) {
    const std::string all = CLI::detail::join(words, ", ");
    return CLI::Validator(
        [words, all](std::string& given) {
            const bool known = std::find(words.begin(), words.end(), given) != words.end();
            return known ? std::string() : "'" + given + "' is none of " + all;
        },
        "");
}

CLI::Validator lowered() {
    return CLI::Validator(
        [](std::string& given) {
            given = CLI::detail::to_lower(given);
            return std::string();
        },
        "");
}

void addObjectChoice(CLI::App& app, ObjectChoice& choice, const std::string& tolerance) {
    app.add_option("--layer", choice.layers, "Take only the objects of this layer (repeatable)")
        ->type_name("NAME")
        ->allow_extra_args(false);
    app.add_option("--type", choice.types, "Take only objects of this type (repeatable)")
        ->type_name("line|arc|circle|point")
        ->allow_extra_args(false)
        ->check(oneOf({"line", "arc", "circle", "point"}))
        ->transform(lowered());
    app.add_flag("--explode,!--no-explode", choice.explode,
                 "Turn polylines, ellipses and splines into lines and arcs (default)");
    app.add_option(
           tolerance, choice.explodeTolerance,
           "Chord tolerance of ellipses and splines in drawing units, when they are exploded")
        ->type_name("NUMBER")
        ->check(isPositive())
        ->capture_default_str();
}

void addCheckSettings(CLI::App& app, CheckSettings& settings, const std::string& tolerance,
                      const std::string& group) {
    const auto add = [&app, &group](const std::string& name, double& value, const std::string& text,
                                    const CLI::Validator& check) {
        app.add_option(name, value, text)
            ->type_name("NUMBER")
            ->check(check)
            ->capture_default_str()
            ->group(group);
    };
    app.add_option("--surface", settings.surface, "Z of the material's top (default 0)")
        ->type_name("NUMBER")
        ->check(isNumber())
        ->group(group);
    add(tolerance, settings.tolerance, "How far from its object a cut may lie", isPositive());
    app.add_option("--arc-tolerance", settings.arcTolerance,
                   "How much the two radii of an arc may differ on your controller "
                   "(default 0.005 mm, or a thousandth of the radius)")
        ->type_name("NUMBER")
        ->check(isNotNegative())
        ->group(group);
    add("--rapid-rate", settings.rapidRate,
        "Speed of rapid moves in mm per minute, to estimate the time", isPositive());
}
