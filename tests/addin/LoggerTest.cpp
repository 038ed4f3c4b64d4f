// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "Logger.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

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

/// Where the log is to be, in the file system's own bytes.
QByteArray place(const char* name) {
    return QFile::encodeName(logPath(name));
}

/// Opens a log under the name and writes to it, both ways; what it must leave alone lies there.
void logTo(const char* name) {
    Logger logger(name);
    logger.WriteLog("first", "second");
    logger.OpenFile("elsewhere.log");
}

/// What the common log, which is appended to, makes of what lies under its name.
void logToTheCommonLog() {
    Logger logger;
    logger.WriteLog("first", "second");
}

/// Does something in a process of its own; true when it ended by itself and well.
template <class Work>
bool runInProcess(const Work& work) {
    const pid_t child = fork();
    if (child == 0) {
        work();
        _exit(0);
    }
    int status = -1;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) &&
           WEXITSTATUS(status) == 0;
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

TEST(Logger, IsForItsOwnerOnly) {
    const Logger logger("private.log");
    struct stat found {};
    ASSERT_EQ(stat(place("private.log").constData(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777U, 0600U);
}

TEST(Logger, DoesNotFollowALinkUnderItsName) {
    store("precious.txt", "kept");
    for (const char* name : {"linked.log", "kxaec.log"}) {
        unlink(place(name).constData());
        ASSERT_EQ(symlink(place("precious.txt").constData(), place(name).constData()), 0);
    }
    logTo("linked.log");
    logToTheCommonLog();
    unlink(place("kxaec.log").constData());
    EXPECT_EQ(bytes("precious.txt"), "kept");
}

TEST(Logger, MakesNoFileWhereALinkLeadsNowhere) {
    ASSERT_EQ(symlink(place("not yet there").constData(), place("dangling.log").constData()), 0);
    logTo("dangling.log");
    EXPECT_EQ(bytes("not yet there"), "(none)");
}

TEST(Logger, LeavesAFileWithASecondNameAlone) {
    store("second name.txt", "kept");
    for (const char* name : {"hard.log", "kxaec.log"}) {
        unlink(place(name).constData());
        ASSERT_EQ(link(place("second name.txt").constData(), place(name).constData()), 0);
    }
    logTo("hard.log");
    logToTheCommonLog();
    unlink(place("kxaec.log").constData());
    EXPECT_EQ(bytes("second name.txt"), "kept");
}

TEST(Logger, DoesNotWaitForTheReaderOfAQueueNorWriteToIt) {
    ASSERT_EQ(mkfifo(place("queue.log").constData(), 0600), 0);
    logTo("queue.log");
    const int reader = open(place("queue.log").constData(), O_RDONLY | O_NONBLOCK);
    ASSERT_GE(reader, 0);
    logTo("queue.log");
    char byte = 0;
    EXPECT_EQ(read(reader, &byte, 1), 0) << "nothing was written";
    close(reader);
}

TEST(Logger, DirectoryUnderItsNameIsIgnored) {
    ASSERT_TRUE(QDir().mkpath(logPath("folder.log/inner")));
    logTo("folder.log");
    EXPECT_TRUE(QFileInfo(logPath("folder.log/inner")).isDir());
}

TEST(Logger, FileThatIsReadOnlyIsIgnored) {
    if (geteuid() == 0) {
        GTEST_SKIP() << "nothing is read-only for root";
    }
    store("read-only.log", "kept");
    ASSERT_EQ(chmod(place("read-only.log").constData(), 0400), 0);
    logTo("read-only.log");
    EXPECT_EQ(bytes("read-only.log"), "kept");
}

TEST(Logger, FileOfSomebodyElseIsLeftAlone) {
    constexpr uid_t kNobody = 65534;
    store("foreign.log", "kept");
    if (chown(place("foreign.log").constData(), kNobody, kNobody) != 0) {
        GTEST_SKIP() << "only root can give a file away";
    }
    logTo("foreign.log");
    EXPECT_EQ(bytes("foreign.log"), "kept");
}

TEST(Logger, TwoProcessesAppendToTheCommonLogWithoutLoss) {
    constexpr int kLines = 100;
    unlink(place("kxaec.log").constData());
    const bool done = runInProcess([] {
        Logger outer;
        if (!runInProcess([] {
                Logger inner;
                for (int i = 0; i < kLines; ++i) {
                    inner.WriteLog("inner", "inner");
                }
            })) {
            _exit(1);
        }
        for (int i = 0; i < kLines; ++i) {
            outer.WriteLog("outer", "outer");
        }
    });
    ASSERT_TRUE(done);
    const QByteArray log = QByteArray::fromStdString(bytes("kxaec.log"));
    EXPECT_EQ(log.count("inner\n"), 2 * kLines);
    EXPECT_EQ(log.count("outer\n"), 2 * kLines);
    EXPECT_EQ(log.count('\n'), 4 * kLines);
}

TEST(Logger, TwoProcessesOpenTheSameLogAtOnce) {
    const Logger outer("shared.log");
    EXPECT_TRUE(runInProcess([] { const Logger inner("shared.log"); }));
    EXPECT_EQ(bytes("shared.log"), "");
}
