#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <vector>

#include "datafiles/fit_point.h"

namespace quor::gui {

/// A list of x-y points as a table, columns x and y. It shows what it is given; a typed cell goes
/// to who holds the list.
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

    /// Shows points in place of the present ones. Marks stay where their number does.
    void show(std::vector<datafiles::FitPoint> points);
    /// Who takes a typed cell: line (from 0), whether it is x, value.
    using Typed = std::function<void(int line, bool isX, float value)>;
    void onTyped(Typed typed) { typed_ = std::move(typed); }

  private:
    const datafiles::FitPoint* pointOf(int row) const;

    std::vector<datafiles::FitPoint> points_;
    Typed typed_;
};

}  // namespace quor::gui
