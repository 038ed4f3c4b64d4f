// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "HostWindowTest.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QSettings>
#include <QTest>
#include <QTimer>

#include "Waiting.h"
#include "commandline/CommandLine.h"
#include "commandline/SelectionPrompt.h"
#include "view/DrawingView.h"
#include "window/Drawings.h"
#include "window/HostResources.h"

namespace {

constexpr char kLines[] =
    "  0\nLINE\n  8\nCUT\n 10\n0\n 20\n0\n 11\n100\n 21\n0\n"
    "  0\nLINE\n  8\nCUT\n 10\n0\n 20\n50\n 11\n100\n 21\n50\n";
constexpr char kCircle[] = "  0\nCIRCLE\n  8\nDRILL\n 10\n50\n 20\n25\n 40\n5\n";
constexpr char kPolyline[] =
    "  0\nLWPOLYLINE\n100\nAcDbPolyline\n  8\nCUT\n 90\n4\n 70\n1\n"
    " 10\n120\n 20\n0\n 10\n160\n 20\n0\n 42\n1\n 10\n160\n 20\n40\n 10\n120\n 20\n40\n";

}  // namespace

HostWindowTest::HostWindowTest() {
    QCoreApplication::setOrganizationName("kxhost");
    QCoreApplication::setApplicationName("kxhost");
    qputenv("KX_ADDIN_PATH", ADDIN_FILE);
    QSettings().clear();
    loadHostResources();
    start();
}

HostWindowTest::~HostWindowTest() {
    stop();
}

void HostWindowTest::start() {
    window = std::make_unique<MainWindow>();
    window->loadAddins({});
    window->restoreLayout();
    window->resize(1366, 740);
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    // Not asked of the window system: other tests may have a window on the same screen.
    QApplication::setActiveWindow(window.get());
}

void HostWindowTest::stop() {
    if (window) {
        window->close();
        EXPECT_TRUE(waitUntil([this] { return !window->isVisible(); }));
        window.reset();
    }
}

QString HostWindowTest::example(const char* name) {
    return QString::fromLatin1(KX_EXAMPLES) + "/" + QString::fromLatin1(name);
}

QString HostWindowTest::write(const QString& name, const std::string& entities) const {
    const QString path = folder.filePath(name);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    const std::string text = "  0\nSECTION\n  2\nENTITIES\n" + entities + "  0\nENDSEC\n  0\nEOF\n";
    file.write(text.data(), static_cast<qint64>(text.size()));
    return path;
}

QString HostWindowTest::writeMixed(const QString& name) const {
    return write(name, std::string(kLines) + kCircle + kPolyline);
}

DrawingTab* HostWindowTest::open(const QString& path) {
    QString error;
    EXPECT_EQ(window->drawings()->openNow(path, &error), Drawings::Opening::Opened)
        << error.toStdString();
    // The view takes its part of the drawing when it is painted for the first time.
    EXPECT_TRUE(waitUntil([this] { return tab() != nullptr && tab()->view()->isVisible(); }));
    QCoreApplication::processEvents();
    tab()->view()->repaint();
    return tab();
}

DrawingTab* HostWindowTest::tab() const {
    return window->drawings()->current();
}

void HostWindowTest::type(const QString& line) {
    auto* input = find<QLineEdit>("commandInput");
    input->setFocus();
    QTest::keyClicks(input, line);
    QTest::keyClick(input, Qt::Key_Return);
}

QString HostWindowTest::said() const {
    return window->findChild<CommandLine*>()->text();
}

void HostWindowTest::click(const char* name) const {
    QTest::mouseClick(find<QAbstractButton>(name), Qt::LeftButton);
}

QPoint HostWindowTest::at(double x, double y) const {
    return tab()->view()->transform().toScreen({x, y}).toPoint();
}

void HostWindowTest::clickAt(double x, double y, Qt::KeyboardModifiers held) const {
    QTest::mouseMove(tab()->view(), at(x, y));
    QTest::mouseClick(tab()->view(), Qt::LeftButton, held, at(x, y));
}

void HostWindowTest::press(Qt::Key key, Qt::KeyboardModifiers held) const {
    QApplication::setActiveWindow(window.get());
    QTest::keyClick(window->focusWidget(), key, held);
}

void HostWindowTest::pressInView(Qt::Key key) const {
    QTest::keyClick(tab()->view(), key);
}

std::size_t HostWindowTest::selectedCount() const {
    return tab()->selection().size();
}

void HostWindowTest::generateAndThen(std::function<void()> step) {
    bool happened = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (window->prompt()->isActive() && !happened) {
            happened = true;
            step();
        }
    });
    timer.start(20);
    click("generateGCodeBtn");
    timer.stop();
    EXPECT_TRUE(happened) << "no prompt came";
}
