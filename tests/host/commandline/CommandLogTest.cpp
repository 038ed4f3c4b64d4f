// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "commandline/CommandLog.h"

#include <cmath>

#include <gtest/gtest.h>

#include <QScrollBar>
#include <QTextBlock>
#include <QtTest>

#include "PrintQString.h"

namespace {

class CommandLogTest : public testing::Test {
protected:
    CommandLogTest() {
        log.resize(400, 100);
        log.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&log));
    }
    void fill(int count) {
        for (int number = 0; number < count; ++number) {
            log.append(QString::number(number), false);
        }
    }
    bool isAtEnd() const {
        return log.verticalScrollBar()->value() == log.verticalScrollBar()->maximum();
    }
    QString topLine() const { return log.cursorForPosition(QPoint(4, 6)).block().text(); }
    /// The colour in which a line is drawn.
    QColor colorOf(int line) const {
        const QTextBlock block = log.document()->findBlockByNumber(line);
        const QBrush brush = block.begin().fragment().charFormat().foreground();
        const bool isSet = brush.style() != Qt::NoBrush;
        return isSet ? brush.color() : log.palette().color(QPalette::Text);
    }
    void usePalette(const QColor& base, const QColor& text) {
        QPalette palette;
        palette.setColor(QPalette::Base, base);
        palette.setColor(QPalette::Text, text);
        log.setPalette(palette);
    }

    CommandLog log{50};
};

double luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return first > second ? first / second : second / first;
}

TEST_F(CommandLogTest, KeepsTextsAsTheyAreLineByLine) {
    log.append("Selected objects: 5 ", false);
    log.append("<b>not bold</b> &amp;", false);
    log.append("", false);
    log.append("two\r\nlines", true);
    EXPECT_EQ(log.toPlainText(),
              QString("Selected objects: 5 \n<b>not bold</b> &amp;\n\ntwo\nlines"));
}

TEST_F(CommandLogTest, AnEmptyFirstLineIsALine) {
    log.append("", false);
    log.append("second", false);
    EXPECT_EQ(log.toPlainText(), QString("\nsecond"));
}

TEST_F(CommandLogTest, TheOldestLinesGoBeyondTheLimit) {
    fill(53);
    EXPECT_EQ(log.blockCount(), 50);
    EXPECT_EQ(log.document()->firstBlock().text(), QString("3"));
    EXPECT_EQ(log.document()->lastBlock().text(), QString("52"));
}

TEST_F(CommandLogTest, ShowsTheNewestLine) {
    fill(40);
    EXPECT_GT(log.verticalScrollBar()->maximum(), 0);
    EXPECT_TRUE(isAtEnd());
}

TEST_F(CommandLogTest, ShowsTheNewestLineAfterItGotSmallerAndLarger) {
    fill(40);
    log.resize(400, 50);
    EXPECT_TRUE(isAtEnd());
    log.resize(150, 90);
    EXPECT_TRUE(isAtEnd());
}

TEST_F(CommandLogTest, ShowsTheNewestLineOfThoseThatCameWhileHidden) {
    log.hide();
    fill(40);
    log.show();
    EXPECT_TRUE(isAtEnd());
}

TEST_F(CommandLogTest, StaysWhereTheUserHasScrolled) {
    fill(40);
    log.verticalScrollBar()->setValue(10);
    ASSERT_EQ(topLine(), QString("10"));
    log.append("more", false);
    EXPECT_EQ(topLine(), QString("10"));
}

TEST_F(CommandLogTest, StaysWhereTheUserHasScrolledWhenTheOldestGo) {
    fill(50);
    log.verticalScrollBar()->setValue(10);
    log.append("a\nb\nc", false);
    EXPECT_EQ(log.document()->firstBlock().text(), QString("3"));
    EXPECT_EQ(topLine(), QString("10"));
}

TEST_F(CommandLogTest, FollowsAgainAfterTheUserScrolledToTheEnd) {
    fill(40);
    log.verticalScrollBar()->setValue(10);
    log.verticalScrollBar()->setValue(log.verticalScrollBar()->maximum());
    log.append("more", false);
    EXPECT_TRUE(isAtEnd());
}

TEST_F(CommandLogTest, ErrorsAreColouredAndReadableOnLightAndDark) {
    log.append("said", false);
    log.append("wrong", true);
    log.append("said again", false);
    for (const auto& colors : {std::pair<QColor, QColor>(Qt::white, Qt::black),
                               std::pair<QColor, QColor>(QColor(35, 38, 41), Qt::white)}) {
        usePalette(colors.first, colors.second);
        EXPECT_EQ(colorOf(0), colors.second);
        EXPECT_NE(colorOf(1), colors.second);
        EXPECT_EQ(colorOf(2), colors.second);
        EXPECT_GE(contrast(colorOf(1), colors.first), 4.5);
    }
}

TEST_F(CommandLogTest, WhatIsSaidAfterTheColoursChangedHasTheNewOnes) {
    usePalette(QColor(35, 38, 41), Qt::white);
    log.append("wrong", true);
    EXPECT_GE(contrast(colorOf(0), QColor(35, 38, 41)), 4.5);
}

TEST_F(CommandLogTest, CannotBeEdited) {
    log.append("said", false);
    log.setFocus();
    QTest::keyClicks(&log, "x");
    QTest::keyClick(&log, Qt::Key_Delete);
    EXPECT_EQ(log.toPlainText(), QString("said"));
}

}  // namespace
