// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

class kxByteArray;
class kxString;
class kxStringArray;

/// Sets a variable of the process's environment, as UTF-8; an existing value is replaced.
void setEnvironmentVariable(const QString& name, const QString& value);
/// A variable's value read as Latin-1; empty when it is not set.
QString getEnvironmentVariable(const QString& name);

/// Between Qt's types and the host's: texts go over as UCS-4 code points, bytes as they are,
/// lists element by element. No normalisation, no limit of length.
kxString q2d(const QString& text);
QString d2q(const kxString& text);
kxByteArray q2d(const QByteArray& bytes);
QByteArray d2q(const kxByteArray& bytes);
kxStringArray q2d(const QStringList& texts);
QStringList d2q(const kxStringArray& texts);
