// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <QUndoStack>
#include <QWidget>

#include <kx/host/kxHostDocument.h>

#include "drawing/DxfReader.h"

class DrawingView;
class MessageBar;

/// A drawing that is open: its document, view, file and undo steps. It follows the document's
/// events as long as it lives.
class DrawingTab : public QWidget {
    Q_OBJECT

public:
    DrawingTab(const kxHostDocument_ptr& document, const QString& path, QWidget* parent = nullptr);
    ~DrawingTab() override;

    const kxHostDocument_ptr& document() const { return m_document; }
    DrawingView* view() const { return m_view; }
    QUndoStack* undoStack() { return &m_undoStack; }
    MessageBar* messageBar() const { return m_messageBar; }
    const QString& path() const { return m_path; }
    /// The file's name.
    QString name() const;
    const kxdrawing::ImportReport& report() const { return m_report; }

    /// Puts what was read into the document, also once more; what was undone is forgotten. Layers
    /// that are known already stay as visible as they are.
    void take(const kxdrawing::Drawing& drawing);
    void setLayers(std::vector<kxLayer> layers);

    /// 0 inches, 1 millimetres.
    short unit() const;
    QString unitName() const;
    void setUnit(short unit);

    const std::vector<kxObject_ptr>& selection() const;

Q_SIGNALS:
    void selectionChanged();
    void objectsChanged();
    void layersChanged();
    void unitChanged();
    /// Text that was typed while the drawing had the focus.
    void typed(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    static bool onSelectionChanged(void* owner);
    static bool onModified(void* owner);
    static bool onDestroyed(void* owner);
    void listen();
    void stopListening();

    kxHostDocument_ptr m_document;
    QString m_path;
    MessageBar* m_messageBar;
    DrawingView* m_view;
    QUndoStack m_undoStack;
    kxdrawing::ImportReport m_report;
    bool m_isListening = false;
};
