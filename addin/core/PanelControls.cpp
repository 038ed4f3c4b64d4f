// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/PanelControls.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QSvgRenderer>
#include <QTextDocument>
#include <QTextEdit>
#include <QTreeWidget>

#include "core/PanelResources.h"

namespace {

constexpr int kComboMaximumHeight = 30;
constexpr int kLabelSize = 30;
constexpr int kPictureSize = 24;
constexpr int kButtonIconSize = 20;
constexpr int kFocusMargin = 8;

const char* const kComboStyle =
    "background-color: rgb(255, 255, 255);selection-background-color: rgb(52,140,196); "
    "padding-left: 5px;padding-bottom: 3px;padding-top: 3px;";
const char* const kWhite = "background-color: rgb(255, 255, 255);";

/// The icon drawn for the screen's own resolution, so that it is sharp at any scale.
QPixmap picture(const QString& icon) {
    const qreal ratio = qGuiApp->devicePixelRatio();
    QPixmap pixmap(QSize(kPictureSize, kPictureSize) * ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QSvgRenderer(iconPath(icon)).render(&painter);
    painter.end();
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

/// Looks at the focus of the controls of a tree.
class FocusFollower : public QObject {
public:
    explicit FocusFollower(QTreeWidget* tree) : QObject(tree), m_tree(tree) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::FocusIn && !isByMouse(static_cast<QFocusEvent&>(*event))) {
            show(*static_cast<QWidget*>(watched));
        }
        return false;
    }

private:
    /// What is clicked must not move away under the mouse, and was visible before.
    static bool isByMouse(const QFocusEvent& event) {
        return event.reason() == Qt::MouseFocusReason ||
               event.reason() == Qt::ActiveWindowFocusReason ||
               event.reason() == Qt::PopupFocusReason;
    }
    void show(const QWidget& control) const {
        const int top = control.mapTo(m_tree->viewport(), QPoint()).y() - kFocusMargin;
        const int below = top + control.height() + 2 * kFocusMargin - m_tree->viewport()->height();
        QScrollBar* bar = m_tree->verticalScrollBar();
        bar->setValue(bar->value() + qMin(top, qMax(below, 0)));
    }

    QTreeWidget* m_tree;
};

}  // namespace

QTextEdit* createTextBox(const QString& name, int maximumHeight, QWidget* parent) {
    auto* box = new QTextEdit(parent);
    box->setObjectName(name);
    box->setMaximumHeight(maximumHeight);
    box->setAcceptRichText(false);
    box->setTabChangesFocus(true);
    return box;
}

std::string typedText(const QTextEdit* box) {
    QString text = box->document()->toRawText();
    for (QChar& character : text) {
        // Ends of paragraphs and of lines within them.
        if (character == QChar::ParagraphSeparator || character == QChar::LineSeparator) {
            character = QLatin1Char('\n');
        }
    }
    return text.toStdString();
}

QComboBox* createComboBox(const QString& name, const QStringList& items, QWidget* parent) {
    auto* combo = new QComboBox(parent);
    combo->setObjectName(name);
    combo->addItems(items);
    combo->setMaximumHeight(kComboMaximumHeight);
    combo->setStyleSheet(QLatin1String(kComboStyle));
    return combo;
}

QPushButton* createIconButton(const QString& name, const QString& toolTip, const QString& icon,
                              QWidget* parent) {
    auto* button = new QPushButton(parent);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    button->setIcon(QIcon(iconPath(icon)));
    button->setIconSize(QSize(kButtonIconSize, kButtonIconSize));
    return button;
}

std::pair<QLabel*, QLineEdit*> addFieldRow(const FieldRow& row, QGridLayout* grid) {
    auto* label = new QLabel(grid->parentWidget());
    label->setObjectName(QLatin1String(row.labelName));
    label->setFixedSize(kLabelSize, kLabelSize);
    label->setAlignment(Qt::AlignCenter);
    label->setToolTip(row.placeholder);
    if (row.icon != nullptr) {
        label->setPixmap(picture(QLatin1String(row.icon)));
    }
    auto* edit = new QLineEdit(grid->parentWidget());
    edit->setObjectName(QLatin1String(row.editName));
    edit->setPlaceholderText(row.placeholder);
    edit->setToolTip(row.placeholder);
    edit->setAccessibleName(row.placeholder);
    edit->setStyleSheet(QLatin1String(kWhite));
    const int gridRow = grid->rowCount();
    grid->addWidget(label, gridRow, 0);
    grid->addWidget(edit, gridRow, 1);
    return {label, edit};
}

void showFocused(QTreeWidget* tree) {
    auto* follower = new FocusFollower(tree);
    for (QWidget* control : tree->viewport()->findChildren<QWidget*>()) {
        control->installEventFilter(follower);
    }
}
