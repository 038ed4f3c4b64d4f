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
bool g_isNoted = false;

void noteFailure(const QString& file) {
    if (!std::exchange(g_isNoted, true)) {
        g_failure = QCoreApplication::translate("KeptSettings", "The settings can't be kept: %1")
                        .arg(shownName(file));
    }
}

}  // namespace

QString untoldSettingsFailure() {
    return std::exchange(g_failure, QString());
}

void writeSettings() {
    QSettings stored;
    stored.sync();
    if (stored.status() == QSettings::NoError) {
        g_isNoted = false;
    } else {
        noteFailure(stored.fileName());
    }
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
