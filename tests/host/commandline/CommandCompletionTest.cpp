// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "commandline/CommandCompletion.h"

#include <gtest/gtest.h>

#include "PrintQString.h"

namespace {

CommandCompletion usual() {
    CommandCompletion completion;
    completion.setNames(
        {"_GCODE", "CLEAR", "GRID", "OPEN", "SELECTALL", "SELECTLAYER", "SELECTTYPE"});
    return completion;
}

TEST(CommandCompletion, MatchesBeginningsInAnyCase) {
    EXPECT_EQ(usual().matches("selectL"), QStringList({"SELECTLAYER"}));
    EXPECT_EQ(usual().matches("c"), QStringList({"CLEAR"}));
    EXPECT_EQ(usual().matches("ALL"), QStringList());
}

TEST(CommandCompletion, TheUnderscoreMayBeMissingOrTooMuch) {
    EXPECT_EQ(usual().matches("gc"), QStringList({"_GCODE"}));
    EXPECT_EQ(usual().matches("_op"), QStringList({"OPEN"}));
    EXPECT_EQ(usual().matches("g"), QStringList({"_GCODE", "GRID"}));
}

TEST(CommandCompletion, NothingMatchesAnEmptyTextOrArguments) {
    EXPECT_EQ(usual().matches(""), QStringList());
    EXPECT_EQ(usual().matches("OPEN part"), QStringList());
}

TEST(CommandCompletion, TabCompletesWhatAllMatchesShareThenWalksThem) {
    CommandCompletion completion = usual();
    EXPECT_EQ(completion.next("sel", 1), QString("SELECT"));
    EXPECT_EQ(completion.next("SELECT", 1), QString("SELECTALL"));
    EXPECT_EQ(completion.next("SELECTALL", 1), QString("SELECTLAYER"));
    EXPECT_EQ(completion.next("SELECTLAYER", 1), QString("SELECTTYPE"));
    EXPECT_EQ(completion.next("SELECTTYPE", 1), QString("SELECTALL"));
    EXPECT_EQ(completion.next("SELECTALL", -1), QString("SELECTTYPE"));
}

TEST(CommandCompletion, TabCompletesASingleMatchAndStaysThere) {
    CommandCompletion completion = usual();
    EXPECT_EQ(completion.next("gc", 1), QString("_GCODE"));
    EXPECT_EQ(completion.next("_GCODE", 1), QString("_GCODE"));
    EXPECT_EQ(completion.next("_gcode", 1), QString("_GCODE"));
}

TEST(CommandCompletion, TabWalksMatchesThatShareNothing) {
    CommandCompletion completion = usual();
    EXPECT_EQ(completion.next("g", 1), QString("_GCODE"));
    EXPECT_EQ(completion.next("_GCODE", 1), QString("GRID"));
    EXPECT_EQ(completion.walked("GRID"), QStringList({"_GCODE", "GRID"}));
}

TEST(CommandCompletion, AnotherTextStartsAnew) {
    CommandCompletion completion = usual();
    completion.next("g", 1);
    EXPECT_EQ(completion.walked("OPE"), QStringList());
    EXPECT_EQ(completion.next("OPE", 1), QString("OPEN"));
}

TEST(CommandCompletion, LeavesATextThatNothingBeginsWith) {
    CommandCompletion completion = usual();
    EXPECT_EQ(completion.next("xyz", 1), QString("xyz"));
    EXPECT_EQ(completion.next("", 1), QString(""));
}

TEST(CommandCompletion, NamesThatWentAreNotGiven) {
    CommandCompletion completion = usual();
    completion.next("g", 1);
    completion.setNames({"GRID"});
    EXPECT_EQ(completion.walked("_GCODE"), QStringList());
    EXPECT_EQ(completion.next("g", 1), QString("GRID"));
}

}  // namespace
