// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/SettingsDialog.h"

#include <array>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QLocale>
#include <QVBoxLayout>

namespace {

constexpr int kToleranceDecimals = 4;

struct Language {
    int number;
    const char* name;
};

constexpr std::array<Language, 14> kLanguages{{
    {1, "German"},
    {2, "English"},
    {3, "Turkish"},
    {5, "Polish"},
    {6, "Japanese"},
    {7, "French"},
    {8, "Chinese"},
    {9, "Chinese (simplified)"},
    {10, "Italian"},
    {11, "Spanish"},
    {13, "Korean"},
    {18, "Russian"},
    {19, "Portuguese (Brazil)"},
    {20, "Czech"},
}};

QCheckBox* checkBox(const char* name, const QString& text, bool checked, QWidget* parent) {
    auto* box = new QCheckBox(text, parent);
    box->setObjectName(QString::fromLatin1(name));
    box->setChecked(checked);
    return box;
}

}  // namespace

SettingsDialog::SettingsDialog(const HostSettings& settings, QWidget* parent)
    : QDialog(parent), m_settings(settings) {
    setObjectName("settingsDialog");
    setWindowTitle(tr("Settings"));
    auto* form = new QFormLayout;
    addViewRows(form);
    addHelpRows(form);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->setObjectName("buttonBox");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(form);
    rows->addWidget(buttons);
    resize(460, sizeHint().height());
}

void SettingsDialog::addViewRows(QFormLayout* form) {
    m_canvas = new QComboBox(this);
    m_canvas->setObjectName("settingsCanvas");
    m_canvas->addItems({tr("Dark"), tr("Light")});
    m_canvas->setCurrentIndex(m_settings.canvas.canvas == Canvas::Light ? 1 : 0);
    form->addRow(tr("&Canvas"), m_canvas);
    m_grid = checkBox("settingsGrid", tr("Show the &grid"), m_settings.canvas.grid, this);
    form->addRow(QString(), m_grid);
    m_axes = checkBox("settingsAxes", tr("Show the &axes"), m_settings.canvas.axes, this);
    form->addRow(QString(), m_axes);
    m_tolerance = new QDoubleSpinBox(this);
    m_tolerance->setObjectName("settingsTolerance");
    m_tolerance->setLocale(QLocale::c());
    m_tolerance->setDecimals(kToleranceDecimals);
    m_tolerance->setRange(HostSettings::kSmallestTolerance, HostSettings::kLargestTolerance);
    m_tolerance->setSingleStep(0.01);
    m_tolerance->setValue(m_settings.explodeTolerance);
    m_tolerance->setToolTip(
        tr("How far the pieces of an ellipse or spline may lie from it, in drawing units"));
    form->addRow(tr("Explode &tolerance"), m_tolerance);
}

void SettingsDialog::addHelpRows(QFormLayout* form) {
    m_webHelp =
        checkBox("settingsWebHelp", tr("Help of add-ins on the &web"), m_settings.webHelp, this);
    form->addRow(QString(), m_webHelp);
    m_webLink = new QLineEdit(m_settings.webLink, this);
    m_webLink->setObjectName("settingsWebLink");
    m_webLink->setPlaceholderText("https://");
    m_webLink->setEnabled(m_settings.webHelp);
    connect(m_webHelp, &QCheckBox::toggled, m_webLink, &QWidget::setEnabled);
    form->addRow(tr("Web a&ddress"), m_webLink);
    m_language = new QComboBox(this);
    m_language->setObjectName("settingsLanguage");
    for (const Language& language : kLanguages) {
        m_language->addItem(tr(language.name), language.number);
    }
    m_language->setCurrentIndex(m_language->findData(m_settings.language));
    form->addRow(tr("Help &language"), m_language);
}

HostSettings SettingsDialog::settings() const {
    HostSettings settings = m_settings;
    settings.canvas.canvas = m_canvas->currentIndex() == 1 ? Canvas::Light : Canvas::Dark;
    settings.canvas.grid = m_grid->isChecked();
    settings.canvas.axes = m_axes->isChecked();
    settings.explodeTolerance = m_tolerance->value();
    settings.webHelp = m_webHelp->isChecked();
    settings.webLink = m_webLink->text().trimmed();
    if (m_language->currentIndex() >= 0) {
        settings.language = m_language->currentData().toInt();
    }
    return settings;
}
