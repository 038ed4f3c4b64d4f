// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/ProgramCheck.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QMenu>

#include "ProgramCheckWindow.h"
#include "window/Drawings.h"
#include "window/FileWatch.h"

namespace {

class ProgramCheckTest : public ProgramCheckWindow {};

TEST_F(ProgramCheckTest, AProgramThatCutsWhatIsSelectedShowsNothingFound) {
    selectLines();
    check(std::string(kHead) + kFirstLine + kSecondLine + kEnd);
    EXPECT_TRUE(find<QDockWidget>("checkDock")->isVisible());
    EXPECT_EQ(findings(), QStringList());
    EXPECT_EQ(head(), "program.nc, held against 2 selected objects of mixed.dxf");
    EXPECT_EQ(summary().toStdString(),
              "No findings\n2 of 2 selected objects cut entirely\n"
              "Cutting depth 1, cut length 202, time about 48 s");
    EXPECT_TRUE(said().contains("program.nc: No findings")) << said().toStdString();
}

TEST_F(ProgramCheckTest, WithoutASelectionAllThatIsShownIsAsked) {
    open(writeMixed());
    check(std::string(kHead) + kFirstLine + kSecondLine + kEnd);
    // The polyline gives no tool path, the circle is not cut.
    EXPECT_EQ(head(), "program.nc, held against all 3 objects of mixed.dxf");
    EXPECT_EQ(findings().size(), 1) << findings().join('\n').toStdString();
    EXPECT_TRUE(summary().contains("2 of 3 selected objects cut entirely"))
        << summary().toStdString();
}

TEST_F(ProgramCheckTest, AFindingShowsItsLineAndItsMovesInTheDrawing) {
    selectLines();
    check(std::string(kHead) + kFirstLine + kSecondLine + kBeside + kEnd);
    ASSERT_EQ(findings().size(), 1) << findings().join('\n').toStdString();
    EXPECT_TRUE(shown().isEmpty());
    clickFinding(0);
    EXPECT_EQ(markedLine(), "14  X0 Y60 F300");
    EXPECT_TRUE(find<QLabel>("findingPage")->text().contains("cut-off-drawing"));
    ASSERT_EQ(shown().pieces.size(), 1U);
    EXPECT_EQ(shown().pieces[0].points, QPolygonF(QVector<QPointF>{{100, 60}, {0, 60}}));
    // A line without a G word is blue in the preview.
    EXPECT_EQ(shown().pieces[0].color, QColor(0, 0, 255));
    ASSERT_TRUE(shown().place);
    const QPoint middle = at(25, 60);
    EXPECT_EQ(tab()->view()->grab().toImage().pixelColor(middle), QColor(0, 0, 255));
}

TEST_F(ProgramCheckTest, MovesHaveThePreviewsColours) {
    selectLines();
    check(std::string(kHead) + kFirstLine + "G0 X100 Y50\nG1 Z-1 F100\nG1 X0 Y50 F300\n" +
          "G0 X0 Y80\nG0 Z5\n" + kEnd);
    ASSERT_GE(findings().size(), 1);
    clickFinding(0);
    ASSERT_EQ(shown().pieces.size(), 1U) << findings().join('\n').toStdString();
    EXPECT_EQ(shown().pieces[0].color, QColor(178, 0, 0)) << "a rapid through the material";
}

TEST_F(ProgramCheckTest, TheRingLiesWhereACutIsFarthestFromTheDrawing) {
    selectLines();
    // From the second line's end away to the upper right.
    check(std::string(kHead) + kFirstLine + kSecondLine +
          "G0 X100 Y50\nG1 Z-1 F100\nX130 Y90 F300\nG0 Z5\n" + kEnd);
    ASSERT_FALSE(findings().isEmpty());
    clickFinding(0);
    ASSERT_TRUE(shown().place) << findings().join('\n').toStdString();
    EXPECT_NEAR(shown().place->x(), 130, 0.5);
    EXPECT_NEAR(shown().place->y(), 90, 0.5);
}

TEST_F(ProgramCheckTest, WhatIsShownGoesWithTheDockAndWithTheNextCheck) {
    selectLines();
    const std::string bad = std::string(kHead) + kFirstLine + kSecondLine + kBeside + kEnd;
    check(bad);
    clickFinding(0);
    ASSERT_FALSE(shown().isEmpty());
    find<QDockWidget>("checkDock")->close();
    EXPECT_TRUE(waitUntil([this] { return shown().isEmpty(); }));
    check(bad);
    clickFinding(0);
    ASSERT_FALSE(shown().isEmpty());
    check(std::string(kHead) + kFirstLine + kSecondLine + kEnd);
    EXPECT_TRUE(shown().isEmpty());
}

TEST_F(ProgramCheckTest, CheckAgainReadsTheFileAnewAndTakesTheSurface) {
    selectLines();
    check(std::string(kHead) + kFirstLine + kSecondLine + kBeside + kEnd);
    EXPECT_EQ(findings().size(), 1);
    program(std::string(kHead) + kFirstLine + kSecondLine + kEnd);
    checkAgain();
    EXPECT_EQ(findings(), QStringList());
    // All moves are above such a material.
    find<QDoubleSpinBox>("checkSurface")->setValue(-20);
    checkAgain();
    EXPECT_EQ(findings().size(), 1) << findings().join('\n').toStdString();
}

TEST_F(ProgramCheckTest, AnotherSurfaceOrToleranceIsCheckedWhenItIsEntered) {
    selectLines();
    check(std::string(kHead) + kFirstLine + kSecondLine + kBeside + kEnd);
    ASSERT_EQ(findings().size(), 1);
    enter<QDoubleSpinBox>("checkTolerance", "11");
    waitForCheck();
    EXPECT_FALSE(findings().join("\n").contains("no selected object"))
        << findings().join("\n").toStdString();
    const QStringList before = findings();
    clickFinding(0);
    QTest::keyClick(find<QDoubleSpinBox>("checkTolerance"), Qt::Key_Return);
    EXPECT_FALSE(isRunning());
    EXPECT_FALSE(markedLine().isEmpty()) << "nothing changed: nothing is checked again";
    EXPECT_EQ(findings(), before);
}

TEST_F(ProgramCheckTest, ADepthIsCheckedWhenItIsMeant) {
    selectLines();
    check(std::string(kHead) + kFirstLine + kSecondLine + kEnd);
    ASSERT_EQ(findings(), QStringList());
    auto* depth = find<QDoubleSpinBox>("checkDepth");
    EXPECT_FALSE(depth->isEnabled());
    auto* isMeant = find<QCheckBox>("checkIsDepthMeant");
    QTest::mouseClick(isMeant, Qt::LeftButton, Qt::NoModifier, QPoint(8, isMeant->height() / 2));
    waitForCheck();
    EXPECT_EQ(findings(), QStringList()) << "it stands at the depth of the cuts";
    enter<QDoubleSpinBox>("checkDepth", "-0.5");
    waitForCheck();
    EXPECT_FALSE(findings().isEmpty()) << "cuts are at -1";
    QTest::mouseClick(isMeant, Qt::LeftButton, Qt::NoModifier, QPoint(8, isMeant->height() / 2));
    waitForCheck();
    EXPECT_EQ(findings(), QStringList());
}

/// A contour of 3 mm beside the first line, which tool 4 of 6 mm cuts by compensation.
constexpr char kCompensated[] =
    "T4 M6\nG0 X-20 Y-20\nG1 Z-1 F100\nG41 D4 G1 X-10 Y0 F300\nX100\nG0 Z5\nG40 X120 Y20\n";

TEST_F(ProgramCheckTest, ToolsAreTakenWhenTheyAreEntered) {
    selectLines();
    const std::string text = std::string(kHead) + kCompensated + kEnd;
    check(text);
    ASSERT_FALSE(findings().isEmpty());
    EXPECT_TRUE(findings().last().contains("4=6 under Tools")) << findings().last().toStdString();
    enter<QLineEdit>("checkTools", "3=8, 4=6");
    waitForCheck();
    EXPECT_FALSE(findings().join('\n').contains("The check ends here"))
        << findings().join('\n').toStdString();
    EXPECT_TRUE(summary().contains("1 of 2 selected objects cut entirely"))
        << summary().toStdString();
    // They are kept for the next program, and with the dock.
    dock()->close();
    checkFile(program(text, "other.nc"));
    EXPECT_EQ(find<QLineEdit>("checkTools")->text(), "3=8, 4=6");
    EXPECT_TRUE(summary().contains("1 of 2 selected objects cut entirely"))
        << summary().toStdString();
}

TEST_F(ProgramCheckTest, NothingIsCheckedWithToolsThatCantBeRead) {
    selectLines();
    check(std::string(kHead) + kCompensated + kEnd);
    const QStringList before = findings();
    const auto* error = find<QLabel>("checkToolsError");
    EXPECT_FALSE(error->isVisible());
    enter<QLineEdit>("checkTools", "4=6mm");
    EXPECT_FALSE(isRunning());
    EXPECT_TRUE(error->isVisible());
    const QString words = "'4=6mm' is no tool: NUMBER=DIAMETER, as 3=6 or 3=0.25in";
    EXPECT_EQ(error->text(), words);
    EXPECT_EQ(findings(), before);
    // What is asked for all the same is refused in the same words.
    find<QDockWidget>("layersDock")->raise();
    type("CHECKPROGRAM " + folder.filePath("program.nc"));
    EXPECT_FALSE(isRunning());
    EXPECT_TRUE(said().contains("The tools of the check can't be read: " + words))
        << said().toStdString();
    EXPECT_TRUE(find<QLineEdit>("checkTools")->isVisible());
    EXPECT_TRUE(find<QLineEdit>("checkTools")->hasFocus());
    enter<QLineEdit>("checkTools", "4=6");
    waitForCheck();
    EXPECT_FALSE(error->isVisible());
    EXPECT_NE(findings(), before);
}

TEST_F(ProgramCheckTest, ALongSentenceIsShownWholeAtAnyWidth) {
    selectLines();
    check(std::string(kHead) + kFirstLine + kSecondLine + kBeside + kEnd);
    auto* dock = find<QDockWidget>("checkDock");
    for (const int width : {300, 500, 260}) {
        window->resizeDocks({dock}, {width}, Qt::Horizontal);
        letPass(50);
        const QRect row = table()->visualItemRect(table()->topLevelItem(0));
        const QRect text = table()->fontMetrics().boundingRect(
            QRect(0, 0, table()->columnWidth(1) - 8, 10000), Qt::TextWordWrap,
            table()->topLevelItem(0)->text(1));
        EXPECT_GE(row.height(), text.height()) << width;
        EXPECT_GT(row.height(), 1.9 * table()->fontMetrics().height()) << width;
        EXPECT_LT(row.height(), text.height() + 3 * table()->fontMetrics().height()) << width;
    }
}

/// Whether all of a control is to be seen within the dock.
bool isWhole(const QWidget* control, const QWidget* dock) {
    const QRect place(control->mapTo(dock, QPoint(0, 0)), control->size());
    return control->isVisible() && dock->rect().contains(place) &&
           control->visibleRegion().boundingRect() == control->rect();
}

TEST_F(ProgramCheckTest, AtAnyWidthAllOfTheDockIsToBeSeen) {
    open(example("flange.dxf"));
    type("SELECTALL");
    checkFile(example("flange.nc"));
    const auto notWhole = [this] {
        QStringList names;
        for (const char* name : {"checkHead", "checkSurface", "checkIsDepthMeant", "checkDepth",
                                 "checkTolerance", "checkTools", "checkSummary", "findingsTable",
                                 "programLines", "checkChoose", "checkAgain", "checkReport"}) {
            if (!isWhole(find<QWidget>(name), dock())) {
                names.append(name);
            }
        }
        return names;
    };
    for (const int width : {1, 300, 380, 600}) {
        window->resizeDocks({dock()}, {width}, Qt::Horizontal);
        EXPECT_TRUE(waitUntil([&] { return dock()->width() < std::max(width, 300) + 20; }))
            << width;
        waitUntil([&] { return notWhole().isEmpty(); });
        EXPECT_EQ(notWhole().join(' ').toStdString(), "") << width;
    }
}

TEST_F(ProgramCheckTest, AtTheUsualSizeSeveralFindingsAndTheChosenLineAreToBeSeen) {
    open(example("flange.dxf"));
    type("SELECTALL");
    std::string text = kHead;
    for (int i = 0; i < 20; ++i) {
        text += kBeside;
    }
    check(text + kEnd);
    ASSERT_GT(findings().size(), 10);
    const auto wholeRows = [this] {
        int whole = 0;
        for (int i = 0; i < table()->topLevelItemCount(); ++i) {
            const QRect row = table()->visualItemRect(table()->topLevelItem(i));
            whole += table()->viewport()->rect().contains(row) ? 1 : 0;
        }
        return whole;
    };
    EXPECT_TRUE(waitUntil([&] { return wholeRows() >= 3; })) << wholeRows();
    clickFinding(0);
    const auto* lines = find<QPlainTextEdit>("programLines");
    const QRect line = lines->cursorRect();
    EXPECT_TRUE(lines->viewport()->rect().contains(line.center()));
    EXPECT_GT(line.top(), line.height() / 2) << "the lines before it are seen, too";
}

TEST_F(ProgramCheckTest, WhatIsBeyondTheTableIsCounted) {
    selectLines();
    std::string many = std::string(kHead) + kFirstLine + kSecondLine;
    for (int i = 0; i < 130; ++i) {
        many += "G0 X0 Y" + std::to_string(100 + i) + "\nG1 Z-1 F100\nX50 F300\nG0 Z5\n";
    }
    check(many + kEnd);
    const QStringList rows = findings();
    EXPECT_EQ(rows.last(), ": And 30 more of cut-off-drawing") << rows.last().toStdString();
    clickFinding(rows.size() - 1);
    EXPECT_TRUE(shown().isEmpty());
}

TEST_F(ProgramCheckTest, AFindingHasItsPageInTheManual) {
    selectLines();
    check(std::string(kHead) + kFirstLine + kSecondLine + kBeside + kEnd);
    clickFinding(0);
    auto* link = find<QLabel>("findingPage");
    link->setFocus();
    QTest::keyClick(link, Qt::Key_Tab);
    QTest::keyClick(link, Qt::Key_Return);
    QWidget* help = nullptr;
    for (QWidget* top : QApplication::topLevelWidgets()) {
        if (top->objectName() == "helpWindow") {
            help = top;
        }
    }
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->windowTitle(), "cut-off-drawing");
    EXPECT_TRUE(help->isVisible());
    help->close();
}

