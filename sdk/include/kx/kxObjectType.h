// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

/// The kinds of drawing objects. The values are fixed: files and add-ins rely on them.
enum kxObjectType_e {
    kxUnknownType = 0,
    kxLineType = 21,
    kxCircleType = 22,
    kxCircleArcType = 23,
    kxSimpleNoteType = 24,
    kxPointType = 25,
    kxEllipseArcType = 26,
    kxPolyLineType = 27,
    kxSplineType = 28
};
