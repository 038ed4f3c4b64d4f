// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/KeptSettings.h"

#include <utility>

#include <QCoreApplication>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

#include "window/ShownName.h"

namespace {

QString g_failure;
bool g_isTold = false;

/// The first one holds: it names the file.
void noteFailure(const QString& file) {
    if (g_failure.isEmpty()) {
        g_failure = QCoreApplication::translate("KeptSettings", "The settings can't be kept: %1")
                        .arg(shownName(file));
    }
}

}  // namespace

bool writeSettings() {
    QSettings stored;
    stored.sync();
    // Where not even a folder can be made the toolkit takes that for no error.
    const bool isKept = stored.status() == QSettings::NoError && stored.isWritable();
    if (isKept) {
        g_failure.clear();
        g_isTold = false;
    } else {
        noteFailure(stored.fileName());
    }
    return isKept;
}

QString settingsFailure() {
    return g_failure;
}

QString untoldSettingsFailure() {
    return g_failure.isEmpty() || std::exchange(g_isTold, true) ? QString() : g_failure;
}

void leaveStrangeSettings() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    const QString program = QCoreApplication::applicationName();
    // The toolkit reads that of all programs of the maker, too.
    for (const QString& file :
         {folder + "/" + program + "/" + program + ".conf", folder + "/" + program + ".conf"}) {
        const QFileInfo info(file);
        if (info.exists() && !info.isFile()) {
            noteFailure(file);
            // Nothing can be made below a device.
            QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
        }
    }
}
