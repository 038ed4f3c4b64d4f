// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/Check.h"

#include "findings/FigureCount.h"
#include "findings/Findings.h"
#include "findings/drawing/DrawingCheck.h"
#include "findings/rules/ArcRadiusRule.h"
#include "findings/rules/DepthRule.h"
#include "findings/rules/HeightIncrementsRule.h"
#include "findings/rules/IntendedDepthRule.h"
#include "findings/rules/NoProgramRule.h"
#include "findings/rules/PlungeFeedRule.h"
#include "findings/rules/ProgramRules.h"
#include "findings/rules/RapidRule.h"
#include "findings/rules/RejectionRule.h"
#include "findings/rules/SpindleRule.h"
#include "findings/rules/StartRule.h"
#include "findings/rules/ToolInMaterialRule.h"
#include "findings/rules/ToolLengthRule.h"
#include "findings/rules/ZeroRule.h"
#include "interpreter/Interpreter.h"

namespace gcode_check {
namespace {

// The rules that look at one motion after the other.
class MotionRules {
public:
    MotionRules(const Setting& setting, Findings& findings)
        : m_setting(setting),
          m_findings(findings),
          m_figures(setting),
          m_arcs(setting, findings),
          m_spindle(setting, findings),
          m_rapids(setting, findings),
          m_tools(setting, findings),
          m_lengths(setting, findings),
          m_zeros(setting, findings),
          m_plunges(setting, findings),
          m_increments(setting, findings),
          m_start(setting, findings),
          m_depth(setting, findings),
          m_intendedDepth(setting, findings) {}

    void step(const Step& step) {
        m_figures.step(step);
        m_tools.step(step);
        m_lengths.step(step);
        if (!step.isMove()) {
            return;
        }
        m_arcs.step(step);
        m_spindle.step(step);
        m_rapids.step(step);
        m_zeros.step(step);
        m_plunges.step(step);
        m_increments.step(step);
        m_start.step(step);
        m_depth.step(step);
        m_intendedDepth.step(step);
        m_last = step;
    }