TEST_F(ProgramCheckTest, AChangedOrClosedDrawingIsSaid) {
    selectLines();
    check(std::string(kHead) + kFirstLine + kSecondLine + kBeside + kEnd);
    clickFinding(0);
    type("SELECTTYPE POLYLINE");
    type("EXPLODE");
    EXPECT_EQ(summary(), "The drawing changed: check again.");
    EXPECT_TRUE(shown().isEmpty());
    check(std::string(kHead) + kFirstLine + kBeside + kEnd);
    window->drawings()->close(tab());
    EXPECT_TRUE(waitUntil([this] { return summary() == "The drawing was closed."; }));
    clickFinding(0);
    EXPECT_FALSE(markedLine().isEmpty()) << "its line is shown still";
}

TEST_F(ProgramCheckTest, AProgramThatIsWrittenAnewIsSaid) {
    selectLines();
    check(std::string(kHead) + kFirstLine + kSecondLine + kEnd);
    ASSERT_TRUE(summary().startsWith("No findings"));
    const QString anew = "The program was written anew: check again.";
    program(std::string(kHead) + kFirstLine + kBeside + kEnd);
    EXPECT_TRUE(waitUntil([&] { return summary() == anew; }));
    checkAgain();
    EXPECT_FALSE(findings().isEmpty());
    ASSERT_NE(summary(), anew);
    // Another program is what counts from then on.
    const QString other = program(std::string(kHead) + kFirstLine + kEnd, "other.nc");
    checkFile(other);
    program(std::string(kHead) + kEnd);
    letPass(FileWatch::kQuietMs * 3);
    EXPECT_NE(summary(), anew);
    program(std::string(kHead) + kEnd, "other.nc");
    EXPECT_TRUE(waitUntil([&] { return summary() == anew; }));
}

