// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "Document.h"

kxObject_ptr SketchManager::GetObject(long index) const {
    const bool inRange = index >= 0 && index < static_cast<long>(m_objects.size());
    return inRange ? m_objects[static_cast<std::size_t>(index)] : kxObject_ptr();
}

void Document::GetCommandOptionInt16(kxCommandOptionInt16_e option, short* value,
                                     kxGetCommandOptionResult_e* result) const {
    const auto found = m_options.find(option);
    if (found == m_options.end()) {
        *result = kxGetCommandOptionResult_NotFound;
        return;
    }
    *value = found->second;
    *result = kxGetCommandOptionResult_Success;
}

kxEventResult_e Document::RegisterEvent(kxDocumentEvent_e id, void* owner, kxNotifyHook hook) {
    switch (id) {
        case kxDocument_DestroyNotify_id:
        case kxDocument_FileSavePostNotify_id:
        case kxDocument_ModifyNotify_id:
            return m_events.add(id, owner, hook);
        case kxDocument_FileSavePreNotify_id:
            break;
    }
    return kxEventResult_UnknownEvent;
}

kxEventResult_e Document::RegisterEvent(kxDocumentEvent_e id, void* owner, kxFileSavePreHook hook) {
    return id == kxDocument_FileSavePreNotify_id ? m_savePreEvents.add(id, owner, hook)
                                                 : kxEventResult_UnknownEvent;
}

kxEventResult_e Document::UnRegisterEvent(kxDocumentEvent_e id, void* owner) {
    return id == kxDocument_FileSavePreNotify_id ? m_savePreEvents.remove(id, owner)
                                                 : m_events.remove(id, owner);
}

void Document::SetObjects(std::vector<kxObject_ptr> objects) {
    // A hook of the first event may close the drawing: it must live until the second is sent.
    const kxHostDocument_ptr self(this);
    m_members.clear();
    for (const kxObject_ptr& object : objects) {
        m_members.insert(object.get());
    }
    m_sketch->setObjects(std::move(objects));
    m_selection->retain(
        [this](const kxObject_ptr& object) { return m_members.count(object.get()) != 0; }, true);
    m_events.send(kxDocument_ModifyNotify_id);
}

void Document::SetLayers(std::vector<kxLayer> layers) {
    m_layers = std::move(layers);
    m_hiddenLayers.clear();
    for (const kxLayer& layer : m_layers) {
        if (!layer.visible) {
            m_hiddenLayers.insert(layer.name);
        }
    }
    m_selection->retain(
        [this](const kxObject_ptr& object) { return IsLayerVisible(object->GetLayer()); }, false);
}

bool Document::IsLayerVisible(const kxString& name) const {
    return m_hiddenLayers.count(name) == 0;
}

void Document::SetSelection(kxSelectionSetType_e set, const std::vector<kxObject_ptr>& objects) {
    std::vector<kxObject_ptr> accepted;
    std::set<const kxObject*> seen;
    for (const kxObject_ptr& object : objects) {
        if (m_members.count(object.get()) != 0 && IsLayerVisible(object->GetLayer()) &&
            seen.insert(object.get()).second) {
            accepted.push_back(object);
        }
    }
    m_selection->setObjects(set, std::move(accepted));
}

bool Document::sendDestroy() {
    if (m_closing) {
        return false;
    }
    m_closing = true;
    m_events.send(kxDocument_DestroyNotify_id);
    return true;
}
