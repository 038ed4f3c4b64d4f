// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <fcntl.h>
#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <cstdio>

#include "ExitCode.h"
#include "GenerateCommand.h"
#include "Options.h"
#include "ViewCommand.h"
#include "ViewPicture.h"

namespace {

/// What the toolkit has to remark about its own workings is nothing for the user of a command.
void showErrorsOnly(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        std::fprintf(stderr, "kxgcode: %s\n", qUtf8Printable(text));
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
void prepareToolkit(bool needsDisplay, const QString& settingsFolder) {
    qInstallMessageHandler(showErrorsOnly);
    if (!needsDisplay) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        // With a display the hidden view would start OpenGL there, which takes as long as all else.
        qunsetenv("DISPLAY");
    }
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    // The dialogs that are driven here must not leave traces in the user's settings.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settingsFolder);
}

/// Runs a command with its options in an application of its own.
template <class Wanted>
int run(const Parsed<Wanted>& parsed, int (*command)(const Wanted&), char** argv) {
    if (parsed.exitCode) {
        return *parsed.exitCode;
    }
    const bool needsDisplay = !parsed.options.preview.empty();
    std::string error;
    if (needsDisplay && !hasDisplay(&error)) {
        std::fprintf(stderr, "kxgcode: %s\n", error.c_str());
        return kExitUnwritableOutput;
    }
    const QTemporaryDir settings;
    prepareToolkit(needsDisplay, settings.path());
    int count = 1;
    const QApplication application(count, argv);
    return command(parsed.options);
}

}  // namespace

int main(int argc, char** argv) {
    occupyStandardStreams();
    // The options are read before the toolkit takes over the locale and options of its own.
    return asksForView(argc, argv) ? run(parseViewOptions(argc, argv), &viewProgram, argv)
                                   : run(parseOptions(argc, argv), &generateProgram, argv);
}
