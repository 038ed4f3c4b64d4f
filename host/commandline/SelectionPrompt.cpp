// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "commandline/SelectionPrompt.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include <QCoreApplication>
#include <QPointer>

namespace {

using Objects = std::vector<kxObject_ptr>;
using ObjectSet = std::unordered_set<const kxObject*>;

ObjectSet setOf(const Objects& objects) {
    ObjectSet set;
    for (const kxObject_ptr& object : objects) {
        set.insert(object.get());
    }
    return set;
}

/// Those of the objects that are in the drawing and on a visible layer, each once, in their order.
Objects selectable(const kxHostDocument_c& document, const Objects& objects) {
    const ObjectSet wanted = setOf(objects);
    ObjectSet present;
    for (const kxObject_ptr& object : document.GetObjects()) {
        if (wanted.count(object.get()) != 0 && document.IsLayerVisible(object->GetLayer())) {
            present.insert(object.get());
        }
    }
    Objects kept;
    for (const kxObject_ptr& object : objects) {
        // Taken out of the set, so that it is not taken a second time.
        if (present.erase(object.get()) != 0) {
            kept.push_back(object);
        }
    }
    return kept;
}

bool cancelPrompt(void* prompt) {
    static_cast<SelectionPrompt*>(prompt)->cancel();
    return true;
}

}  // namespace

SelectionPrompt::~SelectionPrompt() {
    if (isActive()) {
        leave(false);
        m_document->UnRegisterEvent(kxDocument_DestroyNotify_id, this);
    }
}

std::optional<Objects> SelectionPrompt::run(const kxHostDocument_ptr& document,
                                            const kxSelectionRequest& request) {
    if (isActive() || !document) {
        return std::nullopt;
    }
    QEventLoop loop;
    begin(document, request.single, &loop);
    const QPointer<SelectionPrompt> self(this);
    Q_EMIT started(request);
    // Who listens may have ended it already, and the loop would not know.
    if (self && !m_isLeaving) {
        loop.exec();
    }
    // The window may have gone in the loop, and the prompt with it.
    return self ? end() : std::nullopt;
}

void SelectionPrompt::begin(const kxHostDocument_ptr& document, bool single, QEventLoop* loop) {
    m_document = document;
    m_chosen.clear();
    m_single = single;
    m_accepted = false;
    m_isLeaving = false;
    m_loop = loop;
    m_document->RegisterEvent(kxDocument_DestroyNotify_id, this, &cancelPrompt);
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
            &SelectionPrompt::cancel);
}

std::optional<Objects> SelectionPrompt::end() {
    disconnect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
               &SelectionPrompt::cancel);
    m_document->UnRegisterEvent(kxDocument_DestroyNotify_id, this);
    std::optional<Objects> result;
    if (m_accepted) {
        result = selectable(*m_document, m_chosen);
    }
    m_chosen.clear();
    m_document = nullptr;
    m_loop = nullptr;
    Q_EMIT ended();
    return result;
}

void SelectionPrompt::add(const Objects& objects) {
    if (!isActive() || m_isLeaving) {
        return;
    }
    const ObjectSet known = setOf(m_chosen);
    Objects added = selectable(*m_document, objects);
    added.erase(std::remove_if(added.begin(), added.end(),
                               [&](const auto& object) { return known.count(object.get()) != 0; }),
                added.end());
    if (added.empty()) {
        return;
    }
    if (m_single) {
        added.resize(1);
    }
    m_chosen.insert(m_chosen.end(), added.begin(), added.end());
    const bool single = m_single;
    const QPointer<SelectionPrompt> self(this);
    Q_EMIT chosenChanged();
    if (self && single) {
        finish();
    }
}

void SelectionPrompt::remove(const Objects& objects) {
    if (!isActive() || m_isLeaving) {
        return;
    }
    const ObjectSet removed = setOf(objects);
    const auto kept = std::remove_if(m_chosen.begin(), m_chosen.end(), [&](const auto& object) {
        return removed.count(object.get()) != 0;
    });
    if (kept != m_chosen.end()) {
        m_chosen.erase(kept, m_chosen.end());
        Q_EMIT chosenChanged();
    }
}

void SelectionPrompt::finish() {
    if (isActive() && !m_isLeaving) {
        leave(true);
    }
}

void SelectionPrompt::cancel() {
    // Also after it was finished: the drawing may close before the loop has come back.
    if (isActive()) {
        leave(false);
    }
}

void SelectionPrompt::leave(bool accepted) {
    m_accepted = accepted;
    m_isLeaving = true;
    m_loop->exit();
}
