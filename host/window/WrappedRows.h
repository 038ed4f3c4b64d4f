// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

class QTreeWidget;

/// Rows as high as the text of `column` needs, which fills what the other columns leave.
void wrapRows(QTreeWidget* table, int column);
