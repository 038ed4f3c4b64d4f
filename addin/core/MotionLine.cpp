// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/MotionLine.h"

#include <array>
#include <charconv>

#include "core/PostProcessorImpl.h"

namespace GCode {

std::string formatNumber(double value) {
    constexpr int kSignificantDigits = 6;
    // The longest results have a sign, six digits, a point and either four leading zeros after the
    // point or an exponent of five characters.
    std::array<char, 32> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      std::chars_format::general, kSignificantDigits);
    return {buffer.data(), result.ptr};
}

MotionLines::MotionLines(PositionAndFeed* state)
    : m_state(state), m_codes(PostProcessorImpl::GetPostProcessor()->GetMap()) {}

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
    code("RAPID");
    position(start);
    if (travelEnd == TravelEnd::blank) {
        m_text += ' ';
    }
    lineEnd();
    heightAtRapid(parameters.GetZSafeHeight());
    heightAtFeed(parameters.GetZDepth());
}

void MotionLines::cutTo(const Point& end) {
    code("LINEAR");
    position(end);
    feedEnd();
}

void MotionLines::arcTo(const std::string& codeKey, const Point& end, double i, double j) {
    code(codeKey);
    position(end);
    word("I", i);
    word("J", j);
    feedEnd();
}

void MotionLines::code(const std::string& key) {
    m_text += m_codes[key];
}

void MotionLines::word(const std::string& key, double value) {
    m_text += ' ';
    m_text += m_codes[key];
    m_text += formatNumber(value);
}

void MotionLines::position(const Point& point) {
    word("X", point.m_x);
    word("Y", point.m_y);
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
    code("LINEAR");
    word("Z", z);
    feedEnd();
}

void MotionLines::heightAtRapid(double z) {
    code("RAPID");
    word("Z", z);
    lineEnd();
}

}  // namespace GCode
