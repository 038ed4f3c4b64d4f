// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "CommandLineTest.h"

#include <QClipboard>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>

namespace {

/// The clipboard is one for all programs on the screen: other tests must not use it meanwhile.
using CommandLineClipboardTest = CommandLineTest;

TEST_F(CommandLineTest, EnterReportsEchoesAndRemembersTheLine) {
    enter("open a.dxf");
    EXPECT_EQ(entered, QStringList({"open a.dxf"}));
    EXPECT_EQ(line->text(), QString("Command: open a.dxf"));
    EXPECT_EQ(line->history().lines(), QStringList({"open a.dxf"}));
    EXPECT_EQ(input->text(), QString());
}

TEST_F(CommandLineTest, TheKeypadsEnterIsAnEnter) {
    type("clear");
    press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(entered, QStringList({"clear"}));
}

TEST_F(CommandLineTest, AnEmptyLineIsReportedAndLeavesNoTrace) {
    press(Qt::Key_Return);
    enter("  ");
    EXPECT_EQ(entered, QStringList({"", ""}));
    EXPECT_EQ(line->text(), QString());
    EXPECT_TRUE(line->history().lines().isEmpty());
}

TEST_F(CommandLineTest, BlanksAroundALineAreDropped) {
    enter("  clear ");
    EXPECT_EQ(entered, QStringList({"clear"}));
}

TEST_F(CommandLineTest, TheEchoHasThePromptThatStands) {
    line->setPrompt("Select one or more entities:");
    enter("selectall");
    line->setPrompt(CommandLine::idlePrompt());
    EXPECT_EQ(line->text(), QString("Select one or more entities: selectall"));
    EXPECT_EQ(line->prompt(), QString("Command:"));
}

TEST_F(CommandLineTest, ThePromptIsSaidToScreenReadersAndShownAsPlainText) {
    line->setPrompt("<b>Pick</b>\na thing");
    EXPECT_EQ(prompt->text(), QString("<b>Pick</b> a thing"));
    EXPECT_EQ(prompt->textFormat(), Qt::PlainText);
    EXPECT_EQ(input->accessibleDescription(), QString("<b>Pick</b> a thing"));
    EXPECT_FALSE(input->accessibleName().isEmpty());
    EXPECT_FALSE(log->accessibleName().isEmpty());
}

TEST_F(CommandLineTest, ThePromptsToolTipReadsAsThePrompt) {
    line->setPrompt("Feed & speed");
    EXPECT_EQ(prompt->toolTip(), QString("Feed & speed"));
    line->setPrompt("<b>Feed</b> & speed");
    EXPECT_EQ(prompt->toolTip(), QString("<span>&lt;b&gt;Feed&lt;/b&gt; &amp; speed</span>"));
}

TEST_F(CommandLineTest, ALongPromptDoesNotWidenTheWindow) {
    const int before = line->minimumSizeHint().width();
    line->setPrompt(QString("Select ").repeated(200));
    QCoreApplication::processEvents();
    EXPECT_EQ(line->minimumSizeHint().width(), before);
    EXPECT_GE(input->width(), input->fontMetrics().averageCharWidth() * 12);
}

TEST_F(CommandLineTest, UpAndDownWalkTheHistoryAndKeepWhatWasTyped) {
    enter("open");
    enter("clear");
    type("zoom");
    press(Qt::Key_Up);
    EXPECT_EQ(input->text(), QString("clear"));
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_EQ(input->text(), QString("open"));
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(input->text(), QString("zoom"));
}

TEST_F(CommandLineTest, UpGoesToTheHistoryAlsoWhileCompletionsAreOffered) {
    enter("open");
    type("sel");
    ASSERT_TRUE(popup->isVisible());
    press(Qt::Key_Up);
    EXPECT_EQ(input->text(), QString("open"));
    EXPECT_FALSE(popup->isVisible());
    press(Qt::Key_Down);
    EXPECT_EQ(input->text(), QString("sel"));
}

TEST_F(CommandLineTest, CompletionsPopUpWhileTyping) {
    type("sel");
    EXPECT_EQ(offered(), QStringList({"SELECTALL", "SELECTLAYER", "SELECTTYPE"}));
    type("ectt");
    EXPECT_EQ(offered(), QStringList({"SELECTTYPE"}));
    type("ype");
    EXPECT_EQ(offered(), QStringList());
    EXPECT_TRUE(input->hasFocus());
}

TEST_F(CommandLineTest, CompletionsFollowWhatIsErased) {
    type("selx");
    EXPECT_EQ(offered(), QStringList());
    press(Qt::Key_Backspace);
    EXPECT_EQ(offered().size(), 3);
}

TEST_F(CommandLineTest, EnterWithOfferedCompletionsRunsWhatWasTyped) {
    type("sel");
    ASSERT_TRUE(popup->isVisible());
    press(Qt::Key_Return);
    EXPECT_EQ(entered, QStringList({"sel"}));
    EXPECT_FALSE(popup->isVisible());
}

TEST_F(CommandLineTest, EnterTakesTheChosenCompletionAndTheNextEnterRunsIt) {
    type("sel");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_TRUE(entered.isEmpty());
    EXPECT_EQ(input->text(), QString("SELECTLAYER"));
    EXPECT_FALSE(popup->isVisible());
    press(Qt::Key_Return);
    EXPECT_EQ(entered, QStringList({"SELECTLAYER"}));
}

TEST_F(CommandLineTest, UpInTheCompletionsLeadsBackToWhatWasTyped) {
    type("sel");
    press(Qt::Key_Down);
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    EXPECT_EQ(entered, QStringList({"sel"}));
}

TEST_F(CommandLineTest, AClickTakesACompletion) {
    type("sel");
    const QRect item = popup->visualItemRect(popup->item(1));
    QTest::mouseClick(popup->viewport(), Qt::LeftButton, {}, item.center());
    EXPECT_EQ(input->text(), QString("SELECTLAYER"));
    EXPECT_FALSE(popup->isVisible());
    press(Qt::Key_Return);
    EXPECT_EQ(entered, QStringList({"SELECTLAYER"}));
}

TEST_F(CommandLineTest, TabCompletesTheCommonPartThenWalksTheMatches) {
    type("sel");
    press(Qt::Key_Tab);
    EXPECT_EQ(input->text(), QString("SELECT"));
    press(Qt::Key_Tab);
    EXPECT_EQ(input->text(), QString("SELECTALL"));
    press(Qt::Key_Tab);
    EXPECT_EQ(input->text(), QString("SELECTLAYER"));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(input->text(), QString("SELECTALL"));
    EXPECT_TRUE(input->hasFocus());
    press(Qt::Key_Return);
    EXPECT_EQ(entered, QStringList({"SELECTALL"}));
}

TEST_F(CommandLineTest, TabTakesTheChosenCompletion) {
    type("sel");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Tab);
    EXPECT_EQ(input->text(), QString("SELECTLAYER"));
    EXPECT_FALSE(popup->isVisible());
}

