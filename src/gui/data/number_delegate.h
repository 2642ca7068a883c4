#pragma once

#include <QStyledItemDelegate>

namespace quor::gui {

/// Edits the cells of a table in fields for numbers. A text that is no number is marked and not
/// handed to the table; an empty one is.
class NumberDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
};

}  // namespace quor::gui
