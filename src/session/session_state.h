#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "datafiles/database.h"
#include "datafiles/measured_data.h"
#include "datafiles/synonyms.h"
#include "datafiles/xy_file.h"
#include "datafiles/xy_points.h"
#include "diagrams/coordinate_defaults.h"
#include "diagrams/curve.h"
#include "diagrams/diagram.h"
#include "diagrams/process.h"
#include "models/eos_records.h"
#include "models/model_selection.h"
#include "models/reference_record.h"
#include "models/substance_record.h"
#include "models/units.h"
#include "report/calculation_state.h"
#include "report/protocol.h"
#include "report/result.h"
#include "session/commands.h"

namespace quor::session {

/// Where the points of the next fit come from.
enum class FitSource { xyList, measuredData };

/// What is open and chosen, as a value.
struct SessionState {
    // Database and substance
    datafiles::Database database;
    std::string databaseFile;                            ///< title of the open database
    std::vector<std::filesystem::path> databaseFolders;  ///< where databases were, once
    datafiles::Synonyms synonyms;
    std::filesystem::path synonymFile;  ///< that the synonyms were read from
    std::int16_t substanceNumber = 0;   ///< in the database, from 1; 0 for none
    bool substanceSet = false;          ///< there is a substance that can be calculated with

    // Fluid and reference state
    models::SubstanceRecord substance;
    models::ModelSelection models;
    models::EOSParameters eosParameters;
    models::JiTorvikParameters jiTorvik;
    bool jiTorvikGiven = false;  ///< its parameters stand as they are; no program is asked for them
    models::ReferenceState reference;

    // Units
    models::UnitSystem unitSystem = models::UnitSystem::molar;
    models::CaloricUnit caloricUnit = models::CaloricUnit::molar;
    double caloricFactor = 1.0;  ///< on kJ/kmol, as a project keeps it
    bool unitsChanged = false;   ///< by the options, when they were applied last

    // Calculations
    report::CalculationState calculation;
    bool batchMode = false;
    calculation::Tank tank;
    report::ResultSet results;
    report::Protocol protocol;
    char csvSeparator = ';';
    bool decimalComma = false;

    // Measured data and points
    datafiles::MeasuredData measured;
    datafiles::XyData xy;        ///< the XY editor's list
    datafiles::XYGraph xyGraph;  ///< that the XY editor draws
    FitSource fitSource = FitSource::xyList;
    std::int16_t fitColumn = 1;  ///< of the measured data: 1 p, 2 rhoL, 3 rhoV, 4 hLV, 5 cp

    // Diagrams and surfaces
    const diagrams::Diagram* diagram = nullptr;         ///< chosen last in the menu
    diagrams::StateParameters diagramAt{298.15, 0, 0};  ///< of the last curve
    diagrams::CoordinateDefaults coordinates;
    diagrams::CurveOptions curveOptions;
    diagrams::ProcessLine processLine;  ///< with the points of the last polytropic process
    bool newSubstanceDiagram = true;    ///< no diagram of the substance was opened yet
    std::int16_t surfaceKind = 0;       ///< chosen last in the menu
    bool surfaceSCurve = false;         ///< it shows the S-shaped curves of a cubic equation

    // Files and folders
    std::string folderMeasured, folderDiagrams, folderSurfaces, folderXy, folderProjects;
    std::string lastSessionFile;
    /// When it was written, as this run knows; none while it was not there.
    std::optional<std::filesystem::file_time_type> lastSessionWritten;
    std::string projectFile;
    std::string projectComment;

    // Language, and what is said once
    bool english = true;
    bool tipsHidden = false, tipsRequested = false;
    bool diagramNotePending = true, projectNotePending = true, synonymNotePending = true;

    CommandStates commands;
};

}  // namespace quor::session
