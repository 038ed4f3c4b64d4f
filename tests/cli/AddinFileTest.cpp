// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "CommandRun.h"

namespace {

using testing::HasSubstr;

const QString kLibrary = "libGCodeAddin.so.1";

class AddinFile : public testing::Test {
protected:
    void TearDown() override {
        qunsetenv("KX_ADDIN_PATH");
        QDir::setCurrent(before);
    }
    static CommandRun runWith(const QString& addinPath) {
        qputenv("KX_ADDIN_PATH", QFile::encodeName(addinPath));
        return runProgram(QStringList{example("flange.dxf")} + toolPathSettings());
    }
    QString folder() const { return QFileInfo(work.path("x")).path(); }

    const QString before = QDir::currentPath();
    WorkFolder work;
};

TEST_F(AddinFile, IsTakenFromTheVariableAsAFileAFolderOrTheFirstOfSeveral) {
    const QString file = KX_ADDIN_FILE;
    const QString inFolder = QFileInfo(file).path();
    for (const QString& path : {file, inFolder, "/nowhere:" + inFolder, ":" + inFolder,
                                folder() + ":" + file + ":/nowhere"}) {
        EXPECT_EQ(runWith(path).code, 0) << path.toStdString();
    }
}

TEST_F(AddinFile, WhenTheVariableLeadsNowhereNoOtherIsTaken) {
    const CommandRun run = runWith("/nowhere");
    EXPECT_EQ(run.code, 2);
    EXPECT_THAT(run.messages.toStdString(), HasSubstr("/nowhere"));
}

TEST_F(AddinFile, IsNotLookedForInTheCurrentFolder) {
    work.write(kLibrary, "no library");
    QDir().mkpath(work.path("lib"));
    work.write("lib/" + kLibrary, "no library");
    QDir::setCurrent(folder());
    const CommandRun run = runProgram(QStringList{example("flange.dxf")} + toolPathSettings());
    EXPECT_EQ(run.code, 0) << run.messages.constData();
    EXPECT_EQ(runWith("::").code, 2) << "an empty entry is not the current folder";
}

TEST_F(AddinFile, ABareNameIsAFileOfTheCurrentFolderAndNotOfTheSystem) {
    QDir::setCurrent(folder());
    EXPECT_THAT(runWith("libc.so.6").messages.toStdString(), HasSubstr("No such file"));
    ASSERT_TRUE(QFile::link(KX_ADDIN_FILE, work.path("mine.so")));
    EXPECT_EQ(runWith("mine.so").code, 0);
}

TEST_F(AddinFile, ThatIsANamedPipeIsNotWaitedFor) {
    ASSERT_EQ(mkfifo(QFile::encodeName(work.path("pipe.so")).constData(), 0600), 0);
    EXPECT_THAT(runWith(work.path("pipe.so")).messages.toStdString(),
                HasSubstr("not a regular file"));
}

TEST_F(AddinFile, IsNoSettingOfAFile) {
    const QString settings =
        work.write("mill.toml", "addin = \"" + QByteArray(KX_ADDIN_FILE) + "\"\n");
    const CommandRun run =
        runProgram(QStringList{example("flange.dxf"), "--config", settings} + toolPathSettings());
    EXPECT_EQ(run.code, 2);
    EXPECT_THAT(run.messages.toStdString(), HasSubstr("mill.toml:1: 'addin' is no setting"));
}

}  // namespace
