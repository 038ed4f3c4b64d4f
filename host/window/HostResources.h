// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

/// Makes the icons of the program known; they are part of a library, which does not do it itself.
void loadHostResources();
