#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <vector>

#include "datafiles/measured_table.h"

namespace quor::gui {

/// Experimental data as a table, in the units that the user reads. It shows what it is given; a
/// typed cell goes to who holds the data.
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

    const datafiles::MeasuredUnits& units() const { return units_; }
    void setUnits(const datafiles::MeasuredUnits& units);

    /// Name and unit of a column, such as "v_L" and "m^3".
    QString name(datafiles::MeasuredColumn column) const;
    QString unit(datafiles::MeasuredColumn column) const;

    /// Shows lines in place of the present ones. Marks stay where the number of lines does.
    void show(std::vector<datafiles::MeasuredPoint> points);
    /// Who takes a typed cell: line (from 0), column, text.
    using Typed = std::function<void(int line, datafiles::MeasuredColumn, const std::string&)>;
    void onTyped(Typed typed) { typed_ = std::move(typed); }

  private:
    const datafiles::MeasuredPoint* pointOf(int row) const;

    std::vector<datafiles::MeasuredPoint> points_;
    datafiles::MeasuredUnits units_;
    Typed typed_;
};

}  // namespace quor::gui
