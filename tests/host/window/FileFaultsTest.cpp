// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// The window when the file system fails: it says what failed, and what was open stays open.
#include "FileFaults.h"

#include <sys/stat.h>

#include <climits>
#include <filesystem>

#include <QFile>
#include <QImage>
#include <QPushButton>
#include <QSettings>
#include <QTabWidget>

#include "ChildRun.h"
#include "HostWindowTest.h"
#include "Waiting.h"
#include "window/Drawings.h"

namespace fs = std::filesystem;

namespace {

using Words = std::vector<std::string>;

class HostFileFaults : public HostWindowTest {
protected:
    std::string place(const std::string& name = {}) const { return m_place.place(name); }
    static QString text(const std::string& path) { return QFile::decodeName(path.c_str()); }
    QString drawingAt(const std::string& path) const {
        fs::copy_file(QFile::encodeName(writeMixed()).toStdString(), path);
        return text(path);
    }
    std::size_t objectCount() const { return tab()->document()->GetObjects().size(); }
    bool isSaid(const std::string& line) const {
        return said().split('\n').contains(QString::fromStdString(line));
    }
    /// The line that a command adds.
    void expectPictureFails(const std::string& file, const std::string& cause) {
        type("PICTURE \"" + text(file) + "\"");
        EXPECT_TRUE(isSaid("The picture can't be written: " + file + ": " + cause))
            << said().toStdString();
    }

private:
    FaultFolder m_place;
};

TEST_F(HostFileFaults, APictureOnAFullDiskIsSaidAndTheOldOneStands) {
    SKIP_WITHOUT_MOUNTS();
    open(writeMixed());
    fs::create_directory(place("disk"));
    const SmallDisk disk(place("disk"));
    ASSERT_TRUE(disk.isThere());
    makeFile(place("disk/a.png"), "old");
    disk.fill();
    expectPictureFails(place("disk/a.png"), "No space left on device");
    EXPECT_EQ(bytesOf(place("disk/a.png")), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(place("disk")), {}), 2);
}

TEST_F(HostFileFaults, APictureThatMayNotBeWrittenIsSaidAndTheOldOneStands) {
    const PlainRights plain;
    SKIP_WITHOUT_RIGHTS(plain);
    open(writeMixed());
    fs::create_directory(place("folder"));
    makeFile(place("folder/a.png"), "old");
    const ChangedRights readOnly(place("folder"), 0555);
    expectPictureFails(place("folder/a.png"),
                       "no file can be made in its folder: Permission denied");
    EXPECT_EQ(bytesOf(place("folder/a.png")), "old");
}

TEST_F(HostFileFaults, APictureIsWrittenBehindALinkAndNotInAFolderThatIsGone) {
    open(writeMixed());
    fs::create_symlink("real.png", place("link.png"));
    type("PICTURE \"" + text(place("link.png")) + "\"");
    EXPECT_TRUE(fs::is_symlink(place("link.png")));
    EXPECT_FALSE(QImage(text(place("real.png"))).isNull());
    expectPictureFails(place("gone/a.png"), "No such file or directory");
}

TEST_F(HostFileFaults, WhatIsNoDrawingIsSaidAndWhatIsOpenStaysOpen) {
    const PlainRights plain;
    SKIP_WITHOUT_RIGHTS(plain);
    DrawingTab* first = open(writeMixed());
    ASSERT_EQ(mkfifo(place("pipe.dxf").c_str(), 0600), 0);
    fs::create_directory(place("folder.dxf"));
    fs::create_symlink("b.dxf", place("a.dxf"));
    fs::create_symlink("a.dxf", place("b.dxf"));
    const std::string secret = makeFile(place("secret.dxf"), "0\nEOF\n");
    const ChangedRights none(secret, 0);
    const std::vector<std::pair<std::string, std::string>> refused{
        {place("pipe.dxf"), "a named pipe, not a regular file"},
        {"/dev/zero", "a device, not a regular file"},
        {"/proc/self/mem", "cannot be read: Input/output error"},
        {place("folder.dxf"), "a directory"},
        {place("a.dxf"), "cannot be opened: Too many levels of symbolic links"},
        {secret, "cannot be opened: Permission denied"},
        {place("gone.dxf"), "no such file"},
        {place("gone\nline\x1b[31m.dxf"), "no such file"}};
    QStringList files;
    for (const auto& each : refused) {
        files.append(text(each.first));
    }
    DialogDriver driver;
    driver.press(QMessageBox::Ok);
    window->drawings()->open(files);
    const QStringList causes = QString::fromStdString(driver.seen(0).text).split("\n\n");
    ASSERT_EQ(causes.size(), files.size());
    for (int i = 0; i < files.size(); ++i) {
        const QString cause =
            QString::fromStdString(refused.at(static_cast<std::size_t>(i)).second);
        EXPECT_TRUE(causes.at(i).contains(".dxf: " + cause) || causes.at(i).contains(": " + cause))
            << causes.at(i).toStdString();
        EXPECT_TRUE(said().split('\n').contains(causes.at(i))) << said().toStdString();
    }
    EXPECT_TRUE(causes.last().contains("gone\\nline\\x1b[31m.dxf"));
    EXPECT_EQ(tab(), first);
    EXPECT_EQ(objectCount(), 4U);
}