TEST_F(ProgramCheckTest, WithoutADrawingTheProgramAloneIsJudged) {
    check(std::string(kHead) + "G1 X10 Y0 F100\nG1 Z-1 F50\nG0 X20\nG0 Z5\n" + kEnd);
    EXPECT_EQ(head(), "program.nc, held against no drawing");
    ASSERT_GE(findings().size(), 1);
    clickFinding(0);
    EXPECT_TRUE(markedLine().contains("G0 X20")) << markedLine().toStdString();
}

TEST_F(ProgramCheckTest, AProgramThatCantBeReadIsSaidAndTheOneBeforeStays) {
    selectLines();
    check(std::string(kHead) + kFirstLine + kSecondLine + kBeside + kEnd);
    type("CHECKPROGRAM " + folder.filePath("missing.nc"));
    EXPECT_TRUE(said().contains("missing.nc: no such file")) << said().toStdString();
    EXPECT_EQ(findings().size(), 1);
    type("CHECKPROGRAM " + folder.path());
    EXPECT_TRUE(said().contains(": a directory")) << said().toStdString();
}

TEST_F(ProgramCheckTest, TheMenuAsksForTheProgram) {
    selectLines();
    const QString file = program(std::string(kHead) + kFirstLine + kSecondLine + kEnd);
    DialogDriver driver;
    driver.chooseFile(file);
    for (QAction* action : find<QMenu>("menuTools")->actions()) {
        if (action->text().remove('&') == "Check Program...") {
            action->trigger();
        }
    }
    waitForCheck();
    EXPECT_EQ(head(), "program.nc, held against 2 selected objects of mixed.dxf");
}

TEST_F(ProgramCheckTest, TheReportIsTheTextOfTheCommandLine) {
    selectLines();
    check(std::string(kHead) + kFirstLine + kSecondLine + kBeside + kEnd);
    click("checkReport");
    const auto* text = find<QPlainTextEdit>("textView");
    EXPECT_TRUE(text->toPlainText().contains("cut-off-drawing"))
        << text->toPlainText().toStdString();
}

}  // namespace
