// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/drawing/UnitsRule.h"

#include <algorithm>

namespace gcode_check {
namespace {

constexpr std::size_t kSamplesAtMost = 300;
constexpr double kFits = 0.9;
constexpr double kFitsNot = 0.2;

std::vector<PlanePoint> samplesOf(const CutList& cuts) {
    std::vector<PlanePoint> samples;
    const auto stepFor = [](std::size_t count) { return count / kSamplesAtMost + 1; };
    for (std::size_t at = 0; at < cuts.cuts.size(); at += stepFor(cuts.cuts.size())) {
        const Curve curve = cuts.curveAt(at);
        for (const double t : {0.0, 0.5, 1.0}) {
            samples.push_back(pointAt(curve, t));
        }
    }
    for (std::size_t at = 0; at < cuts.holes.size(); at += stepFor(cuts.holes.size())) {
        samples.push_back(cuts.holes[at].place);
    }
    return samples;
}

double fitting(const Setting& setting, const ShapeIndex& shapes,
               const std::vector<PlanePoint>& samples, double factor) {
    std::size_t fit = 0;
    const double reach = setting.tolerance;
    for (const PlanePoint& sample : samples) {
        const PlanePoint place{sample.x * factor, sample.y * factor};
        const double beyond = reach * 1.001 + kSame;
        const auto any = [](std::size_t) { return true; };
        const bool isOn = shapes.distanceToOutline(place, beyond) <= reach ||
                          shapes.nearestHole(place, beyond, any).distance <= reach;
        fit += isOn ? 1U : 0U;
    }
    return static_cast<double>(fit) / static_cast<double>(samples.size());
}

void report(const Setting& setting, double factor, Findings& findings) {
    Finding* const finding = findings.add(FindingKind::UnitsDiffer, Severity::Error, 0);
    if (finding == nullptr) {
        return;
    }
    const bool larger = factor < 1;
    finding->sentence = "Program and drawing are in different units: the program makes the part " +
                        numberText(larger ? 1 / factor : factor, 4) + " times too " +
                        (larger ? "large" : "small") + ".";
    finding->numbers = {{"factor", factor, Measure::Factor}};
    const auto& facts = setting.reading.facts;
    const auto unit = std::find_if(facts.begin(), facts.end(),
                                   [](const Fact& fact) { return fact.kind == FactKind::Unit; });
    finding->line = unit == facts.end() ? 0 : unit->line;
}

}  // namespace

double findUnitFactor(const Setting& setting, const ShapeIndex& shapes, const CutList& cuts,
                      Findings& findings) {
    const std::vector<PlanePoint> samples = samplesOf(cuts);
    if (samples.empty() || shapes.empty() || fitting(setting, shapes, samples, 1) > kFitsNot) {
        return 1;
    }
    for (const double factor : {setting.unitsPerDrawingUnit, 25.4, 1 / 25.4}) {
        if (factor != 1 && fitting(setting, shapes, samples, factor) >= kFits) {
            report(setting, factor, findings);
            return factor;
        }
    }
    return 1;
}

}  // namespace gcode_check
