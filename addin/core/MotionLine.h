// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>

#include "core/Parameters.h"
#include "core/Point.h"
#include "core/PositionAndFeed.h"

namespace GCode {

/// `value` as an output stream with default settings writes it, always in the classic locale:
/// general notation, 6 significant digits, "nan", "-nan", "inf" and "-inf" for what is no number.
std::string formatNumber(double value);

/// Whether the travel line of an approach ends in a blank before its line feed.
enum class TravelEnd { plain, blank };

/// Collects the motion lines of one generator call: words separated by one blank, each line ended
/// by a line feed. A line with a feed position ends in a blank when no feed is due. The last feed
/// of the tool state is kept up to date, its position is not.
class MotionLines {
public:
    /// `state` must not be null and must outlive this object.
    explicit MotionLines(PositionAndFeed* state);

    /// If `feedRate` differs from the last feed it becomes the last feed and the feed word of the
    /// lines to come; otherwise they repeat what stood in their feed position before.
    void useFeed(double feedRate);

    /// Lifts at feed, travels to above `start`, descends and plunges at feed: five lines.
    void approach(const Point& start, const Parameters& parameters,
                  TravelEnd travelEnd = TravelEnd::plain);

    /// A straight cut to (x, y) of `end`.
    void cutTo(const Point& end);

    /// A circular cut to (x, y) of `end`, with the centre `i` and `j` away from its start. A key
    /// that is not in the code map gives an empty code, and so a line that begins with a blank.
    void arcTo(const std::string& codeKey, const Point& end, double i, double j);

    const std::string& text() const { return m_text; }
    /// The text, which is gone from here.
    std::string take() { return std::move(m_text); }

private:
    void word(const std::string& code, double value);
    void position(const Point& point);
    void feedEnd();
    void lineEnd();
    void heightAtFeed(double z);
    void heightAtRapid(double z);

    PositionAndFeed* m_state;
    std::string m_feedText;
    std::string m_text;
};

}  // namespace GCode
