// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/StartFailure.h"

#include <cstdio>
#include <cstdlib>
#include <string>

#include <QString>

#include "files/PrintableText.h"

namespace {

QtMessageHandler g_next = nullptr;
int g_exitCode = 0;
/// The first thing that the toolkit complained of, which tells more than its last words.
std::string g_cause;

void watchStart(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type == QtFatalMsg) {
        const std::string cause = g_cause.empty() ? text.toStdString() : g_cause;
        std::fprintf(stderr, "kxhost: there is no display to open a window on: %s\n",
                     kxfiles::printable(cause).c_str());
        std::_Exit(g_exitCode);
    }
    if (g_cause.empty() && type == QtWarningMsg) {
        g_cause = text.toStdString();
    }
    g_next(type, context, text);
}

}  // namespace

void endWhenToolkitFails(int exitCode) {
    g_exitCode = exitCode;
    g_next = qInstallMessageHandler(watchStart);
}

void noteStarted() {
    qInstallMessageHandler(g_next);
}
