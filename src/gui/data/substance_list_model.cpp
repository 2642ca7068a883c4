#include "gui/data/substance_list_model.h"

#include "common/text.h"
#include "datafiles/search.h"
#include "datafiles/synonyms.h"
#include "gui/widgets/form.h"
#include "gui/widgets/qt_text.h"

namespace quor::gui {

namespace {

QString cell(const datafiles::DatabaseEntry& entry, int column) {
    switch (column) {
        case SubstanceListModel::Name:
            return qt(datafiles::first_name_of(entry.name));
        case SubstanceListModel::Formula:
            return qt(text::trim_right(entry.formula));
        case SubstanceListModel::Casrn:
            return qt(text::trim_right(entry.casrn));
        default:
            return {};
    }
}

QString looseForm(const QString& text) {
    return qt(datafiles::comparing_form(datafiles::normalise_name(text.toStdString())));
}

}  // namespace

int SubstanceListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(database_.size());
}

int SubstanceListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant SubstanceListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const datafiles::DatabaseEntry& entry =
        database_.entries()[static_cast<std::size_t>(index.row())];
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return cell(entry, index.column());
        case Qt::ToolTipRole:
            return index.column() == Name ? form::tip(qt(text::trim_right(entry.name)))
                                          : QVariant();
        case kSearchRole:
            return qt(entry.name + " " + entry.formula + " " + entry.casrn);
        case kLooseRole:
            if (loose_.empty())
                for (const datafiles::DatabaseEntry& one : database_.entries())
                    loose_.push_back(looseForm(qt(one.name)));
            return loose_[static_cast<std::size_t>(index.row())];
        case kIndexRole:
            return index.row() + 1;
        default:
            return {};
    }
}

QVariant SubstanceListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    switch (section) {
        case Name:
            return "Name";
        case Formula:
            return "Formula";
        case Casrn:
            return "CASRN";
        default:
            return {};
    }
}

void SubstanceFilter::show(const QString& typed, int exact) {
    typed_ = typed;
    exact_ = exact;
    loose_.clear();
    invalidateFilter();
    if (rowCount() > 0) return;
    loose_ = looseForm(typed);
    if (!loose_.isEmpty()) invalidateFilter();
}

bool SubstanceFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
    if (row + 1 == exact_) return true;
    const QModelIndex place = sourceModel()->index(row, SubstanceListModel::Name, parent);
    if (!loose_.isEmpty())
        return place.data(SubstanceListModel::kLooseRole).toString().contains(loose_);
    return place.data(SubstanceListModel::kSearchRole)
        .toString()
        .contains(typed_, Qt::CaseInsensitive);
}

}  // namespace quor::gui
