#include "calculation/start_calculation.h"

#include "common/dialogs.h"
#include "session/declare.h"

namespace Zentrale {

using Declare::session;

namespace {

constexpr std::int16_t kGivenTRho = 1, kLiquid = 2, kGivenTp = 3;
constexpr std::int16_t kGlobalTank = 9, kPartialTank = 10, kPolytropic = 12;
constexpr std::int16_t kTankInput = 33, kDirectInput = 100;
constexpr std::int16_t kBensonVaporisation = 6;
constexpr std::uint8_t kPolytropicKind = 6;

bool asks_for_vle() {
    return dialogs::Ask(
        "Do you intend to describe a VLE?\n\n"
        "Selecting \"Yes\" => the existence of a L-phase is assumed\n\n"
        "and a \"partial calulation\" is carried out",
        "T-p-Vorgabe", dialogs::Icon::Question, false);
}

/// Kinds that need the choice of a global or partial calculation, or a second reference point.
bool needs_preparation(std::int16_t mode) {
    if (IsEquilibrium(mode)) return true;
    if (mode == kGivenTp) return session.AssumedVle;
    return IsVaporisation(mode) && Declare::models.HLVModel == kBensonVaporisation;
}

}  // namespace

Views& views() {
    static Views installed;
    return installed;
}

void StartCalculation() {
    std::int16_t& mode = session.CalcMode;
    const bool direct = !session.BatchMode;
    if (mode == 0) mode = kGivenTRho;
    if (mode == kLiquid && Declare::models.EOSOnlyV) {
        mode = 0;
        dialogs::Tell("possible only by using a  cubic EOS", "Execution not possible");
        return;
    }
    if (direct) {
        session.InputSituation =
            IsTank(mode) ? kTankInput : static_cast<std::int16_t>(mode + kDirectInput);
        if (mode == kPartialTank) {
            session.AssumedVle = false;
            views().openCalcIn();
            return;
        }
    }
    session.AssumedVle = direct && mode == kGivenTp && asks_for_vle();
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

void RunCalculation(std::int16_t CalcMode) {
    session.CalcMode = CalcMode;
    if (CalcMode == kPolytropic) {
        Declare::processLine.Kind = kPolytropicKind;
        Declare::processLine.FromCalculation = true;
    }
    if (IsTank(CalcMode)) session.GlobalCalculation = CalcMode == kGlobalTank;
    StartCalculation();
    if (IsTank(session.CalcMode)) views().closeResultView();
}

void PrepareCalculationMenu() {
    if (session.BatchMode && session.BatchCount == 0)
        dialogs::Tell(
            "This mode of calculation is possible only when \n"
            "batch data (= exper. T-p-rho,..-data) are available.\n\n"
            "Enter batch-data\n"
            "(via file or manual input) => menue \"Data/exper. data...\"",
            "Execution not possible");
    views().closeResultView();
    views().closeParinput();
    views().closeTankView();
}

}  // namespace Zentrale
