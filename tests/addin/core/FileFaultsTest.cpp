// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The panel's files when the file system fails: in silence, and nothing is lost that need not be.
#include "FileFaults.h"

#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <filesystem>
#include <functional>

#include <QApplication>
#include <QCheckBox>
#include <QEvent>
#include <QFile>
#include <QFileDialog>
#include <QTextEdit>

#include "DialogDriver.h"
#include "core/OutputFiles.h"
#include "core/PanelTest.h"

namespace fs = std::filesystem;

namespace {

const std::string kProgram = "PRE\nG90\nG0 X0Y0\nPOST\n";
const std::string kOld = "G0 X1\nM30\n";
constexpr std::size_t kLongestName = 255;

/// Does something just after a file dialog was answered.
class AfterFileDialog : public QObject {
public:
    explicit AfterFileDialog(std::function<void()> action) : m_action(std::move(action)) {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Hide && qobject_cast<QFileDialog*>(watched) != nullptr) {
            m_action();
        }
        return false;
    }

private:
    std::function<void()> m_action;
};

class PanelFileFaults : public PanelTest {
protected:
    PanelFileFaults() {
        usePlainSettings();
        generate();
        fs::create_directory(place("disk"));
    }

    std::string place(const std::string& name = {}) const { return m_folder.place(name); }
    static QString text(const std::string& path) { return QFile::decodeName(path.c_str()); }
    void numberLines() { child<QCheckBox>("lineNumberCheckBox")->setChecked(true); }

    void save(const std::string& path) {
        dialogs.chooseFile(text(path));
        if (fs::exists(path)) {
            dialogs.press(QMessageBox::Yes);
        }
        click("saveBtn");
    }
    void appendToCurrent() {
        dialogs.press(QMessageBox::Yes);
        click("appendPushButton");
    }
    void appendTo(const std::string& path) {
        dialogs.press(QMessageBox::No);
        dialogs.chooseFile(text(path));
        click("appendPushButton");
    }
    void selectFile(const std::string& path) {
        dialogs.chooseFile(text(path));
        click("selectFileBtn");
    }
    /// A preamble of so many bytes, which makes the program as long as that.
    void useLongPreamble(int bytes) {
        textBox("textEdit")->setPlainText(QString(bytes, QLatin1Char('P')));
        generate();
    }

    // Fails the test when a message comes up.
    DialogDriver dialogs;

private:
    FaultFolder m_folder;
};

}  // namespace

TEST_F(PanelFileFaults, SaveOnAFullDiskIsSilentAndTheProgramIsStillThere) {
    SKIP_WITHOUT_MOUNTS();
    {
        const SmallDisk disk(place("disk"));
        ASSERT_TRUE(disk.isThere());
        disk.fill();
        save(place("disk/a.nc"));
        EXPECT_EQ(bytesOf(place("disk/a.nc")), "");
        EXPECT_EQ(programCount(), 1U);
    }
    save(place("a.nc"));
    EXPECT_EQ(bytesOf(place("a.nc")), kProgram);
}

TEST_F(PanelFileFaults, YesAfterASaveThatFailedStillWritesWhatWasToBeSaved) {
    SKIP_WITHOUT_MOUNTS();
    const SmallDisk disk(place("disk"));
    disk.fill();
    save(place("disk/a.nc"));
    ASSERT_TRUE(fs::remove(place("disk/filling")));
    appendToCurrent();
    EXPECT_EQ(bytesOf(place("disk/a.nc")), "\n" + kProgram + "\n" + kProgram);
}

TEST_F(PanelFileFaults, AppendOnAFullDiskKeepsWhatStoodInTheFile) {
    SKIP_WITHOUT_MOUNTS();
    const SmallDisk disk(place("disk"));
    makeFile(place("disk/a.nc"), kOld);
    disk.fill();
    useLongPreamble(20000);
    appendTo(place("disk/a.nc"));
    const std::string left = bytesOf(place("disk/a.nc"));
    EXPECT_EQ(left.substr(0, kOld.size() + 2), kOld + "\nP");
    EXPECT_LT(left.size(), 20000U);
    EXPECT_EQ(lastProgram(), left);
}

TEST_F(PanelFileFaults, NumbersThatHaveNoRoomLeaveTheFileWithoutThemAndWhole) {
    SKIP_WITHOUT_MOUNTS();
    const SmallDisk disk(place("disk"));
    // All but the program's own length, which ends with a page.
    textBox("textEdit")
        ->setPlainText(QString(4096 - static_cast<int>(kProgram.size()) + 3, QLatin1Char('P')));
    const std::string program = generate();
    ASSERT_EQ(program.size(), 4096U);
    disk.fill(4096);
    numberLines();
    save(place("disk/a.nc"));
    EXPECT_EQ(bytesOf(place("disk/a.nc")), program);
    ASSERT_TRUE(fs::remove(place("disk/filling")));
    save(place("disk/a.nc"));
    EXPECT_EQ(bytesOf(place("disk/a.nc")).substr(0, 4), "N5 P");
}

