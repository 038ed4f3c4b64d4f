// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <sstream>
#include <vector>

#include <QList>
#include <QString>
#include <QWidget>

#include <kx/kxApplication.h>

#include "core/OutputText.h"
#include "core/Parameters.h"
#include "core/PathEntity.h"
#include "core/PositionAndFeed.h"
#include "core/ProgramText.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QFrame;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QStackedWidget;
class QTextEdit;
class QSlider;
class QTreeWidgetItem;
class OGLWindow;
class QtCategoryButton;
namespace Ui {
class GCode;
}

/// The add-in's panel: the settings, the generation of a program from the host's selection, and
/// the program's files. The widgets' object names are their members' names.
class GCodeWidget : public QWidget {
    Q_OBJECT

public:
    enum DrillCycleType { g81 = 0, g82 = 1, g83 = 2 };

    /// `application` outlives the panel; without one nothing is selected and nothing is printed.
    GCodeWidget(kxApplication_c* application, QWidget* parent);
    ~GCodeWidget() override;

    /// Takes the drawing's unit over: 0 inches, any other value millimetres.
    void SetActiveDrawingUnit(long activetDrawingUnit);

    kxSelectionManager_ptr GetKXSelectionManager() const;
    /// The selected objects in the order of selection, whatever their kind.
    std::vector<GCode::Entity> GetListOfEntities() const;
    /// The selected objects in machining order.
    std::vector<GCode::Entity> GetSortedEntityList() const;
    double GetDistance(const GCode::Point& a, const GCode::Point& b) const;
    /// a - b, both rounded up to 4 decimals; 0 when that is at most 0.01 in magnitude.
    double DeltaFunction(double a, double b) const;

signals:
    /// A whole program's text, for what shows it.
    void GCodeGenFinish(const QString& program);
    /// Play, at the speed slider's value.
    void Simulate(int speed);

public slots:
    void GenerateGCode();
    void SaveGCode();
    void AppendFile();
    void SelectFilePreview();
    void OpenHelp();
    void SimulateButtonClicked();
    /// Forgets the program and tells what shows it.
    void ClearPreviousPreview();
    void MainComboIndexChanged(int index);
    void DrillCycleComboIndexChanged(int index);
    void CategoryButtonPressed(int id);
    /// Rewrites the preamble's unit words to the checked unit.
    void SetDrawingUnit();

private:
    void CreateUI();
    void startUIGroup(QTreeWidgetItem* item, QtCategoryButton* button, const QRect& geometry);
    void finishUIGroup(QTreeWidgetItem* item, QFrame* frame);
    QFrame* openCategory(const QString& title, QTreeWidgetItem*& item, QtCategoryButton*& button);
    void createCommentsCategory();
    void createPathCategory();
    void createPreambleCategory();
    void createPostscriptCategory();
    void createUnitCategory();
    void createFeedCategory();
    void createViewCategory();
    void createToolPathPage();
    void createDrillPage();
    void setDefaultTexts();
    void setValidators();
    void connectControls();
    void connectView();
    void printPreviewStopped(qlonglong points);

    void SetParams();
    long countSelection(const kxSelectionManager_ptr& manager, kxSelectionSetType_e set);
    void findSelection();
    void printLine(const QString& line) const;
    bool isDrillSelectionValid() const;
    void ProcessEntities();
    void GeneratePreamble();
    void GeneratePostamble();
    void GenerateToolPath();
    void GenerateDrillCycle(DrillCycleType type);
    GCode::MotionMode motionMode() const;
    GCode::OutputText outputText() const;
    QString programText() const;

    kxApplication_c* m_application;
    /// The parent of the dialogs.
    QWidget* widget;
    std::unique_ptr<Ui::GCode> m_gcodeWidget;
    QString styleSheet;

