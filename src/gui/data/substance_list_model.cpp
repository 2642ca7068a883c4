#include "gui/data/substance_list_model.h"

#include "common/text.h"
#include "datafiles/substance_choice.h"
#include "gui/widgets/qt_text.h"
#include "legacy/declare.h"

namespace quor::gui {

namespace {

QString cell(std::size_t entry, int column) {
    const datafiles::SubstanceLists& lists = legacy::the_substances;
    switch (column) {
        case SubstanceListModel::Name:
            return qt(datafiles::first_name_of(lists.Names[entry]));
        case SubstanceListModel::Formula:
            return qt(text::trim_right(lists.Formulas[entry]));
        case SubstanceListModel::Casrn:
            return qt(text::trim_right(lists.Casrn[entry]));
        default:
            return {};
    }
}

}  // namespace

int SubstanceListModel::rowCount(const QModelIndex& parent) const {
    const std::size_t size = legacy::the_substances.Names.size();  // element 0 is not used
    return parent.isValid() || size == 0 ? 0 : static_cast<int>(size) - 1;
}

int SubstanceListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant SubstanceListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const auto entry = static_cast<std::size_t>(index.row()) + 1;
    const datafiles::SubstanceLists& lists = legacy::the_substances;
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return cell(entry, index.column());
        case Qt::ToolTipRole:
            return index.column() == Name ? qt(text::trim_right(lists.Names[entry])) : QVariant();
        case SearchRole:
            return qt(lists.Names[entry] + " " + lists.Formulas[entry] + " " + lists.Casrn[entry]);
        case IndexRole:
            return static_cast<int>(entry);
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

}  // namespace quor::gui
