#include "calculation/partial_choice.h"
#include "legacy/wrappers.h"

#include "calculation/calc_modes.h"
#include "calculation/start_calculation.h"
#include "common/constants.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "common/text.h"
#include "models/density.h"
#include "models/model_tables.h"
#include "models/reference_state.h"
#include "models/state_solver.h"

namespace quor::calculation {

using constants::kPresent;
using legacy::the_session;

namespace {

constexpr std::int16_t kGivenTp = 3, kPartialTank = 10;
constexpr std::int16_t kReferenceInput = 4, kTankInput = 33, kDirectInput = 100;
constexpr std::int16_t kBensonVaporisation = 6;
constexpr int kGlobal = 0, kPartial = 1;
constexpr int kBenson = 0;
enum Reference { kProposed, kApproximation, kManual };

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

Situation situation_of_session() {
    const models::ModelSelection& models = legacy::the_models;
    const bool vle = the_session.CalcMode == kGivenTp && the_session.AssumedVle;
    if (is_vaporisation(the_session.CalcMode) &&
        models.HLVModel == models::VaporisationModel::benson)
        return Situation::Vaporisation;
    if (models.EOSOnlyV) return vle ? Situation::VapourOnlyVle : Situation::VapourOnly;
    if (vle) return Situation::CubicVle;
    return models.PriorityCEOS ? Situation::Cubic : Situation::EquationOnly;
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

bool has_database_density() {
    const models::SubstanceRecord& s = legacy::the_substance;
    return static_cast<double>(s.rhoLTLo) > kPresent && static_cast<double>(s.rhoLTHi) > kPresent;
}

void show_global(PartialChoice& choice) {
    choice.globalIndex = kGlobal;
    choice.densityFrameVisible = choice.referenceFrameVisible = false;
    choice.lblRhoLimits =
        "Global Calculation: L and V density and p(LV) or T(LV) resp. are calculated using the "
        "cubic EOS. ";
}

void show_partial(PartialChoice& choice) {
    const models::SubstanceRecord& s = legacy::the_substance;
    choice.globalIndex = kPartial;
    choice.densityFrameVisible = true;
    choice.referenceFrameVisible = the_session.LiquidByBenson;
    choice.databaseEnabled = has_database_density();
    choice.databaseRange = choice.databaseEnabled
                               ? "valid in the range T/K =" + std::to_string(s.rhoLTLo) + "..." +
                                     std::to_string(s.rhoLTHi)
                               : "(no database function available)";
    choice.lblRhoLimits =
        std::string("Partial calculation: L-density by means of ") +
        (the_session.LiquidByBenson ? "BENSON's method (Mathias/Cailletet),  "
                                    : " database equation rho_L = F(T), ") +
        "V density calc. using EOS. For the calculation of p(LV) or T(LV) resp. the cubic EOS is "
        "used.";
}

// ---- The second reference point ---------------------------------------------------------------

/// Benson's own estimate at the normal boiling point. Its pressure is kept as 101.335 kPa, which
/// the text does not show.
void take_approximation(PartialChoice& choice) {
    constexpr double kPressure = 101.3;
    constexpr float kStoredPressure = 101.335F;
    const models::SubstanceRecord& s = legacy::the_substance;
    models::BensonPoint& point = the_session.BensonReference;
    point = {};
    if (!(static_cast<double>(s.Tboil) > kPresent)) {
        choice.RefVorschlag = "No normal boiling point available";
        return;
    }
    const double rhoL = models::benson_approximation(kPressure, s.pcrit, s.rhocrit);
    const models::StateTP state =
        models::SolveStateTP(static_cast<double>(s.Tboil), static_cast<double>(kStoredPressure));
    const double rhoV = state.status == kSuccess ? state.rhoV : 0.0;
    point = {s.Tboil, kStoredPressure, static_cast<float>(rhoL), static_cast<float>(rhoV)};
    choice.RefVorschlag =
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
        text::trim(models::EOSName(legacy::the_models.EOSModel)) + ")";
}

void take_proposal(PartialChoice& choice) {
    const models::BensonProposal proposal = models::propose_benson_reference();
    the_session.BensonReference = proposal.point;
    choice.RefVorschlag =
        "Proposal for the reference point according to situation:\n" +
        (proposal.text.empty() ? "No data available: choose the manual input" : proposal.text);
}

/// Keeps the choice of the session where there is none to make.
void settle_calculation(PartialChoice& choice, Situation situation) {
    switch (situation) {
        case Situation::Cubic:
            choose_global(choice, the_session.CalcMode == kPartialTank ? kPartial : kGlobal);
            break;
        case Situation::EquationOnly:
            the_session.GlobalCalculation = the_session.CalcMode != kPartialTank;
            choice.choicesVisible = choice.cancelEnabled = false;
            choice.title = "Situation of Calculation";
            break;
        case Situation::Vaporisation:
            choice.modeFrameVisible = false;
            choice.referenceFrameVisible = true;
            break;
        default:
            choose_global(choice, kPartial);
            break;
    }
}

}  // namespace

PartialChoice open_partial_choice(bool forDiagram) {
    const Situation situation = situation_of_session();
    PartialChoice choice;
    choice.forDiagram = forDiagram;
    choice.title = "Choose \"Global-/Partial Calculation\" for Phase Equilibrium V-L";
    the_session.BensonReferenceValid = false;
    the_session.InputSituation = kReferenceInput;
    the_session.BensonReference = {};
    the_session.LiquidByBenson = true;
    ChooseReference(choice, kProposed);
    choice.GlobalSit = text_of(situation);
    choice.globalEnabled = the_session.CalcMode != kPartialTank;
    settle_calculation(choice, situation);
    return choice;
}

void choose_global(PartialChoice& choice, int index) {
    if (index == kGlobal && legacy::the_models.EOSOnlyV) {
        dialogs::tell(
            "Global calculation only possible by using a cubic EOS (=> Window \"Models\").",
            "Execution not possible");
        index = kPartial;
    }
    the_session.GlobalCalculation = index == kGlobal;
    if (the_session.GlobalCalculation) {
        show_global(choice);
    } else {
        show_partial(choice);
    }
}

void choose_density(PartialChoice& choice, int index) {
    the_session.LiquidByBenson = index == kBenson;
    choice.densityIndex = index;
    choice.referenceFrameVisible = the_session.LiquidByBenson;
    choice.lblRhoLimits =
        the_session.LiquidByBenson
            ? "The L-density is calculated by means of BENSON's method."
            : "The L-density is calculated by means of the database equation rho_L = F(T).";
}

void ChooseReference(PartialChoice& choice, int index) {
    choice.referenceIndex = index;
    choice.inputEnabled = index == kManual;
    switch (index) {
        case kManual:
            the_session.InputSituation = kReferenceInput;
            break;
        case kApproximation:
            take_approximation(choice);
            break;
        default:
            take_proposal(choice);
            break;
    }
}

bool is_benson_reference_given() {
    const models::BensonPoint& r = the_session.BensonReference;
    return static_cast<double>(r.T) * static_cast<double>(r.p) * static_cast<double>(r.rhoL) *
               static_cast<double>(r.rhoV) >
           kPresent;
}

void confirm_partial_choice(const PartialChoice& choice) {
    the_session.BensonReferenceValid = is_benson_reference_given();
    views().closeParinput();
    if (choice.forDiagram) {
        views().prepareDiagram();
        return;
    }
    const bool tank = the_session.CalcMode == kPartialTank;
    if (!tank) views().openResultView();
    if (the_session.BatchMode) return;
    the_session.InputSituation =
        tank ? kTankInput : static_cast<std::int16_t>(the_session.CalcMode + kDirectInput);
    views().openParinput();
}

}  // namespace quor::calculation
