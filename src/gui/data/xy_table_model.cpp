#include "gui/data/xy_table_model.h"

#include <QFont>

#include "common/numbers.h"
#include "datafiles/cell_numbers.h"
#include "datafiles/xy_points.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

namespace {

constexpr int kColumnX = 0, kColumns = 2;

}  // namespace

void XyTableModel::show(std::vector<datafiles::FitPoint> points) {
    if (points.size() != points_.size()) {
        beginResetModel();
        points_ = std::move(points);
        endResetModel();
        return;
    }
    points_ = std::move(points);
    if (points_.empty()) return;
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, kColumns - 1));
    Q_EMIT headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
}

const datafiles::FitPoint* XyTableModel::pointOf(int row) const {
    return row >= 0 && row < rowCount() ? &points_[static_cast<std::size_t>(row)] : nullptr;
}

int XyTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(points_.size());
}

int XyTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumns;
}

QVariant XyTableModel::data(const QModelIndex& index, int role) const {
    const datafiles::FitPoint* point = pointOf(index.row());
    if (point == nullptr) return {};
    const bool active = datafiles::is_active(*point);
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return QString::fromStdString(
                numbers::general(index.column() == kColumnX ? point->x : point->y));
        case Qt::TextAlignmentRole:
            return int(Qt::AlignRight | Qt::AlignVCenter);
        case Qt::ForegroundRole:
            return active ? QVariant() : theme::quietColour();
        case Qt::FontRole: {
            QFont font;
            font.setItalic(true);
            return active ? QVariant() : font;
        }
        default:
            return {};
    }
}

QVariant XyTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal)
        return role == Qt::DisplayRole ? QVariant(section == kColumnX ? "x" : "y") : QVariant();
    const datafiles::FitPoint* point = pointOf(section);
    if (point == nullptr) return {};
    const bool active = datafiles::is_active(*point);
    if (role == Qt::DisplayRole)
        return active ? QString::number(section + 1) : QString("(%1)").arg(section + 1);
    if (role == Qt::ToolTipRole && !active)
        return "inactive: left out of fitting, drawing and saving";
    return {};
}

Qt::ItemFlags XyTableModel::flags(const QModelIndex& index) const {
    return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
}

bool XyTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (pointOf(index.row()) == nullptr || role != Qt::EditRole || !typed_) return false;
    // A cell that was only looked at keeps the digits that the table does not show.
    if (value.toString() == data(index, Qt::EditRole).toString()) return false;
    const std::optional<float> typed =
        datafiles::single(numbers::typed_number(value.toString().toStdString()));
    if (!typed) return false;
    typed_(index.row(), index.column() == kColumnX, *typed);
    return true;
}

}  // namespace quor::gui
