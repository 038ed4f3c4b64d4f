// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/HostResources.h"

#include <QDir>

void loadHostResources() {
    Q_INIT_RESOURCE(kxhost);
}
