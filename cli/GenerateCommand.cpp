// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "GenerateCommand.h"

#include <QTemporaryDir>
#include <algorithm>
#include <iostream>

#include "AddinFile.h"
#include "CheckProgress.h"
#include "DrawingFile.h"
#include "ExitCode.h"
#include "FileNames.h"
#include "Message.h"
#include "OffscreenHost.h"
#include "PanelDriver.h"
#include "Summary.h"
#include "TextFile.h"
#include "ViewPicture.h"
#include "drawing/CheckShapes.h"
#include "report/TextReport.h"

namespace {

QByteArray withoutLineNumbers(const QByteArray& text) {
    QByteArray plain;
    for (int begin = 0; begin < text.size();) {
        const int end = text.indexOf('\n', begin);
        const int next = end < 0 ? text.size() : end + 1;
        const int blank = text.indexOf(' ', begin);
        const int start = blank < 0 || blank >= next ? next : blank + 1;
        plain.append(text.constData() + start, next - start);
        begin = next;
    }
    return plain;
}

/// Whether all of the program was saved: where the disk is full the panel saves a part in silence.
bool isWhole(const QByteArray& saved, const QByteArray& program, bool numbered) {
    return numbered ? withoutLineNumbers(saved).endsWith(program) : saved.endsWith(program);
}

/// One run of the program. Each step returns the exit code to end with, or 0 to go on.
class Generation {
public:
    explicit Generation(const Options& options) : m_options(options) {}
    int run();

private:
    int readTexts();
    int readDrawing();
    int connectAddin();
    int selectObjects();
    int fillPanel();
    int makeProgram();
    int saveProgram(const QByteArray& program);
    int writeProgram() const;
    int checkProgram() const;
    bool changesWhenSaved() const;

    bool fillToolPath();
    bool fillDrillCycle();
    bool fillTexts();
    void tell(const std::string& line) const;

