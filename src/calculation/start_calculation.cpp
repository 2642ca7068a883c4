#include "calculation/start_calculation.h"

#include "common/dialogs.h"
#include "legacy/declare.h"

namespace quor::calculation {

using legacy::the_session;

namespace {

constexpr std::int16_t kGivenTRho = 1, kLiquid = 2, kGivenTp = 3;
constexpr std::int16_t kGlobalTank = 9, kPartialTank = 10, kPolytropic = 12;
constexpr std::int16_t kTankInput = 33, kDirectInput = 100;

bool asks_for_vle() {
    return dialogs::ask(
        "Do you intend to describe a VLE?\n\n"
        "Selecting \"Yes\" => the existence of a L-phase is assumed\n\n"
        "and a \"partial calulation\" is carried out",
        "T-p-Vorgabe", dialogs::Icon::Question, false);
}

/// Kinds that need the choice of a global or partial calculation, or a second reference point.
bool needs_preparation(std::int16_t mode) {
    if (is_equilibrium(mode)) return true;
    if (mode == kGivenTp) return the_session.AssumedVle;
    return is_vaporisation(mode) &&
           legacy::the_models.HLVModel == models::VaporisationModel::benson;
}

}  // namespace

Views& views() {
    static Views installed;
    return installed;
}

void StartCalculation() {
    std::int16_t& mode = the_session.CalcMode;
    const bool direct = !the_session.BatchMode;
    if (mode == 0) mode = kGivenTRho;
    if (mode == kLiquid && legacy::the_models.EOSOnlyV) {
        mode = 0;
        dialogs::tell("possible only by using a  cubic EOS", "Execution not possible");
        return;
    }
    if (direct) {
        the_session.InputSituation =
            is_tank(mode) ? kTankInput : static_cast<std::int16_t>(mode + kDirectInput);
        if (mode == kPartialTank) {
            the_session.AssumedVle = false;
            views().openCalcIn();
            return;
        }
    }
    the_session.AssumedVle = direct && mode == kGivenTp && asks_for_vle();
    if (needs_preparation(mode)) {
        views().openCalcIn();
        return;
    }
    if (mode == kPolytropic) {
        views().openProcessView();
        return;
    }
    views().openResultView();
    if (direct) views().openParinput();
}

void run_calculation(std::int16_t CalcMode) {
    the_session.CalcMode = CalcMode;
    if (CalcMode == kPolytropic) {
        legacy::the_processLine.kind = diagrams::ProcessKind::polytropic;
        legacy::the_processLine.fromCalculation = true;
    }
    if (is_tank(CalcMode)) the_session.GlobalCalculation = CalcMode == kGlobalTank;
    StartCalculation();
    if (is_tank(the_session.CalcMode)) views().closeResultView();
}

void prepare_calculation_menu() {
    if (the_session.BatchMode && the_session.BatchCount == 0)
        dialogs::tell(
            "This mode of calculation is possible only when \n"
            "batch data (= exper. T-p-rho,..-data) are available.\n\n"
            "Enter batch-data\n"
            "(via file or manual input) => menue \"Data/exper. data...\"",
            "Execution not possible");
    views().closeResultView();
    views().closeParinput();
    views().closeTankView();
}

}  // namespace quor::calculation
