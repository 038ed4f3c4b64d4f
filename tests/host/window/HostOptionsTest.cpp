// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/HostOptions.h"

#include <gtest/gtest.h>

namespace {

struct Parsed {
    explicit Parsed(const QStringList& arguments) {
        options = parseHostOptions(QStringList{"kxhost"} + arguments, &message, &exitCode);
    }
    std::optional<HostOptions> options;
    QString message;
    int exitCode = -1;
};

void expectRefused(const QStringList& arguments, const char* cause) {
    const Parsed parsed(arguments);
    EXPECT_FALSE(parsed.options);
    EXPECT_EQ(parsed.exitCode, 2);
    EXPECT_TRUE(parsed.message.contains(cause)) << parsed.message.toStdString();
    EXPECT_TRUE(parsed.message.contains("kxhost --help")) << parsed.message.toStdString();
}

TEST(HostOptions, Nothing_asked_opens_an_empty_window_with_add_ins) {
    const Parsed parsed({});
    ASSERT_TRUE(parsed.options);
    EXPECT_TRUE(parsed.options->drawings.isEmpty());
    EXPECT_TRUE(parsed.options->addins.isEmpty());
    EXPECT_FALSE(parsed.options->withoutAddins);
    EXPECT_FALSE(parsed.options->openEach);
    EXPECT_TRUE(parsed.message.isEmpty());
}

TEST(HostOptions, Drawings_keep_their_order_and_names) {
    const Parsed parsed({"b.dxf", "--open-each", "a with blank.dxf"});
    ASSERT_TRUE(parsed.options);
    EXPECT_EQ(parsed.options->drawings, (QStringList{"b.dxf", "a with blank.dxf"}));
    EXPECT_TRUE(parsed.options->openEach);
}

TEST(HostOptions, After_two_dashes_everything_is_a_drawing) {
    const Parsed parsed({"--", "--no-addins"});
    ASSERT_TRUE(parsed.options);
    EXPECT_EQ(parsed.options->drawings, QStringList{"--no-addins"});
    EXPECT_FALSE(parsed.options->withoutAddins);
}

TEST(HostOptions, Add_ins_are_named_one_by_one) {
    const Parsed parsed({"--addin", "one.so", "--addin=two.so", "drawing.dxf"});
    ASSERT_TRUE(parsed.options);
    EXPECT_EQ(parsed.options->addins, (QStringList{"one.so", "two.so"}));
    EXPECT_EQ(parsed.options->drawings, QStringList{"drawing.dxf"});
}

TEST(HostOptions, No_add_ins) {
    const Parsed parsed({"--no-addins"});
    ASSERT_TRUE(parsed.options);
    EXPECT_TRUE(parsed.options->withoutAddins);
}

TEST(HostOptions, What_is_not_known_ends_with_2_and_says_so) {
    expectRefused({"--frobnicate"}, "frobnicate");
    expectRefused({"-x"}, "x");
    expectRefused({"--addin"}, "addin");
    expectRefused({"--no-addins=1"}, "no-addins");
}

TEST(HostOptions, What_makes_no_sense_together_ends_with_2) {
    expectRefused({"--addin", "one.so", "--no-addins"}, "exclude each other");
    expectRefused({"--addin="}, "--addin needs a file");
    expectRefused({"--open-each"}, "needs a drawing");
}

TEST(HostOptions, Help_names_every_option_and_ends_with_0) {
    for (const char* asked : {"--help", "-h"}) {
        const Parsed parsed({asked});
        EXPECT_FALSE(parsed.options);
        EXPECT_EQ(parsed.exitCode, 0);
        for (const char* option : {"--addin FILE", "--no-addins", "--open-each", "--help",
                                   "--version", "DRAWINGS", "KX_ADDIN_PATH"}) {
            EXPECT_TRUE(parsed.message.contains(option)) << option;
        }
        EXPECT_TRUE(parsed.message.endsWith("\n"));
    }
}

TEST(HostOptions, Version_is_the_projects_and_ends_with_0) {
    const Parsed parsed({"--version"});
    EXPECT_FALSE(parsed.options);
    EXPECT_EQ(parsed.exitCode, 0);
    EXPECT_EQ(parsed.message, "kxhost " KXHOST_TEST_VERSION "\n");
}

}  // namespace
