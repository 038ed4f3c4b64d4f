// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include <QString>

#include <kx/kxObject.h>

#include "window/ObjectText.h"

/// Which objects give a tool path: add-ins write lines, arcs, circles and points only.
struct ToolPathCheck {
    long total = 0;
    TypeCounts withoutPath;

    explicit ToolPathCheck(const std::vector<kxObject_ptr>& objects);
    long countWithoutPath() const;
    /// How many of those without a path can be exploded into objects that have one.
    long countExplodable() const;
    /// "12 selected, 3 give no path"; "Nothing selected".
    QString shortText() const;
    /// For people: all that was found, and what helps.
    QString longText() const;
};
