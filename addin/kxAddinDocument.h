// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxDocument.h>

/// Follows one drawing: keeps it and its selection manager, and knows whether it still lives.
/// Listens to their events from construction to destruction.
class KxAddinDocument {
public:
    explicit KxAddinDocument(kxDocument_c* drawing);
    /// Unregisters all five events.
    ~KxAddinDocument();
    KxAddinDocument(const KxAddinDocument&) = delete;
    KxAddinDocument& operator=(const KxAddinDocument&) = delete;

    /// False once the host has said that the drawing is being destroyed.
    bool isAlive() const { return m_isAlive; }

    // The notifications; each hook calls the member of its name on its owner. All return true, so
    // that the host goes on.
    static bool DestroyNotifyHook(void* owner);
    bool DestroyNotify();
    static bool FileSavePreNotifyHook(void* owner, const kxString& fileName,
                                      kxDocumentSaveAsOption_e option);
    bool FileSavePreNotify(kxString fileName, kxDocumentSaveAsOption_e option);
    static bool FileSavePostNotifyHook(void* owner);
    bool FileSavePostNotify();
    static bool ModifyNotifyHook(void* owner);
    bool ModifyNotify();
    static bool SelectionChangedNotifyHook(void* owner);
    bool SelectionChangedNotify();

private:
    kxDocument_ptr document;
    kxSelectionManager_ptr m_selection_manager;
    bool m_isAlive = true;
};

/// Deletes the tracker of a drawing that is gone and returns true; false for a live one.
bool destroyClosedDocument(KxAddinDocument* tracker);
