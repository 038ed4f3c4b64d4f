// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/drawing/CutTwiceRule.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <iterator>
#include <map>
#include <queue>
#include <set>
#include <tuple>

#include "geometry/Cover.h"

namespace gcode_check {
namespace {

constexpr double kLeastInTolerances = 10;
constexpr double kNearlyAll = 0.95;
// So many cuts that lie along one place are a crowd.
constexpr std::size_t kCrowd = 64;

struct Overlap {
    Interval part;
    std::size_t cut = 0;
};

// Two cuts along the same part of an object, in the program's order.
struct Pair {
    Interval part;
    std::size_t first = 0;
    std::size_t second = 0;
};

// What is cut twice of an object, and the pair of cuts that is named.
struct Twice {
    std::vector<Interval> parts;
    Pair pair;
};

using CurveKey = std::array<double, 8>;

CurveKey keyOf(const Curve& curve) {
    return {curve.a.x,      curve.a.y,      curve.b.x,    curve.b.y,
            curve.centre.x, curve.centre.y, curve.radius, curve.start + 10 * curve.sweep};
}

double cross(const PlanePoint& a, const PlanePoint& b) {
    return a.x * b.y - a.y * b.x;
}

// The cut's direction beside a place of the object.
PlanePoint directionBeside(const Curve& cut, const PlanePoint& place) {
    return directionAt(cut, std::clamp(parameterOf(cut, place), 0.0, 1.0));
}

bool isParallel(const Curve& object, const Curve& cut, double t) {
    const PlanePoint along = directionBeside(cut, pointAt(object, t));
    return std::abs(cross(directionAt(object, t), along)) <= kRunsAlong.parallel;
}

bool runsAlong(const Curve& object, const Curve& cut, const Interval& part) {
    if (isParallel(object, cut, part.from) && isParallel(object, cut, part.to)) {
        return true;
    }
    const double middle = (part.from + part.to) / 2;
    const PlanePoint along = directionBeside(cut, pointAt(object, middle));
    const PlanePoint own = directionAt(object, middle);
    const double sine = std::abs(cross(own, along));
    const double length = lengthOf(object) * (part.to - part.from);
    return sine <= kRunsAlong.rough && length >= kRunsAlong.part * lengthOf(cut);
}

}  // namespace

class CutTwiceRule::Work {
public:
    Work(const DrawingSetting& scene, Findings& findings) : m_scene(scene), m_findings(findings) {}

    bool judge(std::size_t index, NearCuts& near) {
        const Target& target = m_scene.shapes.targets()[index];
        if (target.hole) {
            judgeHoles(index, *target.hole);
        }
        m_isFollowed = false;
        if (target.curve.kind != Curve::Kind::Point) {
            judgeCurve(index, target.curve, near);
        }
        return m_isFollowed;
    }

private:
    void judgeCurve(std::size_t index, const Curve& curve, NearCuts& near) {
        // Copies of an object that lies in a crowd are judged once.
        const auto known = m_crowded.find(keyOf(curve));
        if (known != m_crowded.end()) {
            reportCurve(index, curve, known->second);
            return;
        }
        if (curve.kind == Curve::Kind::Arc && isFollowedOnce(curve, near)) {
            return;
        }
        near.find(curve);
        collect(curve, near);
        if (m_overlaps.size() < 2) {
            return;
        }
        const bool isCrowd = !findPairs(curve);
        if (isCrowd) {
            findNeighbours(curve);
        }
        const Twice twice = twiceOf(curve);
        reportCurve(index, curve, twice);
        if (isCrowd) {
            m_crowded.emplace(keyOf(curve), twice);
        }
    }

    // Whether what the arc is cut by is chords that can't lie upon each other for long enough:
    // together they are hardly longer than what they cover.
    bool isFollowedOnce(const Curve& curve, NearCuts& near) {
        constexpr std::size_t kManyOthers = 64;
        const double reach = m_scene.setting.tolerance;
        ChordsOfArc chords(curve, reach, m_parts);
        std::size_t others = 0;
        near.eachAround(curve, [&](std::size_t index) {
            const Curve cut = m_scene.cuts.curveAt(index);
            others += chords.add(cut) || areClear(curve, cut, reach) ? 0U : 1U;
            return others < kManyOthers && m_scene.setting.isWanted();
        });
        chords.finish();
        const double together = widthOf(m_parts) + chords.slack();
        const double length = lengthOf(curve);
        m_isFollowed = Cover::isWhole(curve, m_parts);
        // Joined across hairs, what is twice is at most a fifth longer.
        return others == 0 && (together - widthOf(m_parts)) * length * 1.2 < leastFor(length);
    }

    double leastFor(double length) const {
        return std::min(kLeastInTolerances * m_scene.setting.tolerance, kNearlyAll * length);
    }

