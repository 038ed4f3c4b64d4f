// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// "Save", "Append" and "Select file", through their dialogs.
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>

#include "DialogDriver.h"
#include "core/PanelTest.h"

using testing::ElementsAre;

namespace {

const char* const kProgram = "PRE\nG90\nG0 X0Y0\nPOST\n";
const char* const kPreview = "Text file(*.txt *.ngc *.nc)";

class PanelFiles : public PanelTest {
protected:
    PanelFiles() {
        usePlainSettings();
        QDir::setCurrent(m_folder.path());
    }
    ~PanelFiles() override { QDir::setCurrent(QDir::rootPath()); }

    QString path(const char* name) const { return m_folder.filePath(name); }

    std::string bytes(const char* name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "(none)";
    }
    void store(const char* name, const std::string& content) const {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content.data(), static_cast<qint64>(content.size()));
    }
    std::size_t fileCount() const {
        return static_cast<std::size_t>(QDir(m_folder.path()).entryList(QDir::Files).size());
    }

    void comment(const char* text) { textBox("m_CommentTextEdit")->setPlainText(text); }
    void numberLines() { child<QCheckBox>("lineNumberCheckBox")->setChecked(true); }

    void save(const char* name) {
        dialogs.chooseFile(path(name));
        click("saveBtn");
    }
    void appendToCurrent() {
        dialogs.press(QMessageBox::Yes);
        click("appendPushButton");
    }
    void appendTo(const char* name) {
        dialogs.press(QMessageBox::No);
        dialogs.chooseFile(path(name));
        click("appendPushButton");
    }
    void selectFile(const char* name) {
        dialogs.chooseFile(path(name));
        click("selectFileBtn");
    }

    DialogDriver dialogs;

private:
    QTemporaryDir m_folder;
};

}  // namespace

TEST_F(PanelFiles, SaveAsksForAFile) {
    generate();
    save("a.txt");
    EXPECT_EQ(dialogs.seen(0).title, "Save File");
    EXPECT_EQ(dialogs.seen(0).proposedName, "untitled.txt");
    EXPECT_THAT(dialogs.seen(0).filters,
                ElementsAre("Text file(*.txt)", "Text file(*.ngc)", "Text file(*.nc)"));
    EXPECT_TRUE(dialogs.seen(0).saves);
    EXPECT_EQ(dialogs.seen(0).parent, &parent());
}

TEST_F(PanelFiles, SaveWithoutACommentStartsWithTheProgram) {
    generate();
    save("a.txt");
    EXPECT_EQ(bytes("a.txt"), kProgram);
}

TEST_F(PanelFiles, SaveWithACommentStartsWithIt) {
    generate();
    comment("abc");
    save("a.txt");
    EXPECT_EQ(bytes("a.txt"), std::string("abc\n") + kProgram);
}

TEST_F(PanelFiles, SaveSendsNothingToThePreview) {
    generate();
    save("a.txt");
    EXPECT_EQ(programCount(), 1U);
}

TEST_F(PanelFiles, SaveReplacesAnOlderFile) {
    store("a.txt", std::string(1000, 'x'));
    generate();
    dialogs.chooseFile(path("a.txt"));
    dialogs.press(QMessageBox::Yes);
    click("saveBtn");
    EXPECT_EQ(bytes("a.txt"), kProgram);
}

TEST_F(PanelFiles, SaveBeforeAnyProgramWritesAnEmptyFile) {
    save("a.txt");
    EXPECT_EQ(bytes("a.txt"), "");
}

TEST_F(PanelFiles, SaveWithLineNumbersNumbersEveryLineFromFive) {
    generate();
    comment("abc");
    numberLines();
    save("a.txt");
    EXPECT_EQ(bytes("a.txt"), "N5 abc\nN10 PRE\nN15 G90\nN20 G0 X0Y0\nN25 POST\n");
}

TEST_F(PanelFiles, SaveWritesUtf8) {
    generate();
    comment("Fräsen ✓");
    save("a.txt");
    EXPECT_EQ(bytes("a.txt"), std::string("Fräsen ✓\n") + kProgram);
}

TEST_F(PanelFiles, CancelledSaveWritesNoFileAndALaterYesAppendsNowhere) {
    generate();
    save("a.txt");
    dialogs.cancelFile();
    click("saveBtn");
    EXPECT_EQ(fileCount(), 1U);
    appendToCurrent();
    EXPECT_EQ(bytes("a.txt"), kProgram);
    EXPECT_EQ(fileCount(), 1U);
    EXPECT_EQ(programCount(), 2U);
    EXPECT_EQ(lastProgram(), "");
}

