// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// Settings that are broken, or made by somebody else: the window starts and obeys what it can.
#include <sys/stat.h>

#include <random>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QMenu>
#include <QScreen>
#include <QSettings>
#include <QTest>

#include "FileOpens.h"
#include "HostWindowTest.h"
#include "Waiting.h"
#include "commandline/CommandLine.h"
#include "window/HostSession.h"
#include "window/HostSettings.h"
#include "window/RecentFiles.h"

namespace {

class HostileSettingsTest : public HostWindowTest {
protected:
    HostileSettingsTest() { stop(); }

    /// Starts with the settings as they are, without add-ins, and looks whether the window works.
    static void expectToStart(const std::string& what) {
        MainWindow window;
        HostOptions options;
        options.withoutAddins = true;
        window.loadAddins(options);
        window.restoreLayout();
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window)) << what;
        const QSize screen = QGuiApplication::primaryScreen()->size();
        EXPECT_LE(window.width(), screen.width()) << what;
        EXPECT_LE(window.height(), screen.height()) << what;
        EXPECT_TRUE(window.findChild<CommandLine*>()->text().isEmpty()) << what;
        window.close();
        EXPECT_TRUE(waitUntil([&] { return !window.isVisible(); })) << what;
    }

    /// Puts these bytes in place of the settings file.
    static void store(const QByteArray& content) {
        QSettings().sync();
        const QString name = QSettings().fileName();
        QDir().mkpath(QFileInfo(name).path());
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }

    QByteArray randomBytes(int size) {
        QByteArray bytes;
        for (int i = 0; i < size; ++i) {
            bytes += static_cast<char>(m_random() & 0xFFU);
        }
        return bytes;
    }

    /// The bytes with some changed, cut off or doubled.
    QByteArray damaged(QByteArray bytes) {
        for (unsigned i = m_random() % 8U; i > 0 && !bytes.isEmpty(); --i) {
            const int at = static_cast<int>(m_random() % static_cast<unsigned>(bytes.size()));
            bytes[at] = static_cast<char>(m_random() & 0xFFU);
        }
        switch (m_random() % 4U) {
            case 0:
                return bytes.left(static_cast<int>(m_random() % 200U));
            case 1:
                return bytes + bytes;
            default:
                return bytes;
        }
    }

    std::mt19937 m_random{6};
};

TEST_F(HostileSettingsTest, DamagedLayoutsAreNoHindrance) {
    expectToStart("the first time");
    const QByteArray geometry = QSettings().value("window/geometry").toByteArray();
    const QByteArray state = QSettings().value("window/state").toByteArray();
    ASSERT_FALSE(geometry.isEmpty());
    ASSERT_FALSE(state.isEmpty());
    for (int round = 0; round < 40; ++round) {
        const bool isRandom = round % 8 == 7;
        QSettings().setValue("window/geometry",
                             isRandom ? randomBytes(round * 20) : damaged(geometry));
        QSettings().setValue("window/state", isRandom ? randomBytes(round * 20) : damaged(state));
        expectToStart("round " + std::to_string(round));
    }
}

TEST_F(HostileSettingsTest, ValuesOfTheWrongKindOrOutOfRangeAreNoHindrance) {
    const QVariantList values = {QString("not a number"),
                                 QString(),
                                 -1,
                                 2147483647,
                                 1e300,
                                 "nan",
                                 "-inf",
                                 QStringList{"a", "b"},
                                 QVariantMap{{"a", 1}},
                                 QByteArray(2000, '\0'),
                                 QString(100000, 'x'),
                                 QSize(1, 2),
                                 QString::fromUtf8("\xE2\x80\xAE\x1b[31m\n%1")};
    for (int index = 0; index < values.size(); ++index) {
        for (const char* key : {"view/lightCanvas", "view/grid", "view/axes", "explode/tolerance",
                                "help/web", "help/webLink", "help/language", "recentFiles",
                                "window/commandHistory", "window/geometry", "window/state"}) {
            QSettings().setValue(key, values.at(index));
        }
        expectToStart("value " + std::to_string(index));
        const double tolerance = HostSettings::load().explodeTolerance;
        EXPECT_GT(tolerance, 0) << index;
        EXPECT_LE(tolerance, 1000) << index;
    }
}

TEST_F(HostileSettingsTest, AFileThatIsNoSettingsFileIsNoHindrance) {
    const QByteArray contents[] = {
        "",
        randomBytes(5000),
        QByteArray(3000, '\0'),
        "[window]\ngeometry=@ByteArray(\\x1\\xd9\\xd0\\xcb\\0\\x3\n",
        "[window]\nstate=@Variant(\\0\\0\\0\\x7f\\xff\\xff\\xff\\xff)\n",
        "[window]\nstate=@Variant(\\0\\0\\0\\n\\x7f\\xff\\xff\\xfe)\n",
        "[view]\ngrid=@Invalid()\naxes=@Rect(1 2 3)\n[help]\nlanguage=@Size()\n",
        "recentFiles=@Variant(\\0\\0\\0\\v\\x7f\\xff\\xff\\xff)\n",
        "[" + QByteArray(100000, '[') + "\n" + QByteArray(100000, '=') + "\n",
        "%general\n[%U0000]\n%UFFFF=%zz\n;\n[\n]\n=\n",
    };
    for (const QByteArray& content : contents) {
        store(content);
        expectToStart(content.left(60).toStdString());
    }
}

