// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/PanelTest.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>
#include <QVBoxLayout>

PanelTest::PanelTest()
    : m_panel(std::make_unique<GCodeWidget>(host.application(), &m_parent)),
      m_programs(m_panel.get(), &GCodeWidget::GCodeGenFinish) {
    host.open();
    (new QVBoxLayout(&m_parent))->addWidget(m_panel.get());
    m_parent.resize(400, 1000);
    m_parent.show();
    static_cast<void>(QTest::qWaitForWindowExposed(&m_parent));
}

PanelTest::~PanelTest() = default;

QLineEdit* PanelTest::edit(const char* name) {
    return child<QLineEdit>(name);
}

QComboBox* PanelTest::combo(const char* name) {
    return child<QComboBox>(name);
}

QPushButton* PanelTest::button(const char* name) {
    return child<QPushButton>(name);
}

QTextEdit* PanelTest::textBox(const char* name) {
    return child<QTextEdit>(name);
}

void PanelTest::click(const char* name) {
    auto* clicked = child<QAbstractButton>(name);
    // Near the left end, where a radio button has its mark.
    QTest::mouseClick(clicked, Qt::LeftButton, {}, QPoint(8, clicked->height() / 2));
}

void PanelTest::type(const char* name, const std::string& keys) {
    edit(name)->clear();
    QTest::keyClicks(edit(name), QString::fromStdString(keys));
}

void PanelTest::put(const char* name, const std::string& text) {
    edit(name)->setText(QString::fromStdString(text));
}

std::string PanelTest::textOf(const char* name) {
    return textBox(name)->toPlainText().toStdString();
}

void PanelTest::usePlainSettings() {
    textBox("textEdit")->setPlainText("PRE");
    textBox("postambleTextEdit")->setPlainText("POST");
    combo("unitComboBox")->setCurrentText("Absolute");
    put("zSafeHeightEdit", "5");
    put("zRetractEdit", "10");
    put("depthOfCut", "-1");
    put("feedRateXY", "300");
    put("feedRateZ", "100");
}

void PanelTest::useDrillSettings(int cycle) {
    usePlainSettings();
    combo("comboBox")->setCurrentIndex(1);
    combo("drillcomboBox")->setCurrentIndex(cycle);
    put("drillDepth", "-2");
    put("retractHeight", "1");
    put("drillFeedRate", "100");
    put("dwellTimeEdit", "0.5");
    put("peckDepthEdit", "0.25");
}

std::string PanelTest::generate() {
    const std::size_t before = programCount();
    click("generateGCodeBtn");
    return programCount() == before + 1 ? lastProgram() : "(none)";
}

std::string PanelTest::lastProgram() const {
    return m_programs.isEmpty() ? "(none)" : m_programs.last().at(0).toString().toStdString();
}
