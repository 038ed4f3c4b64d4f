// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "kxAddinDocument.h"

namespace {

KxAddinDocument* trackerOf(void* owner) {
    return static_cast<KxAddinDocument*>(owner);
}

}  // namespace

KxAddinDocument::KxAddinDocument(kxDocument_c* drawing) : document(drawing) {
    if (!document) {
        return;
    }
    document->RegisterEvent(kxDocument_DestroyNotify_id, this, &DestroyNotifyHook);
    document->RegisterEvent(kxDocument_FileSavePreNotify_id, this, &FileSavePreNotifyHook);
    document->RegisterEvent(kxDocument_FileSavePostNotify_id, this, &FileSavePostNotifyHook);
    document->RegisterEvent(kxDocument_ModifyNotify_id, this, &ModifyNotifyHook);
    m_selection_manager = document->GetSelectionManager();
    if (m_selection_manager) {
        m_selection_manager->RegisterEvent(kxSelectionManager_SelectionChangedNotify_id, this,
                                           &SelectionChangedNotifyHook);
    }
}

KxAddinDocument::~KxAddinDocument() {
    if (m_selection_manager) {
        m_selection_manager->UnRegisterEvent(kxSelectionManager_SelectionChangedNotify_id, this);
    }
    if (!document) {
        return;
    }
    document->UnRegisterEvent(kxDocument_ModifyNotify_id, this);
    document->UnRegisterEvent(kxDocument_FileSavePostNotify_id, this);
    document->UnRegisterEvent(kxDocument_FileSavePreNotify_id, this);
    document->UnRegisterEvent(kxDocument_DestroyNotify_id, this);
}

bool KxAddinDocument::DestroyNotifyHook(void* owner) {
    return trackerOf(owner)->DestroyNotify();
}

bool KxAddinDocument::DestroyNotify() {
    m_isAlive = false;
    return true;
}

bool KxAddinDocument::FileSavePreNotifyHook(void* owner, const kxString& fileName,
                                            kxDocumentSaveAsOption_e option) {
    const kxString copy = fileName;
    return trackerOf(owner)->FileSavePreNotify(copy, option);
}

bool KxAddinDocument::FileSavePreNotify(kxString /*fileName*/,
                                        kxDocumentSaveAsOption_e /*option*/) {
    return true;
}

bool KxAddinDocument::FileSavePostNotifyHook(void* owner) {
    return trackerOf(owner)->FileSavePostNotify();
}

bool KxAddinDocument::FileSavePostNotify() {
    return true;
}

bool KxAddinDocument::ModifyNotifyHook(void* owner) {
    return trackerOf(owner)->ModifyNotify();
}

bool KxAddinDocument::ModifyNotify() {
    return true;
}

bool KxAddinDocument::SelectionChangedNotifyHook(void* owner) {
    return trackerOf(owner)->SelectionChangedNotify();
}

bool KxAddinDocument::SelectionChangedNotify() {
    return true;
}

bool destroyClosedDocument(KxAddinDocument* tracker) {
    if (tracker->isAlive()) {
        return false;
    }
    delete tracker;
    return true;
}
