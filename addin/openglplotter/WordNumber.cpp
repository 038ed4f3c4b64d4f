// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "openglplotter/WordNumber.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace {

bool isSign(char c) {
    return c == '+' || c == '-';
}

/// Whether a number that no double holds is too large, rather than too small.
bool isOverflow(std::string_view number) {
    const std::string_view whole = number.substr(0, number.find('.'));
    return whole.find_first_of("123456789") != std::string_view::npos;
}

}  // namespace

float wordNumber(std::string_view text) {
    const bool negative = !text.empty() && text.front() == '-';
    if (!text.empty() && isSign(text.front())) {
        text.remove_prefix(1);
    }
    // Only the sign just removed may stand there; the conversion would take a second one.
    if (text.empty() || isSign(text.front())) {
        return 0;
    }
    double value = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    if (error == std::errc::invalid_argument || end != text.data() + text.size()) {
        return 0;
    }
    if (error == std::errc::result_out_of_range) {
        value = isOverflow(text) ? std::numeric_limits<double>::infinity() : 0.0;
        return value == 0 ? 0.0F : narrowNumber(negative ? -value : value);
    }
    return narrowNumber(negative ? -value : value);
}
