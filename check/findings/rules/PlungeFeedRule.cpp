// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/rules/PlungeFeedRule.h"

namespace gcode_check {
namespace {

// Numbers in programs have six digits.
bool isMore(double feed, double other) {
    return feed > other * (1 + 1e-5);
}

}  // namespace

PlungeFeedRule::Plunges PlungeFeedRule::of(const Step& step) const {
    Plunges plunges;
    plunges.count = 1;
    plunges.line = step.line();
    plunges.feed = step.feed;
    plunges.tool = step.motion->tool;
    plunges.place = placeOf(m_setting, step);
    return plunges;
}

void PlungeFeedRule::step(const Step& step) {
    if (!step.isFeed()) {
        m_before.reset();
        return;
    }
    if (step.motion->feedMode != FeedMode::PerMinute) {
        return;
    }
    if (!step.isSideways()) {
        const bool below = step.isDown() && step.to.z < m_setting.surface - kSame;
        if (below) {
            plunge(step);
        }
        return;
    }
    if (step.feedLine == step.line()) {
        m_cutFeedLine = step.feedLine;
    }
    if (m_before && isMore(m_before->feed, step.feed)) {
        m_before->other = step.feed;
        note(Sort::FasterThanCut, *m_before);
    }
    m_before.reset();
}

void PlungeFeedRule::plunge(const Step& step) {
    const Plunges plunges = of(step);
    if (m_setting.options.plungeFeed) {
        const double expected = *m_setting.options.plungeFeed;
        if (isMore(step.feed, expected) || isMore(expected, step.feed)) {
            note(Sort::Unexpected, plunges);
            return;
        }
    }
    if (step.motion->cycle != 0) {
        return;
    }
    // What is set for it may be set wrongly: the two feeds in each other's field.
    m_before = plunges;
    if (m_setting.options.plungeFeed) {
        return;
    }
    if (step.feedLine != 0 && step.feedLine == m_cutFeedLine && step.line() != m_cutFeedLine) {
        note(Sort::LeftOver, plunges);
        return;
    }
    const auto slowest = m_slowest.emplace(plunges.tool, plunges.feed).first;
    slowest->second = std::min(slowest->second, plunges.feed);
}

void PlungeFeedRule::note(Sort sort, const Plunges& plunges) {
    const auto known = m_found.find({sort, plunges.feed});
    if (known != m_found.end()) {
        ++known->second.count;
    } else if (m_found.size() < m_setting.options.findingsPerKind) {
        m_found.emplace(std::make_pair(sort, plunges.feed), plunges);
    }
}

void PlungeFeedRule::finish() {
    for (const auto& [key, plunges] : m_found) {
        if (key.first != Sort::LeftOver) {
            report(key.first, plunges);
            continue;
        }
        const auto slowest = m_slowest.find(plunges.tool);
        if (slowest != m_slowest.end() && isMore(plunges.feed, slowest->second)) {
            Plunges slower = plunges;
            slower.other = slowest->second;
            report(key.first, slower);
        }
    }
}

void PlungeFeedRule::report(Sort sort, const Plunges& plunges) {
    Finding* const finding =
        m_findings.add(FindingKind::PlungeFeed, Severity::Warning, plunges.line);
    if (finding == nullptr) {
        return;
    }
    const Wording& words = m_setting.words;
    finding->sentence = "The tool plunges at " + words.feed(plunges.feed);
    double other = plunges.other;
    switch (sort) {
        case Sort::Unexpected:
            other = m_setting.options.plungeFeed.value_or(0);
            finding->sentence += ", " + words.feed(other) + " is set for it";
            break;
        case Sort::LeftOver:
            finding->sentence +=
                ", the feed of the cut before; other plunges go at " + words.feed(other);
            break;
        case Sort::FasterThanCut:
            finding->sentence +=
                ", faster than the cut it leads to, which goes at " + words.feed(other);
            break;
    }
    if (plunges.count > 1) {
        finding->sentence += ", " + std::to_string(plunges.count) + " times in the program";
    }
    finding->sentence += '.';
    finding->numbers = {{"feed", plunges.feed, Measure::Feed},
                        {"other-feed", other, Measure::Feed},
                        {"plunges", static_cast<double>(plunges.count), Measure::Count}};
    finding->place = plunges.place;
}

}  // namespace gcode_check
