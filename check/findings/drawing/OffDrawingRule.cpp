// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/drawing/OffDrawingRule.h"

#include <algorithm>
#include <limits>

#include "geometry/Cover.h"

namespace gcode_check {
namespace {

constexpr int kPlacesPerGap = 17;
// When so many places were looked at, one a gap must do.
constexpr std::size_t kPlacesAtMost = 200000;

class OffDrawing {
public:
    OffDrawing(const DrawingSetting& scene, Findings& findings)
        : m_scene(scene),
          m_findings(findings),
          m_directed(
              scene.shapes.outlines().size(),
              [&scene](std::size_t entry) -> const Curve& { return scene.shapes.outlineAt(entry); },
              scene.setting.tolerance, AlongBounds{}) {}

    void cut(const Cut& given) {
        const CutList& cuts = m_scene.cuts;
        const Path cut{given, cuts.curveOf(given), cuts.isReversed(given)};
        std::vector<Interval> gaps = gapsIn(cut.curve);
        if (gaps.empty()) {
            close();
            return;
        }
        if (cut.reversed) {
            std::reverse(gaps.begin(), gaps.end());
        }
        for (const Interval& gap : gaps) {
            const bool fromBegin = cut.reversed ? gap.to == 1 : gap.from == 0;
            const bool toEnd = cut.reversed ? gap.from == 0 : gap.to == 1;
            const Point first = at(cut, cut.reversed ? gap.to : gap.from);
            if (!fromBegin || isElsewhere(first)) {
                close();
            }
            extend(cut, gap, first);
            if (!toEnd) {
                close();
            }
        }
    }

    void close() {
        if (m_run.open) {
            report();
        }
        m_run = {};
    }

private:
    struct Path {
        const Cut& cut;
        Curve curve;
        bool reversed;
    };

    struct Run {
        bool open = false;
        std::uint32_t line = 0;
        std::uint32_t firstMotion = 0;
        std::uint32_t lastMotion = 0;
        double length = 0;
        double worst = -1;
        PlanePoint worstPlace;
        Point from;
        Point to;
    };

    std::vector<Interval> gapsIn(const Curve& curve) {
        const ShapeIndex& shapes = m_scene.shapes;
        // Cuts in a row mostly follow one object.
        if (m_last < shapes.outlines().size() && isOn(curve, shapes.outlineAt(m_last))) {
            return {};
        }
        const auto outlineAt = [this, &shapes](std::size_t entry) -> const Curve& {
            m_last = entry;
            return shapes.outlineAt(entry);
        };
        return Cover(curve, m_scene.setting.tolerance)
            .gaps(shapes.outlines(), m_directed, outlineAt);
    }

    bool isOn(const Curve& curve, const Curve& outline) {
        m_parts.clear();
        appendNear(curve, outline, m_scene.setting.tolerance, Ends::Round, m_parts);
        return m_parts.size() == 1 && m_parts.front().from == 0 && m_parts.front().to == 1;
    }

    static Point at(const Path& path, double t) {
        const PlanePoint place = pointAt(path.curve, t);
        const Cut& cut = path.cut;
        return {place.x, place.y, cut.startZ + (cut.endZ - cut.startZ) * t};
    }

    // The tool has travelled since.
    bool isElsewhere(const Point& place) const {
        return m_run.open && distance({m_run.to.x, m_run.to.y}, {place.x, place.y}) > kSame;
    }

    void extend(const Path& path, const Interval& gap, const Point& first) {
        const Point last = at(path, path.reversed ? gap.from : gap.to);
        if (!m_run.open) {
            m_run.open = true;
            m_run.line = m_scene.lineOf(path.cut);
            m_run.firstMotion = path.cut.motion;
            m_run.from = first;
        }
        m_run.to = last;
        m_run.lastMotion = path.cut.motion;
        m_run.length += lengthOf(path.curve) * (gap.to - gap.from);
        if (!m_findings.takesMore(FindingKind::CutOffDrawing)) {
            return;
        }
        const int places = m_looked < kPlacesAtMost ? kPlacesPerGap : 1;
        for (int place = 0; place < places; ++place) {
            const double part = places == 1 ? 0.5 : static_cast<double>(place) / (places - 1);
            look(pointAt(path.curve, gap.from + (gap.to - gap.from) * part));
        }
    }

    void look(const PlanePoint& place) {
        ++m_looked;
        const double far = std::numeric_limits<double>::infinity();
        const double off = m_scene.shapes.distanceToOutline(place, far);
        if (off > m_run.worst) {
            m_run.worst = off;
            m_run.worstPlace = place;
        }
    }

    void report() {
        Finding* const finding =
            m_findings.add(FindingKind::CutOffDrawing, Severity::Error, m_run.line);
        if (finding == nullptr) {
            return;
        }
        const Wording& words = m_scene.setting.words;
        finding->sentence =
            "The tool cuts " + words.length(m_run.length) + " where no selected object lies";
        if (m_scene.shapes.empty()) {
            finding->sentence += ": none is selected.";
        } else {
            finding->sentence += ", up to " + words.length(m_run.worst) +
                                 " away from the nearest one, at " + words.place(m_run.worstPlace) +
                                 ".";
        }
        finding->numbers = {{"length", m_run.length}};
        if (!m_scene.shapes.empty()) {
            finding->numbers.push_back({"distance", m_run.worst});
        }
        Place place = placeOf(m_scene.setting, m_run.from, m_run.to);
        place.firstMotion = m_run.firstMotion;
        place.lastMotion = m_run.lastMotion;
        if (!m_scene.shapes.empty()) {
            const double scale = m_scene.setting.unitsPerDrawingUnit;
            place.farthest = m_run.worstPlace;
            place.drawingFarthest = {m_run.worstPlace.x / scale, m_run.worstPlace.y / scale};
        }
        finding->place = place;
    }

    const DrawingSetting& m_scene;
    Findings& m_findings;
    DirectedTree m_directed;
    Run m_run;
    std::vector<Interval> m_parts;
    std::size_t m_last = 0;  // entry that a cut was held against
    std::size_t m_looked = 0;
};

}  // namespace

void findOffDrawing(const DrawingSetting& scene, Findings& findings) {
    OffDrawing rule(scene, findings);
    const std::vector<Cut>& cuts = scene.cuts.cuts;
    for (std::size_t at = 0; at < cuts.size() && scene.setting.goesOn(at, cuts.size()); ++at) {
        rule.cut(cuts[at]);
    }
    rule.close();
}

}  // namespace gcode_check
