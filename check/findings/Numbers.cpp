// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>

namespace gcode_check {
namespace {

constexpr int kPeopleDecimals = 4;

void dropTrailingZeros(std::string& text) {
    if (text.find('.') == std::string::npos) {
        return;
    }
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') {
        text.pop_back();
    }
}

}  // namespace

std::string numberText(double value, int decimals) {
    if (std::isnan(value)) {
        return "not a number";
    }
    if (std::isinf(value)) {
        return value < 0 ? "-infinite" : "infinite";
    }
    std::array<char, 64> buffer{};
    const bool large = std::abs(value) >= 1e12;
    const auto result = large ? std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                              std::chars_format::scientific, decimals)
                              : std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                              std::chars_format::fixed, decimals);
    std::string text(buffer.data(), result.ptr);
    if (large) {
        return text;
    }
    dropTrailingZeros(text);
    return text == "-0" ? "0" : text;
}

std::string Wording::length(double value) const {
    return numberText(value, kPeopleDecimals) + ' ' + unit();
}

std::string Wording::feed(double value) const {
    return numberText(value, kPeopleDecimals) + ' ' + unit() + "/min";
}

std::string Wording::place(const PlanePoint& place) const {
    return 'X' + numberText(place.x, kPeopleDecimals) + " Y" + numberText(place.y, kPeopleDecimals);
}

std::string Wording::height(double z) const {
    return 'Z' + numberText(z, kPeopleDecimals);
}

std::string counted(std::size_t count, const char* one, const char* many) {
    return count == 1 ? std::string("one ") + one : std::to_string(count) + ' ' + many;
}

}  // namespace gcode_check
