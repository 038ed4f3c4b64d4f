// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/RecentFiles.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QSettings>
#include <QSignalSpy>

namespace {

class RecentFilesTest : public testing::Test {
protected:
    void SetUp() override {
        QCoreApplication::setOrganizationName("kxhost");
        QCoreApplication::setApplicationName("RecentFilesTest");
        QSettings().clear();
    }
};

TEST_F(RecentFilesTest, The_newest_is_first_and_each_file_is_there_once) {
    RecentFiles files;
    files.add("/a/one.dxf");
    files.add("/a/two.dxf");
    files.add("/a/one.dxf");
    EXPECT_EQ(files.files(), (QStringList{"/a/one.dxf", "/a/two.dxf"}));
}

TEST_F(RecentFilesTest, At_most_ten_are_kept) {
    RecentFiles files;
    for (int i = 0; i < 12; ++i) {
        files.add(QString("/a/%1.dxf").arg(i));
    }
    EXPECT_EQ(files.files().size(), RecentFiles::kMaxFiles);
    EXPECT_EQ(files.files().first(), "/a/11.dxf");
    EXPECT_EQ(files.files().last(), "/a/2.dxf");
}

TEST_F(RecentFilesTest, They_are_there_the_next_time) {
    RecentFiles().add("/a/\u00e4 b.dxf");
    EXPECT_EQ(RecentFiles().files(), QStringList{"/a/\u00e4 b.dxf"});
}

TEST_F(RecentFilesTest, A_name_of_the_current_folder_is_kept_with_its_folder) {
    RecentFiles files;
    files.add("part.dxf");
    EXPECT_EQ(files.files(), QStringList{QDir::current().absoluteFilePath("part.dxf")});
    files.remove("part.dxf");
    EXPECT_TRUE(files.files().isEmpty());
}

TEST_F(RecentFilesTest, What_another_window_added_is_not_lost) {
    RecentFiles mine;
    RecentFiles other;
    other.add("/a/other.dxf");
    mine.add("/a/mine.dxf");
    EXPECT_EQ(mine.files(), (QStringList{"/a/mine.dxf", "/a/other.dxf"}));
}

TEST_F(RecentFilesTest, Every_change_is_told_and_kept) {
    RecentFiles files;
    const QSignalSpy told(&files, &RecentFiles::changed);
    files.add("/a/one.dxf");
    files.add("/a/two.dxf");
    files.remove("/a/one.dxf");
    EXPECT_EQ(RecentFiles().files(), QStringList{"/a/two.dxf"});
    files.clear();
    EXPECT_EQ(told.count(), 4);
    EXPECT_TRUE(RecentFiles().files().isEmpty());
}

}  // namespace
