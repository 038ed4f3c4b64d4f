// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <cstdio>

#include "GenerateCommand.h"
#include "Options.h"

namespace {

/// What the toolkit has to remark about its own workings is nothing for the user of a command.
void showErrorsOnly(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        std::fprintf(stderr, "kxgcode: %s\n", qUtf8Printable(text));
    }
}

}  // namespace

int main(int argc, char** argv) {
    // Read before the toolkit takes over the locale and its own options.
    const ParsedOptions parsed = parseOptions(argc, argv);
    if (parsed.exitCode) {
        return *parsed.exitCode;
    }
    qInstallMessageHandler(showErrorsOnly);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    // The dialogs that are driven here must not leave traces in the user's settings.
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    int count = 1;
    QApplication application(count, argv);
    return generateProgram(parsed.options);
}
