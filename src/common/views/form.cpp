#include "common/views/form.h"

#include <QGroupBox>
#include <QPushButton>
#include <QToolButton>

#include "common/views/theme.h"

namespace form {

QLabel* caption(const QString& text, QWidget* buddy) {
    auto* label = new QLabel(text);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setBuddy(buddy);
    return label;
}

QLabel* unit(const QString& text) {
    auto* label = new QLabel(text);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return label;
}

QLabel* note(const QString& text) {
    auto* label = new QLabel(text);
    label->setWordWrap(true);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

void addRow(QGridLayout* grid, int row, const QString& captionText, QWidget* field,
            const QString& unitText) {
    grid->addWidget(caption(captionText, field), row, 0);
    grid->addWidget(field, row, 1);
    if (!unitText.isEmpty()) grid->addWidget(unit(unitText), row, 2);
}

QGridLayout* grid(QWidget* parent) {
    auto* layout = new QGridLayout(parent);
    layout->setHorizontalSpacing(theme::kGap);
    layout->setVerticalSpacing(theme::kGap);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    return layout;
}

QPushButton* button(const QString& text, const QString& name, QWidget* parent) {
    auto* push = new QPushButton(text, parent);
    push->setObjectName(name);
    push->setAutoDefault(false);
    return push;
}

QToolButton* helpButton(const QString& name, const QString& about) {
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setText("?");
    button->setToolTip("Help: " + about);
    button->setAccessibleName("Help: " + about);
    return button;
}

QGroupBox* frame(const QString& title, const QString& name, QWidget* parent) {
    auto* box = new QGroupBox(title, parent);
    box->setObjectName(name);
    return box;
}

}  // namespace form
