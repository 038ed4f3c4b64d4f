// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// Names in drawings and files are printed so that they can't steer the terminal.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CommandRun.h"

namespace {

using testing::HasSubstr;

/// Changes the title, moves the cursor, hides what follows, turns the direction of writing, begins
/// a sequence with a single character, pretends to be a line of its own.
QByteArrayList steeringTexts() {
    return {"\x1b]0;title\x07",
            "\x1b[2J\x1b[1;1H",
            "\x1b[8m",
            "\xE2\x80\xAE"
            "gnp.exe",
            "\xC2\x9b"
            "31m",
            "\rkxgcode: fine",
            "\x08\x08\x7f",
            "\xE2\x81\xA6"
            "x",
            "\x9b"
            "31m"};
}

/// The same where a drawing writes characters as numbers.
QByteArrayList steeringEscapes() {
    return {"\\U+001B]0;title\\U+0007", "\\U+009B31m", "\\U+202Egnp.exe",
            "\\U+000Akxgcode: fine",    "\\U+0000",    "\\U+2028next"};
}

/// What would steer a terminal in what was printed; empty when nothing does.
std::string steeringIn(const QByteArray& messages) {
    const QString text = QString::fromUtf8(messages);
    if (text.contains(QChar::ReplacementCharacter)) {
        return "bytes that are not UTF-8";
    }
    for (const QChar character : text) {
        const ushort code = character.unicode();
        const bool isControl = character.category() == QChar::Other_Control && code != '\n';
        const bool isFormat = character.category() == QChar::Other_Format ||
                              character.category() == QChar::Separator_Line ||
                              character.category() == QChar::Separator_Paragraph;
        if (isControl || isFormat) {
            return "U+" + QString::number(code, 16).toStdString();
        }
    }
    return {};
}

QByteArray hostileEntity(const QByteArray& name) {
    return "0\n" + name + "\n8\n" + name + "\n10\n0\n20\n0\n2\n" + name + "\n1\n" + name + "\n";
}

TEST(Terminal, IsNotSteeredByTheReportOfADrawing) {
    QByteArray entities = lineEntity(0, 0, 10, 0);
    for (const QByteArray& text : steeringTexts() + steeringEscapes()) {
        entities += "0\nINSERT\n8\n" + text + "\n2\n" + text + "\n10\n0\n20\n0\n";
        entities += "0\nTEXT\n8\n" + text + "\n10\n0\n20\n0\n40\n1\n1\n" + text + "\n";
        entities += "0\nCIRCLE\n8\n" + text + "\n10\n0\n20\n0\n40\n1\n";
        entities += hostileEntity(text);
    }
    const WorkFolder work;
    const QString drawing = work.write("hostile.dxf", drawingOf(entities));
    const CommandRun run =
        runProgram(QStringList{drawing, "--report", "-o", work.path("a.nc")} + toolPathSettings());
    EXPECT_EQ(run.code, 0) << run.messages.constData();
    EXPECT_EQ(steeringIn(run.messages), "");
    EXPECT_THAT(run.messages.toStdString(), HasSubstr("\\x1b]0;title\\x07"));
    EXPECT_EQ(steeringIn(contentOf(work.path("a.nc"))), "");
}

TEST(Terminal, IsNotSteeredByTheListOfLayers) {
    QByteArray entities = lineEntity(0, 0, 10, 0);
    for (const QByteArray& text : steeringTexts() + steeringEscapes()) {
        entities += "0\nCIRCLE\n8\n" + text + "\n10\n0\n20\n0\n40\n1\n";
    }
    const WorkFolder work;
    const QString drawing = work.write("layers.dxf", drawingOf(entities));
    const CommandRun run =
        runProgram(QStringList{drawing, "--layer", "\x1b[31mno"} + toolPathSettings());
    EXPECT_EQ(run.code, 3);
    EXPECT_EQ(steeringIn(run.messages), "");
    EXPECT_EQ(("\n" + run.messages).count("\nkxgcode: "), 1) << run.messages.constData();
}

TEST(Terminal, IsNotSteeredByWhatADrawingHasInPlaceOfANumber) {
    for (const QByteArray& text : steeringTexts().mid(0, 4)) {
        const WorkFolder work;
        for (const QByteArray& broken :
             {"0\nLINE\n8\n0\n10\n" + text + "\n", "0\nSECTION\n2\nENTITIES\n" + text + "\n1\n",
              QByteArray(text + "\n" + text + "\n")}) {
            const QString drawing = work.write("broken.dxf", drawingOf(broken));
            const CommandRun run = runProgram(QStringList{drawing} + toolPathSettings());
            EXPECT_EQ(steeringIn(run.messages), "") << text.toPercentEncoding().constData();
        }
    }
}

TEST(Terminal, IsNotSteeredByNamesOfFilesAndSettings) {
    const WorkFolder work;
    for (const QByteArray& text : steeringTexts().mid(3, 2)) {
        const QString name = QString::fromUtf8(text).remove(QChar::ReplacementCharacter) + "\n.dxf";
        const QString settings = work.write("a.toml", text + " = 1\n");
        const QString value = work.write("b.toml", "mode = \"" + text + "\"\n");
        for (const QStringList& arguments :
             {QStringList{work.path(name)},
              {example("flange.dxf"), "--preamble", work.path(name)},
              {example("flange.dxf"), "-o", work.path(name) + "/no/folder"},
              {example("flange.dxf"), "--addin", work.path(name)},
              {example("flange.dxf"), "--config", settings},
              {example("flange.dxf"), "--config", value},
              {example("flange.dxf"), "--config", work.path(name)},
              {example("flange.dxf"), "--depth", name},
              {example("flange.dxf"), "--" + name},
              {example("flange.dxf"), "--mode", name}}) {
            const CommandRun run = runProgram(arguments + toolPathSettings());
            EXPECT_GT(run.code, 0);
            EXPECT_EQ(steeringIn(run.messages), "") << arguments.last().toStdString();
        }
    }
}

TEST(Terminal, IsNotSteeredByTheCheckOfAProgram) {
    QByteArray program = "G21 G90\nG1 X1 F100\n";
    for (const QByteArray& text : steeringTexts()) {
        program += "(" + text + ")\nO" + text + " call\nG1 X" + text + "\n" + text + "\nG" + text +
                   "1\n(MSG," + text + ")\n; " + text + "\n#<" + text + "> = 1\n";
    }
    const WorkFolder work;
    const QString name = work.write("\x1b[31mred\n.nc", program);
    const CommandRun run = runProgram({"check", name});
    EXPECT_GT(run.output.size(), 200) << run.messages.constData();
    EXPECT_EQ(steeringIn(run.output), "");
    EXPECT_EQ(steeringIn(run.messages), "");
}

TEST(Terminal, GetsTheProgramAsItIs) {
    const CommandRun run = runProgram(
        QStringList{example("flange.dxf"), "--comment", "\x1b[1m\u202e"} + toolPathSettings());
    EXPECT_EQ(run.code, 0) << run.messages.constData();
    EXPECT_TRUE(run.output.startsWith("\x1b[1m\xE2\x80\xAE\n"));
}

}  // namespace
