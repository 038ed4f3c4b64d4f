// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/DrawingTab.h"

#include <map>
#include <utility>

#include <QFileInfo>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "view/DrawingView.h"
#include "window/MessageBar.h"
#include "window/ShownName.h"

namespace {

DrawingTab* tabOf(void* owner) {
    return static_cast<DrawingTab*>(owner);
}

}  // namespace

DrawingTab::DrawingTab(const kxHostDocument_ptr& document, const QString& path, QWidget* parent)
    : QWidget(parent),
      m_document(document),
      m_path(path),
      m_messageBar(new MessageBar(this)),
      m_view(new DrawingView(document, this)) {
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(m_messageBar);
    rows->addWidget(m_view, 1);
    setFocusProxy(m_view);
    listen();
}

DrawingTab::~DrawingTab() {
    stopListening();
}

void DrawingTab::listen() {
    m_isListening = true;
    m_document->RegisterEvent(kxDocument_ModifyNotify_id, this, &onModified);
    m_document->RegisterEvent(kxDocument_DestroyNotify_id, this, &onDestroyed);
    m_document->GetSelectionManager()->RegisterEvent(kxSelectionManager_SelectionChangedNotify_id,
                                                     this, &onSelectionChanged);
}

void DrawingTab::stopListening() {
    if (!std::exchange(m_isListening, false)) {
        return;
    }
    m_document->GetSelectionManager()->UnRegisterEvent(kxSelectionManager_SelectionChangedNotify_id,
                                                       this);
    m_document->UnRegisterEvent(kxDocument_DestroyNotify_id, this);
    m_document->UnRegisterEvent(kxDocument_ModifyNotify_id, this);
}

bool DrawingTab::onSelectionChanged(void* owner) {
    Q_EMIT tabOf(owner)->selectionChanged();
    return true;
}

bool DrawingTab::onModified(void* owner) {
    tabOf(owner)->m_view->reload();
    Q_EMIT tabOf(owner)->objectsChanged();
    return true;
}

bool DrawingTab::onDestroyed(void* owner) {
    tabOf(owner)->stopListening();
    return true;
}

QString DrawingTab::name() const {
    return shownName(QFileInfo(m_path).fileName());
}

void DrawingTab::take(const kxdrawing::Drawing& drawing) {
    std::map<kxString, bool> known;
    for (const kxLayer& layer : m_document->GetLayers()) {
        known[layer.name] = layer.visible;
    }
    m_undoStack.clear();
    m_report = drawing.report;
    kxdrawing::loadInto(*m_document, drawing);
    std::vector<kxLayer> layers = m_document->GetLayers();
    for (kxLayer& layer : layers) {
        const auto before = known.find(layer.name);
        layer.visible = before == known.end() ? layer.visible : before->second;
    }
    setLayers(std::move(layers));
    Q_EMIT unitChanged();
}

void DrawingTab::setLayers(std::vector<kxLayer> layers) {
    m_document->SetLayers(std::move(layers));
    m_view->reload();
    Q_EMIT layersChanged();
}

short DrawingTab::unit() const {
    short value = 1;
    kxGetCommandOptionResult_e result = kxGetCommandOptionResult_NotFound;
    m_document->GetCommandOptionInt16(kxCommandOptionInt16_SetUntTyp, &value, &result);
    return result == kxGetCommandOptionResult_Success ? value : static_cast<short>(1);
}

QString DrawingTab::unitName() const {
    return unit() == 0 ? tr("inch") : tr("mm");
}

void DrawingTab::setUnit(short unit) {
    m_document->SetCommandOptionInt16(kxCommandOptionInt16_SetUntTyp, unit);
    Q_EMIT unitChanged();
}

const std::vector<kxObject_ptr>& DrawingTab::selection() const {
    return m_document->GetSelection(kxSelectionSetType_Current);
}

void DrawingTab::keyPressEvent(QKeyEvent* event) {
    const QString text = event->text();
    const bool plain = (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
    if (plain && !text.isEmpty() && text.at(0).isPrint()) {
        Q_EMIT typed(text);
        return;
    }
    QWidget::keyPressEvent(event);
}
