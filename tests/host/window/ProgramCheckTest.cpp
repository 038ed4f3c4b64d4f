// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/ProgramCheck.h"

#include <QAction>
#include <QCheckBox>
#include <QDir>
#include <QDockWidget>
#include <QDoubleSpinBox>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTreeWidget>

#include "HostWindowTest.h"
#include "Waiting.h"
#include "view/DrawingView.h"
#include "window/Drawings.h"
#include "window/FileWatch.h"

namespace {

constexpr char kHead[] = "G21 G90\nM3 S1000\nG0 Z5\n";
constexpr char kFirstLine[] = "G0 X0 Y0\nG1 Z-1 F100\nG1 X100 Y0 F300\nG0 Z5\n";
constexpr char kSecondLine[] = "G0 X100 Y50\nG1 Z-1 F100\nG1 X0 Y50 F300\nG0 Z5\n";
/// Ten units beside the second line.
constexpr char kBeside[] = "G0 X100 Y60\nG1 Z-1 F100\nX0 Y60 F300\nG0 Z5\n";
constexpr char kEnd[] = "M5\nM30\n";

class ProgramCheckTest : public HostWindowTest {
protected:
    QString program(const std::string& text, const QString& name = "program.nc") const {
        const QString path = folder.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.data(), static_cast<qint64>(text.size()));
        return path;
    }
    void check(const std::string& text) { type("CHECKPROGRAM " + program(text)); }

    QTreeWidget* table() const { return find<QTreeWidget>("findingsTable"); }
    QString head() const { return find<QLabel>("checkHead")->text(); }
    QString summary() const { return find<QLabel>("checkSummary")->text(); }
    QStringList findings() const {
        QStringList lines;
        for (int i = 0; i < table()->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* item = table()->topLevelItem(i);
            lines.append(item->text(0) + ": " + item->text(1));
        }
        return lines;
    }
    void clickFinding(int row) const {
        const QRect place = table()->visualItemRect(table()->topLevelItem(row));
        QTest::mouseClick(table()->viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    }
    /// The program's line that stands out.
    QString markedLine() const {
        const auto marks = find<QPlainTextEdit>("programLines")->extraSelections();
        return marks.isEmpty() ? QString() : marks.first().cursor.block().text().trimmed();
    }
    const PathMark& shown() const { return tab()->view()->path(); }
    void selectLines() {
        open(writeMixed());
        type("SELECTTYPE LINE");
        ASSERT_EQ(selectedCount(), 2U);
    }
};

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
    EXPECT_TRUE(shown().isEmpty());
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
    click("checkAgain");
    EXPECT_EQ(findings(), QStringList());
    // All moves are above such a material.
    find<QDoubleSpinBox>("checkSurface")->setValue(-20);
    click("checkAgain");
    EXPECT_EQ(findings().size(), 1) << findings().join('\n').toStdString();
}

TEST_F(ProgramCheckTest, AnotherSurfaceOrToleranceIsCheckedWhenItIsEntered) {
    selectLines();
    check(std::string(kHead) + kFirstLine + kSecondLine + kBeside + kEnd);
    ASSERT_EQ(findings().size(), 1);
    auto* box = find<QDoubleSpinBox>("checkTolerance");
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, "11");
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_FALSE(findings().join("\n").contains("no selected object"))
        << findings().join("\n").toStdString();
    const QStringList before = findings();
    clickFinding(0);
    QTest::keyClick(box, Qt::Key_Return);
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
    EXPECT_EQ(findings(), QStringList()) << "it stands at the depth of the cuts";
    depth->setFocus();
    depth->selectAll();
    QTest::keyClicks(depth, "-0.5");
    QTest::keyClick(depth, Qt::Key_Return);
    EXPECT_FALSE(findings().isEmpty()) << "cuts are at -1";
    QTest::mouseClick(isMeant, Qt::LeftButton, Qt::NoModifier, QPoint(8, isMeant->height() / 2));
    EXPECT_EQ(findings(), QStringList());
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
    click("checkAgain");
    EXPECT_FALSE(findings().isEmpty());
    ASSERT_NE(summary(), anew);
    // Another program is what counts from then on.
    const QString other = program(std::string(kHead) + kFirstLine + kEnd, "other.nc");
    type("CHECKPROGRAM " + other);
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

TEST_F(ProgramCheckTest, APictureOfIt) {
    open(example("flange.dxf"));
    type("SELECTALL");
    type("CHECKPROGRAM " + example("flange.nc"));
    letPass(200);
    if (table()->topLevelItemCount() > 0) {
        clickFinding(0);
    }
    letPass(200);
    const QString folderOfPictures = qEnvironmentVariable("KX_PICTURES");
    if (!folderOfPictures.isEmpty()) {
        EXPECT_TRUE(window->grab().save(QDir(folderOfPictures).filePath("check-program.png")));
    }
    EXPECT_TRUE(head().startsWith("flange.nc, held against")) << head().toStdString();
}

}  // namespace
