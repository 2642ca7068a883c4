#include "session/module2.h"

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "session/commands.h"

namespace quor::session {

using legacy::the_session;
using session::Command;

namespace {

constexpr std::int16_t kHourglass = 11;

std::int16_t pointer = 0;  // code of the pointer now shown

}  // namespace

void reset_everything() {
    // The program's folder with its closing separator, as the five folders are kept.
    const std::string folder = (legacy::the_places.write_folder() / "").string();

    the_session = {};
    the_session.DecimalComma = numbers::decimal_mark() == ',';
    legacy::the_substance = {};
    legacy::the_models = {};
    legacy::the_reference = {};
    legacy::the_eosParameters = {};
    legacy::the_jiTorvik = {};
    legacy::the_BatchData.assign(2, {});
    legacy::the_results = {};
    legacy::the_diagram = nullptr;
    legacy::the_coordinates = {};
    legacy::the_processLine = {};
    legacy::the_database = {};
    legacy::the_xyData = {};
    legacy::the_xyGraph = {};

    reset_session();

    the_session.FolderBatch = the_session.FolderDiagram2D = the_session.FolderDiagram3D = folder;
    the_session.FolderXY = the_session.FolderProject = folder;
    the_session.LastSessionFile = folder + "QuorLastSession.QCF";
    legacy::the_protocol.begin(new_protocol_file_name());

    set_commands(
        {Command::mnuData_SaveProject, Command::toolSave, Command::toolReference, Command::toolTank,
         Command::mnuData_BatchInput, Command::mnuData_BatchEdit, Command::mnuData_EditStoffdaten,
         Command::mnuStoff, Command::mnuModel, Command::needsLPhase},
        false);
    set_commands({Command::mnuData_Status}, true);
}

void reset_session() {
    the_session.BatchMode = false;
    the_session.SubstanceSet = false;
    the_session.CurrentSubstance = 0;
    legacy::the_models.HLVModel = models::VaporisationModel::none;
    legacy::the_reference = {};
    legacy::the_coordinates = {};
    the_session.calculation.method.global = true;
    legacy::the_models.PriorityCEOS = true;
    the_session.NewSubstanceDiagram = true;
    legacy::the_jiTorvik = {};
    set_commands({Command::mnuCalcMain, Command::mnuOptions, Command::mnuFitting, Command::mnu2D,
                  Command::mnu3D, Command::mnuData_SaveProject, Command::toolSave},
                 false);
}

UnitLabels set_units(std::int16_t& UnitMode) {
    const models::SubstanceRecord& fluid = legacy::the_substance;
    UnitLabels u{
        .Factor = 1.0, .TemperatureLabel = "K", .PressureLabel = "kPa", .VolumeLabel = "m^3/kmol"};
    the_session.PressureFactor = the_session.TemperatureFactor = 1.0F;
    if (UnitMode == 1) {
        u.Factor = faults::divide(1.0, static_cast<double>(fluid.M));
        u.VolumeLabel = "m^3/kg  ";
    } else if (UnitMode == 2) {
        if (legacy::the_eosParameters.vcritCalc > 0) {
            u.Factor = 1.0 / legacy::the_eosParameters.vcritCalc;
            u.VolumeLabel = "V(red)";
        } else {
            UnitMode = 0;
        }
        if (fluid.Tcrit > 0) {
            the_session.TemperatureFactor = static_cast<float>(1.0 / fluid.Tcrit);
            u.TemperatureLabel = "T(red)";
        }
        if (fluid.pcrit > 0) {
            // The label of T names p here: the kPa label stays as it is.
            the_session.PressureFactor = static_cast<float>(1.0 / fluid.pcrit);
            u.TemperatureLabel = "p(red)";
        }
    }
    return u;
}

void refresh_units() {
    const UnitLabels u = set_units(the_session.UnitMode);
    the_session.VolumeFactor = u.Factor;
    the_session.TemperatureLabel = u.TemperatureLabel;
    the_session.PressureLabel = u.PressureLabel;
    the_session.VolumeLabel = u.VolumeLabel;
}

double caloric_factor_of(std::int16_t CaloricUnit, double T) {
    switch (CaloricUnit) {
        case 1:
            return 1.0 / constants::R;
        case 2:
            return faults::divide(1.0, constants::R * T);
        case 3:
            return faults::divide(1.0, static_cast<double>(legacy::the_substance.M));
        default:
            return 1.0;
    }
}

void begin_busy() {
    ++the_session.BusyDepth;
    if (the_session.BusyDepth != 1) return;
    the_session.SavedPointer = pointer;
    if (pointer != kHourglass) {
        pointer = kHourglass;
        dialogs::current().pointer(true);
    }
}

void end_busy() {
    --the_session.BusyDepth;
    if (the_session.BusyDepth >= 1) return;
    pointer = the_session.SavedPointer;
    dialogs::current().pointer(pointer == kHourglass);
}

}  // namespace quor::session
