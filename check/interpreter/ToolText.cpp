// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "interpreter/ToolText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <utility>

namespace gcode_check {
namespace {

constexpr double kMmPerInch = 25.4;
constexpr std::string_view kBlanks = " \t\r\n";

template <class Number>
std::optional<Number> numberIn(std::string_view text) {
    Number value{};
    const char* const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && last == end ? std::optional(value) : std::nullopt;
}

std::optional<Tool> toolIn(std::string_view text) {
    const std::size_t sign = text.find('=');
    if (sign == std::string_view::npos) {
        return std::nullopt;
    }
    std::string_view width = text.substr(sign + 1);
    const bool isInches = width.size() > 2 && width.substr(width.size() - 2) == "in";
    width.remove_suffix(isInches ? 2 : 0);
    const auto number = numberIn<std::int32_t>(text.substr(0, sign));
    const auto diameter = numberIn<double>(width);
    const bool isTool =
        number.value_or(0) > 0 && diameter && std::isfinite(*diameter) && *diameter >= 0;
    if (!isTool) {
        return std::nullopt;
    }
    Tool tool;
    tool.number = *number;
    tool.pocket = *number;
    tool.diameterMm = *diameter * (isInches ? kMmPerInch : 1);
    return tool;
}

// Blanks may stand around the sign.
std::string withoutBlanksAtSigns(std::string_view list) {
    std::string text;
    for (const char c : list) {
        if (c == '=') {
            text.erase(text.find_last_not_of(kBlanks) + 1);
        }
        const bool isBlank = kBlanks.find(c) != std::string_view::npos;
        if (!isBlank || text.empty() || text.back() != '=') {
            text += c;
        }
    }
    return text;
}

}  // namespace

ToolTexts toolsOf(const std::vector<std::string>& texts) {
    ToolTexts result;
    for (const std::string& text : texts) {
        const std::optional<Tool> tool = toolIn(text);
        if (!tool) {
            return {{}, "'" + text + "' is no tool: NUMBER=DIAMETER, as 3=6 or 3=0.25in"};
        }
        const bool isTwice =
            std::any_of(result.tools.begin(), result.tools.end(),
                        [&tool](const Tool& other) { return other.number == tool->number; });
        if (isTwice) {
            return {{}, "tool " + std::to_string(tool->number) + " is there twice"};
        }
        result.tools.push_back(*tool);
    }
    return result;
}

ToolTexts toolsIn(std::string_view list) {
    const std::string text = withoutBlanksAtSigns(list);
    const std::string separators = std::string(kBlanks) + ",;";
    std::vector<std::string> parts;
    for (std::size_t at = text.find_first_not_of(separators); at != std::string::npos;) {
        const std::size_t end = std::min(text.find_first_of(separators, at), text.size());
        std::string part = text.substr(at, end - at);
        const bool isDecimals =
            !parts.empty() && text[at - 1] == ',' && part.find('=') == std::string::npos;
        if (isDecimals) {
            // Named as it was written: a number with a comma.
            parts.back() += ',' + part;
        } else {
            parts.push_back(std::move(part));
        }
        at = text.find_first_not_of(separators, end);
    }
    return toolsOf(parts);
}

}  // namespace gcode_check
