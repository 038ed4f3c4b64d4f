// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/GCodeWidget.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTextEdit>

#include "core/PanelControls.h"
#include "core/PanelResources.h"
#include "core/UnitText.h"
#include "ui_GCode.h"

namespace {

/// Unreadable text counts as 0.
double numberIn(const QLineEdit* field) {
    return field->text().toDouble();
}

}  // namespace

GCodeWidget::GCodeWidget(kxApplication_c* application, QWidget* parent)
    : QWidget(parent),
      m_application(application),
      widget(parent),
      m_gcodeWidget(std::make_unique<Ui::GCode>()) {
    m_gcodeBuffer.imbue(std::locale::classic());
    m_gcodeWidget->setupUi(this);
    CreateUI();
    styleSheet = panelStyleSheet();
    setStyleSheet(styleSheet);
    m_gcodeWidget->GCodeTreeWidget->setStyleSheet(styleSheet);
    setDefaultTexts();
    setValidators();
    connectControls();
    mmRadioButton->setChecked(true);
    stackedWidget->setCurrentIndex(0);
    dwellButton->hide();
    dwellTimeEdit->hide();
}

GCodeWidget::~GCodeWidget() {
    // Open dialogs stand on the stack of the slots that wait for them: they end here, and the pane
    // that goes next must not delete them.
    const auto dialogs = widget != nullptr ? widget->findChildren<QDialog*>() : QList<QDialog*>();
    for (QDialog* dialog : dialogs) {
        dialog->reject();
        if (dialog->parent() == widget) {
            dialog->setParent(nullptr, dialog->windowFlags());
        }
    }
}

void GCodeWidget::SetParams() {
    m_feedZ = numberIn(feedRateZ);
    m_feedXY = numberIn(feedRateXY);
    // The heights are taken as they are in either unit: inches are a matter of the preamble.
    m_parameter.SetParams(numberIn(zSafeHeightEdit), numberIn(zRetractEdit), numberIn(depthOfCut),
                          mm);
    pos.SetPoint(GCode::Point(0, 0, 0));
    pos.SetFeedRate(0);
    pos.SetFeedRateZ(0);
}

void GCodeWidget::MainComboIndexChanged(int index) {
    stackedWidget->setCurrentIndex(index);
    m_currentIndex = index;
    if (index == 0) {
        peckDepthButton->hide();
        peckDepthEdit->hide();
    } else if (index == 1 && drillcomboBox->currentIndex() == 2) {
        peckDepthButton->show();
        peckDepthEdit->show();
    }
}

void GCodeWidget::DrillCycleComboIndexChanged(int index) {
    m_currentIndexDrillCycleComboBox = index;
    if (index < 0 || index > 2) {
        return;
    }
    dwellTimeEdit->setVisible(index == 1);
    peckDepthButton->setVisible(index == 2);
    peckDepthEdit->setVisible(index == 2);
}

void GCodeWidget::SetActiveDrawingUnit(long activetDrawingUnit) {
    const bool isInch = activetDrawingUnit == 0;
    QRadioButton* chosen = isInch ? inchRadioButton : mmRadioButton;
    QRadioButton* other = isInch ? mmRadioButton : inchRadioButton;
    chosen->setChecked(true);
    other->setChecked(false);
    emit chosen->clicked();
}

void GCodeWidget::SetDrawingUnit() {
    std::string preamble = typedText(textEdit);
    if (mmRadioButton->isChecked()) {
        preamble = GCode::textInMillimetres(preamble);
    }
    if (inchRadioButton->isChecked()) {
        preamble = GCode::textInInches(preamble);
    }
    textEdit->setPlainText(QString::fromStdString(preamble));
    textEdit->repaint();
}
