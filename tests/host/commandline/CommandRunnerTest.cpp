// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "commandline/CommandRunner.h"

#include <gtest/gtest.h>

#include "KxText.h"
#include "PrintQString.h"

namespace {

/// A host with the commands OPEN, HELP (allowed in a prompt) and GRID, and an add-in's _GCODE,
/// Mill and _GRID.
class CommandRunnerTest : public testing::Test {
protected:
    CommandRunnerTest() {
        for (const char* name : {"OPEN", "HELP", "GRID"}) {
            addHost(QString::fromLatin1(name));
        }
        for (const char* name : {"_GCODE", "Mill", "_GRID"}) {
            addAddin(name);
        }
    }

    void addHost(const QString& name) {
        table.add({name, QString(), QString(),
                   [this, name](const QStringList& arguments) {
                       ran.push_back(name);
                       given = arguments;
                   },
                   name == QLatin1String("HELP")});
    }

    void addAddin(const char* name) {
        kxCreateCommandError_e error = kxCreateCommandError_NoError;
        const kxCommand_ptr command =
            application->CreateCommand(kxString("app"), kxString(name), &error);
        owners.push_back(std::make_unique<Owner>(Owner{this, QString::fromLatin1(name)}));
        command->RegisterEvent(kxCommand_ExecuteNotify_id, owners.back().get(), &executed);
    }

    struct Owner {
        CommandRunnerTest* test;
        QString name;
    };
    static bool executed(void* owner) {
        const auto* command = static_cast<const Owner*>(owner);
        command->test->ran.push_back("addin " + command->name);
        return true;
    }

