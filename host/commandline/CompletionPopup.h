// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QListWidget>

class QLineEdit;

/// A list above or below a field that never has the focus: the field keeps the keys, and the mouse
/// works everywhere else. It goes when the field loses the focus or its window moves.
class CompletionPopup : public QListWidget {
    Q_OBJECT

public:
    explicit CompletionPopup(QLineEdit* field);

    /// Shows the names with `current` highlighted (-1: none); hides when there are none.
    void offer(const QStringList& names, int current = -1);
    /// Moves the highlight; past either end nothing is highlighted.
    void step(int by);
    /// The highlighted name; empty when none is.
    QString highlighted() const;

Q_SIGNALS:
    /// A name was clicked.
    void picked(const QString& name);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QRect place() const;

    QLineEdit* m_field;
    QWidget* m_watchedWindow = nullptr;
};
