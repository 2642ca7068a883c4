#include "session/module2.h"

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "session/commands.h"

namespace Module2 {

using Declare::Command;
using Declare::session;

namespace {

constexpr std::int16_t kHourglass = 11;

std::int16_t pointer = 0;  // code of the pointer now shown

}  // namespace

void ResetEverything() {
    // The program's folder with its closing separator, as the five folders are kept.
    const std::string folder = (WriteFolder() / "").string();

    session = {};
    session.DecimalComma = numbers::decimal_mark() == ',';
    Declare::substance = {};
    Declare::models = {};
    Declare::reference = {};
    Declare::eosParameters = {};
    Declare::jiTorvik = {};
    Declare::eosState = {};
    Declare::vRoots = {};
    Declare::PhaseRegion = 0;
    Declare::Bvirial = 0;
    Declare::BatchData.assign(2, {});
    Declare::ResultRecords.assign(3, {});
    Declare::currentResult = {};
    Declare::lastState = {};
    Declare::Fu = {};
    Declare::protocol.clear();
    Declare::diagram = {};
    Declare::tieLine = {};
    Declare::coordinates = {};
    Declare::processLine = {};
    Declare::polytropicPoints.clear();
    Declare::grid3D = {};
    Declare::substances = {};
    Declare::xyPoints.clear();
    Declare::xyComment.clear();

    ResetSession();

    session.FolderBatch = session.FolderDiagram2D = session.FolderDiagram3D = folder;
    session.FolderXY = session.FolderProject = folder;
    session.LastSessionFile = folder + "QuorLastSession.QCF";
    session.ProtocolFile = NewProtocolFileName();

    SetCommands(
        {Command::mnuData_SaveProject, Command::toolSave, Command::toolReference, Command::toolTank,
         Command::mnuData_BatchInput, Command::mnuData_BatchEdit, Command::mnuData_EditStoffdaten,
         Command::mnuStoff, Command::mnuModel, Command::needsLPhase},
        false);
    SetCommands({Command::mnuData_Status}, true);
}

void ResetSession() {
    session.BatchMode = false;
    session.SubstanceSet = false;
    session.CurrentSubstance = 0;
    Declare::models.HLVModel = 0;
    Declare::reference = {};
    Declare::coordinates = {};
    session.GlobalCalculation = true;
    Declare::models.PriorityCEOS = true;
    session.NewSubstanceDiagram = true;
    Declare::jiTorvik = {};
    SetCommands({Command::mnuCalcMain, Command::mnuOptions, Command::mnuFitting, Command::mnu2D,
                 Command::mnu3D, Command::mnuData_SaveProject, Command::toolSave},
                false);
}

UnitLabels SetUnits(std::int16_t& UnitMode) {
    const Declare::SubstanceRecord& fluid = Declare::substance;
    UnitLabels u{
        .Factor = 1.0, .TemperatureLabel = "K", .PressureLabel = "kPa", .VolumeLabel = "m^3/kmol"};
    session.PressureFactor = session.TemperatureFactor = 1.0F;
    if (UnitMode == 1) {
        u.Factor = faults::divide(1.0, static_cast<double>(fluid.M));
        u.VolumeLabel = "m^3/kg  ";
    } else if (UnitMode == 2) {
        if (Declare::eosParameters.vcritCalc > 0) {
            u.Factor = 1.0 / Declare::eosParameters.vcritCalc;
            u.VolumeLabel = "V(red)";
        } else {
            UnitMode = 0;
        }
        if (fluid.Tcrit > 0) {
            session.TemperatureFactor = static_cast<float>(1.0 / fluid.Tcrit);
            u.TemperatureLabel = "T(red)";
        }
        if (fluid.pcrit > 0) {
            // The label of T names p here: the kPa label stays as it is.
            session.PressureFactor = static_cast<float>(1.0 / fluid.pcrit);
            u.TemperatureLabel = "p(red)";
        }
    }
    return u;
}

void RefreshUnits() {
    const UnitLabels u = SetUnits(session.UnitMode);
    session.VolumeFactor = u.Factor;
    session.TemperatureLabel = u.TemperatureLabel;
    session.PressureLabel = u.PressureLabel;
    session.VolumeLabel = u.VolumeLabel;
}

double CaloricFactorOf(std::int16_t CaloricUnit, double T) {
    switch (CaloricUnit) {
        case 1:
            return 1.0 / constants::R;
        case 2:
            return faults::divide(1.0, constants::R * T);
        case 3:
            return faults::divide(1.0, static_cast<double>(Declare::substance.M));
        default:
            return 1.0;
    }
}

void BeginBusy() {
    ++session.BusyDepth;
    if (session.BusyDepth != 1) return;
    session.SavedPointer = pointer;
    if (pointer != kHourglass) {
        pointer = kHourglass;
        dialogs::current().pointer(true);
    }
}

void EndBusy() {
    --session.BusyDepth;
    if (session.BusyDepth >= 1) return;
    pointer = session.SavedPointer;
    dialogs::current().pointer(pointer == kHourglass);
}

}  // namespace Module2
