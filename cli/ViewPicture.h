// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

class QWidget;

/// Whether there is a display to draw on; otherwise `error` says so and names what helps.
bool hasDisplay(std::string* error);

/// The cause, for the user.
std::string noDisplayText();

/// Shows the add-in's pane with the view in sight, so that the view can draw. False, with the
/// cause in `error`, when the pane has no view or the view no OpenGL.
bool showView(QWidget* pane, std::string* error);

/// Writes the view's picture as PNG, replacing a file only when the new one is complete. False,
/// with file and cause in `error`, when that fails.
bool writeViewPicture(QWidget* pane, const std::string& path, std::string* error);
