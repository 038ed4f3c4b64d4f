// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/ExplodeCommand.h"

#include <utility>

#include <QCoreApplication>

#include "window/ObjectText.h"

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("ExplodeCommand", text);
}

}  // namespace

ExplodeCommand::State ExplodeCommand::State::of(const kxHostDocument_c& document) {
    return {document.GetObjects(), document.GetSelection(kxSelectionSetType_Current)};
}

void ExplodeCommand::State::restore(kxHostDocument_c* document) const {
    document->SetObjects(objects);
    document->SetSelection(kxSelectionSetType_Current, selection);
}

ExplodeCommand::ExplodeCommand(const kxHostDocument_ptr& document, State before)
    : QUndoCommand(tr("Explode")),
      m_document(document),
      m_before(std::move(before)),
      m_after(State::of(*document)) {}

void ExplodeCommand::undo() {
    m_isDone = false;
    m_before.restore(m_document.get());
}

void ExplodeCommand::redo() {
    if (!std::exchange(m_isDone, true)) {
        m_after.restore(m_document.get());
    }
}

QString explodeText(const kxdrawing::ExplodeResult& result) {
    QString text =
        tr("Exploded %1 into %2").arg(countText(result.exploded), countText(result.created));
    if (result.droppedSegments != 0) {
        text += tr(", dropped %1 without length")
                    .arg(plural(result.droppedSegments, tr("segment"), tr("segments")));
    }
    if (result.kept != 0) {
        text += tr("; %1 left as they are: that many pieces are enough at one time")
                    .arg(plural(result.kept, tr("object"), tr("objects")));
    }
    return text;
}
