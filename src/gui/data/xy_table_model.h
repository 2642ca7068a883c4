#pragma once

#include <QAbstractTableModel>

namespace quor::gui {

/// The points of the XY editor as a table: the session's list, columns x and y.
class XyTableModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Takes a number with point or comma; anything else is refused.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    /// Runs something that changes the list, and shows the result.
    template <class Change>
    void change(Change&& what) {
        beginResetModel();
        what();
        endResetModel();
    }
};

}  // namespace quor::gui
