// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "CheckCommand.h"

#include <cstdio>
#include <new>

#include <kx/host/kxHostApplication.h>

#include "CheckProgress.h"
#include "DrawingFile.h"
#include "ExitCode.h"
#include "Message.h"
#include "Summary.h"
#include "drawing/CheckShapes.h"
#include "drawing/Units.h"
#include "files/FileDescriptor.h"
#include "files/InputFile.h"
#include "report/JsonReport.h"
#include "report/TextReport.h"

namespace {

/// As much as the panel takes.
constexpr std::size_t kLongestProgram = 1000000000;

/// What is to be held against each other. Each step returns the exit code to end with, or 0.
class Checking {
public:
    explicit Checking(const CheckCommandOptions& options) : m_options(options) {}
    int run();

private:
    int readProgram();
    int readDrawing();
    int report() const;
    std::optional<short> unitOf(const kxdrawing::Drawing& drawing) const;
    gcode_check::CheckOptions checkOptions() const;

    const CheckCommandOptions& m_options;
    std::string m_program;
    std::optional<gcode_check::Drawing> m_drawing;
};

int Checking::run() {
    for (const auto step : {&Checking::readProgram, &Checking::readDrawing}) {
        const int code = (this->*step)();
        if (code != kExitWritten) {
            return code;
        }
    }
    return report();
}

int Checking::readProgram() {
    std::string cause;
    const bool isStream = m_options.program == "-";
    const bool isRead =
        isStream ? kxfiles::readStream(fileno(stdin), kLongestProgram, &m_program, &cause)
                 : kxfiles::readInput(m_options.program, kLongestProgram, &m_program, &cause);
    return isRead ? kExitWritten
                  : sayFailure(kExitUnreadableInput,
                               (isStream ? "standard input" : m_options.program) + ": " + cause);
}

std::optional<short> Checking::unitOf(const kxdrawing::Drawing& drawing) const {
    if (m_options.drawingUnit) {
        return *m_options.drawingUnit == Unit::Inch ? kxdrawing::kUnitInches
                                                    : kxdrawing::kUnitMillimetres;
    }
    return drawing.isUnitKnown ? std::optional(drawing.unit) : std::nullopt;
}

int Checking::readDrawing() {
    if (m_options.drawing.empty()) {
        return kExitWritten;
    }
    const std::optional<kxdrawing::Drawing> drawing =
        readDrawingFile(m_options.drawing, wordsFor(m_options.report, m_options.quiet));
    if (!drawing) {
        return kExitUnreadableInput;
    }
    const kxHostApplication_ptr application = kxCreateHostApplication({});
    const kxHostDocument_ptr document =
        application->AddDocument(kxString(m_options.drawing), false);
    kxdrawing::loadInto(*document, *drawing);
    std::string unknown;
    const std::vector<kxObject_ptr> chosen = chooseObjects(*document, m_options.objects, &unknown);
    if (!unknown.empty()) {
        return sayFailure(kExitNothingToWrite, m_options.drawing + ": " + unknown);
    }
    const std::string noPath = noToolPathLine(chosen);
    if (!noPath.empty()) {
        sayLine(noPath);
    }
    m_drawing = kxdrawing::checkShapes(chosen, unitOf(*drawing)).drawing;
    return m_drawing->shapes.empty()
               ? sayFailure(kExitNothingToWrite,
                            m_options.drawing +
                                ": nothing to compare with, no line, arc, circle or point is "
                                "visible and chosen")
               : kExitWritten;
}

gcode_check::CheckOptions Checking::checkOptions() const {
    gcode_check::CheckOptions options = checkOptionsOf(m_options.check);
    options.machine.tools = m_options.tools;
    options.machine.blockDelete = m_options.blockDelete;
    options.machine.startsInInches = m_options.startUnit == Unit::Inch;
    return options;
}

int Checking::report() const {
    const gcode_check::CheckResult result =
        checkTelling(m_program, checkOptions(), m_drawing ? &*m_drawing : nullptr, m_options.quiet);
    const gcode_check::ReportHead head =
        headOf(m_options.program, "standard input", m_options.drawing, m_options.check);
    const std::string text = m_options.json ? gcode_check::jsonReport(result, head)
                                            : gcode_check::textReport(result, head);
    if (!kxfiles::writeAll(fileno(stdout), text)) {
        return sayFailure(kExitUnwritableOutput, "standard output: " + kxfiles::lastCause());
    }
    return exitCodeOf(result);
}

}  // namespace

int checkProgramFile(const CheckCommandOptions& options) {
    try {
        return Checking(options).run();
    } catch (const std::bad_alloc&) {
        return sayFailure(kExitUnreadableInput,
                          (options.program == "-" ? "standard input" : options.program) +
                              ": there is not enough memory to check it");
    }
}
