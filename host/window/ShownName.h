// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>

#include "files/PrintableText.h"

/// The name of a file as it is shown: on one line, whatever is in it.
inline QString shownName(const QString& name) {
    return QString::fromStdString(kxfiles::printable(name.toStdString()));
}
