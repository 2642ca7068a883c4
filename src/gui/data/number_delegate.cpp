#include "gui/data/number_delegate.h"

#include "gui/widgets/number_edit.h"

namespace quor::gui {

QWidget* NumberDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                      const QModelIndex&) const {
    auto* field = new NumberEdit(parent);
    field->setFrame(false);
    return field;
}

void NumberDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto* field = static_cast<NumberEdit*>(editor);
    field->setText(index.data(Qt::EditRole).toString());
    field->selectAll();
}

void NumberDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                  const QModelIndex& index) const {
    const auto* field = static_cast<NumberEdit*>(editor);
    if (field->holdsNumber() || field->text().trimmed().isEmpty())
        model->setData(index, field->text(), Qt::EditRole);
}

}  // namespace quor::gui
