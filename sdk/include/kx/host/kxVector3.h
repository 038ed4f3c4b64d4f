// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

/// A point or vector in drawing units.
struct kxVector3 {
    double x = 0;
    double y = 0;
    double z = 0;
};
