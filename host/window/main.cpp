// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// kxhost: the program.
#include <csignal>
#include <iostream>

#include <QApplication>
#include <QIcon>
#include <QTimer>

#include "Version.h"
#include "window/Drawings.h"
#include "window/HostOptions.h"
#include "window/HostResources.h"
#include "window/KeptSettings.h"
#include "window/MainWindow.h"
#include "window/OpenEach.h"
#include "window/StartFailure.h"
#include "window/ToolkitRemarks.h"

namespace {

constexpr int kNoDisplay = 1;
constexpr int kNoOutput = 1;

QStringList toTexts(int argc, char** argv) {
    QStringList texts;
    for (int index = 0; index < argc; ++index) {
        texts.append(QString::fromLocal8Bit(argv[index]));
    }
    return texts;
}

/// Help and errors need no display, so they come before the toolkit asks for one.
bool isAnsweredAtOnce(int argc, char** argv) {
    const QStringList arguments = toTexts(argc, argv);
    for (const QString& word : arguments.mid(1)) {
        if (word == "--help" || word == "-h" || word == "--version" || word == "-v") {
            return true;
        }
    }
    return false;
}

/// The toolkit ends the program without an answer when it finds no display at all.
bool hasDisplay(int argc, char** argv) {
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") ||
           toTexts(argc, argv).contains("-platform");
}

void print(const QString& message, int exitCode) {
    (exitCode == 0 ? std::cout : std::cerr) << message.toStdString();
    if (!message.endsWith('\n')) {
        (exitCode == 0 ? std::cout : std::cerr) << '\n';
    }
}

void describeApplication() {
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCoreApplication::setOrganizationName("kxhost");
    QCoreApplication::setApplicationName("kxhost");
    QCoreApplication::setApplicationVersion(QString::fromLatin1(kVersion));
    QGuiApplication::setDesktopFileName("kxhost");
}

int runWindow(const HostOptions& options) {
    MainWindow window;
    window.loadAddins(options);
    window.restoreLayout();
    window.show();
    if (options.openEach) {
        openEach(&window, options.drawings);
        window.close();
        if (!std::cout.flush()) {
            print("kxhost: standard output can't be written", kNoOutput);
            return kNoOutput;
        }
        return 0;
    }
    QTimer::singleShot(0, &window, [&] { window.drawings()->open(options.drawings); });
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    // A limit of file size is to be said, not to end the program.
    std::signal(SIGXFSZ, SIG_IGN);
    QString message;
    int exitCode = 0;
    const bool needsNoDisplay = isAnsweredAtOnce(argc, argv) || !hasDisplay(argc, argv);
    if (needsNoDisplay && !parseHostOptions(toTexts(argc, argv), &message, &exitCode)) {
        print(message, exitCode);
        return exitCode;
    }
    if (!hasDisplay(argc, argv)) {
        print("kxhost: there is no display to open a window on", kNoDisplay);
        return kNoDisplay;
    }
    hideIconSizeRemark();
    describeApplication();
    leaveStrangeSettings();
    endWhenToolkitFails(kNoDisplay);
    const QApplication application(argc, argv);
    noteStarted();
    loadHostResources();
    QApplication::setWindowIcon(QIcon(":/kxhost/icons/kxhost.svg"));
    const std::optional<HostOptions> options =
        parseHostOptions(QApplication::arguments(), &message, &exitCode);
    if (!options) {
        print(message, exitCode);
        return exitCode;
    }
    return runWindow(*options);
}
