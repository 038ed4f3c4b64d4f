// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/AddinFiles.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

const QString kName = QStringLiteral("libGCodeAddin.so.1");

/// An installation with a program folder, and folders beside it.
class Places {
public:
    QString folder(const QString& name) const { return m_folder.filePath(name); }
    /// Makes a file, with its folder.
    QString make(const QString& name) const {
        const QString path = folder(name);
        QDir().mkpath(QFileInfo(path).absolutePath());
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return path;
    }
    QString find(const QString& addinPath, QStringList* searched = nullptr) const {
        QStringList places;
        return findAddinFrom(folder("bin"), addinPath, searched != nullptr ? searched : &places);
    }

private:
    QTemporaryDir m_folder;
};

TEST(AddinFiles, The_one_beside_the_program_comes_before_that_of_the_library_folder) {
    const Places places;
    const QString library = places.make("lib/" + kName);
    EXPECT_EQ(places.find(""), library);
    const QString beside = places.make("bin/" + kName);
    EXPECT_EQ(places.find(""), beside);
}

TEST(AddinFiles, The_environment_comes_first_in_its_order) {
    const Places places;
    places.make("bin/" + kName);
    const QString second = places.make("two/" + kName);
    const QString path = places.folder("one") + "::" + places.folder("two");
    EXPECT_EQ(places.find(path), second);
    const QString first = places.make("one/" + kName);
    EXPECT_EQ(places.find(path), first);
}

TEST(AddinFiles, A_file_in_the_environment_is_taken_whatever_its_name) {
    const Places places;
    places.make("bin/" + kName);
    const QString other = places.make("mine/other.so");
    EXPECT_EQ(places.find(other), other);
}

TEST(AddinFiles, A_folder_with_the_name_of_the_library_is_none) {
    const Places places;
    QDir().mkpath(places.folder("bin/" + kName));
    EXPECT_EQ(places.find(""), "");
}

TEST(AddinFiles, Without_one_all_places_are_told_in_order) {
    const Places places;
    QStringList searched;
    EXPECT_EQ(places.find(places.folder("one"), &searched), "");
    ASSERT_GE(searched.size(), 3);
    EXPECT_EQ(searched.at(0), places.folder("one"));
    EXPECT_EQ(searched.at(1), places.folder("bin"));
    EXPECT_EQ(searched.at(2), places.folder("lib"));
}

TEST(AddinFiles, The_variable_of_the_process_and_its_program_are_used) {
    const Places places;
    const QString file = places.make("one/" + kName);
    qputenv("KX_ADDIN_PATH", places.folder("one").toLocal8Bit());
    QStringList searched;
    EXPECT_EQ(findAddin(&searched), file);
    qputenv("KX_ADDIN_PATH", places.folder("nothing").toLocal8Bit());
    searched.clear();
    findAddin(&searched);
    qunsetenv("KX_ADDIN_PATH");
    EXPECT_TRUE(searched.contains(QCoreApplication::applicationDirPath()));
}

}  // namespace
