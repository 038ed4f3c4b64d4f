// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <array>

#include <QFont>
#include <QPointF>
#include <QTransform>

#include "view/Outline.h"

namespace outline {

/// The font that notes are drawn and measured in.
QFont noteFont();
/// The height of a capital letter of that font, in pixels.
double noteCapHeight();
/// The distance of two base lines, in heights of a capital letter.
constexpr double kNoteLineDistance = 5.0 / 3.0;
/// What brings the font's pixels (y down, the origin at the start of the base line) to drawing
/// units (y up).
QTransform noteTransform(const Note& note);
/// The corners of the box that a note's text fills.
std::array<QPointF, 4> noteCorners(const Note& note);

}  // namespace outline
