// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <QMatrix4x4>

#include "openglplotter/Point3d.h"

/// The steps of a segment word for word: the judge of the fast ones.
std::vector<Point3d> literalSteps(const Point3d& from, const Point3d& to,
                                  const QMatrix4x4& projection, double stepLength);

/// NaNs count as the same: which of two goes on through a sum is up to the compiler.
bool sameBits(const std::vector<Point3d>& a, const std::vector<Point3d>& b);