    Figures finish() {
        m_rapids.finish();
        m_plunges.finish();
        m_increments.finish();
        m_depth.finish();
        m_intendedDepth.finish();
        if (m_last.motion != nullptr) {
            findEndInMaterial(m_setting, m_last, m_findings);
        }
        if (m_findings.hasError(FindingKind::HeightIncrements)) {
            // All heights of such a program are wrong, and these follow from them.
            for (const FindingKind kind :
                 {FindingKind::DepthZero, FindingKind::RapidInMaterial, FindingKind::RapidAtSurface,
                  FindingKind::ToolChangeInMaterial, FindingKind::EndsInMaterial,
                  FindingKind::CutTooDeep, FindingKind::DepthNotReached}) {
                m_findings.drop(kind);
            }
        }
        return m_figures.finish();
    }

private:
    const Setting& m_setting;
    Findings& m_findings;
    FigureCount m_figures;
    ArcRadiusRule m_arcs;
    SpindleRule m_spindle;
    RapidRule m_rapids;
    ToolInMaterialRule m_tools;
    ToolLengthRule m_lengths;
    ZeroRule m_zeros;
    PlungeFeedRule m_plunges;
    HeightIncrementsRule m_increments;
    StartRule m_start;
    DepthRule m_depth;
    IntendedDepthRule m_intendedDepth;
    Step m_last;
};

// Hands all motions to `cuts`, too, unless it is null.
Figures judgeMotions(const Setting& setting, Findings& findings, CutCollector* cuts) {
    MotionRules rules(setting, findings);
    StepWalk walk(setting);
    const std::size_t steps = setting.reading.motions.size();
    while (walk.next() && setting.goesOn(walk.step().index, steps)) {
        rules.step(walk.step());
        if (cuts != nullptr) {
            cuts->step(walk.step());
        }
    }
    return rules.finish();
}

Heights heightsFor(const Findings& findings) {
    const bool wrong =
        findings.hasError(FindingKind::HeightIncrements) || findings.has(FindingKind::DepthZero);
    return wrong ? Heights::Any : Heights::BelowSurface;
}

// Whatever else could be said of it would be said of what nobody meant.
CheckResult noProgramResult(std::string_view program, CheckResult result, const Drawing* drawing) {
    Findings findings(1);
    findNoProgram(program, findings);
    result.drawingGiven = drawing != nullptr;
    result.shapes = drawing != nullptr ? drawing->shapes.size() : 0;
    findings.moveInto(result);
    return result;
}

// How the time of a check is spent, roughly; with a drawing this is the first part of it.
constexpr double kReadingShare = 0.65;
constexpr double kReadingShareWithDrawing = 0.1;

Figures judgeWithDrawing(const Setting& setting, const Drawing& drawing, Findings& findings,
                         CheckResult& result) {
    result.drawingGiven = true;
    result.shapes = drawing.shapes.size();
    CutCollector collector(setting, Heights::BelowSurface);
    const Figures figures = judgeMotions(setting, findings, &collector);
    CutsToJudge cuts{collector.finish(), heightsFor(findings)};
    if (cuts.heights == Heights::Any) {
        setting.beginStage(0);
        cuts.cuts = cutsOf(setting, Heights::Any);
    }
    checkDrawing(setting, drawing, cuts, findings, result);
    if (findings.has(FindingKind::NoMotion)) {
        // Nothing is cut, and that is told.
        findings.drop(FindingKind::NotCut);
    }
    return figures;
}

void judge(const Setting& setting, const Drawing* drawing, Findings& findings,
           CheckResult& result) {
    findRejections(setting, findings);
    findEnds(setting, findings);
    findUnits(setting, findings);
    findLineNumbers(setting, findings);
    findNoMotion(setting, findings);
    result.surface = setting.surface;
    result.figures = drawing != nullptr ? judgeWithDrawing(setting, *drawing, findings, result)
                                        : judgeMotions(setting, findings, nullptr);
    if (findings.has(FindingKind::UnitsDiffer)) {
        // In another unit no depth is the one that was meant.
        findings.drop(FindingKind::CutTooDeep);
        findings.drop(FindingKind::DepthNotReached);
    }
}

CheckResult stoppedResult() {
    CheckResult result;
    result.stopped = true;
    return result;
}

}  // namespace

CheckResult check(std::string_view program, const CheckOptions& options, const Drawing* drawing) {
    CheckResult result;
    Progress progress(options.progress);
    const double reading = drawing != nullptr ? kReadingShareWithDrawing : kReadingShare;
    progress.beginStage(reading);
    result.reading = read(program, options.machine, &progress);
    if (progress.isStopped()) {
        return stoppedResult();
    }
    result.depthGiven = options.depth.has_value();
    // What is read to its end is a program.
    if (result.reading.stopLine != 0 && isNoProgram(program)) {
        return noProgramResult(program, std::move(result), drawing);
    }
    Setting setting = settingOf(program, result.reading, options, drawing);
    setting.progress = &progress;
    result.inches = isInches(result.reading, options);
    Findings findings(options.findingsPerKind);
    progress.beginStage(drawing != nullptr ? kReadingShareWithDrawing : 1 - reading);
    judge(setting, drawing, findings, result);
    if (progress.isStopped()) {
        return stoppedResult();
    }
    findings.moveInto(result);
    for (Finding& finding : result.findings) {
        finding.object =
            finding.shape ? numberOf(drawing->shapes[*finding.shape], *finding.shape) : 0;
    }
    return result;
}

std::size_t countOf(const CheckResult& result, Severity severity) {
    return result.counts[static_cast<std::size_t>(severity)];
}

bool hasErrors(const CheckResult& result) {
    return countOf(result, Severity::Error) > 0;
}

}  // namespace gcode_check
