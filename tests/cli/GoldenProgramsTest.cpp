// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "CommandRun.h"

namespace {

struct Golden {
    const char* name;
    const char* locale;
};

std::ostream& operator<<(std::ostream& out, const Golden& golden) {
    return out << golden.name << " in " << golden.locale;
}

class GoldenProgram : public testing::TestWithParam<Golden> {};

TEST_P(GoldenProgram, IsWrittenByteForByte) {
    const QString name = GetParam().name;
    if (QString(GetParam().locale) != "C") {
        ASSERT_FALSE(contentOf(QString(KX_COMMA_LOCALES) + "/de_DE.utf8/LC_NUMERIC").isEmpty())
            << "the locale with a decimal comma could not be compiled: install locales";
    }
    const QByteArray expected = contentOf(example(name + ".nc"));
    ASSERT_FALSE(expected.isEmpty());
    const CommandRun run = runProgram({example(name + ".dxf"), "--config", example(name + ".toml")},
                                      GetParam().locale);
    EXPECT_EQ(run.code, 0) << run.messages.constData();
    EXPECT_EQ(run.output.toStdString(), expected.toStdString());
}

INSTANTIATE_TEST_SUITE_P(Examples, GoldenProgram,
                         testing::Values(Golden{"flange", "C"}, Golden{"flange", "de_DE.utf8"},
                                         Golden{"hole-plate", "C"},
                                         Golden{"hole-plate", "de_DE.utf8"},
                                         Golden{"name-plate", "C"},
                                         Golden{"name-plate", "de_DE.utf8"}));

}  // namespace
