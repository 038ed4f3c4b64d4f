// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// Commands about what is shown, and how.
#include <QCoreApplication>

#include "KxText.h"
#include "commandline/CommandTable.h"
#include "view/DrawingView.h"
#include "window/DrawingTab.h"
#include "window/Drawings.h"
#include "window/HostParts.h"
#include "window/HostSettings.h"
#include "window/TypedPoints.h"

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("HostCommands", text);
}

void zoomWindow(const HostParts& parts, DrawingTab& tab, const CommandArguments& arguments) {
    if (arguments.isEmpty()) {
        tab.view()->startZoomWindow();
        tab.view()->setFocus();
        return;
    }
    const auto points = typedPoints(arguments);
    if (!points || points->first == points->second) {
        parts.complain(tr("ZOOMWINDOW takes two corners: X,Y X,Y"));
        return;
    }
    WorldBox box;
    box.add(points->first);
    box.add(points->second);
    tab.view()->zoomTo(box);
}

void setCanvas(const HostParts& parts, const CommandArguments& arguments) {
    const QString word = arguments.value(0).toUpper();
    Canvas& canvas = parts.settings->canvas.canvas;
    if (word == "DARK" || word == "LIGHT") {
        canvas = word == "LIGHT" ? Canvas::Light : Canvas::Dark;
    } else {
        canvas = canvas == Canvas::Light ? Canvas::Dark : Canvas::Light;
    }
    parts.settingsChanged();
}

void setUnits(const HostParts& parts, DrawingTab& tab, const CommandArguments& arguments) {
    const QString word = arguments.value(0).toUpper();
    if (word.isEmpty()) {
        parts.say(tr("The drawing's unit is %1.").arg(tab.unitName()));
        return;
    }
    const bool isInch = word == "INCH" || word == "IN" || word == "INCHES";
    if (!isInch && word != "MM") {
        parts.complain(tr("No unit: %1. UNITS takes MM or INCH.").arg(arguments.first()));
        return;
    }
    tab.setUnit(isInch ? 0 : 1);
    parts.say(
        tr("The drawing's unit is %1 now; its coordinates are not scaled.").arg(tab.unitName()));
}

void listLayers(const HostParts& parts, const DrawingTab& tab) {
    for (const kxLayer& layer : tab.document()->GetLayers()) {
        parts.say(layer.visible ? tr("%1: on").arg(toQString(layer.name))
                                : tr("%1: off").arg(toQString(layer.name)));
    }
}

void setLayer(const HostParts& parts, DrawingTab& tab, const CommandArguments& arguments) {
    if (arguments.isEmpty()) {
        listLayers(parts, tab);
        return;
    }
    std::vector<kxLayer> layers = tab.document()->GetLayers();
    for (kxLayer& layer : layers) {
        if (toQString(layer.name).compare(arguments.first(), Qt::CaseInsensitive) == 0) {
            layer.visible = switchedBy(arguments.mid(1), layer.visible);
            const QString name = toQString(layer.name);
            const QString state = layer.visible ? tr("%1: on") : tr("%1: off");
            tab.setLayers(std::move(layers));
            parts.say(state.arg(name));
            return;
        }
    }
    parts.complain(tr("No such layer: %1").arg(arguments.first()));
}

using ViewCall = void (*)(DrawingTab&);

void addZoomCommand(const HostParts& parts, const char* name, const QString& help, ViewCall call) {
    parts.commands->add(
        {name, QString(), help,
         onDrawing(parts, [call](DrawingTab& tab, const CommandArguments&) { call(tab); }), true});
}

}  // namespace

void addViewCommands(const HostParts& parts) {
    addZoomCommand(parts, "ZOOMFIT", tr("Shows the whole drawing."),
                   [](DrawingTab& tab) { tab.view()->zoomToFit(); });
    addZoomCommand(parts, "ZOOMIN", tr("Shows less of the drawing, larger."),
                   [](DrawingTab& tab) { tab.view()->zoomIn(); });
    addZoomCommand(parts, "ZOOMOUT", tr("Shows more of the drawing, smaller."),
                   [](DrawingTab& tab) { tab.view()->zoomOut(); });
    CommandTable& table = *parts.commands;
    table.add({"ZOOMWINDOW", "[X,Y X,Y]",
               tr("Shows the part between two corners, or that the next box encloses."),
               onDrawing(parts,
                         [parts](DrawingTab& tab, const CommandArguments& arguments) {
                             zoomWindow(parts, tab, arguments);
                         }),
               true});
    table.add({"GRID", "[ON|OFF]", tr("Switches the grid."),
               [parts](const CommandArguments& arguments) {
                   bool& grid = parts.settings->canvas.grid;
                   grid = switchedBy(arguments, grid);
                   parts.settingsChanged();
               },
               true});
    table.add({"AXES", "[ON|OFF]", tr("Switches the axes."),
               [parts](const CommandArguments& arguments) {
                   bool& axes = parts.settings->canvas.axes;
                   axes = switchedBy(arguments, axes);
                   parts.settingsChanged();
               },
               true});
    table.add({"CANVAS", "[DARK|LIGHT]", tr("Switches between a dark and a light canvas."),
               [parts](const CommandArguments& arguments) { setCanvas(parts, arguments); }, true});
    table.add({"UNITS", "[MM|INCH]", tr("Says or sets the drawing's unit."),
               onDrawing(parts, [parts](DrawingTab& tab, const CommandArguments& arguments) {
                   setUnits(parts, tab, arguments);
               })});
    table.add({"LAYER", "[NAME [ON|OFF]]", tr("Lists the layers, or switches one."),
               onDrawing(parts,
                         [parts](DrawingTab& tab, const CommandArguments& arguments) {
                             setLayer(parts, tab, arguments);
                         }),
               true});
    table.add({"NEXT", QString(), tr("Shows the next drawing."),
               [parts](const CommandArguments&) { parts.drawings->walk(1); }});
    table.add({"PREVIOUS", QString(), tr("Shows the drawing before."),
               [parts](const CommandArguments&) { parts.drawings->walk(-1); }});
    table.add({"NEXTAREA", QString(), tr("Goes to the next area of the window."),
               [parts](const CommandArguments&) { parts.walkAreas(1); }, true});
    table.add({"PREVIOUSAREA", QString(), tr("Goes to the area of the window before."),
               [parts](const CommandArguments&) { parts.walkAreas(-1); }, true});
}