TEST_F(CommandLineTest, TabLeavesAnEmptyField) {
    press(Qt::Key_Tab);
    EXPECT_FALSE(input->hasFocus());
}

TEST_F(CommandLineTest, TabStaysInATextThatNothingCompletes) {
    type("xyz");
    press(Qt::Key_Tab);
    EXPECT_TRUE(input->hasFocus());
    EXPECT_EQ(input->text(), QString("xyz"));
}

TEST_F(CommandLineTest, EscapeClosesTheCompletionsThenClearsThenIsReported) {
    type("sel");
    press(Qt::Key_Escape);
    EXPECT_FALSE(popup->isVisible());
    EXPECT_EQ(input->text(), QString("sel"));
    press(Qt::Key_Escape);
    EXPECT_EQ(input->text(), QString());
    EXPECT_EQ(cancelled, 0);
    press(Qt::Key_Escape);
    EXPECT_EQ(cancelled, 1);
    EXPECT_TRUE(entered.isEmpty());
}

TEST_F(CommandLineTest, ItsKeysAreNotTakenByShortcutsOfTheWindow) {
    int taken = 0;
    for (const int key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Up, Qt::Key_PageUp}) {
        auto* shortcut = new QShortcut(QKeySequence(key), window.get());
        QObject::connect(shortcut, &QShortcut::activated, [&taken] { ++taken; });
    }
    press(Qt::Key_Escape);
    press(Qt::Key_Return);
    press(Qt::Key_Up);
    press(Qt::Key_PageUp);
    EXPECT_EQ(taken, 0);
    EXPECT_EQ(cancelled, 1);
    EXPECT_EQ(entered.size(), 1);
}

TEST_F(CommandLineTest, TheCompletionsGoWithTheFocus) {
    type("sel");
    ASSERT_TRUE(popup->isVisible());
    other->setFocus();
    EXPECT_FALSE(popup->isVisible());
}

TEST_F(CommandLineTest, TheCompletionsGoWhenTheWindowMoves) {
    type("sel");
    ASSERT_TRUE(popup->isVisible());
    window->move(window->pos() + QPoint(40, 30));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !popup->isVisible(); }));
}

TEST_F(CommandLineTest, TheCompletionsStandAtTheFieldOnTheScreen) {
    type("s");
    ASSERT_TRUE(popup->isVisible());
    const QRect field(input->mapToGlobal(QPoint()), input->size());
    EXPECT_FALSE(popup->geometry().intersects(field));
    EXPECT_TRUE(popup->geometry().bottom() + 1 == field.top() ||
                popup->geometry().top() == field.bottom() + 1);
    EXPECT_TRUE(window->screen()->geometry().contains(popup->geometry()));
}

