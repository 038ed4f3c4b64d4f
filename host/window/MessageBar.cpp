// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/MessageBar.h"

#include <utility>

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

MessageBar::MessageBar(QWidget* parent)
    : QFrame(parent), m_text(new QLabel(this)), m_accept(new QPushButton(this)) {
    setObjectName("messageBar");
    setFrameShape(QFrame::NoFrame);
    setStyleSheet(
        "#messageBar { background: #fff3c4; border-bottom: 1px solid #c9a227; }"
        "#messageText { color: #202020; }");
    m_text->setObjectName("messageText");
    m_text->setTextFormat(Qt::PlainText);
    m_accept->setObjectName("messageAccept");
    auto* ignore = new QPushButton(tr("Ignore"), this);
    ignore->setObjectName("messageIgnore");
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 4);
    row->addWidget(m_text, 1);
    row->addWidget(m_accept);
    row->addWidget(ignore);
    connect(ignore, &QPushButton::clicked, this, &QWidget::hide);
    connect(m_accept, &QPushButton::clicked, this, [this] {
        hide();
        if (m_accepted) {
            m_accepted();
        }
    });
    hide();
}

void MessageBar::ask(const QString& text, const QString& answer, std::function<void()> accepted) {
    m_text->setText(text);
    m_accept->setText(answer);
    m_accepted = std::move(accepted);
    show();
}
