// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The panel's topic in the help.
constexpr long kHelpTopic = 2250;

/// The host's language by its number as the help's address names it; empty for any other number.
QString helpLanguageName(long language);

/// The web address of the panel's help page.
QString webHelpAddress(const QString& link, long language);

/// The panel's help file, which lies beside the host's own; an empty path stays empty.
QString localHelpFile(const QString& hostHelpFile);
