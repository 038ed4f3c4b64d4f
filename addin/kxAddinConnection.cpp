// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "kxAddinConnection.h"

#include <QVBoxLayout>
#include <QWidget>

#include "miscellaneous.h"

namespace {

constexpr int kPaneMinimumWidth = 370;
constexpr long kPaneFlags = kxCustomPropertyControl_MayClose | kxCustomPropertyControl_MayFloat;
constexpr long kSeparatorPosition = 6;
constexpr long kMenuItemPosition = 7;

DockWidgetApplication* applicationOf(void* owner) {
    return static_cast<DockWidgetApplication*>(owner);
}

}  // namespace

DockWidgetApplication::DockWidgetApplication(kxApplication_c* application,
                                             const kxString& applicationID)
    : appID(applicationID), m_kxApp(application) {
    m_kxApp->RegisterEvent(kxApplication_ActiveDocumentChangedNotify_id, this,
                           &ActiveDocumentChangedNotifyHook);
    createDockWidget();
}

DockWidgetApplication::~DockWidgetApplication() {
    RemoveUserInterface(appID);
    m_kxApp->UnRegisterEvent(kxApplication_ActiveDocumentChangedNotify_id, this);
    for (KxAddinDocument* tracker : m_documents) {
        delete tracker;
    }
    // Before the pane, which the host may destroy later than this library is unloaded.
    delete gcodewidget;
    if (m_dockwidget) {
        m_dockwidget->Destroy();
    }
}

void DockWidgetApplication::RemoveUserInterface(const kxString& applicationID) {
    m_kxApp->RemoveUserInterface(applicationID);
    pCmd = nullptr;
}

void DockWidgetApplication::createDockWidget() {
    m_kxApp->CreateCustomPropertyControl2(
        q2d(tr("G-code Generator")), kxCustomPropertyControlArea_Right, kPaneFlags, &m_dockwidget);
    if (!m_dockwidget) {
        return;
    }
    // Without a window there may be no Qt application either, and so nothing to ask.
    const kxWindowHandle window = m_dockwidget->GetHWND();
    QWidget* parent = window != 0 ? QWidget::find(static_cast<WId>(window)) : nullptr;
    if (parent == nullptr) {
        return;
    }
    parent->setMinimumWidth(kPaneMinimumWidth);
    auto* layout = new QVBoxLayout(parent);
    layout->setObjectName(QString::fromLatin1("mainverticalLayout"));
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSizeConstraint(QLayout::SetMaximumSize);
    gcodewidget = new GCodeWidget(m_kxApp.get(), parent);
    layout->addWidget(gcodewidget);
    gcodewidget->show();
    m_dockwidget->put_Visible(true);
    CreateUserInterfaceAndCommands();
}

void DockWidgetApplication::CreateUserInterfaceAndCommands() {
    kxCreateCommandError_e error = kxCreateCommandError_NoError;
    pCmd = m_kxApp->CreateCommand(appID, q2d(QString::fromLatin1("_GCODE")), &error).get();
    if (pCmd != nullptr) {
        pCmd->RegisterEvent(kxCommand_ExecuteNotify_id, this, &ExecuteNotifyHook);
    }
    const kxString icon = q2d(QString::fromLatin1(":/gcodeaddin/Resource/Generate_32x-32.svg"));
    const kxUserCommandData data{kxUIState_Document, q2d(QString::fromLatin1("^C^C_GCODE")),
                                 q2d(tr("Generate 2D G-code: _GCODE")), icon, icon};
    const kxUserCommand_ptr userCommand = m_kxApp->CreateUserCommand(appID, data);
    if (userCommand) {
        insertMenuItems(userCommand->GetID());
    }
}

void DockWidgetApplication::insertMenuItems(const kxString& userCommandID) {
    for (const kxMenuItem_ptr& menu : m_kxApp->GetMenuItems(kxUIState_Document)) {
        if (menu->GetID() != q2d(QString::fromLatin1("ID_MnTools"))) {
            continue;
        }
        menu->InsertMenuItem(appID, kSeparatorPosition, {kxMenuItemType_Separator, {}, {}});
        menu->InsertMenuItem(
            appID, kMenuItemPosition,
            {kxMenuItemType_UserCommand, userCommandID, q2d(tr("2D G-code Generator..."))});
        return;
    }
}

void DockWidgetApplication::ReferenceOpenDocs() {
    m_documents.remove_if(destroyClosedDocument);
}

bool DockWidgetApplication::ExecuteNotifyHook(void* owner) {
    return applicationOf(owner)->ExecuteNotify();
}

bool DockWidgetApplication::ExecuteNotify() {
    isVisible = m_dockwidget->get_Visible();
    m_dockwidget->put_Visible(!isVisible);
    return true;
}

bool DockWidgetApplication::FileNewNotifyHook(void* owner) {
    return applicationOf(owner)->FileNewNotify();
}

bool DockWidgetApplication::FileNewNotify() {
    return true;
}

bool DockWidgetApplication::FileOpenPostNotifyHook(void* owner) {
    return applicationOf(owner)->FileOpenPostNotify();
}

bool DockWidgetApplication::FileOpenPostNotify() {
    return true;
}

bool DockWidgetApplication::ActiveDocumentChangedNotifyHook(void* owner) {
    return applicationOf(owner)->ActiveDocumentChangedNotify();
}

bool DockWidgetApplication::ActiveDocumentChangedNotify() {
    const kxDocument_ptr drawing = m_kxApp->GetActiveDocument();
    if (!drawing || !gcodewidget) {
        return true;
    }
    short unit = 0;
    kxGetCommandOptionResult_e result = kxGetCommandOptionResult_NotFound;
    drawing->GetCommandOptionInt16(kxCommandOptionInt16_SetUntTyp, &unit, &result);
    if (result == kxGetCommandOptionResult_Success) {
        gcodewidget->SetActiveDrawingUnit(unit);
        gcodewidget->ClearPreviousPreview();
    }
    return true;
}