TEST_F(HostFileFaults, ADrawingWhoseFileGoesOrBecomesSomethingElseStaysOpen) {
    const std::string file = place("part.dxf");
    open(drawingAt(file));
    const auto replaceBy = [&](const std::string& kind) {
        fs::remove(file);
        if (kind == "pipe") {
            ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
        } else if (kind == "folder") {
            fs::create_directory(file);
        }
    };
    for (const char* kind : {"nothing", "pipe", "folder"}) {
        replaceBy(kind);
        DialogDriver driver;
        driver.press(QMessageBox::Ok);
        type("RELOAD");
        EXPECT_EQ(objectCount(), 4U) << kind;
    }
    EXPECT_TRUE(said().contains("part.dxf: no such file")) << said().toStdString();
    EXPECT_TRUE(said().contains("part.dxf: a named pipe")) << said().toStdString();
    EXPECT_TRUE(said().contains("part.dxf: a directory")) << said().toStdString();
}

TEST_F(HostFileFaults, AFolderThatIsMadeAnewOffersToReload) {
    fs::create_directories(place("out/today"));
    open(drawingAt(place("out/today/part.dxf")));
    fs::remove_all(place("out"));
    fs::create_directories(place("out/today"));
    makeFile(place("out/today/part.dxf"),
             "0\nSECTION\n2\nENTITIES\n0\nPOINT\n8\n0\n10\n1\n20\n1\n0\nENDSEC\n0\nEOF\n");
    auto* reload = find<QPushButton>("messageAccept");
    ASSERT_TRUE(waitUntil([&] { return reload->isVisible(); }));
    reload->click();
    EXPECT_EQ(objectCount(), 1U);
}

TEST_F(HostFileFaults, OddNamesAreOpenedAndShownOnOneLine) {
    const std::vector<std::pair<std::string, std::string>> names{
        {" a  b .dxf", " a  b .dxf"},
        {"a\"b'c`.dxf", "a\"b'c`.dxf"},
        {"a\nb\x1b[31m.dxf", "a\\nb\\x1b[31m.dxf"},
        {"a\\n.dxf", "a\\n.dxf"},
        {"-o.dxf", "-o.dxf"},
        {"$HOME*?&%1.dxf", "$HOME*?&%1.dxf"},
        {"\xD0\xB4\xE6\x9D\xBF.dxf", "\xD0\xB4\xE6\x9D\xBF.dxf"},
        {std::string(251, 'n') + ".dxf", std::string(251, 'n') + ".dxf"}};
    for (const auto& [name, shown] : names) {
        window->drawings()->open({drawingAt(place(name))});
        ASSERT_NE(tab(), nullptr);
        EXPECT_EQ(tab()->path(), text(place(name)));
        EXPECT_EQ(tab()->name().toStdString(), shown);
        EXPECT_TRUE(isSaid(shown + ": 4 objects on 2 layers, mm")) << said().toStdString();
        const auto* tabs = find<QTabWidget>("drawingTabs");
        EXPECT_EQ(tabs->tabText(tabs->currentIndex()).replace("&&", "&").toStdString(), shown);
    }
    EXPECT_EQ(window->drawings()->all().size(), static_cast<int>(names.size()));
}

TEST_F(HostFileFaults, APathAsLongAsTheSystemTakesIsOpened) {
    std::string path = place();
    while (path.size() + 202 < PATH_MAX - 3) {
        path += "/" + std::string(200, 'd');
        fs::create_directory(path);
    }
    path += "/" + std::string(PATH_MAX - 2 - path.size(), 'n');
    open(drawingAt(path));
    EXPECT_EQ(objectCount(), 4U);
    DialogDriver driver;
    driver.press(QMessageBox::Ok);
    window->drawings()->open({text(path) + "n"});
    EXPECT_NE(driver.seen(0).text.find("File name too long"), std::string::npos);
}

class HostSettingsFaults : public HostFileFaults {
protected:
    /// Gives the settings a file.
    HostSettingsFaults() { type("GRID OFF"); }
    static std::string file() { return QSettings().fileName().toStdString(); }
    static std::string folder() { return fs::path(file()).parent_path().string(); }
    static std::string failure() { return "The settings can't be kept: " + file(); }
};

TEST_F(HostSettingsFaults, AreSaidOnceWhenTheirFolderMayNotBeWritten) {
    const PlainRights plain;
    SKIP_WITHOUT_RIGHTS(plain);
    const std::string before = bytesOf(file());
    {
        const ChangedRights readOnlyFolder(folder(), 0555);
        const ChangedRights readOnlyFile(file(), 0444);
        type("AXES OFF");
        EXPECT_TRUE(isSaid(failure())) << said().toStdString();
        open(writeMixed());
        type("CANVAS LIGHT");
        EXPECT_EQ(said().count(QString::fromStdString(failure())), 1);
        EXPECT_EQ(bytesOf(file()), before);
    }
    type("GRID ON");
    EXPECT_NE(bytesOf(file()).find("grid=true"), std::string::npos) << bytesOf(file());
}