TEST_F(PanelFiles, CancelledSaveWithLineNumbersWritesNoFileEither) {
    generate();
    numberLines();
    dialogs.cancelFile();
    click("saveBtn");
    EXPECT_EQ(fileCount(), 0U);
}

TEST_F(PanelFiles, AppendAsksWhetherTheCurrentFileIsMeant) {
    generate();
    save("a.txt");
    appendToCurrent();
    EXPECT_EQ(dialogs.seen(1).title, "Append File");
    EXPECT_EQ(dialogs.seen(1).text, "Do you want to append to the current open file?");
    EXPECT_EQ(dialogs.seen(1).buttons, QMessageBox::Yes | QMessageBox::No);
    EXPECT_FALSE(dialogs.seen(1).hasDefaultButton);
    EXPECT_EQ(dialogs.seen(1).parent, &parent());
}

TEST_F(PanelFiles, YesRebuildsTheFileFromTheLastSaveAndTheCurrentProgram) {
    generate();
    comment("one");
    save("a.txt");
    textBox("textEdit")->setPlainText("SECOND");
    generate();
    comment("two");
    appendToCurrent();
    const std::string expected = "one\nPRE\nG90\nG0 X0Y0\nPOST\ntwo\nSECOND\nG90\nG0 X0Y0\nPOST\n";
    EXPECT_EQ(bytes("a.txt"), expected);
    EXPECT_EQ(lastProgram(), expected);
}

TEST_F(PanelFiles, YesKeepsTheBlankLineOfAnEmptyCommentThatSaveLeftOut) {
    generate();
    save("a.txt");
    appendToCurrent();
    EXPECT_EQ(bytes("a.txt"), std::string("\n") + kProgram + "\n" + kProgram);
}

TEST_F(PanelFiles, SecondYesReplacesWhatTheFirstAppended) {
    generate();
    save("a.txt");
    appendToCurrent();
    comment("again");
    appendToCurrent();
    EXPECT_EQ(bytes("a.txt"), std::string("\n") + kProgram + "again\n" + kProgram);
}

TEST_F(PanelFiles, YesForgetsTheNumbersOfTheSavedFileAndNumbersTheWhole) {
    generate();
    comment("c");
    numberLines();
    save("a.txt");
    appendToCurrent();
    const std::string expected =
        "N5 c\nN10 PRE\nN15 G90\nN20 G0 X0Y0\nN25 POST\n"
        "N30 c\nN35 PRE\nN40 G90\nN45 G0 X0Y0\nN50 POST\n";
    EXPECT_EQ(bytes("a.txt"), expected);
    EXPECT_EQ(lastProgram(), expected);
}

TEST_F(PanelFiles, YesBeforeAnySaveWritesNothingAndSendsAnEmptyText) {
    generate();
    appendToCurrent();
    EXPECT_EQ(fileCount(), 0U);
    EXPECT_EQ(programCount(), 2U);
    EXPECT_EQ(lastProgram(), "");
}

TEST_F(PanelFiles, NoAsksForAFileWithoutAProposal) {
    generate();
    appendTo("b.nc");
    EXPECT_EQ(dialogs.seen(1).title, "Append File");
    EXPECT_EQ(dialogs.seen(1).proposedName, "");
    EXPECT_THAT(dialogs.seen(1).filters, ElementsAre(kPreview));
    EXPECT_TRUE(dialogs.seen(1).saves);
    EXPECT_EQ(dialogs.seen(1).parent, &parent());
}

TEST_F(PanelFiles, NoAddsCommentLineAndProgramToTheChosenFileAndShowsTheWhole) {
    store("b.nc", "OLD\n");
    generate();
    comment("c");
    appendTo("b.nc");
    const std::string expected = std::string("OLD\nc\n") + kProgram;
    EXPECT_EQ(bytes("b.nc"), expected);
    EXPECT_EQ(lastProgram(), expected);
}

TEST_F(PanelFiles, NoWritesTheLineEndOfAnEmptyCommentToo) {
    store("b.nc", "OLD\n");
    generate();
    appendTo("b.nc");
    EXPECT_EQ(bytes("b.nc"), std::string("OLD\n\n") + kProgram);
}

TEST_F(PanelFiles, NoWithLineNumbersNumbersTheWholeFileOldNumbersIncluded) {
    store("b.nc", "N5 OLD\n");
    generate();
    comment("c");
    numberLines();
    appendTo("b.nc");
    EXPECT_EQ(bytes("b.nc"), "N5 N5 OLD\nN10 c\nN15 PRE\nN20 G90\nN25 G0 X0Y0\nN30 POST\n");
}

