// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <fcntl.h>
#include <QApplication>
#include <QSettings>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string>

#include "CheckCommand.h"
#include "ExitCode.h"
#include "GenerateCommand.h"
#include "Message.h"
#include "Options.h"
#include "ViewCommand.h"
#include "ViewPicture.h"

namespace {

/// What to say when the toolkit can't start; empty once it has.
std::string g_startFailure;

/// What the toolkit has to remark about its own workings is nothing for the user of a command. It
/// would end the program by a crash where it can't start, as at a display that lets nobody in.
void showErrorsOnly(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type == QtFatalMsg && !g_startFailure.empty()) {
        std::_Exit(sayFailure(kExitUnwritableOutput, g_startFailure));
    }
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        sayFailure(kExitUnwritableOutput, text.toStdString());
    }
}

/// Takes the places of closed standard streams, so that no file that is opened later gets one and
/// receives what is printed. What is written to them then fails, as it must.
void occupyStandardStreams() {
    for (int stream = 0; stream <= 2; ++stream) {
        if (fcntl(stream, F_GETFD) == -1) {
            open("/dev/null", stream == 0 ? O_WRONLY : O_RDONLY);
        }
    }
}

/// Prepares the toolkit for running without a user.
void prepareToolkit(bool needsDisplay) {
    g_startFailure = needsDisplay ? noDisplayText() : "the toolkit has no plug-in offscreen";
    qInstallMessageHandler(showErrorsOnly);
    if (!needsDisplay) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        // With a display the hidden view would start OpenGL there, which takes as long as all else.
        qunsetenv("DISPLAY");
    }
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    // The dialogs that are driven here must not leave traces in the user's settings: below a device
    // nothing can be made.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       QString::fromLatin1("/dev/null"));
}

/// Ends with a code after help or version was printed, or what is wrong.
int endAtOnce(int code) {
    const bool isTold = std::cout.flush().good();
    return isTold ? code
                  : sayFailure(kExitUnwritableOutput, "standard output: it can't be written");
}

template <class Wanted>
int runWithoutToolkit(const Parsed<Wanted>& parsed, int (*command)(const Wanted&)) {
    return parsed.exitCode ? endAtOnce(*parsed.exitCode) : command(parsed.options);
}

/// Runs a command with its options in an application of its own.
template <class Wanted>
int run(const Parsed<Wanted>& parsed, int (*command)(const Wanted&), char** argv) {
    if (parsed.exitCode) {
        return endAtOnce(*parsed.exitCode);
    }
    const bool needsDisplay = !parsed.options.preview.empty();
    std::string error;
    if (needsDisplay && !hasDisplay(&error)) {
        return sayFailure(kExitUnwritableOutput, error);
    }
    prepareToolkit(needsDisplay);
    int count = 1;
    const QApplication application(count, argv);
    g_startFailure.clear();
    return command(parsed.options);
}

}  // namespace

int main(int argc, char** argv) {
    occupyStandardStreams();
    // A limit of file size is to be said, not to end the program.
    std::signal(SIGXFSZ, SIG_IGN);
    if (asksFor("check", argc, argv)) {
        return runWithoutToolkit(parseCheckOptions(argc, argv), &checkProgramFile);
    }
    // The options are read before the toolkit takes over the locale and options of its own.
    return asksFor("view", argc, argv) ? run(parseViewOptions(argc, argv), &viewProgram, argv)
                                       : run(parseOptions(argc, argv), &generateProgram, argv);
}
