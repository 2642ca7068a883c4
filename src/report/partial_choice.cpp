#include "report/partial_choice.h"

#include "common/constants.h"
#include "common/numbers.h"
#include "common/text.h"
#include "models/density.h"
#include "models/model_tables.h"
#include "models/reference_state.h"
#include "models/state_solver.h"

namespace quor::report {

using calculation::Task;
using constants::kPresent;

namespace {

constexpr auto kSecondPoint = "A 2nd reference point is needed";

constexpr auto kVleText =
    "Assumption: The specificated values exactly describe the phase equlibrium.\n"
    "In this case choose the mode 'partial calculation': By means of EOS the\n"
    "V-density is calculated, by means of BENSON's method the L-density.\n";

constexpr auto kCubicText =
    "The selected EOS enables the calculation of both equilibrium phases L and V "
    " (\"global calculation\"). Its application can be restricted to V-phase "
    "(\"partial calculation\"); in this case the L-density is calculated by using  "
    " BENSON's method or by database equation rho(T), p(LV) or T(LV) resp. by means of a vapour "
    "pressure equation.";

constexpr auto kEquationText =
    "Calculation of the equilibrium V - L by using the actual vapour press. equation\n"
    "(The EOS was deactivated in the window 'Models')";

constexpr auto kVapourOnlyVleText =
    "Assumption: The specificated values exactly describe the phase equilibrium L-V.\n"
    "The V-density is calculated by means of the EOS, the L-density  by using BENSON's method.\n";

constexpr auto kVapourOnlyText =
    "The selected EOS can only be used for the calculation of the V-phase.\n"
    "The L-density is calculated by using BENSON's method, "
    " p(LV) or T(LV) by means of the actual vapour pressure equation (\"Partial calculation\")";

constexpr auto kVaporisationText =
    "The calculation of the L-density (or the molar L-volume, resp.) is done "
    "using BENSON's method. In this case a second reference point (additional to the critical"
    " point) is used.\n";

/// Where the choice is opened from decides what there is to choose.
enum class Situation { Vaporisation, CubicVle, Cubic, EquationOnly, VapourOnlyVle, VapourOnly };

Situation situation_of(const models::ModelSelection& chosen, Task task, bool assumed_vle) {
    const bool vle = task == Task::state && assumed_vle;
    if (is_vaporisation(task) && chosen.vaporisation == models::VaporisationModel::benson)
        return Situation::Vaporisation;
    if (chosen.vapour_only) return vle ? Situation::VapourOnlyVle : Situation::VapourOnly;
    if (vle) return Situation::CubicVle;
    return chosen.eos_has_priority ? Situation::Cubic : Situation::EquationOnly;
}

std::string text_of(Situation situation) {
    switch (situation) {
        case Situation::Vaporisation:
            return std::string(kVaporisationText) + kSecondPoint;
        case Situation::CubicVle:
            return std::string(kVleText) + kSecondPoint;
        case Situation::Cubic:
            return kCubicText;
        case Situation::EquationOnly:
            return kEquationText;
        case Situation::VapourOnlyVle:
            return std::string(kVapourOnlyVleText) + kSecondPoint;
        default:
            return kVapourOnlyText;
    }
}

bool has_database_density(const models::SubstanceRecord& s) {
    return static_cast<double>(s.rhoL_T_low) > kPresent &&
           static_cast<double>(s.rhoL_T_high) > kPresent;
}

}  // namespace

PartialChoice::PartialChoice(models::Fluid fluid, Task task, const calculation::Method& present)
    : method(present), fluid_(std::move(fluid)) {
    const Situation situation = situation_of(fluid_.models(), task, present.assumed_vle);
    title = "Choose \"Global-/Partial Calculation\" for Phase Equilibrium V-L";
    method.reference = {};
    method.liquid_by_benson = true;
    choose_reference(Reference::proposed);
    situation_text = text_of(situation);
    global_enabled = task != Task::partialTank;
    switch (situation) {
        case Situation::Cubic:
            choose_global(task != Task::partialTank);
            break;
        case Situation::EquationOnly:
            method.global = task != Task::partialTank;
            choices_visible = cancel_enabled = false;
            title = "Situation of Calculation";
            break;
        case Situation::Vaporisation:
            mode_frame_visible = false;
            reference_frame_visible = true;
            break;
        default:
            choose_global(false);
            break;
    }
}

void PartialChoice::show_global() {
    global_index = 0;
    density_frame_visible = reference_frame_visible = false;
    density_range =
        "Global Calculation: L and V density and p(LV) or T(LV) resp. are calculated using the "
        "cubic EOS. ";
}

void PartialChoice::show_partial() {
    const models::SubstanceRecord& s = fluid_.substance();
    global_index = 1;
    density_frame_visible = true;
    reference_frame_visible = method.liquid_by_benson;
    database_enabled = has_database_density(s);
    database_range = database_enabled ? "valid in the range T/K =" + std::to_string(s.rhoL_T_low) +
                                            "..." + std::to_string(s.rhoL_T_high)
                                      : "(no database function available)";
    density_range =
        std::string("Partial calculation: L-density by means of ") +
        (method.liquid_by_benson ? "BENSON's method (Mathias/Cailletet),  "
                                 : " database equation rho_L = F(T), ") +
        "V density calc. using EOS. For the calculation of p(LV) or T(LV) resp. the cubic EOS is "
        "used.";
}

bool PartialChoice::choose_global(bool global) {
    const bool refused = global && fluid_.models().vapour_only;
    method.global = global && !refused;
    if (method.global) {
        show_global();
    } else {
        show_partial();
    }
    return !refused;
}

void PartialChoice::choose_density(bool benson) {
    method.liquid_by_benson = benson;
    density_index = benson ? 0 : 1;
    reference_frame_visible = benson;
    density_range =
        benson ? "The L-density is calculated by means of BENSON's method."
               : "The L-density is calculated by means of the database equation rho_L = F(T).";
}

/// Benson's own estimate at the normal boiling point. Its pressure is kept as 101.335 kPa, which
/// the text does not show.
void PartialChoice::take_approximation() {
    constexpr double kPressure = 101.3;
    constexpr float kStoredPressure = 101.335F;
    const models::SubstanceRecord& s = fluid_.substance();
    models::BensonPoint& point = method.reference;
    point = {};
    if (!(static_cast<double>(s.Tboil) > kPresent)) {
        proposal_text = "No normal boiling point available";
        return;
    }
    const double rhoL = models::benson_approximation(kPressure, s.pcrit, s.rhocrit).value_or(0);
    const auto state = models::solve_state_tp(fluid_, static_cast<double>(s.Tboil),
                                              static_cast<double>(kStoredPressure));
    const double rhoV = state ? state->rhoV.value_or(0) : 0.0;
    point = {s.Tboil, kStoredPressure, static_cast<float>(rhoL), static_cast<float>(rhoV)};
    proposal_text =
        "Reference point calculated by using BENSON's formula for rho_L:\n"
        " T(ref)/K           = " +
        numbers::format_point(static_cast<double>(point.T), "####.#") +
        " (normal boiling point)\n"
        " p(LV)(ref)/kPa     = 101.325  (normal pressure)\n"
        " rho(L)(ref)/kg/m^3 = " +
        numbers::format_point(rhoL, "####.#") +
        " (BENSON's approximation)\n"
        " rho(V)(ref)/kg/m^3 = " +
        numbers::format_point(rhoV, "##.###") + " (" +
        text::trim(models::eos_name(fluid_.models().eos)) + ")";
}

void PartialChoice::take_proposal() {
    const models::BensonProposal proposal = models::propose_benson_reference(fluid_);
    method.reference = proposal.point;
    proposal_text =
        "Proposal for the reference point according to situation:\n" +
        (proposal.text.empty() ? "No data available: choose the manual input" : proposal.text);
}

void PartialChoice::choose_reference(Reference which) {
    reference_index = static_cast<int>(which);
    input_enabled = which == Reference::typed;
    if (which == Reference::approximation) take_approximation();
    if (which == Reference::proposed) take_proposal();
}

}  // namespace quor::report
