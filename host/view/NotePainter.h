// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>
#include <vector>

#include <QColor>

#include "view/DeviceCanvas.h"
#include "view/Outline.h"

/// Draws texts, given by their index, with letters of any size.
void drawNotes(DeviceCanvas* canvas, const outline::Outlines& outlines,
               const std::vector<std::uint32_t>& notes, const QColor& color);
