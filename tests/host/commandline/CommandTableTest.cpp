// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "commandline/CommandTable.h"

#include <gtest/gtest.h>

#include "PrintQString.h"

namespace {

HostCommand named(const char* name, const char* help = "") {
    return {QString::fromLatin1(name), QString(), QString::fromLatin1(help), nullptr, false};
}

struct SplitRow {
    const char* rule;
    const char* line;
    QStringList words;
};

class SplitCommandLine : public testing::TestWithParam<SplitRow> {};

TEST_P(SplitCommandLine, GivesTheWords) {
    const QString line = QString::fromUtf8(GetParam().line);
    EXPECT_EQ(splitCommandLine(line), GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SplitCommandLine,
    testing::Values(
        SplitRow{"nothing", "", {}}, SplitRow{"blanks", " \t  ", {}},
        SplitRow{"one_word", "OPEN", {"OPEN"}},
        SplitRow{"blanks_around_and_between",
                 "  SELECTLAYER   outer \t inner ",
                 {"SELECTLAYER", "outer", "inner"}},
        SplitRow{"quotes_keep_blanks", "OPEN \"my part.dxf\"", {"OPEN", "my part.dxf"}},
        SplitRow{
            "quotes_inside_of_a_word", "OPEN /tmp/\"my part\".dxf", {"OPEN", "/tmp/my part.dxf"}},
        SplitRow{"empty_quotes_are_a_word", "OPEN \"\"", {"OPEN", ""}},
        SplitRow{"an_open_quote_reaches_to_the_end", "OPEN \"my part.dxf", {"OPEN", "my part.dxf"}},
        SplitRow{"cancels_of_a_macro", "^C^C_GCODE", {"_GCODE"}},
        SplitRow{"cancels_with_blanks_around", "  ^C^c _GCODE", {"_GCODE"}},
        SplitRow{"only_cancels", "^C^C", {}},
        SplitRow{"cancels_are_only_in_front", "OPEN ^Ca", {"OPEN", "^Ca"}},
        SplitRow{"other_letters", "SELECTLAYER Äußere", {"SELECTLAYER", "Äußere"}}),
    [](const auto& row) { return std::string(row.param.rule); });

TEST(CommandTable, FindsACommandInAnyCase) {
    CommandTable table;
    table.add(named("OPEN"));
    table.add(named("ZOOMFIT"));
    ASSERT_NE(table.find("zoomFit"), nullptr);
    EXPECT_EQ(table.find("zoomFit")->name, QString("ZOOMFIT"));
}

TEST(CommandTable, FindsNoPartsAndNothingUnknown) {
    CommandTable table;
    table.add(named("OPEN"));
    EXPECT_EQ(table.find("OPE"), nullptr);
    EXPECT_EQ(table.find("OPENS"), nullptr);
    EXPECT_EQ(table.find(""), nullptr);
}

TEST(CommandTable, KeepsTheOrderOfAdding) {
    CommandTable table;
    table.add(named("ZOOMFIT"));
    table.add(named("OPEN"));
    ASSERT_EQ(table.commands().size(), 2U);
    EXPECT_EQ(table.commands()[0].name, QString("ZOOMFIT"));
    EXPECT_EQ(table.commands()[1].name, QString("OPEN"));
}

TEST(CommandTable, ACommandOfTheSameNameTakesThePlace) {
    CommandTable table;
    table.add(named("OPEN", "first"));
    table.add(named("ZOOMFIT"));
    table.add(named("OPEN", "second"));
    ASSERT_EQ(table.commands().size(), 2U);
    EXPECT_EQ(table.commands()[0].help, QString("second"));
}

}  // namespace
