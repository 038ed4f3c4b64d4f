// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The panel's view of the program and the playback's controls.
#include <QFrame>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "core/GCodeWidget.h"
#include "core/PanelControls.h"
#include "core/QtCategoryButton.h"
#include "openglplotter/OGLWindow.h"

namespace {

constexpr int kViewSize = 270;
constexpr int kButtonWidth = 32;
constexpr int kButtonHeight = 34;
constexpr int kSliderMaximumWidth = 129;
constexpr int kSlowest = 1;
constexpr int kFastest = 10;

QSlider* createSpeedSlider(const QString& toolTip, QWidget* parent) {
    auto* slider = new QSlider(Qt::Horizontal, parent);
    slider->setObjectName(QString::fromLatin1("horizontalSlider"));
    slider->setRange(kSlowest, kFastest);
    slider->setValue(kSlowest);
    slider->setTracking(true);
    slider->setToolTip(toolTip);
    slider->setAccessibleName(toolTip);
    slider->setMaximumWidth(kSliderMaximumWidth);
    slider->setFixedHeight(kButtonHeight);
    return slider;
}

}  // namespace

void GCodeWidget::createViewCategory() {
    QFrame* frame =
        openCategory(tr("View Window"), m_ViewWindowCategaory, m_ViewWindowCategaoryButton);
    auto* rows = new QVBoxLayout(frame);
    w = new OGLWindow(frame);
    w->setObjectName(QString::fromLatin1("w"));
    w->setFixedSize(kViewSize, kViewSize);
    rows->addWidget(w, 0, Qt::AlignHCenter);
    auto* controls = new QHBoxLayout;
    controls->setSpacing(4);
    rows->addLayout(controls);
    const auto addButton = [&](const char* name, const QString& toolTip, const char* icon) {
        QPushButton* button =
            createIconButton(QLatin1String(name), toolTip, QLatin1String(icon), frame);
        button->setFixedSize(kButtonWidth, kButtonHeight);
        controls->addWidget(button);
        return button;
    };
    simulatePushButton = addButton("simulatePushButton", tr("Play"), "Play");
    PauseSimulationButton = addButton("PauseSimulationButton", tr("Pause"), "Pause");
    StopSimulationButton = addButton("StopSimulationButton", tr("Stop"), "Stop");
    horizontalSlider = createSpeedSlider(tr("Speed"), frame);
    controls->addWidget(horizontalSlider);
    panButton = addButton("panButton", tr("Pan"), "Pan");
    panButton->setCheckable(true);
    zoomButton = addButton("zoomButton", tr("Dynamic zoom"), "ZoomDynamic");
    zoomButton->setCheckable(true);
    zoomToFitButton = addButton("zoomToFitButton", tr("Reset"), "ZoomFit");
    finishUIGroup(m_ViewWindowCategaory, frame);
}

void GCodeWidget::connectView() {
    connect(this, &GCodeWidget::GCodeGenFinish, w, &OGLWindow::ShowGCode);
    connect(simulatePushButton, &QPushButton::clicked, this, &GCodeWidget::SimulateButtonClicked);
    connect(this, &GCodeWidget::Simulate, w, &OGLWindow::Simulate);
    connect(PauseSimulationButton, &QPushButton::clicked, w, &OGLWindow::PauseSimulation);
    connect(StopSimulationButton, &QPushButton::clicked, w, &OGLWindow::StopSimulation);
    connect(zoomToFitButton, &QPushButton::clicked, w, &OGLWindow::ZoomToFit);
    connect(horizontalSlider, &QSlider::valueChanged, w, &OGLWindow::SimulationSpeed);
    connect(panButton, &QPushButton::toggled, w, &OGLWindow::PanDrawing);
    connect(zoomButton, &QPushButton::toggled, w, &OGLWindow::ZoomDrawing);
    connect(w, &OGLWindow::PreviewStopped, this, &GCodeWidget::printPreviewStopped);
}

void GCodeWidget::SimulateButtonClicked() {
    emit Simulate(horizontalSlider->value());
}

void GCodeWidget::printPreviewStopped(qlonglong points) {
    printLine(tr("Preview stopped at %1 points ").arg(points));
}
