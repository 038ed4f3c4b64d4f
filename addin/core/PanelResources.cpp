// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/PanelResources.h"

#include <QFile>

QString panelStyleSheet() {
    QFile file(QString::fromLatin1(":/gcodeaddin/GCodeAddin.qss"));
    file.open(QIODevice::ReadOnly);
    return QString::fromLatin1(file.readAll());
}

QString iconPath(const QString& name) {
    return QString::fromLatin1(":/gcodeaddin/Resource/%1_32x-32.svg").arg(name);
}