    Twice twiceOf(const Curve& curve) const {
        Twice twice;
        for (const Pair& pair : m_pairs) {
            twice.parts.push_back(pair.part);
        }
        const double length = lengthOf(curve);
        const double tolerance = m_scene.setting.tolerance;
        // Where chords join, a hair lies beside neither.
        unite(twice.parts);
        joinAcross(twice.parts, tolerance / length);
        const double least = leastFor(length);
        twice.parts.erase(std::remove_if(twice.parts.begin(), twice.parts.end(),
                                         [length, least](const Interval& part) {
                                             return (part.to - part.from) * length < least;
                                         }),
                          twice.parts.end());
        if (!twice.parts.empty()) {
            twice.pair = tellingPair(twice.parts.front(), length);
        }
        return twice;
    }

    void collect(const Curve& curve, const NearCuts& near) {
        m_overlaps.clear();
        if (near.areAll()) {
            near.each([&](std::size_t index) {
                addOverlaps(curve, index);
                return m_scene.setting.isWanted();
            });
        } else {
            // So many cross the segment that those which run along are to be looked for.
            m_scene.directedCuts.each(curve, [&](std::size_t index) {
                addOverlaps(curve, index);
                return m_scene.setting.isWanted();
            });
        }
        std::sort(m_overlaps.begin(), m_overlaps.end(), [](const Overlap& a, const Overlap& b) {
            return a.part.from < b.part.from || (a.part.from == b.part.from && a.cut < b.cut);
        });
    }

    void addOverlaps(const Curve& curve, std::size_t index) {
        const Curve cut = m_scene.cuts.curveAt(index);
        const double reach = m_scene.setting.tolerance;
        if (!mayRunAlong(curve, cut, reach, kRunsAlong)) {
            return;
        }
        m_parts.clear();
        appendNear(curve, cut, reach, Ends::Square, m_parts);
        for (const Interval& part : m_parts) {
            if (part.to > part.from && runsAlong(curve, cut, part)) {
                m_overlaps.push_back({part, index});
            }
        }
    }

    // Each two cuts of a place. False: there is a crowd somewhere.
    bool findPairs(const Curve& curve) {
        m_pairs.clear();
        m_active.clear();
        for (const Overlap& overlap : m_overlaps) {
            m_active.erase(std::remove_if(m_active.begin(), m_active.end(),
                                          [&overlap](const Overlap& other) {
                                              return other.part.to <= overlap.part.from;
                                          }),
                           m_active.end());
            for (const Overlap& other : m_active) {
                judgePair(curve, overlap, other);
            }
            m_active.push_back(overlap);
            if (m_active.size() > kCrowd) {
                return false;
            }
        }
        return true;
    }

    // Each two cuts of a place that follow each other in the program: where each is deeper than the
    // one before, it is deeper than all before.
    void findNeighbours(const Curve& curve) {
        using Entry = std::pair<std::size_t, std::size_t>;  // cut, overlap
        using End = std::pair<double, std::size_t>;         // parameter, overlap
        m_pairs.clear();
        std::set<Entry> active;
        std::priority_queue<End, std::vector<End>, std::greater<>> ends;
        const auto judge = [this, &curve](const Entry& a, const Entry& b) {
            judgePair(curve, m_overlaps[a.second], m_overlaps[b.second]);
        };
        for (std::size_t next = 0; next < m_overlaps.size() && m_scene.setting.isWanted(); ++next) {
            while (!ends.empty() && ends.top().first <= m_overlaps[next].part.from) {
                const std::size_t ended = ends.top().second;
                ends.pop();
                const auto after = active.erase(active.find({m_overlaps[ended].cut, ended}));
                if (after != active.end() && after != active.begin()) {
                    judge(*std::prev(after), *after);
                }
            }
            const auto here = active.insert({m_overlaps[next].cut, next}).first;
            ends.push({m_overlaps[next].part.to, next});
            if (here != active.begin()) {
                judge(*std::prev(here), *here);
            }
            if (std::next(here) != active.end()) {
                judge(*here, *std::next(here));
            }
        }
    }

    void judgePair(const Curve& curve, const Overlap& a, const Overlap& b) {
        if (a.cut == b.cut) {
            return;
        }
        const Interval part{std::max(a.part.from, b.part.from), std::min(a.part.to, b.part.to)};
        const std::size_t first = std::min(a.cut, b.cut);
        const std::size_t second = std::max(a.cut, b.cut);
        const PlanePoint middle = pointAt(curve, (part.from + part.to) / 2);
        const bool deeper = heightBeside(second, middle) < heightBeside(first, middle) - kSame;
        if (deeper && !m_scene.anyHeight) {
            return;
        }
        m_pairs.push_back({part, first, second});
    }

    double heightBeside(std::size_t index, const PlanePoint& place) const {
        const Cut& cut = m_scene.cuts.cuts[index];
        const double t = std::clamp(parameterOf(m_scene.cuts.curveOf(cut), place), 0.0, 1.0);
        return cut.startZ + (cut.endZ - cut.startZ) * t;
    }

