// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <list>
#include <string>
#include <vector>

#include <QDialog>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPointer>
#include <QString>
#include <QTimer>

class QFileDialog;

/// What a dialog showed when it was answered.
struct SeenDialog {
    std::string title;
    std::string text;
    /// Of a file dialog: its filters, the proposed name, and whether it saves.
    std::vector<std::string> filters;
    std::string proposedName;
    bool saves = false;
    /// Of a message box.
    QMessageBox::StandardButtons buttons;
    bool hasDefaultButton = false;
    const QWidget* parent = nullptr;
};

/// Answers the modal dialogs that a test expects, in order, as a user would: by typing and
/// clicking. A dialog nobody expects is closed and noted, so that no test hangs.
class DialogDriver : public QObject {
public:
    DialogDriver();
    /// Fails the test when a dialog came that was not expected, or the other way round.
    ~DialogDriver() override;

    /// Types a path into a file dialog and accepts it.
    void chooseFile(const QString& path);
    void cancelFile();
    /// Clicks a button of a message box.
    void press(QMessageBox::StandardButton button);
    /// Ends a message box with an answer that none of its buttons gives.
    void dismiss();

    const SeenDialog& seen(std::size_t index) const { return m_seen.at(index); }

private:
    using Answer = std::function<void(QDialog&)>;
    struct Answered {
        QPointer<QDialog> dialog;
        Answer answer;
    };

    void look();
    void answerFirstTime(QDialog* dialog);
    void answerAgain(const Answered& earlier);
    void give(const Answer& answer, QDialog* dialog);
    static SeenDialog describe(QDialog& dialog);

    std::list<Answer> m_answers;
    std::vector<Answered> m_answered;
    QElapsedTimer m_sinceAnswer;
    std::vector<SeenDialog> m_seen;
    std::vector<std::string> m_unexpected;
    QTimer m_timer;
    bool m_isAnswering = false;
};
