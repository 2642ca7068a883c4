#pragma once

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <vector>

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
    /// The same without what spellings differ in: case, blanks, hyphens, usual variants.
    static constexpr int kLooseRole = Qt::UserRole + 2;
    /// Place in the database, from 1.
    static constexpr int kIndexRole = Qt::UserRole + 1;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    datafiles::Database database_;
    mutable std::vector<QString> loose_;  ///< by row, made when it is first asked for
};

/// The rows that a typed text stands for: those that hold it and the one that it names exactly;
/// where there are none, those that hold it in another spelling.
class SubstanceFilter : public QSortFilterProxyModel {
    Q_OBJECT

  public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    /// `exact` is the place (from 1) that the text names, 0 for none.
    void show(const QString& typed, int exact);

  protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

  private:
    QString typed_, loose_;
    int exact_ = 0;
};

}  // namespace quor::gui