    kxHostApplication_ptr application = kxCreateHostApplication({});
    CommandTable table;
    std::vector<std::unique_ptr<Owner>> owners;
    QStringList ran;
    QStringList given;
    QStringList errors;
    QStringList printed;
    CommandRunner runner{&table, application.get(), [this](const QString& line, bool isError) {
                             (isError ? errors : printed).push_back(line);
                         }};
};

TEST_F(CommandRunnerTest, RunsAHostCommandInAnyCaseWithItsArguments) {
    EXPECT_TRUE(runner.run("  open \"my part.dxf\" second"));
    EXPECT_EQ(ran, QStringList({"OPEN"}));
    EXPECT_EQ(given, QStringList({"my part.dxf", "second"}));
    EXPECT_TRUE(errors.isEmpty());
}

TEST_F(CommandRunnerTest, RunsAnAddinsCommandByItsName) {
    EXPECT_TRUE(runner.run("_GCODE"));
    EXPECT_TRUE(runner.run("mill"));
    EXPECT_EQ(ran, QStringList({"addin _GCODE", "addin Mill"}));
}

TEST_F(CommandRunnerTest, RunsAnAddinsCommandWithoutItsUnderscore) {
    EXPECT_TRUE(runner.run("gcode"));
    EXPECT_EQ(ran, QStringList({"addin _GCODE"}));
}

TEST_F(CommandRunnerTest, RunsTheMacroOfAMenu) {
    EXPECT_TRUE(runner.run("^C^C_GCODE"));
    EXPECT_EQ(ran, QStringList({"addin _GCODE"}));
}

TEST_F(CommandRunnerTest, AnUnderscoreBeforeAHostCommandIsDropped) {
    EXPECT_TRUE(runner.run("_open x"));
    EXPECT_EQ(ran, QStringList({"OPEN"}));
    EXPECT_EQ(given, QStringList({"x"}));
}

TEST_F(CommandRunnerTest, TheNameAsTypedComesFirst) {
    EXPECT_TRUE(runner.run("GRID"));
    EXPECT_TRUE(runner.run("_GRID"));
    EXPECT_EQ(ran, QStringList({"GRID", "addin _GRID"}));
}

TEST_F(CommandRunnerTest, SaysThatACommandIsUnknown) {
    EXPECT_FALSE(runner.run("Foo bar"));
    EXPECT_EQ(errors, QStringList({"Unknown command: Foo. Type HELP for the list."}));
    EXPECT_TRUE(ran.isEmpty());
}

TEST_F(CommandRunnerTest, AnUnknownNameIsSaidAsItIs) {
    EXPECT_FALSE(runner.run("%1%2"));
    EXPECT_EQ(errors, QStringList({"Unknown command: %1%2. Type HELP for the list."}));
}

TEST_F(CommandRunnerTest, OneMissingUnderscoreIsAddedAndNoMore) {
    EXPECT_FALSE(runner.run("__GCODE"));
    EXPECT_FALSE(runner.run("__OPEN"));
    EXPECT_FALSE(runner.run("_"));
    EXPECT_FALSE(runner.run("_MILL"));
    EXPECT_TRUE(ran.isEmpty());
    EXPECT_EQ(errors.size(), 4);
}

TEST_F(CommandRunnerTest, ABlankLineRunsNothingAndSaysNothing) {
    EXPECT_FALSE(runner.run("   "));
    EXPECT_FALSE(runner.run("^C"));
    EXPECT_TRUE(errors.isEmpty());
}

TEST_F(CommandRunnerTest, AnAddinThatIsGoneHasNoCommands) {
    ASSERT_TRUE(application->RemoveUserInterface(kxString("app")));
    EXPECT_FALSE(runner.run("_GCODE"));
    EXPECT_EQ(runner.names(), QStringList({"GRID", "HELP", "OPEN"}));
}

TEST_F(CommandRunnerTest, InAPromptOnlyAllowedCommandsRun) {
    runner.setPromptActive(true, "Select one or more entities");
    EXPECT_TRUE(runner.run("help"));
    EXPECT_FALSE(runner.run("_open"));
    EXPECT_FALSE(runner.run("gcode"));
    EXPECT_EQ(ran, QStringList({"HELP"}));
    EXPECT_EQ(errors, QStringList({"OPEN cannot run now. First end the prompt "
                                   "\"Select one or more entities\" with Enter or Esc.",
                                   "_GCODE cannot run now. First end the prompt "
                                   "\"Select one or more entities\" with Enter or Esc."}));
}

TEST_F(CommandRunnerTest, InAPromptAnUnknownCommandIsStillUnknown) {
    runner.setPromptActive(true);
    EXPECT_FALSE(runner.run("FOO"));
    ASSERT_EQ(errors.size(), 1);
    EXPECT_TRUE(errors.first().startsWith("Unknown command: FOO"));
}

TEST_F(CommandRunnerTest, AfterAPromptAllCommandsRun) {
    runner.setPromptActive(true);
    runner.setPromptActive(false);
    EXPECT_TRUE(runner.run("gcode"));
    EXPECT_EQ(ran, QStringList({"addin _GCODE"}));
}

TEST_F(CommandRunnerTest, NamesAreThoseOfTheHostAndOfAddinsSorted) {
    EXPECT_EQ(runner.names(), QStringList({"_GCODE", "_GRID", "GRID", "HELP", "Mill", "OPEN"}));
}

TEST_F(CommandRunnerTest, ACommandMayChangeTheTable) {
    addHost("LAST");
    table.add({"MANY", QString(), QString(),
               [this](const QStringList& arguments) {
                   for (int number = 0; number < 100; ++number) {
                       addHost("MORE" + QString::number(number));
                   }
                   table.add({"MANY", QString(), QString(), nullptr, false});
                   given = arguments;
               },
               false});
    EXPECT_TRUE(runner.run("MANY x"));
    EXPECT_EQ(given, QStringList({"x"}));
}

TEST_F(CommandRunnerTest, WorksWithoutAnApplication) {
    CommandRunner alone(&table, nullptr, [](const QString&, bool) {});
    EXPECT_TRUE(alone.run("OPEN"));
    EXPECT_FALSE(alone.run("_GCODE"));
}

}  // namespace
