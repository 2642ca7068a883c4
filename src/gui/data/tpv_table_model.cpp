#include "gui/data/tpv_table_model.h"

#include <QFont>

#include "gui/widgets/theme.h"
#include "legacy/declare.h"

namespace quor::gui {

namespace {

using datafiles::BatchColumn;
using legacy::the_BatchData;

BatchColumn column_of(const QModelIndex& index) {
    return static_cast<BatchColumn>(index.column());
}

// The record of a row; the data may have become fewer since the table was shown.
calculation::BatchDataSet* set_of(int row) {
    const auto element = static_cast<std::size_t>(row) + 1;
    return row >= 0 && row < legacy::the_session.BatchCount && element < the_BatchData.size()
               ? &the_BatchData[element]
               : nullptr;
}

}  // namespace

int TpvTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : legacy::the_session.BatchCount;
}

int TpvTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : datafiles::kBatchColumns;
}

QVariant TpvTableModel::data(const QModelIndex& index, int role) const {
    const calculation::BatchDataSet* set = set_of(index.row());
    if (set == nullptr) return {};
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return QString::fromStdString(datafiles::cell_text(*set, column_of(index), units_));
        case Qt::TextAlignmentRole:
            return int(Qt::AlignRight | Qt::AlignVCenter);
        case Qt::ForegroundRole:
            return set->skip == 0 ? QVariant() : theme::quietColour();
        case Qt::FontRole: {
            QFont font;
            font.setItalic(true);
            return set->skip == 0 ? QVariant() : font;
        }
        default:
            return {};
    }
}

QVariant TpvTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal) {
        const auto column = static_cast<BatchColumn>(section);
        return role == Qt::DisplayRole ? name(column) + "\n" + unit(column) : QVariant();
    }
    const calculation::BatchDataSet* set = set_of(section);
    if (set == nullptr) return {};
    const bool active = set->skip == 0;
    if (role == Qt::DisplayRole)
        return active ? QString::number(section + 1) : QString("(%1)").arg(section + 1);
    if (role == Qt::ToolTipRole && !active)
        return "inactive: left out of calculation, graph and fitting";
    return {};
}

Qt::ItemFlags TpvTableModel::flags(const QModelIndex& index) const {
    return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
}

bool TpvTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    calculation::BatchDataSet* set = set_of(index.row());
    if (set == nullptr || role != Qt::EditRole) return false;
    const QString typed = value.toString();
    // A cell that was only looked at keeps the digits that the table does not show.
    if (typed == data(index, Qt::EditRole).toString()) return false;
    datafiles::store_cell(*set, column_of(index), typed.toStdString(), units_);
    Q_EMIT dataChanged(index, index);
    return true;
}

void TpvTableModel::setUnits(const datafiles::BatchUnits& units) {
    units_ = units;
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1),
                           {Qt::DisplayRole});
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

QString TpvTableModel::name(BatchColumn column) const {
    switch (column) {
        case BatchColumn::T:
            return "T";
        case BatchColumn::p:
            return "p";
        case BatchColumn::rhoL:
            return units_.volume ? "v_L" : "rho_L";
        case BatchColumn::rhoV:
            return units_.volume ? "v_V" : "rho_V";
        case BatchColumn::hLV:
            return "delta(LV)h";
        case BatchColumn::cp:
            return "cp";
    }
    return {};
}

QString TpvTableModel::unit(BatchColumn column) const {
    static constexpr const char* kPressures[] = {"kPa", "atm", "Torr"};
    switch (column) {
        case BatchColumn::T:
            return units_.T == datafiles::TemperatureUnit::Celsius ? "°C" : "K";
        case BatchColumn::p:
            return kPressures[static_cast<std::size_t>(units_.p)];
        case BatchColumn::rhoL:
        case BatchColumn::rhoV:
            return units_.volume ? "m^3" : "kg/m^3";
        case BatchColumn::hLV:
            return "kJ/kmol";
        case BatchColumn::cp:
            return "kJ/(kmol K)";
    }
    return {};
}

}  // namespace quor::gui
