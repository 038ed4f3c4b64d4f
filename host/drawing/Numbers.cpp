// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace kxdrawing {

namespace {

std::string_view withoutPlus(std::string_view text) {
    if (text.size() > 1 && text.front() == '+' && text[1] != '-') {
        text.remove_prefix(1);
    }
    return text;
}

}  // namespace

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::optional<double> parseReal(std::string_view text) {
    text = withoutPlus(trimmed(text));
    const char* const end = text.data() + text.size();
    double value = 0;
    const std::from_chars_result result = std::from_chars(text.data(), end, value);
    if (result.ptr != end || text.empty() || result.ec == std::errc::invalid_argument) {
        return std::nullopt;
    }
    if (result.ec == std::errc::result_out_of_range) {
        const bool tiny =
            text.find("e-") != std::string_view::npos || text.find("E-") != std::string_view::npos;
        return tiny ? 0 : std::numeric_limits<double>::infinity();
    }
    return value;
}

std::string realText(double value) {
    constexpr std::size_t kGreatestLength = 32;
    std::array<char, kGreatestLength> text{};
    const std::to_chars_result result = std::to_chars(text.begin(), text.end(), value);
    return {text.begin(), result.ptr};
}

std::optional<int> parseInt(std::string_view given) {
    const std::string_view text = withoutPlus(trimmed(given));
    const char* const end = text.data() + text.size();
    int value = 0;
    const std::from_chars_result result = std::from_chars(text.data(), end, value);
    if (!text.empty() && result.ptr == end && result.ec == std::errc()) {
        return value;
    }
    const std::optional<double> real = parseReal(given);
    if (!real || !(std::abs(*real) <= std::numeric_limits<int>::max()) ||
        *real != std::trunc(*real)) {
        return std::nullopt;
    }
    return static_cast<int>(*real);
}

}  // namespace kxdrawing
