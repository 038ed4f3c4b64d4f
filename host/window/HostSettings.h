// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>

#include <kx/host/kxHostApplication.h>

#include "drawing/Explode.h"
#include "view/CanvasPainter.h"

/// What the user has set, kept with QSettings.
struct HostSettings {
    /// What can be set; a stored tolerance outside of it counts as none.
    static constexpr double kSmallestTolerance = 0.0001;
    static constexpr double kLargestTolerance = 1000;

    CanvasOptions canvas;
    double explodeTolerance = kxdrawing::kDefaultTolerance;
    bool webHelp = false;
    QString webLink;
    /// The number of the help's language.
    int language = 2;

    static HostSettings load();
    void save() const;
    /// As the add-ins are told.
    kxHelpSettings help() const;
};
