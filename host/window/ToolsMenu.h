// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>

#include <QObject>
#include <QString>

#include <kx/host/kxHostApplication.h>

class HostActions;
class QMenu;

/// The Tools menu: a menu of the application's object model, into which add-ins put items, shown
/// as a menu of the window. Without a drawing there is a shorter one.
class ToolsMenu : public QObject {
    Q_OBJECT

public:
    using RunMacro = std::function<void(const QString& macro)>;
    static constexpr char kId[] = "ID_MnTools";

    /// Makes the object model's menus. All outlive this.
    ToolsMenu(kxHostApplication_c* application, HostActions* actions, QMenu* menu,
              RunMacro runMacro);

    /// Fills the window's menu anew from the object model.
    void rebuild(bool hasDrawing);

private:
    void fill(QMenu* menu, const kxMenuItem_c& items);
    void addCommand(QMenu* menu, const kxMenuItem_c& item);

    kxHostApplication_c* m_application;
    HostActions* m_actions;
    QMenu* m_menu;
    RunMacro m_runMacro;
};

/// Gives each item of a menu that has no mnemonic one that is free there.
void addMnemonics(QMenu* menu);
