// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/HostSettings.h"

#include <QSettings>

#include "KxText.h"
#include "window/HelpWindow.h"
#include "window/KeptSettings.h"
#include "window/SafeSettings.h"

namespace {

constexpr char kCanvas[] = "view/lightCanvas";
constexpr char kGrid[] = "view/grid";
constexpr char kAxes[] = "view/axes";
constexpr char kTolerance[] = "explode/tolerance";
constexpr char kWebHelp[] = "help/web";
constexpr char kWebLink[] = "help/webLink";
constexpr char kLanguage[] = "help/language";

}  // namespace

HostSettings HostSettings::load() {
    setForeignSettingsAside();
    const QSettings stored;
    HostSettings settings;
    const bool light = stored.value(kCanvas, false).toBool();
    settings.canvas.canvas = light ? Canvas::Light : Canvas::Dark;
    settings.canvas.grid = stored.value(kGrid, true).toBool();
    settings.canvas.axes = stored.value(kAxes, true).toBool();
    const double tolerance = stored.value(kTolerance, settings.explodeTolerance).toDouble();
    if (tolerance >= kSmallestTolerance && tolerance <= kLargestTolerance) {
        settings.explodeTolerance = tolerance;
    }
    settings.webHelp = stored.value(kWebHelp, false).toBool();
    settings.webLink = stored.value(kWebLink).toString();
    settings.language = stored.value(kLanguage, settings.language).toInt();
    return settings;
}

void HostSettings::save() const {
    QSettings stored;
    stored.setValue(kCanvas, canvas.canvas == Canvas::Light);
    stored.setValue(kGrid, canvas.grid);
    stored.setValue(kAxes, canvas.axes);
    stored.setValue(kTolerance, explodeTolerance);
    stored.setValue(kWebHelp, webHelp);
    stored.setValue(kWebLink, webLink);
    stored.setValue(kLanguage, language);
    writeSettings();
}

kxHelpSettings HostSettings::help() const {
    kxHelpSettings help;
    help.webHelp = webHelp;
    help.webLink = toKxString(webLink);
    help.language = language;
    const QString folder = HelpWindow::manualFolder();
    // Add-ins derive the name of their own help file from this one.
    help.helpFile = folder.isEmpty() ? kxString() : toKxString(folder + "/Kestrix.chm");
    return help;
}
