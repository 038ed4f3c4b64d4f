// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QStringList>

class MainWindow;

/// Opens each drawing in the window, waits until it is painted, closes it, and prints a line about
/// it; at the end, and after every hundred, how much memory is in use.
void openEach(MainWindow* window, const QStringList& files);
