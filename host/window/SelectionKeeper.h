// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include <QObject>

#include <kx/kxObject.h>

class DrawingTab;
class SelectionPrompt;

/// Keeps what is selected in the drawings: the document's current set, or, while a prompt asks
/// about the drawing, what was chosen for the prompt. Views show it.
class SelectionKeeper : public QObject {
    Q_OBJECT

public:
    explicit SelectionKeeper(SelectionPrompt* prompt, QObject* parent = nullptr);

    /// Serves a drawing until it goes.
    void attach(DrawingTab* tab);

    bool isPromptFor(const DrawingTab* tab) const;
    /// In the order of selection.
    const std::vector<kxObject_ptr>& selected(const DrawingTab* tab) const;
    void replace(DrawingTab* tab, const std::vector<kxObject_ptr>& objects);
    void add(DrawingTab* tab, const std::vector<kxObject_ptr>& objects);
    void remove(DrawingTab* tab, const std::vector<kxObject_ptr>& objects);

Q_SIGNALS:
    /// For the drawing, or for all with null.
    void changed(DrawingTab* tab);

private:
    void showSelected(DrawingTab* tab);
    void dropHidden(DrawingTab* tab);
    void escape(DrawingTab* tab);
    void showAll();

    SelectionPrompt* m_prompt;
    std::vector<DrawingTab*> m_tabs;
};
