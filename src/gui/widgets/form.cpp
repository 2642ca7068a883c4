#include "gui/widgets/form.h"

#include <QAbstractItemModel>
#include <QComboBox>
#include <QLineEdit>
#include <QTableView>
#include <algorithm>
#include <vector>

#include <QGroupBox>
#include <QPushButton>
#include <QToolButton>

#include "gui/widgets/theme.h"

namespace quor::gui {

namespace form {

QLabel* label(const QString& text) {
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    return label;
}

QString tip(const QString& text) {
    return Qt::mightBeRichText(text) ? "<p>" + text.toHtmlEscaped() + "</p>" : text;
}

QString captionOf(QString text) {
    return text.replace('&', "&&");
}

QString titleOf(QString text) {
    return text.replace("[*]", "[*][*]");
}

QLabel* caption(const QString& text, QWidget* buddy) {
    auto* label = form::label(text);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setBuddy(buddy);
    return label;
}

QLabel* unit(const QString& text) {
    auto* label = form::label(text);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return label;
}

QLabel* note(const QString& text) {
    auto* label = form::label(text);
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

namespace {

QString shownText(const QWidget* widget) {
    if (const auto* label = qobject_cast<const QLabel*>(widget)) return label->text();
    if (const auto* field = qobject_cast<const QLineEdit*>(widget)) return field->text();
    if (const auto* combo = qobject_cast<const QComboBox*>(widget)) return combo->currentText();
    if (const auto* option = qobject_cast<const QAbstractButton*>(widget))
        return option->isCheckable() && option->isChecked() ? option->text() : QString();
    if (const auto* box = qobject_cast<const QGroupBox*>(widget)) return box->title();
    return {};
}

QString tableText(const QTableView* table) {
    const QAbstractItemModel* model = table->model();
    QString text;
    for (int row = -1; row < model->rowCount(); ++row) {
        for (int column = -1; column < model->columnCount(); ++column) {
            QVariant cell;
            if (row >= 0 && column >= 0) cell = model->index(row, column).data();
            if (row < 0 && column >= 0) cell = model->headerData(column, Qt::Horizontal);
            if (row >= 0 && column < 0) cell = model->headerData(row, Qt::Vertical);
            text += cell.toString().rightJustified(12);
        }
        text += '\n';
    }
    return text;
}

}  // namespace

QString textOf(const QWidget* view) {
    struct Piece {
        QPoint at;
        QString text;
    };
    std::vector<Piece> pieces;
    for (const QWidget* widget : view->findChildren<QWidget*>()) {
        if (!widget->isVisible()) continue;
        const auto* table = qobject_cast<const QTableView*>(widget);
        // The field inside a list of choices speaks for the list, which is a piece itself.
        if (qobject_cast<const QComboBox*>(widget->parentWidget()) != nullptr) continue;
        const QString text = table != nullptr ? tableText(table) : shownText(widget).remove('&');
        const int middle = qobject_cast<const QGroupBox*>(widget) != nullptr || table != nullptr
                               ? 0
                               : widget->height() / 2;
        if (!text.trimmed().isEmpty())
            pieces.push_back({widget->mapTo(view, QPoint(0, middle)), text});
    }
    // What stands side by side is one line, even if not to the pixel.
    constexpr int kLine = 8;
    std::stable_sort(pieces.begin(), pieces.end(), [](const Piece& a, const Piece& b) {
        return a.at.y() / kLine != b.at.y() / kLine ? a.at.y() < b.at.y() : a.at.x() < b.at.x();
    });
    QString all;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i > 0) all += pieces[i].at.y() / kLine == pieces[i - 1].at.y() / kLine ? "  " : "\n";
        all += pieces[i].text;
    }
    return all + '\n';
}

}  // namespace form

}  // namespace quor::gui
