// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <kx/kxApplication.h>

#include "core/PathEntity.h"
#include "core/ProgramText.h"

// What the panel asks the host about the selected objects. All coordinates are the host's, in
// drawing units.

/// The selection manager of the active drawing; null when the application, the drawing, its model,
/// its sketch manager or the selection manager is missing.
kxSelectionManager_ptr activeSelectionManager(kxApplication_c* application);

/// The number of objects in a set; 0 without a manager.
long selectedObjectCount(const kxSelectionManager_ptr& manager, kxSelectionSetType_e set);

/// One record of a selected object, whatever its kind. An object that is not of the class its
/// kind names keeps its points at the origin.
GCode::Entity entityOf(kxObjectType_e type, kxObject* object);

/// Whether the object is of the class that its kind, a line, names.
bool isLine(kxObject* object);

/// Read an object for the tool path. False, with nothing written, when it is not of that class.
bool readPoint(kxObject* object, GCode::Point* position);
bool readArc(kxObject* object, GCode::ArcGeometry* geometry);
bool readCircle(kxObject* object, GCode::ArcGeometry* geometry);

/// The positions of a drill cycle: the first record's own point, then those that the host gives
/// for the further points and circles; all others are skipped.
std::vector<GCode::Point> drillPositions(const std::vector<GCode::Entity>& path);