TEST_F(CommandLineClipboardTest, PastedLinesRunInOrder) {
    QApplication::clipboard()->setText("open a.dxf\r\n\n  clear\nunits");
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return entered.size() >= 3; }));
    EXPECT_EQ(entered, QStringList({"open a.dxf", "clear", "units"}));
    EXPECT_EQ(input->text(), QString());
    EXPECT_EQ(line->history().lines(), entered);
}

TEST_F(CommandLineClipboardTest, WhatWasTypedBeforeAPasteBelongsToItsFirstLine) {
    QApplication::clipboard()->setText("a.dxf\nclear\n");
    type("open ");
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return entered.size() >= 2; }));
    EXPECT_EQ(entered, QStringList({"open a.dxf", "clear"}));
}

TEST_F(CommandLineClipboardTest, APastedLineWithoutAnEndIsOnlyPutIn) {
    QApplication::clipboard()->setText("open a.dxf");
    press(Qt::Key_V, Qt::ControlModifier);
    QCoreApplication::processEvents();
    EXPECT_EQ(input->text(), QString("open a.dxf"));
    EXPECT_TRUE(entered.isEmpty());
}

TEST_F(CommandLineClipboardTest, APasteStopsWhenALineTakesTheCommandLine) {
    const QPointer<CommandLine> watched(line);
    QObject::connect(line, &CommandLine::entered, line, [this] { delete line; });
    QApplication::clipboard()->setText("one\ntwo");
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !watched; }));
    EXPECT_EQ(entered, QStringList({"one"}));
}

TEST_F(CommandLineTest, AnEnteredLineMayTakeTheCommandLine) {
    const QPointer<CommandLine> watched(line);
    QObject::connect(line, &CommandLine::entered, line, [this] { delete line; });
    enter("quit");
    EXPECT_EQ(entered, QStringList({"quit"}));
    EXPECT_FALSE(watched);
}

TEST_F(CommandLineTest, WhatIsTypedElsewhereGoesToTheField) {
    other->setFocus();
    line->typeHere("s");
    EXPECT_TRUE(input->hasFocus());
    EXPECT_TRUE(popup->isVisible());
    type("el");
    EXPECT_EQ(input->text(), QString("sel"));
    line->typeHere("\r\x1b");
    EXPECT_EQ(input->text(), QString("sel"));
}

TEST_F(CommandLineTest, TypingElsewhereAddsToTheEnd) {
    type("sel");
    press(Qt::Key_Home);
    line->typeHere("e");
    EXPECT_EQ(input->text(), QString("sele"));
}

TEST_F(CommandLineTest, KeysInTheMessagesGoToTheField) {
    log->setFocus();
    type("clear");
    EXPECT_EQ(input->text(), QString("clear"));
    EXPECT_TRUE(input->hasFocus());
    log->setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(entered, QStringList({"clear"}));
    log->setFocus();
    press(Qt::Key_Escape);
    EXPECT_EQ(cancelled, 1);
}

TEST_F(CommandLineClipboardTest, MessagesCanBeSelectedAndCopied) {
    line->print("Selected objects: 5 ");
    log->setFocus();
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QString("Selected objects: 5 "));
    EXPECT_TRUE(log->hasFocus());
    type("\b");
    EXPECT_EQ(line->text(), QString("Selected objects: 5 "));
}

TEST_F(CommandLineTest, ADockOf120PixelsShowsThreeLinesAndTheField) {
    for (int number = 0; number < 20; ++number) {
        line->print(QString::number(number));
    }
    line->setFixedHeight(120 - 24);
    QTest::qWait(0);
    EXPECT_GE(log->viewport()->height(), 3 * log->fontMetrics().lineSpacing());
    EXPECT_GE(input->height(), input->fontMetrics().height());
    EXPECT_TRUE(line->rect().contains(input->geometry()));
    EXPECT_LE(line->minimumSizeHint().height(), 60);
}

TEST_F(CommandLineTest, PageKeysScrollTheMessagesFromTheField) {
    for (int number = 0; number < 100; ++number) {
        line->print(QString::number(number));
    }
    const int end = log->verticalScrollBar()->value();
    press(Qt::Key_PageUp);
    EXPECT_LT(log->verticalScrollBar()->value(), end);
    press(Qt::Key_PageDown);
    EXPECT_EQ(log->verticalScrollBar()->value(), end);
}

TEST_F(CommandLineTest, ItIsDestroyedWhileCompletionsAreOffered) {
    type("sel");
    ASSERT_TRUE(popup->isVisible());
    window.reset();
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

}  // namespace
