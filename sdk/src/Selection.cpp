// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "Selection.h"

const std::vector<kxObject_ptr>& SelectionManager::objects(kxSelectionSetType_e set) const {
    static const std::vector<kxObject_ptr> kNone;
    switch (set) {
        case kxSelectionSetType_Current:
            return m_current;
        case kxSelectionSetType_Previous:
            return m_previous;
    }
    return kNone;
}

void SelectionManager::GetSelectedObjectCount(kxSelectionSetType_e set, long* count) const {
    *count = static_cast<long>(objects(set).size());
}

void SelectionManager::GetSelectedObject(kxSelectionSetType_e set, long index, kxObjectType_e* type,
                                         kxObject** object) const {
    const std::vector<kxObject_ptr>& all = objects(set);
    const bool inRange = index >= 0 && index < static_cast<long>(all.size());
    *object = inRange ? all[static_cast<std::size_t>(index)].get() : nullptr;
    *type = inRange ? (*object)->GetType() : kxUnknownType;
}

kxEventResult_e SelectionManager::RegisterEvent(kxSelectionManagerEvent_e id, void* owner,
                                                kxNotifyHook hook) {
    return id == kxSelectionManager_SelectionChangedNotify_id ? m_events.add(id, owner, hook)
                                                              : kxEventResult_UnknownEvent;
}

kxEventResult_e SelectionManager::UnRegisterEvent(kxSelectionManagerEvent_e id, void* owner) {
    return m_events.remove(id, owner);
}

void SelectionManager::setObjects(kxSelectionSetType_e set, std::vector<kxObject_ptr> objects) {
    if (set == kxSelectionSetType_Previous) {
        m_previous = std::move(objects);
        return;
    }
    if (set != kxSelectionSetType_Current || objects == m_current) {
        return;
    }
    if (objects.empty()) {
        m_previous = std::move(m_current);
    }
    m_current = std::move(objects);
    sendChanged();
}
