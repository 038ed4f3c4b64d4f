// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/ToolsMenu.h"

#include <utility>
#include <vector>

#include <QAction>
#include <QFile>
#include <QIcon>
#include <QMenu>
#include <QSet>

#include "KxText.h"
#include "PlainText.h"
#include "window/HostActions.h"

namespace {

/// Empty stands for a separator.
using Commands = std::vector<const char*>;

/// The command in a macro such as "^C^C_NAME".
QString hostCommand(const kxUserCommandData& data) {
    QString macro = toQString(data.macro);
    while (macro.startsWith("^C")) {
        macro.remove(0, 2);
    }
    return macro.startsWith("_") ? macro.mid(1) : macro;
}

void appendItem(kxMenuItem_c* menu, const kxMenuItemData& data) {
    menu->InsertMenuItem(kxString(), static_cast<long>(menu->GetMenuItems().size()), data);
}

void addOwnItems(kxHostApplication_c* application, const HostActions& actions, kxUIState_e state,
                 const Commands& commands) {
    const kxMenuItem_ptr menu =
        application->AddMenu(state, kxString(ToolsMenu::kId), toKxString(ToolsMenu::tr("Tools")));
    for (const QString command : commands) {
        if (command.isEmpty()) {
            appendItem(menu.get(), {kxMenuItemType_Separator, {}, {}});
            continue;
        }
        const QAction* action = actions.of(command);
        const kxUserCommandData data{
            state, toKxString("^C^C_" + command), toKxString(action->statusTip()), {}, {}};
        const kxUserCommand_ptr user = application->CreateUserCommand(kxString(), data);
        appendItem(menu.get(),
                   {kxMenuItemType_UserCommand, user->GetID(), toKxString(action->text())});
    }
}

QIcon iconOf(const kxUserCommandData& data) {
    for (const kxString& name : {data.smallIcon, data.largeIcon}) {
        const QString file = toQString(name);
        if (!file.isEmpty() && QFile::exists(file)) {
            return QIcon(file);
        }
    }
    return {};
}

/// The character after a single "&"; null without one.
QChar mnemonicOf(const QString& text) {
    for (int index = 0; index + 1 < text.size(); ++index) {
        if (text.at(index) == '&') {
            if (text.at(index + 1) != '&') {
                return text.at(index + 1).toUpper();
            }
            ++index;
        }
    }
    return {};
}

void giveMnemonic(QAction* action, QSet<QChar>* taken) {
    const QString text = action->text();
    for (int index = 0; index < text.size(); ++index) {
        const QChar letter = text.at(index).toUpper();
        if (letter.isLetterOrNumber() && !taken->contains(letter)) {
            action->setText(QString(text).insert(index, '&'));
            taken->insert(letter);
            return;
        }
    }
}

}  // namespace

ToolsMenu::ToolsMenu(kxHostApplication_c* application, HostActions* actions, QMenu* menu,
                     RunMacro runMacro)
    : QObject(menu),
      m_application(application),
      m_actions(actions),
      m_menu(menu),
      m_runMacro(std::move(runMacro)) {
    // Add-ins put their items after the first six.
    addOwnItems(application, *actions, kxUIState_Document,
                {"INFO", "MEASURE", "REPORT", "TOOLPATHCHECK", "PICTURE", "ADDIN", "CHECKPROGRAM",
                 "", "SETTINGS"});
    addOwnItems(application, *actions, kxUIState_Zero, {"ADDIN", "CHECKPROGRAM", "", "SETTINGS"});
}

void ToolsMenu::rebuild(bool hasDrawing) {
    m_menu->clear();
    for (QObject* sub : m_menu->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly)) {
        sub->deleteLater();
    }
    const kxUIState_e state = hasDrawing ? kxUIState_Document : kxUIState_Zero;
    for (const kxMenuItem_ptr& menu : m_application->GetMenuItems(state)) {
        if (menu->GetID() == kxString(kId)) {
            fill(m_menu, *menu);
        }
    }
}

void ToolsMenu::fill(QMenu* menu, const kxMenuItem_c& items) {
    for (const kxMenuItem_ptr& item : items.GetMenuItems()) {
        switch (item->GetType()) {
            case kxMenuItemType_Separator:
                menu->addSeparator();
                break;
            case kxMenuItemType_Menu:
                fill(menu->addMenu(toQString(item->get_Name())), *item);
                break;
            case kxMenuItemType_UserCommand:
                addCommand(menu, *item);
                break;
        }
    }
    addMnemonics(menu);
}

void ToolsMenu::addCommand(QMenu* menu, const kxMenuItem_c& item) {
    const kxUserCommand_ptr command = m_application->FindUserCommand(item.GetID());
    const kxUserCommandData data = command ? command->GetData() : kxUserCommandData();
    if (QAction* own = m_actions->of(hostCommand(data))) {
        menu->addAction(own);
        return;
    }
    QAction* action = menu->addAction(iconOf(data), toQString(item.get_Name()));
    const QString macro = toQString(data.macro);
    action->setStatusTip(toQString(data.description));
    action->setToolTip(plainToolTip(toQString(data.description)));
    action->setEnabled(static_cast<bool>(command));
    connect(action, &QAction::triggered, this, [this, macro] { m_runMacro(macro); });
}

void addMnemonics(QMenu* menu) {
    QSet<QChar> taken;
    for (const QAction* action : menu->actions()) {
        taken.insert(mnemonicOf(action->text()));
    }
    for (QAction* action : menu->actions()) {
        if (!action->isSeparator() && mnemonicOf(action->text()).isNull()) {
            giveMnemonic(action, &taken);
        }
    }
}
