// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "CommandRun.h"

namespace {

const QByteArray kBegin = "G21 G17 G40 G49\nG0 Z10\nM3 S12000\nG4 P2\n";
const QByteArray kEnd = "G0 Z50\nM5\nM30\n";
const QByteArray kPolyline =
    "0\nLWPOLYLINE\n8\n0\n90\n3\n70\n0\n10\n1\n20\n1\n10\n5\n20\n1\n10\n5\n20\n5\n";

bool has(const QByteArray& text, const char* part) {
    return text.contains(part);
}

/// A drawing of one line, the program of it with a beginning and an end that a controller takes.
class Check : public testing::Test {
protected:
    QStringList settings() const {
        return QStringList{"--preamble", m_work.path("begin.txt"), "--postscript",
                           m_work.path("end.txt"), "--quiet"} +
               toolPathSettings();
    }

    /// The program of a drawing in a file; `more` are options.
    QString programOf(const QString& drawing, const QStringList& more = {}) const {
        const QString program = m_work.path("a.nc");
        const CommandRun run = runProgram(QStringList{drawing, "-o", program} + settings() + more);
        EXPECT_EQ(run.code, 0) << run.messages.constData();
        return program;
    }

    CommandRun check(const QStringList& arguments, const QString& locale = "C") const {
        return runProgram(QStringList{"check"} + arguments, locale);
    }

