// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// What is wrong in a settings file is said with its line, and nothing in it is passed over.
#include <gtest/gtest.h>

#include "CommandRun.h"

namespace {

class SettingsRun : public testing::Test {
protected:
    CommandRun run(const QByteArray& settings, const QStringList& more = {}) const {
        return runProgram(
            QStringList{example("flange.dxf"), "--config", m_work.write("a.toml", settings)} +
            more);
    }

    /// What is said about a settings file, without the program's and the file's name.
    QByteArray complaint(const QByteArray& settings) const {
        const CommandRun result = run(settings, toolPathSettings());
        EXPECT_EQ(result.code, 2) << settings.constData();
        const QByteArray start = "kxgcode: " + m_work.path("a.toml").toUtf8() + ":";
        EXPECT_TRUE(result.messages.startsWith(start)) << result.messages.constData();
        return result.messages.mid(start.size());
    }

private:
    WorkFolder m_work;
};

}  // namespace

TEST_F(SettingsRun, AValueThatIsRefusedIsNamedWithItsLine) {
    EXPECT_EQ(complaint("\npeck = deep\n"), "2: --peck: 'deep' is not a number above 0\n");
    EXPECT_EQ(complaint("peck = nan\n"), "1: --peck: 'nan' is not a number above 0\n");
    EXPECT_EQ(complaint("cycle = \"g84\"\n"), "1: --cycle: 'g84' is none of g81, g82, g83\n");
    EXPECT_TRUE(complaint("line-numbers = maybe\n").startsWith("1: "));
    EXPECT_EQ(complaint("comment = [\"a\", \"b\"]\n"),
              "1: 'comment' takes one value, not a list\n");
}

TEST_F(SettingsRun, ANameThatIsNoSettingIsNamed) {
    EXPECT_EQ(complaint("config = \"b.toml\"\n"), "1: 'config' is no setting\n");
    EXPECT_EQ(complaint("help = true\n"), "1: 'help' is no setting\n");
    EXPECT_EQ(complaint("++ = 1\n"), "1: '++' is no setting\n");
    EXPECT_EQ(complaint("-- = 1\n"), "1: '--' is no setting\n");
    EXPECT_EQ(complaint("depth.x = 1\n"), "1: 'depth.x' is no setting\n");
    EXPECT_EQ(complaint("a=\n"), "1: a name or a value is missing\n");
}

TEST_F(SettingsRun, ASecondValueForASettingIsNotPassedOver) {
    EXPECT_EQ(complaint("peck = 1\ndwell = 1\npeck = 2\n"), "3: 'peck' is set a second time\n");
    EXPECT_EQ(complaint("explode = true\nno-explode = true\n"),
              "2: 'no-explode' is set a second time\n");
}

TEST_F(SettingsRun, BytesThatAreNoTextAreNamedWithTheirLine) {
    EXPECT_EQ(complaint("peck = 1\ncomment = \"\xE4\"\n"), "2: this line is not UTF-8 text\n");
    EXPECT_EQ(complaint(QByteArray("peck = 1\n\ncomment = \"a\0b\"\n", 27)),
              "3: this line is not UTF-8 text\n");
}

TEST_F(SettingsRun, TheCommentIsTakenWhole) {
    const CommandRun result =
        run("comment = \"part #5, 2 off\"  # for the lathe\n", toolPathSettings());
    EXPECT_EQ(result.code, 0) << result.messages.constData();
    EXPECT_TRUE(result.output.startsWith("part #5, 2 off\nM3 "));
}

TEST_F(SettingsRun, WhatTheCommandLineGivesIsCheckedInTheFileToo) {
    EXPECT_EQ(complaint("comment = a b\n"),
              "1: a second value in the line; texts with blanks need quotes\n");
    const CommandRun result =
        run("layer = [\"none\"]\n", toolPathSettings() + QStringList{"--layer", "PLATE"});
    EXPECT_EQ(result.code, 0) << result.messages.constData();
}
