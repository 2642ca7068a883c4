#pragma once

#include <QAbstractTableModel>

#include "datafiles/database.h"

namespace quor::gui {

/// The substances of a database as rows: name, formula, CASRN.
class SubstanceListModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    explicit SubstanceListModel(datafiles::Database database, QObject* parent = nullptr)
        : QAbstractTableModel(parent), database_(std::move(database)) {}

    enum Column { Name, Formula, Casrn, ColumnCount };
    /// Text in which a typed part is looked for: all names, formula, CASRN.
    static constexpr int kSearchRole = Qt::UserRole;
    /// Place in the database, from 1.
    static constexpr int kIndexRole = Qt::UserRole + 1;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    datafiles::Database database_;
};

}  // namespace quor::gui
