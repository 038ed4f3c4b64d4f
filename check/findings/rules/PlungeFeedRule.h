// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>

#include "findings/Findings.h"
#include "findings/Step.h"

namespace gcode_check {

// Strokes straight down into the material at a feed that is not theirs. With a known feed: any
// other. Without: one that is left over from a cut sideways while the same tool has plunged slower,
// and one that is faster than the cut it leads to.
class PlungeFeedRule {
public:
    PlungeFeedRule(const Setting& setting, Findings& findings)
        : m_setting(setting), m_findings(findings) {}
    void step(const Step& step);
    void finish();

private:
    struct Plunges {
        std::size_t count = 0;
        std::uint32_t line = 0;
        double feed = 0;
        double other = 0;  // the feed of the cut that follows, or of slower strokes
        std::int32_t tool = 0;
        Place place;
    };
    enum class Sort : std::uint8_t { Unexpected, LeftOver, FasterThanCut };

    void plunge(const Step& step);
    void note(Sort sort, const Plunges& plunge);
    void report(Sort sort, const Plunges& plunges);
    Plunges of(const Step& step) const;

    const Setting& m_setting;
    Findings& m_findings;
    std::uint32_t m_cutFeedLine = 0;           // of the last F word that came with a cut sideways
    std::map<std::int32_t, double> m_slowest;  // by tool
    std::optional<Plunges> m_before;           // the stroke that the next cut begins with
    // By sort and feed: as many as different feeds, but no more than are told
    std::map<std::pair<Sort, double>, Plunges> m_found;
};

}  // namespace gcode_check
