#include "models/units.h"

#include "common/constants.h"
#include "common/faults.h"

namespace quor::models {

namespace {

void set_specific(Units& u, const SubstanceRecord& substance) {
    u.v = faults::divide(1.0, static_cast<double>(substance.M));
    u.v_label = "m^3/kg  ";
}

void set_reduced(Units& u, const Fluid& fluid) {
    const SubstanceRecord& s = fluid.substance();
    if (fluid.eos().vcrit_calculated > 0) {
        u.v = 1.0 / fluid.eos().vcrit_calculated;
        u.v_label = "V(red)";
    } else {
        u.choice.system = UnitSystem::molar;
    }
    if (s.Tcrit > 0) {
        u.T = static_cast<float>(1.0 / s.Tcrit);
        u.T_label = "T(red)";
    }
    if (s.pcrit > 0) {
        u.p = static_cast<float>(1.0 / s.pcrit);
        u.p_label = "p(red)";
    }
}

}  // namespace

double caloric_factor(CaloricUnit unit, double T_of_RT, const SubstanceRecord& substance) {
    switch (unit) {
        case CaloricUnit::kelvin:
            return 1.0 / constants::R;
        case CaloricUnit::RT:
            return faults::divide(1.0, constants::R * T_of_RT);
        case CaloricUnit::specific:
            return faults::divide(1.0, static_cast<double>(substance.M));
        case CaloricUnit::molar:
            break;
    }
    return 1.0;
}

Units make_units(const UnitChoice& choice, const Fluid& fluid) {
    Units u;
    u.choice = choice;
    u.caloric = caloric_factor(choice.caloric, choice.T_of_RT, fluid.substance());
    if (choice.system == UnitSystem::specific) set_specific(u, fluid.substance());
    if (choice.system == UnitSystem::reduced) set_reduced(u, fluid);
    return u;
}

}  // namespace quor::models
