// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <QTextDocument>

/// A tool tip that shows names of files and drawings as they are: a text that looks like HTML would
/// be shown as such, with the images it names.
inline QString plainToolTip(const QString& text) {
    return Qt::mightBeRichText(text) ? "<span>" + text.toHtmlEscaped() + "</span>" : text;
}
