// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include "FileOpens.h"
#include "HostileDrawing.h"
#include "PlantedFiles.h"
#include "RecordedRun.h"

namespace {

/// What a test compares and shows.
std::string lines(const QStringList& list) {
    return list.join("\n").toStdString();
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class OpenedFiles : public testing::Test {
protected:
    OpenedFiles() : planted(recorded.work()) {
        // What would be found by its name in the folder that one happens to be in.
        for (const char* name : {"qt.conf",
                                 "fonts.conf",
                                 "GCodeAddin.qss",
                                 "gcodeaddin/vshader.glsl",
                                 "vshader.glsl",
                                 "libGCodeAddin.so.1",
                                 "libkxInterface.so.1",
                                 "libQt5Widgets.so.5",
                                 "libdxflib.so.3",
                                 "platforms/libqoffscreen.so",
                                 "imageformats/libqsvg.so",
                                 "kxgcode.toml",
                                 "config.ini",
                                 "Kestrix.chm",
                                 "KestrixQM.chm",
                                 "manual/index.html",
                                 "txt.shx",
                                 "acad.fmp",
                                 "GCodeAddin.log",
                                 "qtlogging.ini",
                                 ".drirc",
                                 "kxhost.conf"}) {
            recorded.write(name, "not for reading\n");
        }
    }

    /// Nothing that is planted was opened, and nothing else besides what is named.
    void expectOpenedOnly(const QStringList& named) const {
        EXPECT_TRUE(recorded.isRecorded());
        for (const QString& name : named) {
            EXPECT_TRUE(recorded.hasOpened(name)) << name.toStdString();
        }
        EXPECT_EQ(lines(recorded.foreign(named)), "");
    }

    /// What is written goes into a file beside its place first, whose name can't be foreseen.
    void expectWrittenBeside(const QStringList& opened) const {
        const QRegularExpression beside("^open " + QRegularExpression::escape(recorded.work()) +
                                        "(/\\.kx-[0-9]+-[0-9]+)?$");
        QStringList others = opened;
        others.erase(
            std::remove_if(others.begin(), others.end(),
                           [&](const QString& line) { return beside.match(line).hasMatch(); }),
            others.end());
        EXPECT_EQ(lines(others), "");
    }

    static bool hasDisplay() { return !qEnvironmentVariableIsEmpty("DISPLAY"); }

    QStringList toolPath(const QString& drawing, const QString& output) const {
        return {drawing,   "-o", output,     "--safe-height", "2",         "--retraction", "10",
                "--depth", "-1", "--feed-z", "100",           "--feed-xy", "300"};
    }

    RecordedRun recorded;
    PlantedFiles planted;
};

TEST_F(OpenedFiles, KxgcodeOpensNothingThatADrawingNames) {
    const QString drawing = recorded.write("part.dxf", hostileDrawing(planted));
    const QString output = recorded.work() + "/part.nc";
    const FileOpens opens(planted.folder());
    ASSERT_TRUE(recorded.run(KX_GCODE, toolPath(drawing, output) + QStringList{"--report"}))
        << recorded.messages().toStdString();
    EXPECT_EQ(lines(opens.take()), "");
    EXPECT_GT(contentOf(output).count('\n'), 10) << "the lines of the drawing are in the program";
    EXPECT_TRUE(recorded.hasOpened(drawing));
    expectWrittenBeside(recorded.foreign({drawing}));
}

TEST_F(OpenedFiles, KxgcodeOpensTheFilesOfItsOptionsOnly) {
    const QString drawing = recorded.write("part.dxf", hostileDrawing(planted));
    const QStringList ways = planted.plant("named.txt");
    QByteArray settings = "safe-height = 2\nretraction = 10\ndepth = -1\nfeed-z = 1\nfeed-xy = 3\n";
    settings +=
        "comment = \"@" + ways.at(0).toUtf8() + " (include " + ways.at(1).toUtf8() + ")\"\n";
    const QString file = recorded.write("mill.toml", settings);
    const QString preamble = recorded.write(
        "begin.txt", "o<" + ways.at(2).toUtf8() + "> call\n(LOGOPEN," + ways.at(0).toUtf8() +
                         ")\n#<_x>=#<_ini[" + ways.at(1).toUtf8() + "]>\n");
    const FileOpens opens(planted.folder());
    ASSERT_TRUE(recorded.run(KX_GCODE, {drawing, "--config", file, "--preamble", preamble}))
        << recorded.messages().toStdString();
    EXPECT_EQ(lines(opens.take()), "");
    expectOpenedOnly({drawing, file, preamble});
}

TEST_F(OpenedFiles, ThePreviewOpensNothingThatAProgramNames) {
    if (!hasDisplay()) {
        GTEST_SKIP() << "there is no display";
    }
    QByteArray program = "G21 G90\nG1 X10 F100\n";
    for (const QString& way : planted.plant("sub.ngc")) {
        const QByteArray name = way.toUtf8();
        program += "o<" + name + "> call [1]\nM98 (" + name + ")\nM98 P" + name + "\n(LOGOPEN," +
                   name + ")\n(LOGAPPEND," + name + ")\n(PROBEOPEN " + name + ")\n#include \"" +
                   name + "\"\n%include " + name + "\nM30 " + name + "\n";
    }
    const QString file = recorded.write("hostile.nc", program + "G1 Y10\n");
    const QString picture = recorded.work() + "/hostile.png";
    const FileOpens opens(planted.folder());
    ASSERT_TRUE(recorded.run(KX_GCODE, {"view", file, "--preview", picture}, true))
        << recorded.messages().toStdString();
    EXPECT_EQ(lines(opens.take()), "");
    expectWrittenBeside(recorded.foreign({file}));
}

TEST_F(OpenedFiles, KxhostOpensNothingThatADrawingNames) {
    const QString drawing = recorded.write("part.dxf", hostileDrawing(planted));
    const FileOpens opens(planted.folder());
    ASSERT_TRUE(recorded.run(KX_HOST, {"--open-each", drawing}))
        << recorded.messages().toStdString();
    EXPECT_EQ(lines(opens.take()), "");
    EXPECT_THAT(recorded.output().toStdString(), testing::HasSubstr("part.dxf: "));
    EXPECT_THAT(recorded.output().toStdString(), testing::HasSubstr(" objects\n"));
    expectOpenedOnly({drawing});
}

TEST_F(OpenedFiles, KxhostOpensNothingThatADrawingNamesOnADisplay) {
    if (!hasDisplay()) {
        GTEST_SKIP() << "there is no display";
    }
    const QString drawing = recorded.write("part.dxf", hostileDrawing(planted));
    const FileOpens opens(planted.folder());
    ASSERT_TRUE(recorded.run(KX_HOST, {"--open-each", drawing}, true))
        << recorded.messages().toStdString();
    EXPECT_EQ(lines(opens.take()), "");
    expectOpenedOnly({drawing});
}

TEST_F(OpenedFiles, TheRecordShowsWhatIsOpenedBesides) {
    const QString drawing = recorded.write("part.dxf", hostileDrawing(planted));
    const QString other = recorded.write("other.dxf", contentOf(drawing));
    ASSERT_TRUE(recorded.run(KX_HOST, {"--open-each", drawing, other}));
    EXPECT_EQ(lines(recorded.foreign({drawing})), "open " + other.toStdString());
}

TEST_F(OpenedFiles, WhatIsPlantedForTheLogIsLeftAlone) {
    const QString log = recorded.temporary() + "/GCodeAddin.log";
    const QString precious = recorded.write("precious.txt", "kept\n");
    const QString drawing = recorded.write("part.dxf", hostileDrawing(planted));
    const QString output = recorded.work() + "/part.nc";
    const auto runs = [&] { return recorded.run(KX_GCODE, toolPath(drawing, output)); };
    ASSERT_TRUE(QFile::link(precious, log));
    EXPECT_TRUE(runs()) << "a link";
    ASSERT_TRUE(QFile::remove(log));
    ASSERT_EQ(link(QFile::encodeName(precious).constData(), QFile::encodeName(log).constData()), 0);
    EXPECT_TRUE(runs()) << "a second name";
    EXPECT_EQ(contentOf(precious), "kept\n");
    ASSERT_TRUE(QFile::remove(log));
    ASSERT_EQ(mkfifo(QFile::encodeName(log).constData(), 0600), 0);
    EXPECT_TRUE(runs()) << "a named pipe";
    ASSERT_TRUE(QFile::remove(log));
    ASSERT_TRUE(QDir().mkdir(log));
    EXPECT_TRUE(runs()) << "a folder";
}

TEST_F(OpenedFiles, TemporaryFilesAreOurOwn) {
    const QString drawing = recorded.write("part.dxf", hostileDrawing(planted));
    const QString output = recorded.work() + "/part.nc";
    const QStringList arguments = toolPath(drawing, output) + QStringList{"--comment", "x"};
    ASSERT_TRUE(recorded.run(KX_GCODE, arguments));
    const QStringList first = recorded.openedBelow(recorded.temporary());
    ASSERT_TRUE(recorded.run(KX_GCODE, arguments));
    const QStringList second = recorded.openedBelow(recorded.temporary());
    EXPECT_EQ(first.filter("program.nc").isEmpty(), false) << "the comment was saved";
    for (const QString& name : first) {
        const bool isFixed = name == recorded.temporary() + "/GCodeAddin.log";
        EXPECT_EQ(second.contains(name), isFixed) << name.toStdString();
    }
}

TEST_F(OpenedFiles, NoTemporaryFileStays) {
    const QString drawing = recorded.write("part.dxf", hostileDrawing(planted));
    const QString output = recorded.work() + "/part.nc";
    ASSERT_TRUE(recorded.run(KX_GCODE, toolPath(drawing, output) + QStringList{"--comment", "x"}));
    QStringList left = QDir(recorded.temporary())
                           .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    left.removeAll("GCodeAddin.log");
    left = left.filter(QRegularExpression("^(?!runtime-)"));
    EXPECT_EQ(lines(left), "");
}

}  // namespace