    // The pair that comes first of those that make up the part; where lines join, their neighbours
    // lie beside each other for a hair.
    const Pair& tellingPair(const Interval& part, double length) const {
        const auto shared = [&part, length](const Pair& pair) {
            return (std::min(pair.part.to, part.to) - std::max(pair.part.from, part.from)) * length;
        };
        const double enough =
            std::min(m_scene.setting.tolerance, (part.to - part.from) * length / 2);
        const auto rank = [&shared, enough](const Pair& pair) {
            const double capped = std::min(shared(pair), enough);
            // Of those that cut again first, the one with the cut right before.
            return std::make_tuple(-capped, pair.second, ~pair.first);
        };
        return *std::min_element(
            m_pairs.begin(), m_pairs.end(),
            [&rank](const Pair& a, const Pair& b) { return rank(a) < rank(b); });
    }

    void reportCurve(std::size_t index, const Curve& curve, const Twice& found) {
        const std::vector<Interval>& parts = found.parts;
        if (parts.empty()) {
            return;
        }
        const Pair& pair = found.pair;
        const Cut& first = m_scene.cuts.cuts[pair.first];
        const Cut& second = m_scene.cuts.cuts[pair.second];
        Finding* const finding =
            m_findings.add(FindingKind::CutTwice, Severity::Warning, m_scene.lineOf(second));
        if (finding == nullptr) {
            return;
        }
        const Wording& words = m_scene.setting.words;
        const double length = lengthOf(curve);
        const double twice = length * widthOf(parts);
        const PlanePoint from = pointAt(curve, parts.front().from);
        const PlanePoint to = pointAt(curve, parts.front().to);
        const std::string name = nameOf(m_scene.drawing.shapes[index], index);
        finding->sentence = "The tool cuts " + name + " twice, here and in line " +
                            std::to_string(m_scene.lineOf(first)) +
                            " already: " + words.length(twice) + " of " + words.length(length) +
                            ", from " + words.place(from) + " to " + words.place(to) + ".";
        finding->numbers = {{"twice", twice}, {"length", length}};
        const double z = m_scene.setting.surface;
        Place place = placeOf(m_scene.setting, {from.x, from.y, z}, {to.x, to.y, z});
        place.firstMotion = second.motion;
        place.lastMotion = second.motion;
        finding->place = place;
        finding->shape = index;
    }

    void judgeHoles(std::size_t index, const PlanePoint& place) {
        const double reach = m_scene.setting.tolerance;
        const Curve spot = pointCurve(place);
        std::vector<std::size_t> here;
        m_scene.holeTree.each([&](const PlaneBox& box) { return mayReach(spot, box, reach); },
                              [&](std::size_t hole) {
                                  if (distance(m_scene.cuts.holes[hole].place, place) <= reach) {
                                      here.push_back(hole);
                                  }
                                  return true;
                              });
        std::sort(here.begin(), here.end());
        for (std::size_t next = 1; next < here.size(); ++next) {
            const Hole& before = m_scene.cuts.holes[here[next - 1]];
            const Hole& again = m_scene.cuts.holes[here[next]];
            if (m_scene.anyHeight || again.bottom >= before.bottom - kSame) {
                reportHole(index, before, again);
                return;
            }
        }
    }

    void reportHole(std::size_t index, const Hole& before, const Hole& again) {
        Finding* const finding =
            m_findings.add(FindingKind::CutTwice, Severity::Warning, again.line);
        if (finding == nullptr) {
            return;
        }
        const std::string where =
            before.line == again.line
                ? " more than once in this line."
                : " twice, here and in line " + std::to_string(before.line) + " already.";
        finding->sentence =
            "The tool drills " + nameOf(m_scene.drawing.shapes[index], index) + where;
        const Point at{again.place.x, again.place.y, again.bottom};
        Place place = placeOf(m_scene.setting, at, at);
        place.firstMotion = again.motion;
        place.lastMotion = again.motion;
        finding->place = place;
        finding->shape = index;
    }

    const DrawingSetting& m_scene;
    Findings& m_findings;
    std::map<CurveKey, Twice> m_crowded;
    std::vector<Overlap> m_overlaps;
    std::vector<Overlap> m_active;
    std::vector<Interval> m_parts;
    std::vector<Pair> m_pairs;
    bool m_isFollowed = false;  // what is judged
};

CutTwiceRule::CutTwiceRule(const DrawingSetting& scene, Findings& findings)
    : m_work(std::make_unique<Work>(scene, findings)) {}

CutTwiceRule::~CutTwiceRule() = default;

bool CutTwiceRule::judge(std::size_t index, NearCuts& near) {
    return m_work->judge(index, near);
}

}  // namespace gcode_check
