// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/// The add-in to load at start: the first `libGCodeAddin.so.1` there is, in this order: the folders
/// of the environment variable KX_ADDIN_PATH (separated by colons; a file is taken as it is), the
/// folder of the program, the library folders next to it. At most one; the places that were
/// searched in `searched`.
QString findAddin(QStringList* searched);

/// The same for a program in `programFolder` and a variable that is set to `addinPath`.
QString findAddinFrom(const QString& programFolder, const QString& addinPath,
                      QStringList* searched);
