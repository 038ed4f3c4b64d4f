// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "SettingsFile.h"

#include <gtest/gtest.h>

#include "CommandRun.h"

namespace {

std::vector<std::string> valuesOf(const std::string& text) {
    const Settings settings = readSettings("a = " + text);
    EXPECT_EQ(settings.error, "") << text;
    return settings.list.size() == 1 ? settings.list.front().values : std::vector<std::string>();
}

std::string errorOf(const std::string& text) {
    const Settings settings = readSettings(text);
    return std::to_string(settings.errorLine) + ": " + settings.error;
}

using Values = std::vector<std::string>;

}  // namespace

TEST(SettingsFile, KeepsWordsAndTextsAsTheyAre) {
    EXPECT_EQ(valuesOf("-1.50"), Values{"-1.50"});
    EXPECT_EQ(valuesOf("true"), Values{"true"});
    EXPECT_EQ(valuesOf("\"two words, one comma\""), Values{"two words, one comma"});
    EXPECT_EQ(valuesOf("'C:\\x \"y\"'"), Values{"C:\\x \"y\""});
    EXPECT_EQ(valuesOf("\"\""), Values{""});
    EXPECT_EQ(valuesOf("\"Fr\xC3\xA4sen\""), Values{"Fr\xC3\xA4sen"});
}

TEST(SettingsFile, ANumberSignInATextIsNoComment) {
    EXPECT_EQ(valuesOf("\"part #5\"  # five"), Values{"part #5"});
    EXPECT_EQ(valuesOf("5# five"), Values{"5"});
}

TEST(SettingsFile, TextsMayHaveSeveralLines) {
    EXPECT_EQ(valuesOf("\"\"\"\n(one)\n\"two\"\r\n\"\"\""), Values{"(one)\n\"two\"\n"});
    EXPECT_EQ(valuesOf("'''a\\b'''"), Values{"a\\b"});
    EXPECT_EQ(valuesOf("\"one\\ntwo\""), Values{"one\ntwo"});
}

TEST(SettingsFile, ReadsEscapes) {
    EXPECT_EQ(valuesOf(R"("\t\"\\")"), Values{"\t\"\\"});
    EXPECT_EQ(valuesOf(R"("\u00e4\u20AC\U0001F527")"), Values{"\u00e4\u20AC\U0001F527"});
    EXPECT_NE(errorOf(R"(a = "\x")"), "0: ");
    EXPECT_NE(errorOf(R"(a = "\u12")"), "0: ");
    EXPECT_NE(errorOf(R"(a = "\ud800")"), "0: ");
    EXPECT_NE(errorOf(R"(a = "\u0000")"), "0: ");
    EXPECT_NE(errorOf(R"(a = "\U00110000")"), "0: ");
}

TEST(SettingsFile, ReadsListsOverSeveralLines) {
    EXPECT_EQ(valuesOf("[]"), Values{});
    EXPECT_EQ(valuesOf("[\"A,B\", C]"), (Values{"A,B", "C"}));
    EXPECT_EQ(valuesOf("[ # layers\n  \"A]\",\n\n  \"B\", # last\n]"), (Values{"A]", "B"}));
}

TEST(SettingsFile, DropsAByteOrderMarkAndTakesBothLineEnds) {
    const Settings settings = readSettings(
        "\xEF\xBB\xBF"
        "a = 1\r\n\r\n\tb=2");
    ASSERT_EQ(settings.list.size(), 2U);
    EXPECT_EQ(settings.list[0].name, "a");
    EXPECT_EQ(settings.list[1].name, "b");
    EXPECT_EQ(settings.list[1].line, 3);
    EXPECT_EQ(settings.list[1].values, Values{"2"});
}

TEST(SettingsFile, SaysInWhichLineWhatIsWrong) {
    EXPECT_EQ(errorOf("a = 1\n\nb\n"), "3: no '=' behind 'b'");
    EXPECT_EQ(errorOf("a =\n"), "1: a name or a value is missing");
    EXPECT_EQ(errorOf("= 5\n"), "1: a name or a value is missing");
    EXPECT_EQ(errorOf("[tool]\na = 1"), "1: settings have no tables");
    EXPECT_EQ(errorOf("a = one two"),
              "1: a second value in the line; texts with blanks need quotes");
    EXPECT_EQ(errorOf("a = \"one\nb = 2"), "1: no \" behind a text");
    EXPECT_EQ(errorOf("a = 1\nb = [1, 2\nc = 3"), "3: neither ',' nor ']' behind a value of 'b'");
    EXPECT_EQ(errorOf("a = [1, # ]"), "1: no ']' behind the list 'a'");
    EXPECT_EQ(errorOf("a = [[1]]"), "1: '[' where a name or a value begins");
}

TEST(SettingsFile, AMillionLinesAndAMillionBracketsTakeNoTime) {
    std::string lines;
    for (int i = 0; i < 1000000; ++i) {
        lines += "a=1\n";
    }
    EXPECT_EQ(readSettings(lines).list.size(), 1000000U);
    EXPECT_EQ(errorOf("a = " + std::string(1000000, '[')), "1: '[' where a name or a value begins");
}