TEST_F(HostileSettingsTest, RecentFilesAreNotOpenedBeforeTheyAreChosen) {
    const QString pipe = folder.filePath("pipe.dxf");
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    writeMixed("plain.dxf");
    QStringList files = {pipe,
                         folder.filePath("plain.dxf"),
                         "http://127.0.0.1:9/a.dxf",
                         "smb://127.0.0.1/a.dxf",
                         "",
                         "/",
                         "plain.dxf",
                         QString::fromUtf8("/\xE2\x80\xAE\n\x1b[31m.dxf"),
                         "/" + QString(5000, 'y') + ".dxf"};
    for (int number = 0; number < 10000; ++number) {
        files << QString("/many/%1.dxf").arg(number);
    }
    QSettings().setValue("recentFiles", files);
    QSettings().sync();
    const FileOpens opens(folder.path());
    start();
    EXPECT_EQ(opens.take(), QStringList());
    EXPECT_EQ(find<QListWidget>("welcomeRecent")->count(), int{RecentFiles::kMaxFiles});
}

TEST_F(HostileSettingsTest, AWebAddressAmongTheRecentFilesIsAFileThatIsNotThere) {
    QSettings().setValue("recentFiles", QStringList{"http://127.0.0.1:9/a.dxf"});
    start();
    DialogDriver driver;
    driver.press(QMessageBox::Ok);
    Q_EMIT find<QListWidget>("welcomeRecent")
        ->itemActivated(find<QListWidget>("welcomeRecent")->item(0));
    EXPECT_TRUE(waitUntil([this] { return said().contains("no such file"); }))
        << said().toStdString();
}

/// The browser of the desktop, which writes down what it is started with.
class WebHelpTest : public HostileSettingsTest {
protected:
    void SetUp() override {
        if (QGuiApplication::platformName() != "xcb") {
            GTEST_SKIP() << "this display starts no browser";
        }
        // The toolkit keeps where it has found the browser, so it stays there for all tests.
        static const QTemporaryDir programs;
        QFile script(programs.filePath("xdg-open"));
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write(
            "#!/bin/sh\n"
            "printf '%s\\n' $# \"$@\" > \"$KX_TEST_STARTED.new\"\n"
            "mv \"$KX_TEST_STARTED.new\" \"$KX_TEST_STARTED\"\n");
        ASSERT_TRUE(script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        qputenv("KX_TEST_STARTED", QFile::encodeName(folder.filePath("started")));
        m_path = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(programs.path()) + ":" + m_path);
    }
    void TearDown() override {
        if (!m_path.isEmpty()) {
            qputenv("PATH", m_path);
        }
    }
    /// Asks for help with this address in the settings.
    void askWith(const QString& link) {
        stop();
        QSettings().setValue("help/web", true);
        QSettings().setValue("help/webLink", link);
        start();
        QFile::remove(folder.filePath("started"));
        click("HelpPushButton");
    }
    /// What the browser was started with, the number of arguments first.
    QStringList started() const {
        const QString path = folder.filePath("started");
        if (!waitUntil([&] { return QFile::exists(path); })) {
            return {};
        }
        QFile file(path);
        return file.open(QIODevice::ReadOnly)
                   ? QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts)
                   : QStringList();
    }

    QByteArray m_path;
};

TEST_F(WebHelpTest, TheAddressIsTheOnlyArgumentOfTheBrowser) {
    const QString planted = folder.filePath("planted");
    const QStringList links = {"https://a.example/",
                               "https://a.example/\"; touch " + planted + "; \"",
                               "https://a.example/$(touch " + planted + ")",
                               "https://a.example/`touch " + planted + "`",
                               "https://a.example/ --new-window file:///etc/passwd",
                               "https://a.example/' ; touch " + planted + " ; '",
                               "https://a.example/|touch " + planted,
                               "https://a.example/\n--help",
                               "HTTPS://a.example/%20%22%0A--help"};
    for (const QString& link : links) {
        askWith(link);
        const QStringList words = started();
        ASSERT_EQ(words.size(), 2) << link.toStdString() << words.join("|").toStdString();
        EXPECT_EQ(words.at(0), "1") << link.toStdString();
        EXPECT_TRUE(words.at(1).startsWith("https://a.example/")) << words.at(1).toStdString();
        EXPECT_FALSE(words.at(1).contains(' ')) << words.at(1).toStdString();
        EXPECT_FALSE(QFile::exists(planted)) << link.toStdString();
    }
}

TEST_F(WebHelpTest, AnAddinsHelpIsAtTheAddressOfTheSettingsOnly) {
    askWith("https://a.example/help/");
    EXPECT_EQ(started().size(), 2);
    QFile::remove(folder.filePath("started"));
    for (const char* address :
         {"https://b.example/help/", "https://a.example.b.example/help/", "http://a.example/help/",
          "https://a.example:8080/help/", "https://a@a.example/help/", "https://a.example/other",
          "https://a.example/helper", "https://a.example/help/../other",
          "https://a.example@b.example/help/"}) {
        window->findChild<HostSession*>()->application()->OpenWebHelp(kxString(address));
        EXPECT_TRUE(said().contains(QString("of the settings: ") + address)) << address;
    }
    EXPECT_FALSE(QFile::exists(folder.filePath("started")));
}

TEST_F(WebHelpTest, WhatIsNoWebAddressIsNotOpened) {
    for (const char* link : {"", "--help", "file:///etc/passwd", "/bin/sh", "javascript:alert(1)",
                             "https:", "https:///path", "xdg-open", "mailto:a@example.org",
                             " https://a.example/", "smb://a.example/", "qrc:/x"}) {
        askWith(link);
        EXPECT_TRUE(said().contains("There is no web address for help")) << link;
        EXPECT_FALSE(QFile::exists(folder.filePath("started"))) << link;
    }
}

}  // namespace
