// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "LiteralGenerators.h"

#include <cmath>
#include <locale>
#include <map>
#include <sstream>

#include "core/PostProcessorImpl.h"

namespace {

double delta(double a, double b) {
    const double pa = std::ceil(a * 10000);
    const double pb = std::ceil(b * 10000);
    const double d = pa / 10000 - pb / 10000;
    return -0.01 <= d && d <= 0.01 ? 0 : d;
}

GCode::Point delta(const GCode::Point& a, const GCode::Point& b) {
    return {delta(a.m_x, b.m_x), delta(a.m_y, b.m_y), delta(a.m_z, b.m_z)};
}

/// The steps that the generators share.
class Steps {
public:
    Steps(const LiteralCut& cut, GCode::PositionAndFeed* state)
        : m_cut(cut), m_state(state), m_map(PostProcessorImpl::GetPostProcessor()->GetMap()) {
        m_out.imbue(std::locale::classic());
    }

    bool standsAt(const GCode::Point& point) const {
        return m_state->m_point.m_x == point.m_x && m_state->m_point.m_y == point.m_y &&
               m_state->m_point.m_z == point.m_z;
    }

    void feed(double rate) {
        if (rate != m_state->m_feedRateXY) {
            m_feed = "F" + literalNumber(rate);
            m_state->m_feedRateXY = rate;
        }
    }

    void approach(const GCode::Point& start, const char* travelEnd) {
        const Parameters& heights = m_cut.parameters;
        feed(m_cut.feedRateZ);
        m_out << m_map["LINEAR"] << " " << m_map["Z"] << heights.GetZSafeHeight() << " " << m_feed
              << "\n";
        m_out << m_map["RAPID"] << " " << m_map["Z"] << heights.GetZClearance() << "\n";
        m_out << m_map["RAPID"] << " " << m_map["X"] << start.m_x << " " << m_map["Y"] << start.m_y
              << travelEnd << "\n";
        m_out << m_map["RAPID"] << " " << m_map["Z"] << heights.GetZSafeHeight() << "\n";
        m_out << m_map["LINEAR"] << " " << m_map["Z"] << heights.GetZDepth() << " " << m_feed
              << "\n";
    }

    void cutTo(const char* key, const GCode::Point& end, const std::string& offsets) {
        feed(m_cut.feedRateXY);
        m_out << m_map[key] << " " << m_map["X"] << end.m_x << " " << m_map["Y"] << end.m_y << " "
              << offsets << m_feed << "\n";
    }

    std::string offsets(double i, double j) {
        return m_map["I"] + literalNumber(i) + " " + m_map["J"] + literalNumber(j) + " ";
    }

    std::string text() const { return m_out.str(); }

private:
    const LiteralCut& m_cut;
    GCode::PositionAndFeed* m_state;
    std::map<std::string, std::string> m_map;
    std::ostringstream m_out;
    std::string m_feed;
};

}  // namespace

std::string literalNumber(double value) {
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream << value;
    return stream.str();
}

std::string literalLine(const GCode::Point& start, const GCode::Point& end, const LiteralCut& cut,
                        GCode::PositionAndFeed* state) {
    Steps steps(cut, state);
    if (!steps.standsAt(start)) {
        steps.approach(start, "");
    }
    steps.cutTo("LINEAR", end, "");
    state->m_point = end;
    return steps.text();
}

std::string literalArc(const GCode::Point& start, const GCode::Point& end, double i, double j,
                       const LiteralCut& cut, GCode::PositionAndFeed* state) {
    Steps steps(cut, state);
    if (!steps.standsAt(start)) {
        steps.approach(start, "");
    }
    steps.cutTo("G03", end, steps.offsets(i, j));
    return steps.text();
}

std::string literalPoint(const GCode::Point& point, const LiteralCut& cut,
                         GCode::PositionAndFeed* state) {
    Steps steps(cut, state);
    if (steps.standsAt(point)) {
        return {};
    }
    steps.approach(point, " ");
    state->m_point = point;
    return steps.text();
}

LiteralToolPath::LiteralToolPath(const GCode::ToolPathSettings& settings,
                                 GCode::PositionAndFeed* state)
    : m_mode(settings.mode),
      m_cut{settings.feedXY, settings.feedZ, settings.parameters},
      m_state(state) {}

GCode::Point LiteralToolPath::turned(const GCode::Point& target, const GCode::Point& from) const {
    return m_mode == GCode::MotionMode::relative ? delta(target, from) : target;
}

std::string LiteralToolPath::point(const GCode::Point& position) {
    const GCode::Point target = turned(position, m_last);
    m_last = position;
    return literalPoint(target, m_cut, m_state);
}

std::string LiteralToolPath::line(const GCode::Point& first, const GCode::Point& second) {
    const GCode::Point start = turned(first, m_last);
    m_last = second;
    return literalLine(start, turned(second, first), m_cut, m_state);
}

std::string LiteralToolPath::arc(const GCode::ArcGeometry& geometry) {
    const GCode::Point start = turned(geometry.start, m_last);
    m_last = geometry.end;
    const GCode::Point from = delta(geometry.start, GCode::Point());
    return literalArc(start, turned(geometry.end, geometry.start),
                      delta(geometry.centre.m_x, from.m_x), delta(geometry.centre.m_y, from.m_y),
                      m_cut, m_state);
}