TEST_F(PanelFileFaults, AReadOnlyFileStandsAndIsShown) {
    const PlainRights plain;
    SKIP_WITHOUT_RIGHTS(plain);
    const std::string file = makeFile(place("a.nc"), kOld);
    const ChangedRights readOnly(file, 0444);
    numberLines();
    save(file);
    EXPECT_EQ(bytesOf(file), kOld);
    appendToCurrent();
    EXPECT_EQ(bytesOf(file), kOld);
    EXPECT_EQ(lastProgram(), kOld);
    appendTo(file);
    EXPECT_EQ(bytesOf(file), kOld);
    EXPECT_EQ(lastProgram(), kOld);
}

TEST_F(PanelFileFaults, NothingIsMadeInAReadOnlyFolder) {
    const PlainRights plain;
    SKIP_WITHOUT_RIGHTS(plain);
    const ChangedRights readOnly(place("disk"), 0555);
    numberLines();
    save(place("disk/a.nc"));
    appendTo(place("disk/a.nc"));
    EXPECT_TRUE(fs::is_empty(place("disk")));
    EXPECT_EQ(lastProgram(), "");
}

TEST_F(PanelFileFaults, NothingIsMadeOnAReadOnlyDisk) {
    SKIP_WITHOUT_MOUNTS();
    const SmallDisk disk(place("disk"));
    makeFile(place("disk/a.nc"), kOld);
    ASSERT_TRUE(disk.makeReadOnly());
    numberLines();
    save(place("disk/a.nc"));
    save(place("disk/b.nc"));
    appendTo(place("disk/a.nc"));
    EXPECT_EQ(bytesOf(place("disk/a.nc")), kOld);
    EXPECT_FALSE(fs::exists(place("disk/b.nc")));
    EXPECT_EQ(lastProgram(), kOld);
}

TEST_F(PanelFileFaults, NumberingAFileThatMayNotBeReadGoesOnWithEmptyContent) {
    const PlainRights plain;
    SKIP_WITHOUT_RIGHTS(plain);
    // Required: what can't be read counts as empty, and empty it is written.
    const std::string file = makeFile(place("a.nc"), kOld);
    {
        const ChangedRights writeOnly(file, 0222);
        numberFileLines(text(file));
    }
    EXPECT_EQ(bytesOf(file), "");
}

TEST_F(PanelFileFaults, AFolderThatVanishesBetweenDialogAndWriteIsNotMadeAgain) {
    numberLines();
    const AfterFileDialog gone([this] { fs::remove_all(place("disk")); });
    save(place("disk/a.nc"));
    EXPECT_FALSE(fs::exists(place("disk")));
    appendToCurrent();
    EXPECT_EQ(lastProgram(), "");
    EXPECT_FALSE(fs::exists(place("disk")));
}

TEST_F(PanelFileFaults, AFileThatVanishesBetweenDialogAndReadGivesAnEmptyText) {
    makeFile(place("a.nc"), kOld);
    const AfterFileDialog gone([this] { fs::remove(place("a.nc")); });
    selectFile(place("a.nc"));
    EXPECT_EQ(programCount(), 2U);
    EXPECT_EQ(lastProgram(), "");
}

TEST_F(PanelFileFaults, AFileThatVanishesBeforeAppendIsMadeOfWhatIsAppended) {
    makeFile(place("a.nc"), kOld);
    const AfterFileDialog gone([this] { fs::remove(place("a.nc")); });
    appendTo(place("a.nc"));
    EXPECT_EQ(bytesOf(place("a.nc")), "\n" + kProgram);
}

TEST_F(PanelFileFaults, AFileThatBecameAFolderIsPassedOver) {
    numberLines();
    const AfterFileDialog swapped([this] {
        fs::remove(place("a.nc"));
        fs::create_directory(place("a.nc"));
    });
    save(place("a.nc"));
    fs::remove(place("a.nc"));
    makeFile(place("a.nc"), kOld);
    selectFile(place("a.nc"));
    EXPECT_EQ(lastProgram(), "");
    fs::remove(place("a.nc"));
    appendTo(place("a.nc"));
    EXPECT_EQ(lastProgram(), "");
    EXPECT_TRUE(fs::is_directory(place("a.nc")) && fs::is_empty(place("a.nc")));
}

TEST_F(PanelFileFaults, AFileThatBecameAPipeIsNotWaitedFor) {
    numberLines();
    const AfterFileDialog swapped([this] {
        fs::remove(place("a.nc"));
        ASSERT_EQ(mkfifo(place("a.nc").c_str(), 0600), 0);
    });
    save(place("a.nc"));
    fs::remove(place("a.nc"));
    makeFile(place("a.nc"), kOld);
    selectFile(place("a.nc"));
    EXPECT_EQ(lastProgram(), "");
    fs::remove(place("a.nc"));
    appendTo(place("a.nc"));
    EXPECT_EQ(lastProgram(), "");
    EXPECT_TRUE(fs::is_fifo(place("a.nc")));
}

