// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <utility>

#include <QPointF>
#include <QStringList>

/// The points of two words "X,Y", whatever the locale; nothing when they are others.
std::optional<std::pair<QPointF, QPointF>> typedPoints(const QStringList& words);
