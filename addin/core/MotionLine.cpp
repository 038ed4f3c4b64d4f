// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/MotionLine.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "core/PostProcessorImpl.h"

namespace GCode {

namespace {

constexpr int kSignificantDigits = 6;

/// The longest results have a sign, six digits, a point and either four leading zeros after the
/// point or an exponent of five characters.
using NumberBuffer = std::array<char, 32>;

/// The codes of the words in a motion line. The table never changes: they are looked up once.
struct MotionCodes {
    explicit MotionCodes(const PostProcessorImpl& table)
        : linear(table.GetCode("LINEAR")),
          rapid(table.GetCode("RAPID")),
          x(table.GetCode("X")),
          y(table.GetCode("Y")),
          z(table.GetCode("Z")),
          i(table.GetCode("I")),
          j(table.GetCode("J")) {}

    const std::string& linear;
    const std::string& rapid;
    const std::string& x;
    const std::string& y;
    const std::string& z;
    const std::string& i;
    const std::string& j;
};

const MotionCodes& motionCodes() {
    static const MotionCodes codes(*PostProcessorImpl::GetPostProcessor());
    return codes;
}

/// A positive number as six digits, its first one in the place of 10^exponent.
struct SixDigits {
    int digits = 0;
    int exponent = 0;
};

/// Nothing for a number that is not written in fixed form, or so near the middle between two
/// results that only exact arithmetic can tell which is nearer.
std::optional<SixDigits> sixDigits(double magnitude) {
    constexpr int kSmallestExponent = -4;
    constexpr std::array<double, 11> kFrom{1e-4, 1e-3, 1e-2, 1e-1, 1e0, 1e1,
                                           1e2,  1e3,  1e4,  1e5,  1e6};
    constexpr std::array<double, 10> kScale{1e9, 1e8, 1e7, 1e6, 1e5, 1e4, 1e3, 1e2, 1e1, 1e0};
    if (!(magnitude >= kFrom.front() && magnitude < kFrom.back())) {
        return std::nullopt;
    }
    std::size_t decade = magnitude >= 1 ? 4 : 0;
    while (magnitude >= kFrom[decade + 1]) {
        ++decade;
    }
    // The scale is exact, so the product is off by its last place at most: less than 1e-10.
    constexpr double kDoubt = 1e-9;
    const double scaled = magnitude * kScale[decade];
    const int below = static_cast<int>(scaled);
    const double rest = scaled - below;
    if (std::abs(rest - 0.5) < kDoubt) {
        return std::nullopt;
    }
    SixDigits result{below + (rest > 0.5 ? 1 : 0), static_cast<int>(decade) + kSmallestExponent};
    if (result.digits == 1000000) {
        result = {100000, result.exponent + 1};
    }
    return result.exponent < kSignificantDigits ? std::optional<SixDigits>(result) : std::nullopt;
}

char* writeFixed(SixDigits number, char* to) {
    std::array<char, kSignificantDigits> digits{};
    int length = 0;
    for (int place = kSignificantDigits - 1; place >= 0; --place) {
        const int digit = number.digits % 10;
        length = length == 0 && digit != 0 ? place + 1 : length;
        digits[static_cast<std::size_t>(place)] = static_cast<char>('0' + digit);
        number.digits /= 10;
    }
    const int whole = number.exponent + 1;
    if (whole <= 0) {
        to = std::copy_n("0.000", 2 - whole, to);
        return std::copy_n(digits.data(), length, to);
    }
    to = std::copy_n(digits.data(), whole, to);
    if (length > whole) {
        *to++ = '.';
        to = std::copy(digits.data() + whole, digits.data() + length, to);
    }
    return to;
}

/// Returns the end of what it wrote.
char* writeNumber(double value, NumberBuffer* buffer) {
    char* const begin = buffer->data();
    if (const auto digits = sixDigits(std::abs(value))) {
        *begin = '-';
        return writeFixed(*digits, begin + (value < 0 ? 1 : 0));
    }
    return std::to_chars(begin, begin + buffer->size(), value, std::chars_format::general,
                         kSignificantDigits)
        .ptr;
}

}  // namespace

std::string formatNumber(double value) {
    NumberBuffer buffer;
    return {buffer.data(), writeNumber(value, &buffer)};
}

MotionLines::MotionLines(PositionAndFeed* state) : m_state(state) {
    constexpr std::size_t kUsualLength = 160;
    m_text.reserve(kUsualLength);
}

void MotionLines::useFeed(double feedRate) {
    // One field holds the last feed word of either kind: a plunge feed is stored there as well.
    if (feedRate != m_state->GetFeedRate()) {
        m_feedText = "F" + formatNumber(feedRate);
        m_state->SetFeedRate(feedRate);
    }
}

void MotionLines::approach(const Point& start, const Parameters& parameters, TravelEnd travelEnd) {
    heightAtFeed(parameters.GetZSafeHeight());
    heightAtRapid(parameters.GetZClearance());
    m_text += motionCodes().rapid;
    position(start);
    if (travelEnd == TravelEnd::blank) {
        m_text += ' ';
    }
    lineEnd();
    heightAtRapid(parameters.GetZSafeHeight());
    heightAtFeed(parameters.GetZDepth());
}

void MotionLines::cutTo(const Point& end) {
    m_text += motionCodes().linear;
    position(end);
    feedEnd();
}

void MotionLines::arcTo(const std::string& codeKey, const Point& end, double i, double j) {
    m_text += PostProcessorImpl::GetPostProcessor()->GetCode(codeKey);
    position(end);
    word(motionCodes().i, i);
    word(motionCodes().j, j);
    feedEnd();
}

void MotionLines::word(const std::string& code, double value) {
    NumberBuffer buffer;
    char* const end = writeNumber(value, &buffer);
    m_text += ' ';
    m_text += code;
    m_text.append(buffer.data(), end);
}

void MotionLines::position(const Point& point) {
    word(motionCodes().x, point.m_x);
    word(motionCodes().y, point.m_y);
}

void MotionLines::feedEnd() {
    // The blank is there without a feed word too.
    m_text += ' ';
    m_text += m_feedText;
    lineEnd();
}

void MotionLines::lineEnd() {
    m_text += '\n';
}

void MotionLines::heightAtFeed(double z) {
    m_text += motionCodes().linear;
    word(motionCodes().z, z);
    feedEnd();
}

void MotionLines::heightAtRapid(double z) {
    m_text += motionCodes().rapid;
    word(motionCodes().z, z);
    lineEnd();
}

}  // namespace GCode
