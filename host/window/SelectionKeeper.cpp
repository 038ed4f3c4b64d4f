// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/SelectionKeeper.h"

#include <algorithm>
#include <set>

#include "commandline/SelectionPrompt.h"
#include "view/DrawingView.h"
#include "window/DrawingTab.h"

namespace {

using Objects = std::vector<kxObject_ptr>;

std::set<const kxObject*> setOf(const Objects& objects) {
    std::set<const kxObject*> all;
    for (const kxObject_ptr& object : objects) {
        all.insert(object.get());
    }
    return all;
}

Objects without(const Objects& objects, const Objects& unwanted) {
    const std::set<const kxObject*> gone = setOf(unwanted);
    Objects kept;
    std::copy_if(objects.begin(), objects.end(), std::back_inserter(kept),
                 [&](const kxObject_ptr& object) { return gone.count(object.get()) == 0; });
    return kept;
}

}  // namespace

SelectionKeeper::SelectionKeeper(SelectionPrompt* prompt, QObject* parent)
    : QObject(parent), m_prompt(prompt) {
    connect(prompt, &SelectionPrompt::started, this, &SelectionKeeper::showAll);
    connect(prompt, &SelectionPrompt::chosenChanged, this, &SelectionKeeper::showAll);
    connect(prompt, &SelectionPrompt::ended, this, &SelectionKeeper::showAll);
}

void SelectionKeeper::attach(DrawingTab* tab) {
    m_tabs.push_back(tab);
    connect(tab, &QObject::destroyed, this, [this, tab] {
        m_tabs.erase(std::remove(m_tabs.begin(), m_tabs.end(), tab), m_tabs.end());
    });
    connect(tab, &DrawingTab::selectionChanged, this, [this, tab] { showSelected(tab); });
    connect(tab, &DrawingTab::objectsChanged, this, [this, tab] { showSelected(tab); });
    connect(tab, &DrawingTab::layersChanged, this, [this, tab] { dropHidden(tab); });
    connect(tab->view(), &DrawingView::selectionEdited, this,
            [this, tab](const Objects& objects, SelectionEdit edit) {
                edit == SelectionEdit::Add ? add(tab, objects) : remove(tab, objects);
            });
    connect(tab->view(), &DrawingView::confirmed, this, [this] { m_prompt->finish(); });
    connect(tab->view(), &DrawingView::cancelled, this, [this, tab] { escape(tab); });
}

bool SelectionKeeper::isPromptFor(const DrawingTab* tab) const {
    return m_prompt->isActive() && m_prompt->document() == tab->document();
}

const Objects& SelectionKeeper::selected(const DrawingTab* tab) const {
    return isPromptFor(tab) ? m_prompt->chosen() : tab->selection();
}

void SelectionKeeper::replace(DrawingTab* tab, const Objects& objects) {
    if (isPromptFor(tab)) {
        const Objects unwanted = without(m_prompt->chosen(), objects);
        m_prompt->remove(unwanted);
        m_prompt->add(objects);
    } else {
        tab->document()->SetSelection(kxSelectionSetType_Current, objects);
    }
}

void SelectionKeeper::add(DrawingTab* tab, const Objects& objects) {
    if (isPromptFor(tab)) {
        m_prompt->add(objects);
        return;
    }
    Objects all = tab->selection();
    all.insert(all.end(), objects.begin(), objects.end());
    // The document takes each object once.
    tab->document()->SetSelection(kxSelectionSetType_Current, all);
}

void SelectionKeeper::remove(DrawingTab* tab, const Objects& objects) {
    if (isPromptFor(tab)) {
        m_prompt->remove(objects);
    } else {
        tab->document()->SetSelection(kxSelectionSetType_Current,
                                      without(tab->selection(), objects));
    }
}

void SelectionKeeper::escape(DrawingTab* tab) {
    if (m_prompt->isActive()) {
        m_prompt->cancel();
    } else {
        replace(tab, {});
    }
}

void SelectionKeeper::showSelected(DrawingTab* tab) {
    tab->view()->showSelected(selected(tab));
    Q_EMIT changed(tab);
}

void SelectionKeeper::dropHidden(DrawingTab* tab) {
    if (isPromptFor(tab)) {
        Objects hidden;
        const Objects& chosen = m_prompt->chosen();
        std::copy_if(chosen.begin(), chosen.end(), std::back_inserter(hidden),
                     [tab](const kxObject_ptr& object) {
                         return !tab->document()->IsLayerVisible(object->GetLayer());
                     });
        m_prompt->remove(hidden);
    }
    showSelected(tab);
}

void SelectionKeeper::showAll() {
    for (DrawingTab* tab : m_tabs) {
        tab->view()->showSelected(selected(tab));
    }
    Q_EMIT changed(nullptr);
}
