#include "gui/data/tpv_table_model.h"

#include <QFont>

#include "gui/widgets/theme.h"
#include "models/unit_text.h"

namespace quor::gui {

namespace {

using datafiles::MeasuredColumn;

MeasuredColumn columnOf(const QModelIndex& index) {
    return static_cast<MeasuredColumn>(index.column());
}

}  // namespace

void TpvTableModel::show(std::vector<datafiles::MeasuredPoint> points) {
    if (points.size() != points_.size()) {
        beginResetModel();
        points_ = std::move(points);
        endResetModel();
        return;
    }
    points_ = std::move(points);
    if (points_.empty()) return;
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    Q_EMIT headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
}

const datafiles::MeasuredPoint* TpvTableModel::pointOf(int row) const {
    return row >= 0 && row < rowCount() ? &points_[static_cast<std::size_t>(row)] : nullptr;
}

int TpvTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(points_.size());
}

int TpvTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : datafiles::kMeasuredColumns;
}

QVariant TpvTableModel::data(const QModelIndex& index, int role) const {
    const datafiles::MeasuredPoint* set = pointOf(index.row());
    if (set == nullptr) return {};
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return QString::fromStdString(datafiles::cell_text(*set, columnOf(index), units_));
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
        const auto column = static_cast<MeasuredColumn>(section);
        return role == Qt::DisplayRole ? name(column) + "\n" + unit(column) : QVariant();
    }
    const datafiles::MeasuredPoint* set = pointOf(section);
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
    if (pointOf(index.row()) == nullptr || role != Qt::EditRole || !typed_) return false;
    const QString typed = value.toString();
    // A cell that was only looked at keeps the digits that the table does not show.
    if (typed == data(index, Qt::EditRole).toString()) return false;
    typed_(index.row(), columnOf(index), typed.toStdString());
    return true;
}

void TpvTableModel::setUnits(const datafiles::MeasuredUnits& units) {
    units_ = units;
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1),
                           {Qt::DisplayRole});
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

QString TpvTableModel::name(MeasuredColumn column) const {
    switch (column) {
        case MeasuredColumn::T:
            return "T";
        case MeasuredColumn::p:
            return "p";
        case MeasuredColumn::rhoL:
            return units_.volume ? "v_L" : "rho_L";
        case MeasuredColumn::rhoV:
            return units_.volume ? "v_V" : "rho_V";
        case MeasuredColumn::hLV:
            return "delta(LV)h";
        case MeasuredColumn::cp:
            return "cp";
    }
    return {};
}

QString TpvTableModel::unit(MeasuredColumn column) const {
    const bool density = column == MeasuredColumn::rhoL || column == MeasuredColumn::rhoV;
    if (density && units_.volume) return "m^3";
    const std::string_view name = datafiles::scale_of(column, units_).name;
    // Units that were always written plainly stay so.
    const bool told = name == "kg/m^3" || name == "kJ/kmol" || name == "kJ/(kmol K)";
    return QString::fromStdString(told ? std::string(name) : models::pretty_unit(name));
}

}  // namespace quor::gui