    const Options& m_options;
    std::optional<QString> m_preamble;
    std::optional<QString> m_postscript;
    kxdrawing::Drawing m_drawing;
    OffscreenHost m_host;
    kxHostDocument_ptr m_document;
    std::optional<PanelDriver> m_panel;
    QByteArray m_program;
};

void Generation::tell(const std::string& line) const {
    if (!m_options.quiet) {
        sayLine(line);
    }
}

int Generation::run() {
    using Step = int (Generation::*)();
    for (const Step step :
         {&Generation::readTexts, &Generation::readDrawing, &Generation::connectAddin,
          &Generation::selectObjects, &Generation::fillPanel, &Generation::makeProgram}) {
        const int code = (this->*step)();
        if (code != kExitWritten) {
            return code;
        }
    }
    return writeProgram();
}

int Generation::readTexts() {
    std::string error = clashOfFiles({m_options.drawing, m_options.preambleFile,
                                      m_options.postscriptFile, m_options.settingsFile},
                                     {m_options.output, m_options.preview});
    if (!error.empty()) {
        return sayFailure(kExitWrongUsage, error);
    }
    if (!m_options.preambleFile.empty()) {
        m_preamble = readTextFile(m_options.preambleFile, &error);
    }
    if (!m_options.postscriptFile.empty()) {
        m_postscript = readTextFile(m_options.postscriptFile, &error);
    }
    return error.empty() ? kExitWritten : sayFailure(kExitUnreadableInput, error);
}

int Generation::readDrawing() {
    std::optional<kxdrawing::Drawing> drawing =
        readDrawingFile(m_options.drawing, wordsFor(m_options.report, m_options.quiet));
    if (!drawing) {
        return kExitUnreadableInput;
    }
    m_drawing = *std::move(drawing);
    return kExitWritten;
}

int Generation::connectAddin() {
    std::string error;
    const std::string file = findAddinFile(m_options.addin, &error);
    if (file.empty() || !m_host.loadAddin(file, &error)) {
        return sayFailure(kExitUnreadableInput, "the add-in can't be loaded: " + error);
    }
    if (!m_options.preview.empty() && !showView(m_host.pane(), &error)) {
        return sayFailure(kExitUnwritableOutput, error);
    }
    m_panel.emplace(m_host.pane());
    // After the add-in is there, so that it hears of the drawing and takes its unit over.
    m_document = m_host.application().AddDocument(kxString(m_options.drawing), true);
    kxdrawing::loadInto(*m_document, m_drawing);
    m_host.application().SetActiveDocument(m_document.get());
    return kExitWritten;
}

int Generation::selectObjects() {
    std::string unknown;
    const std::vector<kxObject_ptr> chosen =
        chooseObjects(*m_document, m_options.objects, &unknown);
    if (!unknown.empty()) {
        return sayFailure(kExitNothingToWrite,
                          m_options.drawing + ": nothing to write, " + unknown);
    }
    m_document->SetSelection(kxSelectionSetType_Current, chosen);
    const std::string noPath = noToolPathLine(chosen);
    if (!noPath.empty()) {
        sayLine(noPath);
    }
    const bool any = std::any_of(chosen.begin(), chosen.end(), [](const kxObject_ptr& object) {
        return givesToolPath(object->GetType());
    });
    return any ? kExitWritten
               : sayFailure(kExitNothingToWrite,
                            m_options.drawing +
                                ": nothing to write, no line, arc, circle or point is "
                                "visible and chosen");
}

bool Generation::fillToolPath() {
    return m_panel->typeField("zSafeHeightEdit", m_options.safeHeight) &&
           m_panel->typeField("zRetractEdit", m_options.retraction) &&
           m_panel->typeField("depthOfCut", m_options.depth) &&
           m_panel->typeField("feedRateZ", m_options.feedZ) &&
           m_panel->typeField("feedRateXY", m_options.feedXY);
}

bool Generation::fillDrillCycle() {
    return m_panel->choose("drillcomboBox", static_cast<int>(m_options.cycle)) &&
           m_panel->typeField("drillFeedRate", m_options.drillFeed) &&
           m_panel->typeField("drillDepth", m_options.drillDepth) &&
           m_panel->typeField("retractHeight", m_options.retractHeight) &&
           m_panel->typeField("dwellTimeEdit", m_options.dwell) &&
           m_panel->typeField("peckDepthEdit", m_options.peck);
}

bool Generation::fillTexts() {
    return m_panel->typeText("m_CommentTextEdit", QString::fromStdString(m_options.comment)) &&
           (!m_preamble || m_panel->typeText("textEdit", *m_preamble)) &&
           (!m_postscript || m_panel->typeText("postambleTextEdit", *m_postscript)) &&
           m_panel->check("lineNumberCheckBox", m_options.lineNumbers);
}

int Generation::fillPanel() {
    const Unit own = m_drawing.unit == 0 ? Unit::Inch : Unit::Millimetre;
    const bool isInch = m_options.unit.value_or(own) == Unit::Inch;
    const bool isDrill = m_options.mode == Mode::Drill;
    // Texts first and the unit last, as a user does it: so the unit rewrites any preamble.
    const bool filled = m_panel->choose("comboBox", isDrill ? 1 : 0) &&
                        (isDrill ? fillDrillCycle() : fillToolPath()) && fillTexts() &&
                        m_panel->choose("unitComboBox", static_cast<int>(m_options.motion)) &&
                        m_panel->click(isInch ? "inchRadioButton" : "mmRadioButton");
    return filled ? kExitWritten
                  : sayFailure(kExitUnreadableInput,
                               "the add-in's panel has no " + m_panel->missingControl());
}

/// Whether "Save" writes more than what the panel gives out, or other bytes: it puts the comment
/// before the program and numbers its lines, and a mark at the beginning is lost on the way here.
bool Generation::changesWhenSaved() const {
    return !m_options.comment.empty() || m_options.lineNumbers ||
           (m_preamble && m_preamble->startsWith(QChar(QChar::ByteOrderMark)));
}

int Generation::makeProgram() {
    QString program;
    bool finished = false;
    const bool pressed = m_panel->generate(&program, &finished);
    for (const std::string& line : m_host.printedLines()) {
        finished ? tell(line) : sayLine(line);
    }
    if (!pressed) {
        return sayFailure(kExitUnreadableInput,
                          "the add-in's panel has no " + m_panel->missingControl());
    }
    if (!finished) {
        return sayFailure(
            kExitNothingToWrite,
            "the add-in wrote no program; --type circle --type point chooses what can be "
            "drilled");
    }
    if (changesWhenSaved()) {
        return saveProgram(program.toUtf8());
    }
    // A dialog for files takes as long to come up as all the rest of a small drawing.
    m_program = program.toUtf8();
    return kExitWritten;
}

int Generation::saveProgram(const QByteArray& program) {
    const QTemporaryDir folder;
    if (!folder.isValid()) {
        return sayFailure(kExitUnwritableOutput, "no folder for temporary files (TMPDIR): " +
                                                     folder.errorString().toStdString());
    }
    const std::optional<QByteArray> saved =
        m_panel->save(folder.filePath(QString::fromLatin1("program.nc")));
    if (!saved || !isWhole(*saved, program, m_options.lineNumbers)) {
        return sayFailure(kExitUnwritableOutput,
                          folder.path().toStdString() +
                              ": the program can't be saved here (TMPDIR); is the disk full?");
    }
    m_program = *saved;
    return kExitWritten;
}

int Generation::checkProgram() const {
    const gcode_check::Drawing drawing =
        kxdrawing::checkShapes(m_document->GetSelection(kxSelectionSetType_Current),
                               m_drawing.isUnitKnown ? std::optional(m_drawing.unit) : std::nullopt)
            .drawing;
    const std::string_view program(m_program.constData(),
                                   static_cast<std::size_t>(m_program.size()));
    const gcode_check::CheckResult result = checkTelling(
        program, checkOptionsOf(checkSettingsOf(m_options)), &drawing, m_options.quiet);
    std::cerr << gcode_check::textReport(
        result, headOf(m_options.output, "standard output", m_options.drawing, m_options.check));
    return exitCodeOf(result);
}

int Generation::writeProgram() const {
    std::string error;
    if (!writeOutput(m_options.output, m_program, &error)) {
        return sayFailure(kExitUnwritableOutput, error);
    }
    if (!m_options.output.empty() && m_options.output != "-") {
        tell("Written: " + m_options.output + ", " + std::to_string(m_program.count('\n')) +
             " lines");
    }
    const int found = m_options.isChecked ? checkProgram() : kExitWritten;
    if (!m_options.preview.empty()) {
        if (!writeViewPicture(m_host.pane(), m_options.preview, &error)) {
            return sayFailure(kExitUnwritableOutput, error);
        }
        tell("Written: " + m_options.preview);
    }
    return found;
}

}  // namespace

int generateProgram(const Options& options) {
    return Generation(options).run();
}
