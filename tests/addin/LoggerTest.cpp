// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "Logger.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QStandardPaths>

namespace {

QString logPath(const char* name) {
    return QStandardPaths::standardLocations(QStandardPaths::TempLocation).first() + "/" + name;
}

std::string bytes(const char* name) {
    QFile file(logPath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "(none)";
}

void store(const char* name, const char* content) {
    QFile file(logPath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

}  // namespace

TEST(Logger, WithoutAFileNameAppendsToTheCommonLog) {
    store("kxaec.log", "before\n");
    {
        Logger logger;
        logger.WriteLog("a", "b");
    }
    EXPECT_EQ(bytes("kxaec.log"), "before\na\nb\n");
}

TEST(Logger, WithAFileNameEmptiesThatFile) {
    store("named.log", "before\n");
    const Logger logger("named.log");
    EXPECT_EQ(bytes("named.log"), "");
}

TEST(Logger, WritesBothTextsWithLineEndsAsUtf8) {
    {
        Logger logger("texts.log");
        logger.WriteLog("first", QString::fromUtf8("zweiter ✓"));
        logger.WriteLog("", "third");
    }
    EXPECT_EQ(bytes("texts.log"), "first\nzweiter ✓\n\nthird\n");
}

TEST(Logger, GoesOnInTheFileItIsSwitchedTo) {
    store("second.log", "before\n");
    {
        Logger logger("first.log");
        logger.WriteLog("1", "2");
        logger.OpenFile("second.log");
        logger.WriteLog("3", "4");
    }
    EXPECT_EQ(bytes("first.log"), "1\n2\n");
    EXPECT_EQ(bytes("second.log"), "3\n4\n");
}

TEST(Logger, FileThatCannotBeOpenedIsIgnored) {
    Logger logger("no such folder/x.log");
    logger.WriteLog("a", "b");
    EXPECT_EQ(bytes("no such folder/x.log"), "(none)");
    logger.OpenFile("then.log");
    logger.WriteLog("c", "d");
    logger.OpenFile("after.log");
    EXPECT_EQ(bytes("then.log"), "c\nd\n");
}
