// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/StartFailure.h"

#include <cstdio>
#include <cstdlib>
#include <vector>

#include <QString>

#include "window/ShownName.h"

namespace {

struct Remark {
    QtMsgType type;
    QString text;
};

QtMessageHandler g_next = nullptr;
int g_exitCode = 0;
/// What the toolkit had to say until now: when it fails one line is enough.
std::vector<Remark> g_remarks;

/// What it says of the display tells more than its last words.
QString causeOf(const QString& lastWords) {
    for (const Remark& remark : g_remarks) {
        if (remark.text.contains(QLatin1String("connect to display"))) {
            return remark.text;
        }
    }
    return lastWords;
}

void watchStart(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type == QtFatalMsg) {
        std::fprintf(stderr, "kxhost: there is no display to open a window on: %s\n",
                     qUtf8Printable(shownName(causeOf(text))));
        std::_Exit(g_exitCode);
    }
    g_remarks.push_back({type, text});
}

}  // namespace

void endWhenToolkitFails(int exitCode) {
    g_exitCode = exitCode;
    g_next = qInstallMessageHandler(watchStart);
}

void noteStarted() {
    qInstallMessageHandler(g_next);
    for (const Remark& remark : g_remarks) {
        g_next(remark.type, QMessageLogContext(), remark.text);
    }
    g_remarks.clear();
}
