// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "CutJudge.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <map>
#include <sstream>

namespace {

using gcode_check::PlanePoint;
using gcode_check::ShapeKind;

constexpr double kTurn = 2 * 3.14159265358979323846;
constexpr int kSteps = 48;
/// Nearer to the tolerance than this, both may be right.
constexpr double kDoubt = 0.001;
/// Parts of an object that are nearer than this are the same.
constexpr double kSlack = 1e-6;

double distanceOf(PlanePoint a, PlanePoint b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

/// How far an angle lies counter-clockwise of another, 0 to a turn.
double turnFrom(double start, double angle) {
    const double turn = std::fmod(angle - start, kTurn);
    return turn < 0 ? turn + kTurn : turn;
}

/// A move below the surface, seen from above.
struct Cut {
    PlanePoint from;
    PlanePoint to;
    bool isArc = false;
    PlanePoint centre;
    /// Straight down or up: makes a hole, and no part of a line.
    bool isStroke = false;
    double minX = 0;
    double maxX = 0;
    double minY = 0;
    double maxY = 0;
};

void findBox(Cut& cut) {
    const double reach =
        cut.isArc ? std::max(distanceOf(cut.centre, cut.from), distanceOf(cut.centre, cut.to)) : 0;
    const PlanePoint middle = cut.isArc ? cut.centre : cut.from;
    cut.minX = std::min({cut.from.x, cut.to.x, middle.x - reach});
    cut.maxX = std::max({cut.from.x, cut.to.x, middle.x + reach});
    cut.minY = std::min({cut.from.y, cut.to.y, middle.y - reach});
    cut.maxY = std::max({cut.from.y, cut.to.y, middle.y + reach});
}

double distanceToLine(const Cut& cut, PlanePoint place) {
    const double dx = cut.to.x - cut.from.x;
    const double dy = cut.to.y - cut.from.y;
    const double square = dx * dx + dy * dy;
    const double along =
        square > 0 ? ((place.x - cut.from.x) * dx + (place.y - cut.from.y) * dy) / square : 0;
    const double part = std::clamp(along, 0.0, 1.0);
    return distanceOf(place, {cut.from.x + part * dx, cut.from.y + part * dy});
}

/// The radius goes evenly from that of the start to that of the end, counter-clockwise.
double distanceToArc(const Cut& cut, PlanePoint place) {
    const auto angleOf = [&cut](PlanePoint p) {
        return std::atan2(p.y - cut.centre.y, p.x - cut.centre.x);
    };
    const double start = angleOf(cut.from);
    const bool isCircle = distanceOf(cut.from, cut.to) == 0;
    const double sweep = isCircle ? kTurn : turnFrom(start, angleOf(cut.to));
    const double turn = turnFrom(start, angleOf(place));
    double nearest = std::min(distanceOf(place, cut.from), distanceOf(place, cut.to));
    if (turn <= sweep) {
        const double first = distanceOf(cut.centre, cut.from);
        const double last = distanceOf(cut.centre, cut.to);
        const double radius = first + (last - first) * turn / sweep;
        nearest = std::min(nearest, std::abs(distanceOf(place, cut.centre) - radius));
    }
    return nearest;
}

/// The moves of a program as the panel writes it: a code, then words with blanks between them, in
/// absolute coordinates; other lines have none.
class Moves {
public:
    std::vector<Cut> cutsOf(const std::string& program) {
        std::istringstream lines(program);
        std::string line;
        while (std::getline(lines, line)) {
            takeLine(line);
        }
        return std::move(m_cuts);
    }

private:
    void takeLine(const std::string& line) {
        std::istringstream in(line);
        std::string code;
        in >> code;
        if (code != "G0" && code != "G01" && code != "G03") {
            return;
        }
        std::map<char, double> words = {{'X', m_place.x}, {'Y', m_place.y}, {'Z', m_height}};
        std::string rest;
        std::getline(in, rest);
        readWords(rest, words);
        const PlanePoint to = {words['X'], words['Y']};
        if (code != "G0" && std::min(words['Z'], m_height) < 0) {
            Cut cut{m_place, to, code == "G03", {m_place.x + words['I'], m_place.y + words['J']}};
            cut.isStroke = words['Z'] != m_height && distanceOf(m_place, to) == 0;
            findBox(cut);
            m_cuts.push_back(cut);
        }
        m_place = to;
        m_height = words['Z'];
    }

    /// The start line has no blank between its words.
    static void readWords(const std::string& text, std::map<char, double>& words) {
        const char* at = text.data();
        const char* const end = at + text.size();
        while (at != end) {
            const char letter = *at++;
            if (letter == ' ') {
                continue;
            }
            double value = 0;
            const auto [next, error] = std::from_chars(at, end, value);
            if (error != std::errc()) {
                return;
            }
            words[letter] = value;
            at = next;
        }
    }

    PlanePoint m_place;
    double m_height = 0;
    std::vector<Cut> m_cuts;
};

/// Where part 0 to 1 of an object lies.
PlanePoint placeAt(const gcode_check::Shape& shape, double part) {
    switch (shape.kind) {
        case ShapeKind::Point:
            return shape.first;
        case ShapeKind::Line:
            return {shape.first.x + part * (shape.second.x - shape.first.x),
                    shape.first.y + part * (shape.second.y - shape.first.y)};
        case ShapeKind::Arc:
        case ShapeKind::Circle:
            break;
    }
    const double sweep = turnFrom(shape.startRad, shape.endRad);
    const bool isFull = shape.kind == ShapeKind::Circle || sweep == 0;
    const double angle = shape.startRad + part * (isFull ? kTurn : sweep);
    return {shape.centre.x + shape.radius * std::cos(angle),
            shape.centre.y + shape.radius * std::sin(angle)};
}

/// The cuts that may be near to an object.
std::vector<const Cut*> cutsAround(const gcode_check::Shape& shape, const std::vector<Cut>& cuts,
                                   double reach) {
    Cut box;
    box.isArc = shape.kind == ShapeKind::Arc || shape.kind == ShapeKind::Circle;
    box.centre = shape.centre;
    box.from = placeAt(shape, 0);
    box.to = placeAt(shape, 1);
    findBox(box);
    std::vector<const Cut*> near;
    for (const Cut& cut : cuts) {
        const bool counts = shape.kind == ShapeKind::Point || !cut.isStroke;
        if (counts && cut.minX <= box.maxX + reach && cut.maxX >= box.minX - reach &&
            cut.minY <= box.maxY + reach && cut.maxY >= box.minY - reach) {
            near.push_back(&cut);
        }
    }
    return near;
}

double distanceToCuts(PlanePoint place, const std::vector<const Cut*>& cuts) {
    double nearest = std::numeric_limits<double>::infinity();
    for (const Cut* cut : cuts) {
        nearest = std::min(nearest,
                           cut->isArc ? distanceToArc(*cut, place) : distanceToLine(*cut, place));
    }
    return nearest;
}

/// Which part, 0 to 1, of an object lies at a place of it.
double partAt(const gcode_check::Shape& shape, PlanePoint place) {
    if (shape.kind == ShapeKind::Point) {
        return 0;
    }
    if (shape.kind == ShapeKind::Line) {
        const double length = distanceOf(shape.first, shape.second);
        return length > 0 ? distanceOf(shape.first, place) / length : 0;
    }
    const double angle = std::atan2(place.y - shape.centre.y, place.x - shape.centre.x);
    const double sweep = turnFrom(shape.startRad, shape.endRad);
    const bool isFull = shape.kind == ShapeKind::Circle || sweep == 0;
    const double turn = turnFrom(shape.startRad, angle);
    if (isFull) {
        return turn / kTurn;
    }
    const double behind = turn - sweep;
    // A hair before the start is the start.
    return behind <= 0 ? turn / sweep : (behind < kTurn - turn ? 1 : 0);
}

/// A part of an object that a finding names.
struct Named {
    double from = 0;
    double to = 1;
    bool isAll = false;
};

class ShapeJudge {
public:
    ShapeJudge(const gcode_check::Shape& shape, const std::vector<Cut>& cuts, double tolerance)
        : m_shape(shape), m_tolerance(tolerance), m_cuts(cutsAround(shape, cuts, tolerance * 2)) {}

    bool isCut() const {
        bool all = true;
        for (int step = 0; step <= kSteps && all; ++step) {
            all = missAt(static_cast<double>(step) / kSteps) <= kDoubt;
        }
        return all;
    }

    /// How much farther than allowed the nearest cut is.
    double missAt(double part) const {
        return distanceToCuts(placeAt(m_shape, part), m_cuts) - m_tolerance;
    }

    /// The first place that lies bare and is not named; nothing is complained of when all are.
    void findUnnamed(const std::vector<Named>& named, std::vector<std::string>& complaints) const {
        for (int step = 0; step <= kSteps; ++step) {
            const double part = static_cast<double>(step) / kSteps;
            if (missAt(part) > kDoubt && !isNamed(part, named)) {
                complaints.push_back(m_shape.name + ": no cut at " + text(placeAt(m_shape, part)) +
                                     " and no finding says so");
                return;
            }
        }
    }

    void findFalse(const std::vector<Named>& named, std::vector<std::string>& complaints) const {
        for (const Named& gap : named) {
            const double middle = gap.from + (gap.to - gap.from) / 2;
            if (missAt(middle) < -kDoubt) {
                complaints.push_back(m_shape.name + ": said not to be cut at " +
                                     text(placeAt(m_shape, middle)) + ", but it is");
            }
        }
    }

private:
    static std::string text(PlanePoint place) {
        std::ostringstream out;
        out.precision(10);
        out << "(" << place.x << ", " << place.y << ")";
        return out.str();
    }

    bool isNamed(double part, const std::vector<Named>& named) const {
        const double place = m_shape.kind == ShapeKind::Point ? 0 : part;
        return std::any_of(named.begin(), named.end(), [place](const Named& gap) {
            return gap.isAll || (place >= gap.from - kSlack && place <= gap.to + kSlack);
        });
    }

    const gcode_check::Shape& m_shape;
    double m_tolerance;
    std::vector<const Cut*> m_cuts;
};

/// Whether a finding says that no object is cut at all, as the tool stays above the surface.
bool saysNothingIsCut(const gcode_check::CheckResult& result) {
    return std::any_of(result.findings.begin(), result.findings.end(),
                       [](const gcode_check::Finding& finding) {
                           return finding.kind == gcode_check::FindingKind::DepthZero;
                       });
}

/// The parts that the findings name, of each object.
std::map<std::size_t, std::vector<Named>> namedParts(const gcode_check::Drawing& drawing,
                                                     const gcode_check::CheckResult& result) {
    std::map<std::size_t, std::vector<Named>> parts;
    for (const gcode_check::Finding& finding : result.findings) {
        const bool isGap = finding.kind == gcode_check::FindingKind::NotCut;
        if (!isGap || !finding.shape) {
            continue;
        }
        const gcode_check::Shape& shape = drawing.shapes[*finding.shape];
        Named named;
        named.isAll = !finding.place;
        if (finding.place) {
            named.from = partAt(shape, finding.place->drawingFrom);
            named.to = partAt(shape, finding.place->drawingTo);
        }
        // The end of a circle is its beginning.
        named.from -= named.from > 1 - kSlack ? 1 : 0;
        named.to += named.to <= named.from && shape.kind != ShapeKind::Point ? 1 : 0;
        parts[*finding.shape].push_back(named);
    }
    return parts;
}

}  // namespace

Judgement judgeCuts(const std::string& program, const gcode_check::Drawing& drawing,
                    const gcode_check::CheckResult& result, double tolerance) {
    const std::vector<Cut> cuts = Moves().cutsOf(program);
    const std::map<std::size_t, std::vector<Named>> named = namedParts(drawing, result);
    const std::vector<Named> none(saysNothingIsCut(result) ? 1 : 0, Named{0, 1, true});
    Judgement judgement;
    judgement.shapes = drawing.shapes.size();
    for (std::size_t i = 0; i < drawing.shapes.size(); ++i) {
        const ShapeJudge judge(drawing.shapes[i], cuts, tolerance);
        judgement.shapesCut += judge.isCut() ? 1 : 0;
        const auto parts = named.find(i);
        const std::vector<Named>& gaps = parts == named.end() ? none : parts->second;
        judge.findUnnamed(gaps, judgement.complaints);
        judge.findFalse(gaps, judgement.complaints);
    }
    return judgement;
}
