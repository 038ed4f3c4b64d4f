// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "ProgramReceiver.h"

void ProgramReceiver::take(const QString& program) {
    m_program = program;
}
