// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <set>
#include <vector>

#include <kx/kxSelectionManager.h>

#include "EventTable.h"

class SelectionFilter final : public kxSelectionFilter_c {
public:
    void Clear() override { m_types.clear(); }
    void AddType(kxObjectType_e type) override { m_types.insert(type); }
    bool Accepts(kxObjectType_e type) const override {
        return m_types.empty() || m_types.count(type) != 0;
    }

private:
    std::set<kxObjectType_e> m_types;
};

/// The current and the previous set of a drawing.
class SelectionManager final : public kxSelectionManager_c {
public:
    void GetSelectedObjectCount(kxSelectionSetType_e set, long* count) const override;
    void GetSelectedObject(kxSelectionSetType_e set, long index, kxObjectType_e* type,
                           kxObject** object) const override;
    kxSelectionFilter_ptr GetSelectionFilter() override { return m_filter; }
    kxEventResult_e RegisterEvent(kxSelectionManagerEvent_e id, void* owner,
                                  kxNotifyHook hook) override;
    kxEventResult_e UnRegisterEvent(kxSelectionManagerEvent_e id, void* owner) override;

    const std::vector<kxObject_ptr>& objects(kxSelectionSetType_e set) const;
    /// Replaces a set; see `kxHostDocument_c::SetSelection`. The objects are checked already.
    void setObjects(kxSelectionSetType_e set, std::vector<kxObject_ptr> objects);
    /// Drops what is not accepted from the current and, if asked, from the previous set.
    template <class Keep>
    void retain(const Keep& keep, bool previousToo);

private:
    void sendChanged() const { m_events.send(kxSelectionManager_SelectionChangedNotify_id); }

    std::vector<kxObject_ptr> m_current;
    std::vector<kxObject_ptr> m_previous;
    kxSelectionFilter_ptr m_filter{new SelectionFilter};
    EventTable<kxNotifyHook> m_events;
};

template <class Keep>
void SelectionManager::retain(const Keep& keep, bool previousToo) {
    const auto filtered = [&](const std::vector<kxObject_ptr>& objects) {
        std::vector<kxObject_ptr> kept;
        for (const kxObject_ptr& object : objects) {
            if (keep(object)) {
                kept.push_back(object);
            }
        }
        return kept;
    };
    if (previousToo) {
        m_previous = filtered(m_previous);
    }
    std::vector<kxObject_ptr> kept = filtered(m_current);
    if (kept.size() != m_current.size()) {
        m_current = std::move(kept);
        sendChanged();
    }
}
