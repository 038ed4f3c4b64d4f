// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The panel's style sheet, read whole from the resources as Latin-1.
QString panelStyleSheet();

/// The resource path of an icon by its name, as in "Save" or "Z_FeedRate".
QString iconPath(const QString& name);
