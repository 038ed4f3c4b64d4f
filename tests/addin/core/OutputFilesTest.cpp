// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/OutputFiles.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace {

class OutputFiles : public testing::Test {
protected:
    QString path(const char* name = "program.txt") const { return m_folder.filePath(name); }

    std::string bytes() const {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "(none)";
    }

    void store(const std::string& content) const {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content.data(), static_cast<qint64>(content.size()));
    }

private:
    QTemporaryDir m_folder;
};

const std::string kMark = "\xEF\xBB\xBF";

}  // namespace

TEST_F(OutputFiles, WritingReplacesTheContent) {
    store("a much longer content than the new one\n");
    writeTextFile(path(), "G0 X1\n");
    EXPECT_EQ(bytes(), "G0 X1\n");
}

TEST_F(OutputFiles, AppendingAddsToTheEndAndMakesAMissingFile) {
    appendTextFile(path(), "a\n");
    appendTextFile(path(), "b\n");
    EXPECT_EQ(bytes(), "a\nb\n");
}

TEST_F(OutputFiles, TextIsUtf8BothWays) {
    writeTextFile(path(), "Fräsen ✓\n");
    EXPECT_EQ(bytes(), "Fr\xC3\xA4sen \xE2\x9C\x93\n");
    EXPECT_EQ(readTextFile(path()).toStdString(), "Fräsen ✓\n");
    EXPECT_EQ(readProgramFile(path()).toStdString(), "Fräsen ✓\n");
}

TEST_F(OutputFiles, FileThatCannotBeOpenedIsPassedOver) {
    writeTextFile(QString(), "text");
    appendTextFile(path("missing/folder.txt"), "text");
    numberFileLines(path("missing.txt"));
    EXPECT_FALSE(QFile::exists(path("missing/folder.txt")));
    EXPECT_EQ(readTextFile(path("missing/folder.txt")), QString());
    EXPECT_EQ(readProgramFile(QString()), QString());
}

TEST_F(OutputFiles, NumberingCountsEveryLineByFives) {
    store("; comment\n\nG0 X1\n");
    numberFileLines(path());
    EXPECT_EQ(bytes(), "N5 ; comment\nN10 \nN15 G0 X1\n");
}

TEST_F(OutputFiles, NumberingNumbersNumberedLinesAgain) {
    store("N5 G0\nN10 G1\n");
    numberFileLines(path());
    EXPECT_EQ(bytes(), "N5 N5 G0\nN10 N10 G1\n");
}

TEST_F(OutputFiles, NumberingEndsTheLastLine) {
    store("G0");
    numberFileLines(path());
    EXPECT_EQ(bytes(), "N5 G0\n");
}

TEST_F(OutputFiles, NumberingAnEmptyFileLeavesItEmpty) {
    store("");
    numberFileLines(path());
    EXPECT_EQ(bytes(), "");
}

TEST_F(OutputFiles, NumberingDropsAByteOrderMarkInsteadOfBuryingIt) {
    store(kMark + "G0\nG1\n");
    numberFileLines(path());
    EXPECT_EQ(bytes(), "N5 G0\nN10 G1\n");
}

TEST_F(OutputFiles, ReadingDropsAByteOrderMark) {
    store(kMark + "G0\n");
    EXPECT_EQ(readTextFile(path()).toStdString(), "G0\n");
    EXPECT_EQ(readProgramFile(path()).toStdString(), "G0\n");
}

TEST_F(OutputFiles, ProgramEndsAtTheFirstZeroByteAndATextDoesNot) {
    store(std::string("G0 X1\nG\0G1\n", 11));
    EXPECT_EQ(readProgramFile(path()).toStdString(), "G0 X1\nG");
    EXPECT_EQ(readTextFile(path()).size(), 11);
}

TEST_F(OutputFiles, EmptyFileGivesAnEmptyText) {
    store("");
    EXPECT_EQ(readProgramFile(path()), QString());
    EXPECT_EQ(readTextFile(path()), QString());
}
