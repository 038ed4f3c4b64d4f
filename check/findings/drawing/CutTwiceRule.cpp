// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/drawing/CutTwiceRule.h"

#include <algorithm>
#include <cmath>

#include "geometry/Near.h"

namespace gcode_check {
namespace {

constexpr double kParallel = 1e-3;  // sine of the angle between what runs along each other
constexpr double kRoughly = 0.866;  // cosine: chords of an arc run along it
constexpr double kMostOfCut = 0.5;
constexpr double kLeastInTolerances = 10;
constexpr double kNearlyAll = 0.95;
constexpr std::size_t kPassesAtMost = 64;

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

double cross(const PlanePoint& a, const PlanePoint& b) {
    return a.x * b.y - a.y * b.x;
}

// The cut's direction beside a place of the object.
PlanePoint directionBeside(const Cut& cut, const PlanePoint& place) {
    return directionAt(cut.curve, std::clamp(parameterOf(cut.curve, place), 0.0, 1.0));
}

bool isParallel(const Curve& object, const Cut& cut, double t) {
    const PlanePoint along = directionBeside(cut, pointAt(object, t));
    return std::abs(cross(directionAt(object, t), along)) <= kParallel;
}

bool runsAlong(const Curve& object, const Cut& cut, const Interval& part) {
    if (isParallel(object, cut, part.from) && isParallel(object, cut, part.to)) {
        return true;
    }
    const double middle = (part.from + part.to) / 2;
    const PlanePoint along = directionBeside(cut, pointAt(object, middle));
    const PlanePoint own = directionAt(object, middle);
    const double cosine = std::abs(own.x * along.x + own.y * along.y);
    const double length = lengthOf(object) * (part.to - part.from);
    return cosine >= kRoughly && length >= kMostOfCut * lengthOf(cut.curve);
}

double heightBeside(const Cut& cut, const PlanePoint& place) {
    const double t = std::clamp(parameterOf(cut.curve, place), 0.0, 1.0);
    return cut.startZ + (cut.endZ - cut.startZ) * t;
}

class CutTwice {
public:
    CutTwice(const DrawingSetting& scene, Findings& findings)
        : m_scene(scene), m_findings(findings) {}

    void judge(std::size_t index) {
        const Target& target = m_scene.shapes.targets()[index];
        if (target.hole) {
            judgeHoles(index, *target.hole);
        }
        if (target.curve.kind != Curve::Kind::Point) {
            judgeCurve(index, target.curve);
        }
    }

private:
    void judgeCurve(std::size_t index, const Curve& curve) {
        collect(curve);
        if (m_overlaps.size() < 2) {
            return;
        }
        findPairs(curve);
        std::vector<Interval> parts;
        for (const Pair& pair : m_pairs) {
            parts.push_back(pair.part);
        }
        unite(parts);
        const double length = lengthOf(curve);
        const double least =
            std::min(kLeastInTolerances * m_scene.setting.tolerance, kNearlyAll * length);
        parts.erase(std::remove_if(parts.begin(), parts.end(),
                                   [length, least](const Interval& part) {
                                       return (part.to - part.from) * length < least;
                                   }),
                    parts.end());
        if (!parts.empty()) {
            reportCurve(index, curve, parts);
        }
    }

    void collect(const Curve& curve) {
        m_overlaps.clear();
        const double reach = m_scene.setting.tolerance;
        m_scene.cutTree.each([&](const PlaneBox& box) { return mayReach(curve, box, reach); },
                             [&](std::size_t index) {
                                 const Cut& cut = m_scene.cuts.cuts[index];
                                 m_parts.clear();
                                 appendNear(curve, cut.curve, reach, Ends::Square, m_parts);
                                 for (const Interval& part : m_parts) {
                                     if (part.to > part.from && runsAlong(curve, cut, part)) {
                                         m_overlaps.push_back({part, index});
                                     }
                                 }
                                 return true;
                             });
        std::sort(m_overlaps.begin(), m_overlaps.end(), [](const Overlap& a, const Overlap& b) {
            return a.part.from < b.part.from || (a.part.from == b.part.from && a.cut < b.cut);
        });
    }

    void findPairs(const Curve& curve) {
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
            if (m_active.size() < kPassesAtMost) {
                m_active.push_back(overlap);
            }
        }
    }

    void judgePair(const Curve& curve, const Overlap& a, const Overlap& b) {
        if (a.cut == b.cut) {
            return;
        }
        const Interval part{std::max(a.part.from, b.part.from), std::min(a.part.to, b.part.to)};
        const Cut& first = m_scene.cuts.cuts[std::min(a.cut, b.cut)];
        const Cut& second = m_scene.cuts.cuts[std::max(a.cut, b.cut)];
        const PlanePoint middle = pointAt(curve, (part.from + part.to) / 2);
        const bool deeper = heightBeside(second, middle) < heightBeside(first, middle) - kSame;
        if (deeper && !m_scene.anyHeight) {
            return;
        }
        m_pairs.push_back({part, std::min(a.cut, b.cut), std::max(a.cut, b.cut)});
    }

    // The pair that comes first of those that make up the part; where lines join, their neighbours
    // lie beside each other for a hair.
    const Pair& tellingPair(const Interval& part, double length) const {
        const auto shared = [&part, length](const Pair& pair) {
            return (std::min(pair.part.to, part.to) - std::max(pair.part.from, part.from)) * length;
        };
        const double enough =
            std::min(m_scene.setting.tolerance, (part.to - part.from) * length / 2);
        const auto isBetter = [&shared, enough](const Pair& pair, const Pair& other) {
            if (shared(pair) >= enough && shared(other) >= enough) {
                return pair.second < other.second;
            }
            return shared(pair) > shared(other);
        };
        const Pair* best = &m_pairs.front();
        for (const Pair& pair : m_pairs) {
            best = isBetter(pair, *best) ? &pair : best;
        }
        return *best;
    }

    void reportCurve(std::size_t index, const Curve& curve, const std::vector<Interval>& parts) {
        const Pair& pair = tellingPair(parts.front(), lengthOf(curve));
        const Cut& first = m_scene.cuts.cuts[pair.first];
        const Cut& second = m_scene.cuts.cuts[pair.second];
        Finding* const finding =
            m_findings.add(FindingKind::CutTwice, Severity::Warning, second.line);
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
                            std::to_string(first.line) + " already: " + words.length(twice) +
                            " of " + words.length(length) + ", from " + words.place(from) + " to " +
                            words.place(to) + ".";
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
    std::vector<Overlap> m_overlaps;
    std::vector<Overlap> m_active;
    std::vector<Interval> m_parts;
    std::vector<Pair> m_pairs;
};

}  // namespace

void findCutTwice(const DrawingSetting& scene, Findings& findings) {
    CutTwice rule(scene, findings);
    const std::vector<Target>& targets = scene.shapes.targets();
    for (std::size_t index = 0; index < targets.size(); ++index) {
        if (targets[index].usable) {
            rule.judge(index);
        }
    }
}

}  // namespace gcode_check