    std::stringstream m_gcodeBuffer;
    std::stringstream m_lastGCodeBuffer;
    QString m_lastSavedFile;
    GCode::PositionAndFeed pos;
    Parameters m_parameter;
    double m_feedXY = 0;
    double m_feedZ = 0;
    GCode::Point m_startPoint;
    int m_currentIndex = 0;
    int m_currentIndexDrillCycleComboBox = 0;
    kxSelectionSetType_e m_SelectionType = kxSelectionSetType_Current;
    bool m_isCurrent = true;
    bool m_isGenerating = false;

    QButtonGroup* categoryButton = nullptr;
    QList<QTreeWidgetItem*> categoryGroup;
    QTreeWidgetItem* m_CommentsCategaory = nullptr;
    QTreeWidgetItem* m_PathAndDrillCycleCategaory = nullptr;
    QTreeWidgetItem* m_PreambleCategaory = nullptr;
    QTreeWidgetItem* m_PostscriptCategaory = nullptr;
    QTreeWidgetItem* m_UnitCategaory = nullptr;
    QTreeWidgetItem* m_RetractionAndFeedRateCategaory = nullptr;
    QTreeWidgetItem* m_ViewWindowCategaory = nullptr;
    QtCategoryButton* m_CommentsCategaoryButton = nullptr;
    QtCategoryButton* m_PathAndDrillCycleCategaoryButton = nullptr;
    QtCategoryButton* m_PreambleCategaoryButton = nullptr;
    QtCategoryButton* m_PostscriptCategaoryButton = nullptr;
    QtCategoryButton* m_UnitCategaoryButton = nullptr;
    QtCategoryButton* m_RetractionAndFeedRateCategaoryButton = nullptr;
    QtCategoryButton* m_ViewWindowCategaoryButton = nullptr;

    QTextEdit* m_CommentTextEdit = nullptr;
    QComboBox* comboBox = nullptr;
    QPushButton* generateGCodeBtn = nullptr;
    QPushButton* selectFileBtn = nullptr;
    QPushButton* saveBtn = nullptr;
    QPushButton* HelpPushButton = nullptr;
    QPushButton* appendPushButton = nullptr;
    QTextEdit* textEdit = nullptr;
    QCheckBox* lineNumberCheckBox = nullptr;
    QLabel* lineNumberLabel = nullptr;
    QTextEdit* postambleTextEdit = nullptr;
    QRadioButton* mmRadioButton = nullptr;
    QRadioButton* inchRadioButton = nullptr;
    QComboBox* unitComboBox = nullptr;
    QStackedWidget* stackedWidget = nullptr;
    QLabel* zSafeHeightButton = nullptr;
    QLineEdit* zSafeHeightEdit = nullptr;
    QLabel* zRetractionButton = nullptr;
    QLineEdit* zRetractEdit = nullptr;
    QLabel* feedRateZButton = nullptr;
    QLineEdit* feedRateZ = nullptr;
    QLabel* feedRateXYButton = nullptr;
    QLineEdit* feedRateXY = nullptr;
    QLabel* depthOfCutButton = nullptr;
    QLineEdit* depthOfCut = nullptr;
    QComboBox* drillcomboBox = nullptr;
    QLabel* drillFeedRateButton = nullptr;
    QLineEdit* drillFeedRate = nullptr;
    QLabel* depthButton = nullptr;
    QLineEdit* drillDepth = nullptr;
    QLabel* retractHeightButton = nullptr;
    QLineEdit* retractHeight = nullptr;
    QLabel* dwellButton = nullptr;
    QLineEdit* dwellTimeEdit = nullptr;
    QLabel* peckDepthButton = nullptr;
    QLineEdit* peckDepthEdit = nullptr;
    OGLWindow* w = nullptr;
    QPushButton* simulatePushButton = nullptr;
    QPushButton* PauseSimulationButton = nullptr;
    QPushButton* StopSimulationButton = nullptr;
    QSlider* horizontalSlider = nullptr;
    QPushButton* panButton = nullptr;
    QPushButton* zoomButton = nullptr;
    QPushButton* zoomToFitButton = nullptr;
};
