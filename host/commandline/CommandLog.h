// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPlainTextEdit>

/// A bounded list of lines to be read, selected and copied. It shows the newest line unless the
/// user has scrolled up; then what is shown stays.
class CommandLog : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit CommandLog(int maxLines, QWidget* parent = nullptr);

    /// Appends a text as it is, line by line.
    void append(const QString& text, bool isError);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    bool isAtEnd() const;
    void scrollToEnd();
    void appendBlock(const QString& line, bool isError);
    void colorErrors();
    int heightOf(int lines) const;

    bool m_isEmpty = true;
};