TEST_F(PanelFiles, NoLeavesTheCurrentFileTheCurrentOne) {
    generate();
    save("a.txt");
    appendTo("b.nc");
    comment("later");
    appendToCurrent();
    EXPECT_EQ(bytes("a.txt"), std::string("\n") + kProgram + "later\n" + kProgram);
    EXPECT_EQ(bytes("b.nc"), std::string("\n") + kProgram);
}

TEST_F(PanelFiles, CancelledFileOfNoWritesNothingAndSendsAnEmptyText) {
    generate();
    dialogs.press(QMessageBox::No);
    dialogs.cancelFile();
    click("appendPushButton");
    EXPECT_EQ(fileCount(), 0U);
    EXPECT_EQ(programCount(), 2U);
    EXPECT_EQ(lastProgram(), "");
}

TEST_F(PanelFiles, AnyOtherAnswerToAppendDoesNothing) {
    generate();
    save("a.txt");
    dialogs.dismiss();
    click("appendPushButton");
    EXPECT_EQ(bytes("a.txt"), kProgram);
    EXPECT_EQ(programCount(), 1U);
}

TEST_F(PanelFiles, AppendsQuestionThatIsClosedDoesNothing) {
    generate();
    save("a.txt");
    for (const bool byKey : {true, false}) {
        QTimer::singleShot(0, [byKey] {
            QWidget* question = QApplication::activeModalWidget();
            byKey ? QTest::keyClick(question, Qt::Key_Escape)
                  : static_cast<void>(question->close());
        });
        panel().AppendFile();
    }
    EXPECT_EQ(bytes("a.txt"), kProgram);
    EXPECT_EQ(programCount(), 1U);
}

TEST_F(PanelFiles, NoBreakSpacesStayWhatTheyAre) {
    textBox("textEdit")
        ->setPlainText(QString::fromUtf8("a\xC2\xA0"
                                         "b"));
    EXPECT_THAT(generate(), testing::StartsWith("a\xC2\xA0"
                                                "b\n"));
}

TEST_F(PanelFiles, SelectFileAsksForOne) {
    store("c.ngc", "G0 X1\n");
    selectFile("c.ngc");
    EXPECT_EQ(dialogs.seen(0).title, "Preview File");
    EXPECT_EQ(dialogs.seen(0).proposedName, "");
    EXPECT_THAT(dialogs.seen(0).filters, ElementsAre(kPreview));
    EXPECT_FALSE(dialogs.seen(0).saves);
    EXPECT_EQ(dialogs.seen(0).parent, &parent());
}

TEST_F(PanelFiles, SelectedFileGoesToThePreviewAndNowhereElse) {
    const std::string preamble = textOf("textEdit");
    generate();
    store("c.ngc", "; ✓\nG0 X1\n");
    selectFile("c.ngc");
    EXPECT_EQ(lastProgram(), "; ✓\nG0 X1\n");
    EXPECT_EQ(textOf("textEdit"), preamble);
    save("a.txt");
    EXPECT_EQ(bytes("a.txt"), kProgram);
}

TEST_F(PanelFiles, SelectedFileEndsAtItsFirstZeroByte) {
    store("c.ngc", std::string("G0 X1\nG\0G1\n", 11));
    selectFile("c.ngc");
    EXPECT_EQ(lastProgram(), "G0 X1\nG");
}

TEST_F(PanelFiles, SelectedFileLosesItsByteOrderMark) {
    store("c.ngc", "\xEF\xBB\xBFG0 X1\n");
    selectFile("c.ngc");
    EXPECT_EQ(lastProgram(), "G0 X1\n");
}

TEST_F(PanelFiles, CancelledSelectionGivesThePreviewAnEmptyText) {
    generate();
    dialogs.cancelFile();
    click("selectFileBtn");
    EXPECT_EQ(programCount(), 2U);
    EXPECT_EQ(lastProgram(), "");
}

TEST_F(PanelFiles, ClearedPreviewForgetsTheProgramToo) {
    generate();
    panel().ClearPreviousPreview();
    EXPECT_EQ(programCount(), 2U);
    EXPECT_EQ(lastProgram(), "");
    save("a.txt");
    EXPECT_EQ(bytes("a.txt"), "");
}

TEST_F(PanelFiles, ProgramCanBeGeneratedAfterThePreviewWasCleared) {
    panel().ClearPreviousPreview();
    EXPECT_EQ(generate(), kProgram);
}

TEST_F(PanelFiles, RefusedDrillCycleLeavesNoEarlierProgramToSave) {
    generate();
    useDrillSettings(0);
    host.select({lineObject(at(0, 0), at(1, 1))});
    EXPECT_EQ(generate(), "(none)");
    save("a.txt");
    EXPECT_EQ(bytes("a.txt"), "");
}
