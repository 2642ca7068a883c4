#pragma once

#include <QString>
#include <vector>

#include "models/unit_text.h"

class QComboBox;

namespace quor::gui {

/// A set of units with its name.
struct NamedUnits {
    QString name;
    models::UnitChoice choice;
    bool own = false;  ///< of the user, who may delete it
};

/// The ready sets, and behind them those of the user.
std::vector<NamedUnits> unitSets();

/// The name of a choice; of one that is no set the units that differ from SI molar: "T=degC,
/// p=bar".
QString nameOf(const models::UnitChoice& choice);

/// True when two choices show every quantity alike.
bool sameUnits(const models::UnitChoice& a, const models::UnitChoice& b);

/// Fills a box with all sets and marks the one of a choice. A choice that is none of them gets an
/// entry of its own in front.
void fillUnitSets(QComboBox* box, const models::UnitChoice& choice);

}  // namespace quor::gui
