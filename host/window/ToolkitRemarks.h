// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

/// Keeps the toolkit from remarking at every start that a style sheet sets "icon-size", which no
/// widget has. All else that it says is passed on.
void hideIconSizeRemark();
