#include "gui/session/unit_sets.h"

#include <QComboBox>

#include "gui/widgets/qt_text.h"
#include "gui/widgets/settings.h"

namespace quor::gui {

std::vector<NamedUnits> unitSets() {
    std::vector<NamedUnits> all;
    for (const models::UnitSet& set : models::unit_sets())
        all.push_back({qt(std::string(set.name)), set.choice});
    const QMap<QString, QString> own = settings::unitSets();
    for (auto set = own.begin(); set != own.end(); ++set)
        if (const auto choice = models::read_choice(set.value().toStdString()))
            all.push_back({set.key(), *choice, true});
    return all;
}

bool sameUnits(const models::UnitChoice& a, const models::UnitChoice& b) {
    return models::units_of(a) == models::units_of(b);
}

QString nameOf(const models::UnitChoice& choice) {
    for (const NamedUnits& set : unitSets())
        if (sameUnits(set.choice, choice)) return set.name;
    return qt(models::text_of(choice)).replace(",", ", ");
}

void fillUnitSets(QComboBox* box, const models::UnitChoice& choice) {
    const QSignalBlocker quiet(box);
    box->clear();
    const std::vector<NamedUnits> sets = unitSets();
    int present = -1;
    for (std::size_t i = 0; i < sets.size(); ++i) {
        box->addItem(sets[i].name, static_cast<int>(i));
        if (sameUnits(sets[i].choice, choice)) present = static_cast<int>(i);
    }
    if (present < 0) {
        box->insertItem(0, "Own choice", -1);
        box->setItemData(0, nameOf(choice), Qt::ToolTipRole);
        present = 0;
    }
    box->setCurrentIndex(present);
}

}  // namespace quor::gui
