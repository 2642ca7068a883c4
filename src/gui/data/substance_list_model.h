#pragma once

#include <QAbstractTableModel>

namespace quor::gui {

/// The substances of the open database as rows: name, formula, CASRN. It reads the session's lists
/// and holds nothing of its own.
class SubstanceListModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    using QAbstractTableModel::QAbstractTableModel;

    enum Column { Name, Formula, Casrn, ColumnCount };
    /// Text in which a typed part is looked for: all names, formula, CASRN.
    static constexpr int SearchRole = Qt::UserRole;
    /// Place in the database, from 1.
    static constexpr int IndexRole = Qt::UserRole + 1;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
};

}  // namespace quor::gui
