// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The panel's file and help buttons.
#include <QCheckBox>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPointer>
#include <QTextEdit>

#include "core/GCodeWidget.h"
#include "core/HelpAddress.h"
#include "core/OutputFiles.h"
#include "core/PanelControls.h"
#include "miscellaneous.h"

namespace {

/// A question that can be closed without an answer, where the toolkit would take No.
class QuestionBox : public QMessageBox {
public:
    using QMessageBox::QMessageBox;

protected:
    void closeEvent(QCloseEvent* /*event*/) override { done(kNoAnswer); }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->matches(QKeySequence::Cancel)) {
            done(kNoAnswer);
        } else {
            QMessageBox::keyPressEvent(event);
        }
    }

private:
    static constexpr int kNoAnswer = -1;
};

}  // namespace

void GCodeWidget::SaveGCode() {
    // The host may be closed while a dialog is open, and the panel with it.
    const QPointer<GCodeWidget> self(this);
    const QString path =
        QFileDialog::getSaveFileName(widget, tr("Save File"), QString::fromLatin1("untitled.txt"),
                                     tr("Text file(*.txt);; Text file(*.ngc);; Text file(*.nc)"));
    if (!self) {
        return;
    }
    // A cancelled dialog gives an empty path: no file is written, all else happens.
    const GCode::OutputText output = outputText();
    saveOutput(path, output);
    m_lastGCodeBuffer.str(GCode::appendedText(output));
    m_lastSavedFile = path;
}

void GCodeWidget::AppendFile() {
    const QPointer<GCodeWidget> self(this);
    QuestionBox question(QMessageBox::Question, tr("Append File"),
                         tr("Do you want to append to the current open file?"),
                         QMessageBox::Yes | QMessageBox::No, widget);
    const int answer = question.exec();
    if (!self || (answer != QMessageBox::Yes && answer != QMessageBox::No)) {
        return;
    }
    if (answer == QMessageBox::Yes) {
        emit GCodeGenFinish(rebuildOutput(m_lastSavedFile, m_lastGCodeBuffer.str(), outputText()));
        return;
    }
    const QString path = QFileDialog::getSaveFileName(widget, tr("Append File"), QString(),
                                                      tr("Text file(*.txt *.ngc *.nc)"), nullptr,
                                                      QFileDialog::DontConfirmOverwrite);
    if (self) {
        emit GCodeGenFinish(extendOutput(path, outputText()));
    }
}

void GCodeWidget::SelectFilePreview() {
    const QPointer<GCodeWidget> self(this);
    const QString path = QFileDialog::getOpenFileName(widget, tr("Preview File"), QString(),
                                                      tr("Text file(*.txt *.ngc *.nc)"));
    if (self) {
        emit GCodeGenFinish(readProgramFile(path));
    }
}

void GCodeWidget::OpenHelp() {
    if (m_application == nullptr) {
        return;
    }
    if (m_application->IsWebHelpEnabled()) {
        m_application->OpenWebHelp(
            q2d(webHelpAddress(d2q(m_application->GetWebLink()), m_application->GetLanguage())));
        return;
    }
    const kxSystemFiles_ptr files = m_application->GetSystemFiles();
    const QString path = files ? localHelpFile(d2q(files->get_HelpFile())) : QString();
    m_application->OpenChmHelp(kHelpTopic, q2d(path));
}

void GCodeWidget::ClearPreviousPreview() {
    m_gcodeBuffer.str(std::string());
    emit GCodeGenFinish(programText());
}

GCode::OutputText GCodeWidget::outputText() const {
    return {typedText(m_CommentTextEdit), m_gcodeBuffer.str(), lineNumberCheckBox->isChecked()};
}
