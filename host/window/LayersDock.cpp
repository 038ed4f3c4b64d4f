// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/LayersDock.h"

#include <map>

#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "KxText.h"
#include "PlainText.h"
#include "window/DrawingTab.h"

namespace {

constexpr int kNameColumn = 0;
constexpr int kCountColumn = 1;

std::map<kxString, long> countLayers(const kxHostDocument_c& document) {
    std::map<kxString, long> counts;
    for (const kxObject_ptr& object : document.GetObjects()) {
        ++counts[object->GetLayer()];
    }
    return counts;
}

}  // namespace

LayersDock::LayersDock(QWidget* parent)
    : QDockWidget(tr("Layers"), parent),
      m_table(new QTreeWidget),
      m_allOn(new QPushButton(tr("All O&n"))),
      m_allOff(new QPushButton(tr("All &Off"))) {
    setObjectName("layersDock");
    m_table->setObjectName("layersTable");
    m_table->setHeaderLabels({tr("Layer"), tr("Objects")});
    m_table->setRootIsDecorated(false);
    m_table->setUniformRowHeights(true);
    m_table->header()->setStretchLastSection(false);
    m_table->header()->setSectionResizeMode(kNameColumn, QHeaderView::Stretch);
    m_table->header()->setSectionResizeMode(kCountColumn, QHeaderView::ResizeToContents);
    m_table->headerItem()->setTextAlignment(kCountColumn, Qt::AlignRight | Qt::AlignVCenter);
    m_allOn->setObjectName("layersAllOn");
    m_allOff->setObjectName("layersAllOff");
    auto* content = new QWidget(this);
    auto* rows = new QVBoxLayout(content);
    rows->setContentsMargins(4, 4, 4, 4);
    rows->addWidget(m_table);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_allOn);
    buttons->addWidget(m_allOff);
    rows->addLayout(buttons);
    setWidget(content);
    connect(m_allOn, &QPushButton::clicked, this, [this] { setAll(true); });
    connect(m_allOff, &QPushButton::clicked, this, [this] { setAll(false); });
    connect(m_table, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int column) {
        if (!m_isFilling && column == kNameColumn) {
            setLayer(m_table->indexOfTopLevelItem(item),
                     item->checkState(kNameColumn) == Qt::Checked);
        }
    });
    refresh();
}

void LayersDock::setTab(DrawingTab* tab) {
    if (m_tab) {
        m_tab->disconnect(this);
    }
    m_tab = tab;
    if (m_tab) {
        connect(m_tab, &DrawingTab::layersChanged, this, &LayersDock::refresh);
        connect(m_tab, &DrawingTab::objectsChanged, this, &LayersDock::refresh);
    }
    refresh();
}

void LayersDock::refresh() {
    m_isFilling = true;
    const int currentRow = m_table->indexOfTopLevelItem(m_table->currentItem());
    m_table->clear();
    m_table->setEnabled(m_tab);
    m_allOn->setEnabled(m_tab);
    m_allOff->setEnabled(m_tab);
    if (m_tab) {
        std::map<kxString, long> counts = countLayers(*m_tab->document());
        for (const kxLayer& layer : m_tab->document()->GetLayers()) {
            const QString name = toQString(layer.name);
            auto* item = new QTreeWidgetItem(m_table, {name, QString::number(counts[layer.name])});
            item->setCheckState(kNameColumn, layer.visible ? Qt::Checked : Qt::Unchecked);
            item->setToolTip(kNameColumn, plainToolTip(name));
            item->setTextAlignment(kCountColumn, Qt::AlignRight | Qt::AlignVCenter);
        }
        m_table->setCurrentItem(m_table->topLevelItem(currentRow));
    }
    m_isFilling = false;
}

void LayersDock::setLayer(int row, bool visible) {
    std::vector<kxLayer> layers = m_tab->document()->GetLayers();
    layers.at(static_cast<std::size_t>(row)).visible = visible;
    // The table is filled anew for it: not while the table tells of the change.
    const QPointer<DrawingTab> tab(m_tab);
    QMetaObject::invokeMethod(
        this,
        [tab, layers] {
            if (tab) {
                tab->setLayers(layers);
            }
        },
        Qt::QueuedConnection);
}

void LayersDock::setAll(bool visible) {
    std::vector<kxLayer> layers = m_tab->document()->GetLayers();
    for (kxLayer& layer : layers) {
        layer.visible = visible;
    }
    m_tab->setLayers(std::move(layers));
}
