// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The one place where the interface classes' type information lives, so that checked downcasts
// agree on both sides of the library's edge.
#include <kx/host/kxHostApplication.h>
#include <kx/host/kxHostDocument.h>
#include <kx/kxApplication.h>
#include <kx/kxCircle.h>
#include <kx/kxCircleArc.h>
#include <kx/kxEllipseArc.h>
#include <kx/kxLine.h>
#include <kx/kxPoint.h>
#include <kx/kxPolyLine.h>
#include <kx/kxSimpleNote.h>
#include <kx/kxSpline.h>

kxObject::~kxObject() = default;
kxLine_c::~kxLine_c() = default;
kxPoint_c::~kxPoint_c() = default;
kxCircle_c::~kxCircle_c() = default;
kxCircleArc_c::~kxCircleArc_c() = default;
kxEllipseArc_c::~kxEllipseArc_c() = default;
kxPolyLine_c::~kxPolyLine_c() = default;
kxSpline_c::~kxSpline_c() = default;
kxSimpleNote_c::~kxSimpleNote_c() = default;
kxCommandEvents_c::~kxCommandEvents_c() = default;
kxCommand_c::~kxCommand_c() = default;
kxUserCommand_c::~kxUserCommand_c() = default;
kxMenuItem_c::~kxMenuItem_c() = default;
kxCustomPropertyControl_c::~kxCustomPropertyControl_c() = default;
kxCommandMessage_c::~kxCommandMessage_c() = default;
kxSystemFiles_c::~kxSystemFiles_c() = default;
kxSelectionFilter_c::~kxSelectionFilter_c() = default;
kxSelectionManager_c::~kxSelectionManager_c() = default;
kxSketchManager_c::~kxSketchManager_c() = default;
kxModel_c::~kxModel_c() = default;
kxDocument_c::~kxDocument_c() = default;
kxApplication_c::~kxApplication_c() = default;
kxHostDocument_c::~kxHostDocument_c() = default;
kxHostApplication_c::~kxHostApplication_c() = default;
