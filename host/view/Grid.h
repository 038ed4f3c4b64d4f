// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include <QLineF>

#include "view/Flatten.h"

struct GridLines {
    std::vector<QLineF> minor;
    std::vector<QLineF> major;
};

/// The grid on a device, without the axes; `pixelRatio` device pixels are one logical pixel.
GridLines gridLines(const outline::DeviceMap& map, const WorldBox& part, double pixelRatio);