TEST_F(HostSettingsFaults, StandAsTheyWereOnAFullDisk) {
    SKIP_WITHOUT_MOUNTS();
    const SmallDisk disk(folder());
    ASSERT_TRUE(disk.isThere());
    type("AXES OFF");
    const std::string before = bytesOf(file());
    ASSERT_NE(before.find("axes=false"), std::string::npos) << before;
    disk.fill();
    type("AXES ON");
    EXPECT_TRUE(isSaid(failure())) << said().toStdString();
    EXPECT_EQ(bytesOf(file()), before);
}

class HostProgramFaults : public testing::Test {
protected:
    static ChildRun run(const Words& words, const ChildOptions& options) {
        Words all{KXHOST_PROGRAM, "--no-addins"};
        all.insert(all.end(), words.begin(), words.end());
        return runChild(all, options);
    }
    ChildOptions withConfig() const {
        ChildOptions options;
        options.environment = {"XDG_CONFIG_HOME=" + m_folder.place("config")};
        fs::create_directories(m_folder.place("config"));
        return options;
    }
    std::string drawing(const std::string& name) const {
        return makeFile(m_folder.place(name), "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n");
    }

    FaultFolder m_folder;
};

TEST_F(HostProgramFaults, ADisplayThatIsNotThereIsSaid) {
    for (const char* display : {":77", "localhost:77", "nonsense"}) {
        ChildOptions options;
        options.environment = {std::string("DISPLAY=") + display, "QT_QPA_PLATFORM",
                               "WAYLAND_DISPLAY"};
        const ChildRun run = HostProgramFaults::run({}, options);
        EXPECT_EQ(run.code, 1) << display;
        EXPECT_EQ(run.messages,
                  std::string("kxhost: there is no display to open a window on: could not connect "
                              "to display ") +
                      display + "\n");
    }
}

TEST_F(HostProgramFaults, SettingsThatAreAPipeOrADeviceAreLeftAloneAndSaid) {
    const ChildOptions options = withConfig();
    const std::string file = m_folder.place("config/kxhost/kxhost.conf");
    fs::create_directory(m_folder.place("config/kxhost"));
    for (const char* kind : {"pipe", "device"}) {
        fs::remove(file);
        if (std::string(kind) == "pipe") {
            ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
        } else {
            fs::create_symlink("/dev/zero", file);
        }
        const ChildRun run = HostProgramFaults::run({"--open-each", drawing("a.dxf")}, options);
        EXPECT_EQ(run.code, 0) << kind << run.messages;
        EXPECT_NE(run.output.find("a.dxf: 0 objects"), std::string::npos) << run.output;
        EXPECT_NE(run.messages.find("kxhost: The settings can't be kept: " + file + "\n"),
                  std::string::npos)
            << run.messages;
        EXPECT_FALSE(fs::is_regular_file(file));
    }
}

TEST_F(HostProgramFaults, SettingsThatCantBeKeptAtTheEndAreSaid) {
    const PlainRights plain;
    SKIP_WITHOUT_RIGHTS(plain);
    const ChildOptions options = withConfig();
    const ChangedRights readOnly(m_folder.place("config"), 0555);
    const ChildRun run =
        HostProgramFaults::run({"--open-each", m_folder.place("none.dxf")}, options);
    EXPECT_NE(run.messages.find("kxhost: The settings can't be kept: " +
                                m_folder.place("config/kxhost/kxhost.conf") + "\n"),
              std::string::npos)
        << run.messages;
}

TEST_F(HostProgramFaults, AFullStandardOutputIsSaid) {
    ChildOptions options = withConfig();
    options.outputTo = "/dev/full";
    const ChildRun run = HostProgramFaults::run({"--open-each", drawing("a.dxf")}, options);
    EXPECT_EQ(run.code, 1);
    EXPECT_NE(run.messages.find("kxhost: standard output can't be written\n"), std::string::npos);
}

TEST_F(HostProgramFaults, NamesOfAnyLettersAreOpenedInTheLocaleCAndBrokenOnesAreExplained) {
    ChildOptions options = withConfig();
    options.environment.emplace_back("LC_ALL=C");
    const std::string letters = drawing("\xD0\xB4\xE6\x9D\xBF.dxf");
    const std::string broken = drawing("a\xFF.dxf");
    const ChildRun run = HostProgramFaults::run({"--open-each", letters, broken}, options);
    EXPECT_NE(run.output.find(letters + ": 0 objects"), std::string::npos) << run.output;
    EXPECT_NE(run.output.find("no such file; expected a DXF file (files are opened by names that "
                              "are UTF-8 text)"),
              std::string::npos)
        << run.output;
}

}  // namespace
