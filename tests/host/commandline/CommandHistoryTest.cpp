// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "commandline/CommandHistory.h"

#include <gtest/gtest.h>

#include "PrintQString.h"

namespace {

CommandHistory historyOf(const QStringList& lines) {
    CommandHistory history;
    history.setLines(lines);
    return history;
}

TEST(CommandHistory, OlderWalksBackAndStopsAtTheOldest) {
    CommandHistory history = historyOf({"OPEN", "CLEAR"});
    EXPECT_EQ(history.older(""), QString("CLEAR"));
    EXPECT_EQ(history.older("CLEAR"), QString("OPEN"));
    EXPECT_EQ(history.older("OPEN"), QString("OPEN"));
}

TEST(CommandHistory, NewerWalksForwardToWhatWasTyped) {
    CommandHistory history = historyOf({"OPEN", "CLEAR"});
    history.older("zoom");
    history.older("CLEAR");
    EXPECT_EQ(history.newer("OPEN"), QString("CLEAR"));
    EXPECT_EQ(history.newer("CLEAR"), QString("zoom"));
    EXPECT_EQ(history.newer("zoom"), QString("zoom"));
}

TEST(CommandHistory, AnEmptyOneLeavesTheText) {
    CommandHistory history;
    EXPECT_EQ(history.older("zoom"), QString("zoom"));
    EXPECT_EQ(history.newer("zoom"), QString("zoom"));
}

TEST(CommandHistory, EqualNeighboursAreKeptOnce) {
    CommandHistory history;
    for (const char* line : {"OPEN", "OPEN", "CLEAR", "OPEN"}) {
        history.add(line);
    }
    EXPECT_EQ(history.lines(), QStringList({"OPEN", "CLEAR", "OPEN"}));
}

TEST(CommandHistory, BlankLinesAreNotKept) {
    EXPECT_EQ(historyOf({"", "OPEN", "  "}).lines(), QStringList({"OPEN"}));
}

TEST(CommandHistory, AddingStartsAtTheNewestAgain) {
    CommandHistory history = historyOf({"OPEN", "CLEAR"});
    history.older("");
    history.older("CLEAR");
    history.add("UNITS");
    EXPECT_EQ(history.older("new"), QString("UNITS"));
    EXPECT_EQ(history.newer("UNITS"), QString("new"));
}

TEST(CommandHistory, AddingALineAgainStartsAtTheNewestToo) {
    CommandHistory history = historyOf({"OPEN", "CLEAR"});
    history.older("");
    history.add("CLEAR");
    EXPECT_EQ(history.older(""), QString("CLEAR"));
}

TEST(CommandHistory, TheOldestGoBeyondTheLimit) {
    CommandHistory history;
    for (int number = 0; number < CommandHistory::kMaxLines + 5; ++number) {
        history.add(QString::number(number));
    }
    ASSERT_EQ(history.lines().size(), CommandHistory::kMaxLines);
    EXPECT_EQ(history.lines().first(), QString("5"));
    EXPECT_EQ(history.older(""), QString::number(CommandHistory::kMaxLines + 4));
}

}  // namespace
