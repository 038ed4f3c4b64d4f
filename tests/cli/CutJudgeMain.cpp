// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <kx/host/kxHostApplication.h>

#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>

#include "CutJudge.h"
#include "ObjectChoice.h"
#include "drawing/CheckShapes.h"
#include "drawing/DxfReader.h"

namespace {

constexpr double kTolerance = 0.02;
constexpr double kPlungeFeed = 100;

gcode_check::Drawing shapesOf(const std::string& path) {
    const kxdrawing::ReadResult read = kxdrawing::readDxf(path);
    if (!read.drawing) {
        return {};
    }
    const kxHostApplication_ptr application = kxCreateHostApplication({});
    const kxHostDocument_ptr document = application->AddDocument(kxString(path), false);
    kxdrawing::loadInto(*document, *read.drawing);
    std::string unknown;
    const std::optional<short> unit =
        read.drawing->isUnitKnown ? std::optional(read.drawing->unit) : std::nullopt;
    return kxdrawing::checkShapes(chooseObjects(*document, {}, &unknown), unit).drawing;
}

/// "kind severity count", a word each, for every kind of finding.
void printKinds(const gcode_check::CheckResult& result) {
    std::map<std::string, std::size_t> counts;
    for (const gcode_check::Finding& finding : result.findings) {
        const std::string kind = identifierOf(finding.kind);
        const std::string detail = finding.detail.empty() ? "" : ":" + finding.detail;
        ++counts[kind + detail + "\t" + nameOf(finding.severity)];
    }
    for (const auto& [kind, count] : counts) {
        std::cout << "finding\t" << kind << "\t" << count << "\n";
    }
}

}  // namespace

/// What is cut is not judged where the program stops before its last cut: then a finding has to
/// name the line.
bool namesTheStop(const gcode_check::CheckResult& result) {
    for (const gcode_check::Finding& finding : result.findings) {
        if (finding.line != 0 && finding.line == result.reading.stopLine &&
            finding.severity == gcode_check::Severity::Error) {
            return true;
        }
    }
    return false;
}

/// Checks a program against its drawing and says what was found, a line each. With "judge" the
/// check is judged as well: the exit code is 1 when its findings are not those of the judge.
int main(int argc, char** argv) {
    if (argc < 3) {
        std::cerr << "Usage: cut_judge PROGRAM DRAWING [judge]\n";
        return 2;
    }
    std::ifstream in(argv[1], std::ios::binary);
    const std::string program((std::istreambuf_iterator<char>(in)), {});
    const gcode_check::Drawing drawing = shapesOf(argv[2]);
    gcode_check::CheckOptions options;
    options.tolerance = kTolerance;
    options.plungeFeed = kPlungeFeed;
    options.findingsPerKind = 1000000;
    const gcode_check::CheckResult result = gcode_check::check(program, options, &drawing);
    std::cout << "objects\t" << result.shapes << "\t" << result.shapesCut << "\t"
              << (result.coverageJudged ? "judged" : "not-judged") << "\t"
              << (gcode_check::hasErrors(result) ? "errors" : "no-errors") << "\n";
    printKinds(result);
    if (argc < 4 || std::strcmp(argv[3], "judge") != 0) {
        return 0;
    }
    if (!result.coverageJudged) {
        std::cout << "stop\t" << result.reading.stopLine << "\n";
        return namesTheStop(result) ? 0 : 1;
    }
    const Judgement judgement = judgeCuts(program, drawing, result, kTolerance);
    std::cout << "judge\t" << judgement.shapes << "\t" << judgement.shapesCut << "\n";
    for (const std::string& complaint : judgement.complaints) {
        std::cout << "complaint\t" << complaint << "\n";
    }
    return judgement.complaints.empty() ? 0 : 1;
}
