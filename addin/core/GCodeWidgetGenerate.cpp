// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The panel's "Generate": from the host's selection to the program's text.
#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QTextEdit>

#include "core/DeltaFunction.h"
#include "core/GCodeWidget.h"
#include "core/HostSelection.h"
#include "core/PanelControls.h"
#include "core/PathOrder.h"
#include "miscellaneous.h"

void GCodeWidget::GenerateGCode() {
    // The prompt lets the user go on working, with this button too.
    if (m_isGenerating) {
        return;
    }
    SetParams();
    m_gcodeBuffer.str(std::string());
    m_gcodeBuffer.clear();
    m_isCurrent = true;
    if (m_application != nullptr) {
        const QPointer<GCodeWidget> self(this);
        m_isGenerating = true;
        findSelection();
        if (!self) {
            return;
        }
        m_isGenerating = false;
        if (m_currentIndex == 1 && !isDrillSelectionValid()) {
            printLine(tr("Only circles or points are valid for drill cycle "));
            return;
        }
    }
    ProcessEntities();
}

/// Counts what is selected; when that is nothing, lets the user select.
void GCodeWidget::findSelection() {
    const kxSelectionManager_ptr manager = GetKXSelectionManager();
    const long count = countSelection(manager, kxSelectionSetType_Current);
    const kxSelectionFilter_ptr filter =
        manager ? manager->GetSelectionFilter() : kxSelectionFilter_ptr();
    if (filter) {
        filter->Clear();
    }
    if (count != 0) {
        return;
    }
    m_isCurrent = false;
    // Cancelled or not: what the previous set holds afterwards is used.
    bool selected = false;
    const kxCommandMessage_ptr commandLine = m_application->GetCommandMessage();
    const QPointer<GCodeWidget> self(this);
    if (commandLine) {
        commandLine->PromptForSelection(false, q2d(tr("Select one or more entities")), kxString(),
                                        &selected);
    }
    // The host may have been closed in the prompt, and the panel with it.
    if (self) {
        countSelection(manager, kxSelectionSetType_Previous);
    }
}

long GCodeWidget::countSelection(const kxSelectionManager_ptr& manager, kxSelectionSetType_e set) {
    const long count = selectedObjectCount(manager, set);
    printLine(tr("Selected objects: %1 ").arg(count));
    m_SelectionType = set;
    return count;
}

void GCodeWidget::printLine(const QString& line) const {
    const kxCommandMessage_ptr commandLine =
        m_application != nullptr ? m_application->GetCommandMessage() : kxCommandMessage_ptr();
    if (commandLine) {
        commandLine->PrintLine(q2d(line));
    }
}

bool GCodeWidget::isDrillSelectionValid() const {
    for (const GCode::Entity& entity : GetListOfEntities()) {
        if (entity.type != kxCircleType && entity.type != kxPointType) {
            return false;
        }
    }
    return true;
}

kxSelectionManager_ptr GCodeWidget::GetKXSelectionManager() const {
    return activeSelectionManager(m_application);
}

std::vector<GCode::Entity> GCodeWidget::GetListOfEntities() const {
    const kxSelectionManager_ptr manager = GetKXSelectionManager();
    const long count = selectedObjectCount(manager, m_SelectionType);
    const kxSelectionSetType_e set =
        m_isCurrent ? kxSelectionSetType_Current : kxSelectionSetType_Previous;
    std::vector<GCode::Entity> entities;
    for (long index = 0; index < count; ++index) {
        kxObjectType_e type = kxUnknownType;
        kxObject* object = nullptr;
        manager->GetSelectedObject(set, index, &type, &object);
        entities.push_back(entityOf(type, object));
    }
    return entities;
}

std::vector<GCode::Entity> GCodeWidget::GetSortedEntityList() const {
    return GCode::sortEntities(GetListOfEntities(), m_startPoint);
}

double GCodeWidget::GetDistance(const GCode::Point& a, const GCode::Point& b) const {
    return GCode::distance(a, b);
}

double GCodeWidget::DeltaFunction(double a, double b) const {
    return GCode::roundedDifference(a, b);
}

void GCodeWidget::ProcessEntities() {
    if (m_currentIndex == 0) {
        GeneratePreamble();
        GenerateToolPath();
        GeneratePostamble();
    } else if (m_currentIndex == 1) {
        GeneratePreamble();
        if (m_currentIndexDrillCycleComboBox >= g81 && m_currentIndexDrillCycleComboBox <= g83) {
            GenerateDrillCycle(static_cast<DrillCycleType>(m_currentIndexDrillCycleComboBox));
        }
        GeneratePostamble();
    }
    emit GCodeGenFinish(programText());
}

void GCodeWidget::GeneratePreamble() {
    const std::string typed = typedText(textEdit);
    m_gcodeBuffer << GCode::preambleText(typed, motionMode(), m_startPoint);
}

void GCodeWidget::GeneratePostamble() {
    m_gcodeBuffer << GCode::postambleText(typedText(postambleTextEdit));
}

void GCodeWidget::GenerateToolPath() {
    GCode::ToolPathWriter writer({motionMode(), m_feedXY, m_feedZ, m_parameter}, &pos);
    for (const GCode::Entity& entity : GetSortedEntityList()) {
        GCode::Point position;
        GCode::ArcGeometry geometry;
        if (entity.type == kxLineType && isLine(entity.object)) {
            m_gcodeBuffer << writer.line(entity.firstPoint, entity.secondPoint);
        } else if (entity.type == kxPointType && readPoint(entity.object, &position)) {
            m_gcodeBuffer << writer.point(position);
        } else if ((entity.type == kxCircleArcType && readArc(entity.object, &geometry)) ||
                   (entity.type == kxCircleType && readCircle(entity.object, &geometry))) {
            m_gcodeBuffer << writer.arc(geometry);
        }
    }
}

void GCodeWidget::GenerateDrillCycle(DrillCycleType type) {
    const GCode::DrillSettings settings{
        drillDepth->text().toDouble(), retractHeight->text().toDouble(),
        drillFeedRate->text().toDouble(), dwellTimeEdit->text().toDouble(),
        peckDepthEdit->text().toDouble()};
    m_gcodeBuffer << GCode::drillCycleText(static_cast<GCode::DrillCycle>(type), settings,
                                           motionMode(), drillPositions(GetSortedEntityList()));
}

GCode::MotionMode GCodeWidget::motionMode() const {
    return GCode::motionModeFromText(unitComboBox->currentText().toStdString());
}

QString GCodeWidget::programText() const {
    return QString::fromStdString(m_gcodeBuffer.str());
}
