// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <memory>
#include <vector>

#include <kx/kxEvents.h>

/// The hooks of one object's events that share a form. Hooks may register and unregister from
/// inside a hook: one that is removed meanwhile is not called, one that is added is called from
/// the next event on.
template <class Hook>
class EventTable {
public:
    kxEventResult_e add(int id, void* owner, Hook hook) {
        if (hook == nullptr) {
            return kxEventResult_UnknownEvent;
        }
        if (find(id, owner) != m_entries.end()) {
            return kxEventResult_AlreadyRegistered;
        }
        m_entries.push_back(std::make_shared<Entry>(Entry{id, owner, hook, true}));
        return kxEventResult_Success;
    }

    kxEventResult_e remove(int id, void* owner) {
        const auto found = find(id, owner);
        if (found == m_entries.end()) {
            return kxEventResult_NotRegistered;
        }
        (*found)->registered = false;
        m_entries.erase(found);
        return kxEventResult_Success;
    }

    /// Calls the hooks of an event in the order of registration, with the owner and the given
    /// arguments. True when all of them returned true.
    template <class... Arguments>
    bool send(int id, const Arguments&... arguments) const {
        const auto entries = m_entries;
        bool goOn = true;
        for (const auto& entry : entries) {
            if (entry->registered && entry->id == id) {
                goOn = entry->hook(entry->owner, arguments...) && goOn;
            }
        }
        return goOn;
    }

private:
    struct Entry {
        int id;
        void* owner;
        Hook hook;
        bool registered;
    };
    using Entries = std::vector<std::shared_ptr<Entry>>;

    typename Entries::iterator find(int id, void* owner) {
        return std::find_if(m_entries.begin(), m_entries.end(), [&](const auto& entry) {
            return entry->id == id && entry->owner == owner;
        });
    }

    Entries m_entries;
};
