// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/FileWatch.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdio>

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include "Waiting.h"

namespace {

void write(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_EQ(file.write(content), content.size());
}

/// Sets the time of change, which a file system with coarse times may not change by itself.
void touch(const QString& path, long second) {
    const timespec times[2] = {{second, 0}, {second, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times, 0), 0);
}

class FileWatchTest : public testing::Test {
protected:
    void SetUp() override {
        write(m_path, "one");
        m_watch.add(m_path);
    }

    bool isTold(int times = 1) {
        return waitUntil([&] { return m_told.count() >= times; });
    }
    /// Long enough for a report, had there been a reason.
    int toldAfterQuiet() {
        letPass(FileWatch::kQuietMs * 3);
        return m_told.count();
    }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath("part.dxf");
    FileWatch m_watch;
    QSignalSpy m_told{&m_watch, &FileWatch::changed};
};

TEST_F(FileWatchTest, A_rewritten_file_is_told_once_by_the_name_it_was_added_with) {
    write(m_path, "two");
    ASSERT_TRUE(isTold());
    EXPECT_EQ(m_told.at(0).at(0).toString(), m_path);
    EXPECT_EQ(toldAfterQuiet(), 1);
}

TEST_F(FileWatchTest, A_file_that_is_replaced_by_renaming_is_told_again_and_again) {
    for (int i = 0; i < 3; ++i) {
        write(m_folder.filePath("new"), "content " + QByteArray::number(i));
        ASSERT_EQ(std::rename(QFile::encodeName(m_folder.filePath("new")).constData(),
                              QFile::encodeName(m_path).constData()),
                  0);
        ASSERT_TRUE(isTold(i + 1)) << "replacement " << i;
    }
    write(m_path, "written in place after that");
    EXPECT_TRUE(isTold(4));
}

TEST_F(FileWatchTest, A_file_that_vanishes_is_told_when_it_is_back) {
    ASSERT_TRUE(QFile::remove(m_path));
    EXPECT_EQ(toldAfterQuiet(), 0);
    write(m_path, "two");
    EXPECT_TRUE(isTold());
    write(m_path, "three");
    EXPECT_TRUE(isTold(2)) << "the file that came back is not watched";
}

TEST_F(FileWatchTest, A_file_that_comes_back_as_it_was_has_not_changed) {
    ASSERT_TRUE(QFile::remove(m_path));
    letPass(20);
    write(m_path, "one");
    EXPECT_EQ(toldAfterQuiet(), 0);
}

TEST_F(FileWatchTest, A_burst_of_writes_is_told_once_when_it_is_over) {
    int toldMeanwhile = 0;
    for (int i = 0; i < 12; ++i) {
        write(m_path, "content " + QByteArray::number(i));
        toldMeanwhile += m_told.count();
        letPass(FileWatch::kQuietMs / 8);
    }
    ASSERT_TRUE(isTold());
    EXPECT_EQ(toldAfterQuiet() + toldMeanwhile, 1);
}

TEST_F(FileWatchTest, A_touch_is_no_change) {
    touch(m_path, 1000000);
    EXPECT_EQ(toldAfterQuiet(), 0);
    write(m_path, "one");
    touch(m_path, 2000000);
    EXPECT_EQ(toldAfterQuiet(), 0);
}

TEST_F(FileWatchTest, Other_bytes_of_the_same_length_are_a_change) {
    touch(m_path, 1000000);
    m_watch.accept(m_path);
    write(m_path, "eno");
    touch(m_path, 1000000);
    EXPECT_TRUE(isTold());
}

TEST_F(FileWatchTest, A_large_file_is_compared_by_length_and_time) {
    const QByteArray large(static_cast<int>(FileContent::kMaxDigested), 'x');
    write(m_path, large);
    touch(m_path, 1000000);
    m_watch.accept(m_path);
    EXPECT_EQ(toldAfterQuiet(), 0);
    touch(m_path, 2000000);
    EXPECT_TRUE(isTold());
}

TEST_F(FileWatchTest, What_is_accepted_is_not_told) {
    write(m_path, "two");
    letPass(20);
    m_watch.accept(m_path);
    EXPECT_EQ(toldAfterQuiet(), 0);
    write(m_path, "three");
    EXPECT_TRUE(isTold());
}

TEST_F(FileWatchTest, A_removed_file_is_not_told_but_its_neighbour_is) {
    const QString other = m_folder.filePath("other.dxf");
    write(other, "one");
    m_watch.add(other);
    m_watch.remove(m_path);
    write(m_path, "two");
    std::rename(QFile::encodeName(other).constData(),
                QFile::encodeName(m_folder.filePath("away")).constData());
    write(other, "two");
    ASSERT_TRUE(isTold());
    EXPECT_EQ(toldAfterQuiet(), 1);
    EXPECT_EQ(m_told.at(0).at(0).toString(), other);
}

TEST_F(FileWatchTest, A_folder_that_never_rests_does_not_put_a_report_off) {
    write(m_path, "two");
    int noise = 0;
    EXPECT_TRUE(waitUntil([&] {
        ++noise;
        write(m_folder.filePath("noise" + QString::number(noise % 50)), QByteArray(noise, 'x'));
        return m_told.count() == 1;
    }));
    EXPECT_GT(noise, 5);
}

TEST_F(FileWatchTest, A_file_that_is_not_there_yet_is_told_when_it_comes) {
    const QString later = m_folder.filePath("later.dxf");
    m_watch.add(later);
    write(later, "now");
    ASSERT_TRUE(isTold());
    EXPECT_EQ(m_told.at(0).at(0).toString(), later);
}

TEST_F(FileWatchTest, A_folder_that_is_removed_and_made_anew_is_watched_again) {
    const QString folder = m_folder.filePath("a/b");
    const QString file = folder + "/part.dxf";
    ASSERT_TRUE(QDir().mkpath(folder));
    write(file, "one");
    m_watch.add(file);
    for (int i = 0; i < 3; ++i) {
        // Once only its own folder goes, and then that above with it.
        ASSERT_TRUE(QDir(i == 0 ? folder : m_folder.filePath("a")).removeRecursively());
        if (i < 2) {
            EXPECT_EQ(toldAfterQuiet(), i) << "a file that is gone has not changed";
        }
        ASSERT_TRUE(QDir().mkpath(folder));
        write(file, "made anew " + QByteArray::number(i));
        ASSERT_TRUE(isTold(i + 1)) << i;
    }
    write(file, "written in place after that");
    EXPECT_TRUE(isTold(4));
}

TEST_F(FileWatchTest, A_folder_that_another_takes_the_name_of_is_watched) {
    const QString folder = m_folder.filePath("a/b");
    const QString file = folder + "/part.dxf";
    ASSERT_TRUE(QDir().mkpath(folder));
    write(file, "one");
    m_watch.add(file);
    const auto rename = [this](const char* from, const char* to) {
        return std::rename(QFile::encodeName(m_folder.filePath(from)).constData(),
                           QFile::encodeName(m_folder.filePath(to)).constData());
    };
    ASSERT_TRUE(QDir().mkpath(m_folder.filePath("new/b")));
    write(m_folder.filePath("new/b/part.dxf"), "two");
    ASSERT_EQ(rename("a", "old"), 0);
    ASSERT_EQ(rename("new", "a"), 0);
    ASSERT_TRUE(isTold());
    write(m_folder.filePath("old/b/part.dxf"), "no longer of interest");
    write(file, "three");
    ASSERT_TRUE(isTold(2));
    EXPECT_EQ(toldAfterQuiet(), 2);
}

TEST_F(FileWatchTest, A_folder_that_is_not_there_yet_is_watched_when_it_comes) {
    const QString file = m_folder.filePath("later/deep/part.dxf");
    m_watch.add(file);
    ASSERT_TRUE(QDir().mkpath(m_folder.filePath("later/deep")));
    letPass(20);
    write(file, "now");
    EXPECT_TRUE(isTold());
}

TEST_F(FileWatchTest, What_is_no_file_any_more_is_not_read) {
    for (const char* kind : {"pipe", "device", "folder"}) {
        ASSERT_TRUE(QFile::remove(m_path) || QDir().rmdir(m_path));
        if (std::string(kind) == "pipe") {
            ASSERT_EQ(::mkfifo(QFile::encodeName(m_path).constData(), 0600), 0);
        } else if (std::string(kind) == "device") {
            ASSERT_TRUE(QFile::link("/dev/zero", m_path));
        } else {
            ASSERT_TRUE(QDir().mkdir(m_path));
        }
        const int before = m_told.count();
        EXPECT_TRUE(isTold(before + 1)) << kind;
    }
}

TEST_F(FileWatchTest, Whoever_is_told_may_stop_watching) {
    QObject::connect(&m_watch, &FileWatch::changed, &m_watch,
                     [this](const QString& path) { m_watch.remove(path); });
    write(m_path, "two");
    ASSERT_TRUE(isTold());
    write(m_path, "three");
    EXPECT_EQ(toldAfterQuiet(), 1);
}

}  // namespace
