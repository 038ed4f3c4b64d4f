// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <map>
#include <vector>

#include <QString>

#include <kx/kxObject.h>

/// How many objects there are of each kind.
using TypeCounts = std::map<kxObjectType_e, long>;

TypeCounts countTypes(const std::vector<kxObject_ptr>& objects);
/// The kind as commands know it: "LINE", "POLYLINE". Empty for an unknown one.
QString typeKeyword(kxObjectType_e type);
/// The kind of a keyword in any case, with or without a plural s; unknown for another word.
kxObjectType_e typeOfKeyword(const QString& word);
/// "1 line", "24 lines".
QString countText(kxObjectType_e type, long count);
/// "2 polylines, 1 text and 3 lines"; "nothing" for none.
QString countText(const TypeCounts& counts);
/// "1 object", "8 objects".
QString plural(long count, const QString& one, const QString& many);
/// Kind, layer and geometry in one line, numbers without regard to the locale.
QString describeObject(kxObject& object);
/// A number as short as ten digits tell it, with a decimal point.
QString numberText(double value);
