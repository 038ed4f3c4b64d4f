// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>

#include <QString>

#include "drawing/DxfReader.h"

class QWidget;

/// Reads a drawing in another thread while the window stays alive. After half a second a dialog
/// (object name "openProgress") shows how far it is and lets the user cancel; nothing then.
std::optional<kxdrawing::ReadResult> readWithProgress(const QString& path, QWidget* parent);
