// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>

#include <kx/kxString.h>

inline QString toQString(const kxString& text) {
    return QString::fromStdString(text.toUtf8());
}

inline kxString toKxString(const QString& text) {
    const std::wstring wide = text.toStdWString();
    return {wide.c_str(), wide.size()};
}
