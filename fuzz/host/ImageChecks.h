// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "drawing/Affine.h"
#include "drawing/EntityModel.h"

/// Ends the process unless the images of a line, circle, arc, ellipse or polyline lie where the map
/// brings its points, and nowhere else.
void checkImages(const kxdrawing::Shape& shape, const kxdrawing::Affine& map,
                 const std::vector<kxdrawing::Shape>& images);
