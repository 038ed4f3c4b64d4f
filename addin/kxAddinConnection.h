// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <list>

#include <QCoreApplication>
#include <QPointer>

#include <kx/kxApplication.h>

#include "core/GCodeWidget.h"
#include "kxAddinDocument.h"

/// The add-in between connection and disconnection: it owns the docked pane with the panel, the
/// command, the menu item, and what follows the active drawing.
class DockWidgetApplication : public kxCommandEvents_c {
    Q_DECLARE_TR_FUNCTIONS(DockWidgetApplication)

public:
    DockWidgetApplication(kxApplication_c* application, const kxString& applicationID);
    /// Takes back all that was registered and made, in reverse order.
    ~DockWidgetApplication() override;

    /// Removes the command, the user command and the menu items.
    void RemoveUserInterface(const kxString& applicationID);
    void CreateUserInterfaceAndCommands();
    /// Shows the pane when it is hidden, and hides it when it is shown.
    bool ExecuteNotify() override;
    /// Builds the pane with the panel, then the user interface. Ends quietly, without a panel,
    /// when the host has no pane or no window for it.
    void createDockWidget();
    /// Drops the trackers of drawings that the host has destroyed.
    void ReferenceOpenDocs();

    static bool FileNewNotifyHook(void* owner);
    bool FileNewNotify();
    static bool FileOpenPostNotifyHook(void* owner);
    bool FileOpenPostNotify();
    static bool ActiveDocumentChangedNotifyHook(void* owner);
    /// Passes the drawing's unit to the panel and clears the preview; does nothing when there is
    /// no drawing or it has no unit.
    bool ActiveDocumentChangedNotify();
    static bool ExecuteNotifyHook(void* owner);

    bool hasPanel() const { return !gcodewidget.isNull(); }

private:
    friend struct DockWidgetApplicationState;

    void insertMenuItems(const kxString& userCommandID);

    kxCustomPropertyControl_ptr m_dockwidget;
    const kxString appID;
    /// Owned by the pane's window; guarded, because the host may close that first.
    QPointer<GCodeWidget> gcodewidget;
    kxApplication_ptr m_kxApp;
    /// Owned by the host until `RemoveUserInterface`.
    kxCommand_c* pCmd = nullptr;
    std::list<KxAddinDocument*> m_documents;
    bool isVisible = false;
};
