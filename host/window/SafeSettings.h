// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

// The settings file may be damaged, or be somebody else's: the toolkit believes all that is in it.

/// Moves the settings file aside, to a name with ".broken" at its end, when it holds values of a
/// kind that this program never writes. The toolkit would take their sizes from the file, and ask
/// for as much memory.
void setForeignSettingsAside();

/// Keeps the bytes of a layout so that they are known again.
void storeLayout(const QString& key, const QByteArray& layout);
/// The bytes that were kept; empty when there are none or others. What the toolkit makes of
/// damaged ones is windows of any size, or a crash.
QByteArray storedLayout(const QString& key);
