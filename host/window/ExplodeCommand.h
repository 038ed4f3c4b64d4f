// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include <QString>
#include <QUndoCommand>

#include <kx/host/kxHostDocument.h>

#include "drawing/Explode.h"

/// Explodes objects of a drawing; undo brings objects and selection back as they were. Made from
/// what was done already: the first `redo` does nothing.
class ExplodeCommand : public QUndoCommand {
public:
    struct State {
        std::vector<kxObject_ptr> objects;
        std::vector<kxObject_ptr> selection;

        static State of(const kxHostDocument_c& document);
        void restore(kxHostDocument_c* document) const;
    };

    ExplodeCommand(const kxHostDocument_ptr& document, State before);
    void undo() override;
    void redo() override;

private:
    kxHostDocument_ptr m_document;
    State m_before;
    State m_after;
    bool m_isDone = true;
};

/// What was exploded, as the command line says it.
QString explodeText(const kxdrawing::ExplodeResult& result);