TEST_F(PanelFileFaults, APipeOrAnEndlessDeviceThatIsChosenGivesAnEmptyText) {
    ASSERT_EQ(mkfifo(place("pipe.nc").c_str(), 0600), 0);
    selectFile(place("pipe.nc"));
    EXPECT_EQ(lastProgram(), "");
    fs::create_symlink("/dev/zero", place("zero.nc"));
    selectFile(place("zero.nc"));
    EXPECT_EQ(lastProgram(), "");
    EXPECT_EQ(programCount(), 3U);
}

TEST_F(PanelFileFaults, ADeviceTakesTheProgramAndAFullOneIsSilent) {
    numberLines();
    for (const char* device : {"/dev/null", "/dev/full"}) {
        fs::create_symlink(device, place("device.nc"));
        save(place("device.nc"));
        appendToCurrent();
        EXPECT_EQ(lastProgram(), "");
        EXPECT_TRUE(fs::is_character_file(device));
        fs::remove(place("device.nc"));
    }
}

TEST_F(PanelFileFaults, ALinkStaysAndTheFileBehindItIsWritten) {
    makeFile(place("disk/a.nc"), kOld);
    fs::create_symlink("disk/a.nc", place("link.nc"));
    fs::create_symlink("disk/later.nc", place("to-nothing.nc"));
    numberLines();
    save(place("link.nc"));
    save(place("to-nothing.nc"));
    for (const char* name : {"disk/a.nc", "disk/later.nc"}) {
        EXPECT_EQ(bytesOf(place(name)), "N5 PRE\nN10 G90\nN15 G0 X0Y0\nN20 POST\n") << name;
    }
    EXPECT_TRUE(fs::is_symlink(place("link.nc")) && fs::is_symlink(place("to-nothing.nc")));
}

TEST_F(PanelFileFaults, ALoopOfLinksIsPassedOver) {
    fs::create_symlink("b.nc", place("a.nc"));
    fs::create_symlink("a.nc", place("b.nc"));
    const QString loop = text(place("a.nc"));
    writeTextFile(loop, "text");
    appendTextFile(loop, "text");
    numberFileLines(loop);
    EXPECT_EQ(readTextFile(loop), QString());
    EXPECT_TRUE(fs::is_symlink(place("a.nc")) && fs::is_symlink(place("b.nc")));
}

TEST_F(PanelFileFaults, OddNamesAreNames) {
    const std::string longest(kLongestName, 'n');
    for (const std::string& name :
         {std::string(" a  b "), std::string("a\"b'c`"), std::string("a\nb\r\t"),
          std::string("a\\n"), std::string("-o"), std::string("$HOME*?%1"),
          std::string("\xD0\xB4\xE6\x9D\xBF\xF0\x9F\x94\xA9"), longest}) {
        const QString path = QString::fromStdString(place(name));
        writeTextFile(path, "G0\n");
        appendTextFile(path, "G1\n");
        numberFileLines(path);
        EXPECT_EQ(bytesOf(place(name)), "N5 G0\nN10 G1\n") << name;
        EXPECT_EQ(readProgramFile(path), QLatin1String("N5 G0\nN10 G1\n")) << name;
    }
    const QString longer = QString::fromStdString(place(longest + "n"));
    writeTextFile(longer, "G0\n");
    EXPECT_EQ(readProgramFile(longer), QString());
}

TEST_F(PanelFileFaults, APathAsLongAsTheSystemTakesIsWrittenAndReadAndALongerOneIsPassedOver) {
    std::string path = place();
    while (path.size() + 202 < PATH_MAX - 3) {
        path += "/" + std::string(200, 'd');
        fs::create_directory(path);
    }
    path += "/" + std::string(PATH_MAX - 2 - path.size(), 'n');
    ASSERT_EQ(path.size(), std::size_t{PATH_MAX - 1});
    writeTextFile(text(path), "G0\n");
    numberFileLines(text(path));
    EXPECT_EQ(readTextFile(text(path)), QLatin1String("N5 G0\n"));
    const QString longer = text(path) + QLatin1Char('n');
    writeTextFile(longer, "G0\n");
    EXPECT_EQ(readTextFile(longer), QString());
}

TEST_F(PanelFileFaults, AFileLongerThanATextCanBeIsNotReadAndStands) {
    const std::string file = makeFile(place("a.nc"), kOld);
    // Without content, it takes no room.
    constexpr std::uintmax_t kTooLong = 1000000001;
    fs::resize_file(file, kTooLong);
    EXPECT_EQ(readTextFile(text(file)), QString());
    EXPECT_EQ(readProgramFile(text(file)), QString());
    numberFileLines(text(file));
    EXPECT_EQ(fs::file_size(file), kTooLong);
}
