#pragma once

#include <QAbstractTableModel>

#include "datafiles/batch_table.h"

namespace quor::gui {

/// The experimental data of the session as a table, in the units that the user reads. It holds
/// nothing of its own but these units.
class TpvTableModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    const datafiles::BatchUnits& units() const { return units_; }
    void setUnits(const datafiles::BatchUnits& units);

    /// Name and unit of a column, such as "v_L" and "m^3".
    QString name(datafiles::BatchColumn column) const;
    QString unit(datafiles::BatchColumn column) const;

    /// Runs something that changes lines of the session's data, and shows the result.
    template <class Change>
    void change(Change&& what) {
        beginResetModel();
        what();
        endResetModel();
    }

  private:
    datafiles::BatchUnits units_;
};

}  // namespace quor::gui
