// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

class PlantedFiles;

/// A drawing with two lines, and with the name of a planted file in each place where a DXF file may
/// name one: external references, images, underlays, fonts and shapes, links, plot styles.
QByteArray hostileDrawing(PlantedFiles& planted);