    WorkFolder m_work;
    const QString m_begin = m_work.write("begin.txt", kBegin);
    const QString m_end = m_work.write("end.txt", kEnd);
    const QString m_drawing = m_work.write("a.dxf", drawingOf(lineEntity(1, 2, 10, 5)));
};

TEST_F(Check, FindsNothingInAProgramWithSensibleSettings) {
    const CommandRun made = runProgram(QStringList{m_drawing, "--check"} + settings());
    EXPECT_EQ(made.code, 0) << made.messages.constData();
    EXPECT_TRUE(has(made.messages, "\nNo findings\n")) << made.messages.constData();
    EXPECT_TRUE(has(made.messages, "1 of 1 selected object")) << made.messages.constData();
    const CommandRun run = check({programOf(m_drawing), "--drawing", m_drawing});
    EXPECT_EQ(run.code, 0) << run.messages.constData();
    EXPECT_TRUE(has(run.output, "\nNo findings\n")) << run.output.constData();
}

TEST_F(Check, WritesAProgramWithErrorsAllTheSameAndEndsWithItsOwnCode) {
    const QStringList arguments = QStringList{m_drawing, "--quiet"} + toolPathSettings();
    const CommandRun plain = runProgram(arguments);
    const CommandRun checked = runProgram(arguments + QStringList{"--check"});
    EXPECT_EQ(plain.code, 0);
    EXPECT_EQ(plain.messages, "");
    EXPECT_EQ(checked.code, 5);
    EXPECT_EQ(checked.output, plain.output);
    // The default postscript has words without a semicolon before them in its second line.
    const int line = plain.output.left(plain.output.indexOf("Safe height")).count('\n') + 1;
    EXPECT_TRUE(has(checked.messages, "[controller-rejects]"));
    const QByteArray place = "line " + QByteArray::number(line) + ", column ";
    EXPECT_TRUE(has(checked.messages, place.constData())) << checked.messages.constData();
    const CommandRun filed =
        runProgram(arguments + QStringList{"--check", "-o", m_work.path("b.nc")});
    EXPECT_EQ(filed.code, 5);
    EXPECT_EQ(contentOf(m_work.path("b.nc")), plain.output);
    EXPECT_TRUE(filed.output.isEmpty());
}

TEST_F(Check, SeesTheCommentAndTheLineNumbersThatAreWritten) {
    const CommandRun remark =
        runProgram(QStringList{m_drawing, "--check", "--comment", "part seven", "--line-numbers"} +
                   settings());
    EXPECT_EQ(remark.code, 5);
    EXPECT_TRUE(has(remark.messages, "line 1, column ")) << remark.messages.constData();
    const CommandRun comment = runProgram(
        QStringList{m_drawing, "--check", "--comment", "(part seven)", "--line-numbers"} +
        settings());
    EXPECT_EQ(comment.code, 0) << comment.messages.constData();
}

TEST_F(Check, CanBeASetting) {
    const QString config = m_work.write(
        "a.toml",
        "check = true\nsurface = 5\ncheck-tolerance = 0.1\nrapid-rate = 3000\nquiet = true\n");
    const CommandRun run = runProgram(QStringList{m_drawing, "--config", config} + settings());
    EXPECT_EQ(run.code, 5) << run.messages.constData();
    EXPECT_TRUE(has(run.messages, "[rapid-in-material]")) << run.messages.constData();
}

TEST_F(Check, KnowsThePlungeFeedThatWasAskedFor) {
    const QString program = programOf(m_drawing);
    EXPECT_EQ(check({program, "--feed-z", "100"}).code, 0);
    const CommandRun other = check({program, "--feed-z", "50"});
    EXPECT_TRUE(has(other.output, "[plunge-feed]")) << other.output.constData();
}

TEST_F(Check, TakesTheSurface) {
    const QString program = programOf(m_drawing);
    const CommandRun above = check({program, "--surface", "5"});
    EXPECT_EQ(above.code, 5);
    EXPECT_TRUE(has(above.output, "[rapid-in-material]")) << above.output.constData();
    const CommandRun below = check({program, "--surface", "-1"});
    EXPECT_TRUE(has(below.output, "[depth-zero]")) << below.output.constData();
}

TEST_F(Check, SaysWhetherTheSurfaceIsWhatSomebodySaid) {
    const QString program = programOf(m_drawing);
    EXPECT_TRUE(has(check({program}).output, "\nSurface at Z0, as nothing else was said\n"));
    EXPECT_TRUE(has(check({program, "--surface", "0"}).output, "\nSurface at Z0\n"));
    EXPECT_TRUE(has(check({program, "--json"}).output, "\"surfaceGiven\": false"));
    const CommandRun made =
        runProgram(QStringList{m_drawing, "--check", "--surface", "-0.5"} + settings());
    EXPECT_TRUE(has(made.messages, "\nSurface at Z-0.5\n")) << made.messages.constData();
}

TEST_F(Check, ComparesTheDepthThatIsGiven) {
    const QString program = programOf(m_drawing);
    EXPECT_EQ(check({program, "--depth", "-1"}).code, 0);
    const CommandRun deep = check({program, "--depth", "-0.5"});
    EXPECT_EQ(deep.code, 5);
    EXPECT_TRUE(has(deep.output, "[cut-too-deep]")) << deep.output.constData();
    const CommandRun shallow = check({program, "--depth", "-2"});
    EXPECT_EQ(shallow.code, 0);
    EXPECT_TRUE(has(shallow.output, "[depth-not-reached]")) << shallow.output.constData();
}

TEST_F(Check, KnowsTheDepthThatAProgramIsMadeWith) {
    const QString deeper = m_work.write("again.txt", "G0 Z5\nG1 Z-1.5 F100\n" + kEnd);
    const QStringList arguments =
        QStringList{m_drawing, "--check", "--preamble", m_begin, "--postscript", deeper};
    const CommandRun run = runProgram(arguments + toolPathSettings());
    EXPECT_EQ(run.code, 5);
    EXPECT_TRUE(has(run.messages, "[cut-too-deep]")) << run.messages.constData();
    const CommandRun meant = runProgram(QStringList{m_drawing, "--check", "--quiet"} + settings());
    EXPECT_TRUE(has(meant.messages, "\nNo findings\n")) << meant.messages.constData();
}

TEST_F(Check, TakesTheToleranceOfArcs) {
    const QString program =
        m_work.write("arc.nc", kBegin + "G0 X0 Y0\nG1 Z-1 F100\nG2 X10.01 Y0 I5 J0\n" + kEnd);
    const CommandRun common = check({program});
    EXPECT_EQ(common.code, 0);
    EXPECT_TRUE(has(common.output, "warning: The arc begins")) << common.output.constData();
    EXPECT_FALSE(has(check({program, "--arc-tolerance", "0.02"}).output, "[arc-radii-differ]"));
    const CommandRun strict = check({program, "--arc-tolerance", "0.001"});
    EXPECT_EQ(strict.code, 5);
    EXPECT_TRUE(has(strict.output, "error: The arc begins")) << strict.output.constData();
}

TEST_F(Check, RefusesWhatMeansNothingWithoutADrawing) {
    const QString program = programOf(m_drawing);
    const std::vector<QStringList> all{{"--layer", "0"}, {"--type", "line"},
                                       {"--no-explode"}, {"--unit", "mm"},
                                       {"--report"},     {"--explode-tolerance", "0.1"}};
    for (const QStringList& given : all) {
        const CommandRun run = check(QStringList{program} + given);
        EXPECT_EQ(run.code, 1) << qPrintable(given.first());
        EXPECT_TRUE(has(run.messages, "means nothing without --drawing"))
            << run.messages.constData();
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(check(QStringList{program, "--drawing", m_drawing} + given).code, 0);
    }
    EXPECT_TRUE(has(check({program, "--layer", "0"}).messages,
                    "kxgcode: --layer means nothing without --drawing\nRun kxgcode check --help"));
}

TEST_F(Check, RefusesItsOptionsWithoutIt) {
    const QString config = m_work.write("a.toml", "surface = 5\nrapid-rate = 3000\n");
    for (const char* option :
         {"--surface", "--check-tolerance", "--arc-tolerance", "--rapid-rate"}) {
        const QStringList arguments = QStringList{m_drawing, option, "1"} + settings();
        const CommandRun run = runProgram(arguments);
        EXPECT_EQ(run.code, 1) << option;
        EXPECT_TRUE(has(run.messages, option)) << run.messages.constData();
        EXPECT_TRUE(has(run.messages, " means nothing without --check\n"));
        EXPECT_NE(runProgram(arguments + QStringList{"--check"}).code, 1) << option;
    }
    // A file serves with and without a check.
    const CommandRun filed = runProgram(QStringList{m_drawing, "--config", config} + settings());
    EXPECT_EQ(filed.code, 0) << filed.messages.constData();
    EXPECT_EQ(
        runProgram(QStringList{m_drawing, "--config", config, "--surface", "1"} + settings()).code,
        1);
}

TEST_F(Check, TakesTheSettingsThatTheProgramWasMadeWith) {
    const QString flange = example("flange.dxf");
    const QString config =
        m_work.write("a.toml",
                     "layer = \"plate\"\nsafe-height = 5\nretraction = 10\ndepth = -1\nfeed-z = "
                     "100\nfeed-xy = 300\ntolerance = 5\nunit = \"mm\"\ncheck-tolerance = 0.1\n");
    const QString program = programOf(flange, {"--config", config});
    const CommandRun run = check({program, "--drawing", flange, "--config", config, "--json"});
    EXPECT_EQ(run.code, 0) << run.output.constData() << run.messages.constData();
    EXPECT_FALSE(has(run.output, "not-cut")) << run.output.constData();
    const QStringList other{program, "--drawing", flange, "--config", config, "--layer", "bore"};
    EXPECT_TRUE(has(check(other).output, "[not-cut]"));
    EXPECT_TRUE(
        has(check({program, "--config", config, "--depth", "-3"}).output, "[depth-not-reached]"));
    EXPECT_TRUE(has(check({program, "--config", config, "--feed-z", "7"}).output, "[plunge-feed]"));
    // Without a drawing what chooses its objects waits in the file; on the command line it can't.
    EXPECT_EQ(check({program, "--config", config}).code, 0);
    EXPECT_EQ(check({program, "--config", config, "--layer", "plate"}).code, 1);
}

TEST_F(Check, ASettingsFilesToleranceIsThatOfCurves) {
    const QString other = m_work.write("other.dxf", drawingOf(lineEntity(1, 2.05, 10, 5.05)));
    const QString curves = m_work.write("curves.toml", "tolerance = 0.1\n");
    const QString cuts = m_work.write("cuts.toml", "check-tolerance = 0.1\n");
    const QStringList arguments{programOf(m_drawing), "--drawing", other, "--config"};
    EXPECT_TRUE(has(check(arguments + QStringList{curves}).output, "[not-cut]"));
    EXPECT_FALSE(has(check(arguments + QStringList{cuts}).output, "[not-cut]"));
}

TEST_F(Check, SaysWhatIsWrongInASettingsFile) {
    const QString program = programOf(m_drawing);
    const QString config = m_work.write("a.toml", "depth = -1\njson = true\n");
    const CommandRun run = check({program, "--config", config});
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(run.messages, "kxgcode: " + config.toUtf8() + ":2: 'json' is no setting\n");
    const CommandRun none = check({program, "--config", m_work.path("none.toml")});
    EXPECT_EQ(none.code, 2);
    EXPECT_TRUE(has(none.messages, "none.toml: no such file")) << none.messages.constData();
}

TEST_F(Check, TakesTheToleranceByEitherName) {
    const QString other = m_work.write("other.dxf", drawingOf(lineEntity(1, 2.05, 10, 5.05)));
    const QStringList arguments{programOf(m_drawing), "--drawing", other};
    const CommandRun strict = check(arguments);
    EXPECT_TRUE(has(strict.output, "[not-cut]")) << strict.output.constData();
    EXPECT_TRUE(has(strict.output, "[cut-off-drawing]")) << strict.output.constData();
    for (const char* name : {"--tolerance", "--check-tolerance"}) {
        const CommandRun loose = check(arguments + QStringList{name, "0.1"});
        EXPECT_FALSE(has(loose.output, "[not-cut]")) << loose.output.constData();
        EXPECT_EQ(loose.code, 0);
    }
}

TEST_F(Check, MakesTheSelectionThatTheProgramWasMadeFrom) {
    const QString flange = example("flange.dxf");
    const QString program = programOf(flange, {"--layer", "plate"});
    const CommandRun all = check({program, "--drawing", flange});
    EXPECT_TRUE(has(all.output, "[not-cut]")) << all.output.constData();
    const CommandRun layer = check({program, "--drawing", flange, "--layer", "plate"});
    EXPECT_FALSE(has(layer.output, "[not-cut]")) << layer.output.constData();
    const CommandRun type =
        check({program, "--drawing", flange, "--layer", "plate", "--type", "line"});
    EXPECT_FALSE(has(type.output, "[not-cut]")) << type.output.constData();
    EXPECT_TRUE(has(type.output, "[cut-off-drawing]")) << type.output.constData();
}

TEST_F(Check, ExplodesAsTheProgramDid) {
    const QString drawing = m_work.write("b.dxf", drawingOf(kPolyline + lineEntity(1, 20, 10, 20)));
    const QString program = programOf(drawing);
    const CommandRun exploded = check({program, "--drawing", drawing});
    EXPECT_TRUE(has(exploded.output, "3 of 3 selected objects")) << exploded.output.constData();
    const CommandRun kept = check({program, "--drawing", drawing, "--no-explode", "--quiet"});
    EXPECT_EQ(kept.messages, "1 of 2 selected objects give no tool path: 1 polyline\n");
    EXPECT_TRUE(has(kept.output, "[cut-off-drawing]")) << kept.output.constData();
}

TEST_F(Check, ReportsTheSameAfterGeneratingAndFromTheFile) {
    const QString program = m_work.path("flange.nc");
    const QStringList arguments{example("flange.dxf"), "-o", program, "--check", "--quiet"};
    const CommandRun made = runProgram(arguments + toolPathSettings());
    const CommandRun read = check({program, "--drawing", example("flange.dxf"), "--feed-z", "100",
                                   "--depth", "-1", "--quiet"});
    EXPECT_EQ(made.code, 5);
    EXPECT_EQ(read.code, 5);
    EXPECT_EQ(made.messages, read.output);
    EXPECT_EQ(read.messages, "");
}

TEST_F(Check, ReportsTheSameFromRunToRunAndWithADecimalComma) {
    const QString program = m_work.path("flange.nc");
    runProgram(QStringList{example("flange.dxf"), "-o", program} + toolPathSettings());
    for (const QStringList& form : {QStringList{}, QStringList{"--json"}}) {
        const QStringList arguments =
            QStringList{program, "--drawing", example("flange.dxf"), "--tolerance", "0.001"} + form;
        const CommandRun first = check(arguments);
        EXPECT_FALSE(first.output.isEmpty());
        EXPECT_EQ(check(arguments).output, first.output);
        EXPECT_EQ(check(arguments, "de_DE.utf8").output, first.output);
    }
    const QStringList checked =
        QStringList{example("flange.dxf"), "--check", "--quiet"} + toolPathSettings();
    EXPECT_EQ(runProgram(checked, "de_DE.utf8").messages, runProgram(checked).messages);
}

TEST_F(Check, PrintsJsonWithWhatTheTextSays) {
    const QString program = m_work.write("a\tb.nc", "G21 G90\nG0 Z5\nG1 Z-1 F100\nM30\n");
    const CommandRun run = check({program, "--json"});
    EXPECT_EQ(run.code, 5);
    QJsonParseError error;
    const QJsonObject report = QJsonDocument::fromJson(run.output, &error).object();
    ASSERT_EQ(error.error, QJsonParseError::NoError) << qPrintable(error.errorString());
    EXPECT_TRUE(report.value("program").toString().endsWith("a\\tb.nc"));
    bool found = false;
    for (const auto& finding : report.value("findings").toArray()) {
        found = found || finding.toObject().value("identifier") == "spindle-stopped";
    }
    EXPECT_TRUE(found) << run.output.constData();
}

TEST_F(Check, ReadsAProgramFromStandardInput) {
    const CommandRun run = runProgramWithInput({"check", "-"}, contentOf(programOf(m_drawing)));
    EXPECT_EQ(run.code, 0) << run.output.constData();
    EXPECT_TRUE(has(run.output, "Program: standard input\n")) << run.output.constData();
    EXPECT_EQ(runProgramWithInput({"check", "-"}, "G1 X5\n").code, 5);
}

TEST_F(Check, ReadsALongProgram) {
    QByteArray program = "G21 G90\nG0 Z5\nM3 S1000\nG1 Z-1 F100\n";
    for (int i = 0; i < 200000; ++i) {
        program += "G1 X" + QByteArray::number(i % 100) + " Y" + QByteArray::number(i) + "\n";
    }
    const CommandRun run = check({m_work.write("long.nc", program + "G0 Z5\nM5\nfoul\n")});
    EXPECT_EQ(run.code, 5);
    EXPECT_TRUE(has(run.output, "line 200007, column ")) << run.output.left(2000).constData();
}

TEST_F(Check, KnowsTheSwitchesOfTheMachine) {
    const QString program = m_work.write("b.nc", kBegin + "/ foul\n" + kEnd);
    EXPECT_EQ(check({program}).code, 5);
    EXPECT_EQ(check({program, "--block-delete"}).code, 0);
    const QString noUnit =
        m_work.write("c.nc", "G90\nG0 Z5\nM3 S9\nG1 X1 Y1 F50\nG1 Z-1\nG1 X2\nG0 Z5\nM30\n");
    EXPECT_TRUE(has(check({noUnit}).output, "Figures (mm)"));
    EXPECT_TRUE(has(check({noUnit, "--start-unit", "inch"}).output, "Figures (in)"));
}

TEST_F(Check, FollowsCompensationByToolsWhoseDiametersItIsTold) {
    const QByteArray program =
        "G21 G90 G17\nM3 S1000\nT3 M6\nM3\nG0 X0 Y-20\nG0 Z5\nG1 Z-1 F50\n"
        "G41 D3 G1 X0 Y-10 F100\nY30\nX40\nG40 Y60\nG0 Z5\nM5\nM30\n";
    const QString file = m_work.write("comp.nc", program);
    const CommandRun unknown = check({file});
    EXPECT_EQ(unknown.code, 5);
    EXPECT_TRUE(has(unknown.output, "[not-interpreted]")) << unknown.output.constData();
    EXPECT_EQ(check({file, "--tool", "4=6"}).code, 5) << "another tool";
    const CommandRun known = check({file, "--tool", "4=2", "--tool", "3=6"});
    EXPECT_EQ(known.code, 0) << known.output.constData();
    EXPECT_TRUE(has(known.output, "moves: X-3 to 40")) << known.output.constData();
    // Left of the way to Y30 by half the diameter, in millimetres or in inches.
    EXPECT_TRUE(has(check({file, "--tool", "3=0.25in"}).output, "X-3.175 to 40"));
    for (const char* bad : {"3", "=6", "3=", "x=6", "0=6", "3=-1", "3=in", "3=6mm"}) {
        const CommandRun run = check({file, "--tool", bad});
        EXPECT_EQ(run.code, 1) << bad;
        EXPECT_TRUE(has(run.messages, "is no tool")) << bad << run.messages.constData();
    }
    const CommandRun twice = check({file, "--tool", "3=6", "--tool", "3=8"});
    EXPECT_EQ(twice.code, 1);
    EXPECT_TRUE(has(twice.messages, "--tool: tool 3 is there twice")) << twice.messages.constData();
}

TEST_F(Check, TakesAnotherUnitForTheDrawing) {
    const QStringList arguments{programOf(m_drawing), "--drawing", m_drawing};
    EXPECT_FALSE(has(check(arguments).output, "[units-differ]"));
    const CommandRun inch = check(arguments + QStringList{"--unit", "inch"});
    EXPECT_EQ(inch.code, 5);
    EXPECT_TRUE(has(inch.output, "[units-differ]")) << inch.output.constData();
}

TEST_F(Check, SeesThatAKnownUnitOfTheDrawingIsNotThePrograms) {
    const QString inches =
        m_work.write("b.dxf", "0\nSECTION\n2\nHEADER\n9\n$INSUNITS\n70\n1\n0\nENDSEC\n" +
                                  drawingOf(lineEntity(1, 2, 10, 5)));
    const CommandRun other =
        runProgram(QStringList{inches, "--check", "--unit", "mm"} + settings());
    EXPECT_EQ(other.code, 5);
    EXPECT_TRUE(has(other.messages, "[units-differ]")) << other.messages.constData();
    // Without a unit in the file nobody can say that it is the wrong one.
    const CommandRun unknown =
        runProgram(QStringList{m_drawing, "--check", "--unit", "inch"} + settings());
    EXPECT_FALSE(has(unknown.messages, "[units-differ]")) << unknown.messages.constData();
}

TEST_F(Check, AProgramThatIsNotFollowedDoesNotPass) {
    const QByteArray moves = "G21 G90\nG0 X0 Y0 Z5\nG0 Z50\nM30\n";
    EXPECT_EQ(check({m_work.write("numbered.nc", moves)}).code, 0);
    const CommandRun run = check({m_work.write("numbered.nc", "O1234\n" + moves)});
    EXPECT_EQ(run.code, 5);
    EXPECT_TRUE(has(run.output, "error: The check ends here: O1234 is the number of the program"))
        << run.output.constData();
    EXPECT_TRUE(has(run.output, "From line 1 of 5 on nothing was checked."))
        << run.output.constData();
}

TEST_F(Check, NamesWhatCantBeRead) {
    const QString program = programOf(m_drawing);
    const CommandRun none = check({m_work.path("none.nc")});
    EXPECT_EQ(none.code, 2);
    EXPECT_EQ(none.messages, "kxgcode: " + m_work.path("none.nc").toUtf8() + ": no such file\n");
    EXPECT_EQ(none.output, "");
    EXPECT_EQ(check({m_work.path(".")}).code, 2);
    const CommandRun drawing = check({program, "--drawing", m_work.path("none.dxf")});
    EXPECT_EQ(drawing.code, 2);
    EXPECT_TRUE(has(drawing.messages, "none.dxf")) << drawing.messages.constData();
    EXPECT_EQ(drawing.output, "");
}

TEST_F(Check, SaysWhenThereIsNothingToCompareWith) {
    const QString program = programOf(m_drawing);
    const QString empty = m_work.write("empty.dxf", drawingOf({}));
    const CommandRun none = check({program, "--drawing", empty});
    EXPECT_EQ(none.code, 3);
    EXPECT_TRUE(has(none.messages, "nothing to compare with")) << none.messages.constData();
    const CommandRun layer = check({program, "--drawing", m_drawing, "--layer", "NONE"});
    EXPECT_EQ(layer.code, 3);
    EXPECT_TRUE(has(layer.messages, "there is no layer NONE; there are:"));
}

TEST_F(Check, RefusesWhatIsNoOptionOrNumber) {
    const QString program = programOf(m_drawing);
    const CommandRun bare = check({});
    EXPECT_EQ(bare.code, 1);
    EXPECT_TRUE(has(bare.messages, "Run kxgcode check --help")) << bare.messages.constData();
    EXPECT_EQ(check({program, "--retraction", "1"}).code, 1);
    EXPECT_EQ(check({program, program}).code, 1);
    for (const char* option :
         {"--surface", "--tolerance", "--rapid-rate", "--feed-z", "--depth", "--arc-tolerance"}) {
        const CommandRun run = check({program, option, "1,5"});
        EXPECT_EQ(run.code, 1) << option;
        EXPECT_TRUE(has(run.messages, "1,5")) << run.messages.constData();
    }
    for (const char* option : {"--tolerance", "--rapid-rate", "--feed-z", "--explode-tolerance"}) {
        EXPECT_EQ(check({program, option, "0"}).code, 1) << option;
    }
    const CommandRun help = check({"--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_TRUE(has(help.output, "--surface"));
}

TEST_F(Check, CantBeSilencedByAFullDisk) {
    const CommandRun run = runProgramInto({"check", programOf(m_drawing)}, "/dev/full");
    EXPECT_EQ(run.code, 4);
    EXPECT_TRUE(has(run.messages, "standard output")) << run.messages.constData();
}

TEST_F(Check, ShowsNamesAndFoundTextWithoutControlCharacters) {
    const QString program = m_work.write("a\x1b[2J.nc", "G21\nG1 \x1b[31m X5\n(\x07)\n");
    const CommandRun run = check({program});
    EXPECT_EQ(run.code, 5);
    EXPECT_TRUE(has(run.output, "a\\x1b[2J.nc")) << run.output.constData();
    EXPECT_FALSE(run.output.contains('\x1b'));
    EXPECT_FALSE(run.output.contains('\x07'));
    EXPECT_FALSE(check({program, "--json"}).output.contains('\x1b'));
}

}  // namespace
