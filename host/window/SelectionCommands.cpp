// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// Commands that select.
#include <algorithm>
#include <map>
#include <set>

#include <QCoreApplication>
#include <QMainWindow>

#include "KxText.h"
#include "commandline/CommandTable.h"
#include "drawing/Selectable.h"
#include "view/DrawingView.h"
#include "window/Dialogs.h"
#include "window/DrawingTab.h"
#include "window/HostParts.h"
#include "window/ObjectText.h"
#include "window/SelectionKeeper.h"
#include "window/TypedPoints.h"

namespace {

using Objects = std::vector<kxObject_ptr>;

QString tr(const char* text) {
    return QCoreApplication::translate("HostCommands", text);
}

/// Makes these the selection, and says how many they are.
void select(const HostParts& parts, DrawingTab& tab, const Objects& objects) {
    parts.selection->replace(&tab, objects);
    parts.say(tr("%1 selected")
                  .arg(plural(static_cast<long>(objects.size()), tr("object"), tr("objects"))));
}

std::vector<ChoiceItem> layerItems(const DrawingTab& tab) {
    std::map<kxString, long> counts;
    for (const kxObject_ptr& object : kxdrawing::selectableObjects(*tab.document())) {
        ++counts[object->GetLayer()];
    }
    std::vector<ChoiceItem> items;
    for (const auto& [name, count] : counts) {
        items.push_back({toQString(name), count});
    }
    return items;
}

std::vector<ChoiceItem> typeItems(const DrawingTab& tab) {
    std::vector<ChoiceItem> items;
    for (const auto& [type, count] : countTypes(kxdrawing::selectableObjects(*tab.document()))) {
        items.push_back({typeKeyword(type), count});
    }
    return items;
}

/// The words that were typed, or else what the user chooses.
CommandArguments wordsOrChoice(const HostParts& parts, const CommandArguments& words,
                               const Choice& choice) {
    if (!words.isEmpty()) {
        return words;
    }
    if (choice.items.empty()) {
        parts.say(tr("Nothing can be selected in this drawing."));
        return {};
    }
    return chooseMany(choice, parts.window).value_or(QStringList());
}

/// The layers that names in any case mean; those that mean none are complained about.
std::vector<kxString> layersOf(const HostParts& parts, const DrawingTab& tab,
                               const CommandArguments& names) {
    std::vector<kxString> found;
    for (const QString& name : names) {
        const std::size_t before = found.size();
        for (const kxLayer& layer : tab.document()->GetLayers()) {
            if (toQString(layer.name).compare(name, Qt::CaseInsensitive) == 0) {
                found.push_back(layer.name);
            }
        }
        if (found.size() == before) {
            parts.complain(tr("No such layer: %1").arg(name));
        }
    }
    return found;
}

void selectLayer(const HostParts& parts, DrawingTab& tab, const CommandArguments& names) {
    const CommandArguments words =
        wordsOrChoice(parts, names, {tr("Select by Layer"), tr("&Layers:"), layerItems(tab)});
    kxdrawing::ObjectFilter filter;
    filter.layers = layersOf(parts, tab, words);
    if (!filter.layers.empty()) {
        select(parts, tab, kxdrawing::selectableObjects(*tab.document(), filter));
    }
}

void selectType(const HostParts& parts, DrawingTab& tab, const CommandArguments& names) {
    const CommandArguments words =
        wordsOrChoice(parts, names, {tr("Select by Type"), tr("&Types:"), typeItems(tab)});
    kxdrawing::ObjectFilter filter;
    for (const QString& word : words) {
        const kxObjectType_e type = typeOfKeyword(word);
        if (type != kxUnknownType) {
            filter.types.push_back(type);
        } else {
            parts.complain(tr("No such type: %1. There are LINE, ARC, CIRCLE, POINT, POLYLINE, "
                              "ELLIPSE, SPLINE and TEXT.")
                               .arg(word));
        }
    }
    if (!filter.types.empty()) {
        select(parts, tab, kxdrawing::selectableObjects(*tab.document(), filter));
    }
}

/// As a box that is drawn from the first corner to the second.
void selectBox(const HostParts& parts, DrawingTab& tab, const CommandArguments& words) {
    const bool isRemoved = words.value(2).toUpper() == "REMOVE";
    const auto points = typedPoints(words.mid(0, isRemoved ? 2 : -1));
    if (!points) {
        parts.complain(tr("SELECTBOX takes two corners: X,Y X,Y [REMOVE]"));
        return;
    }
    WorldBox box;
    box.add(points->first);
    box.add(points->second);
    const DrawingScene& scene = tab.view()->scene();
    Objects objects;
    const bool isCrossing = points->second.x() < points->first.x();
    for (const std::size_t index : isCrossing ? scene.crossing(box) : scene.contained(box)) {
        objects.push_back(scene.objects()[index]);
    }
    isRemoved ? parts.selection->remove(&tab, objects) : parts.selection->add(&tab, objects);
    const auto count = static_cast<long>(parts.selection->selected(&tab).size());
    parts.say(tr("%1 selected").arg(plural(count, tr("object"), tr("objects"))));
}

void invert(const HostParts& parts, DrawingTab& tab) {
    std::set<const kxObject*> chosen;
    for (const kxObject_ptr& object : parts.selection->selected(&tab)) {
        chosen.insert(object.get());
    }
    Objects rest = kxdrawing::selectableObjects(*tab.document());
    rest.erase(std::remove_if(rest.begin(), rest.end(),
                              [&](const auto& object) { return chosen.count(object.get()) != 0; }),
               rest.end());
    select(parts, tab, rest);
}

}  // namespace

void addSelectionCommands(const HostParts& parts) {
    CommandTable& table = *parts.commands;
    table.add({"SELECTALL", QString(), tr("Selects all that is shown."),
               onDrawing(parts,
                         [parts](DrawingTab& tab, const CommandArguments&) {
                             select(parts, tab, kxdrawing::selectableObjects(*tab.document()));
                         }),
               true});
    table.add({"SELECTLAYER", "[NAME...]", tr("Selects the objects of layers."),
               onDrawing(parts,
                         [parts](DrawingTab& tab, const CommandArguments& names) {
                             selectLayer(parts, tab, names);
                         }),
               true});
    table.add({"SELECTTYPE", "[TYPE...]", tr("Selects the objects of types."),
               onDrawing(parts,
                         [parts](DrawingTab& tab, const CommandArguments& names) {
                             selectType(parts, tab, names);
                         }),
               true});
    table.add(
        {"SELECTBOX", "X,Y X,Y [REMOVE]",
         tr("Selects what lies between two corners, or what it touches when the second is on "
            "the left."),
         onDrawing(parts, [parts](DrawingTab& tab,
                                  const CommandArguments& words) { selectBox(parts, tab, words); }),
         true});
    table.add({"INVERT", QString(), tr("Selects what is not selected, and the reverse."),
               onDrawing(parts,
                         [parts](DrawingTab& tab, const CommandArguments&) { invert(parts, tab); }),
               true});
    table.add({"CLEAR", QString(), tr("Selects nothing."),
               onDrawing(parts, [parts](DrawingTab& tab,
                                        const CommandArguments&) { select(parts, tab, {}); }),
               true});
}
