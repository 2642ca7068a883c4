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
    std::string database_file;                            ///< title of the open database
    std::vector<std::filesystem::path> database_folders;  ///< where databases were, once
    datafiles::Synonyms synonyms;
    std::filesystem::path synonym_file;  ///< that the synonyms were read from
    std::int16_t substance_number = 0;   ///< in the database, from 1; 0 for none
    bool substance_set = false;          ///< there is a substance that can be calculated with
    bool applied_unsaved = false;        ///< it has parameters of a fit that no file holds

    // Fluid and reference state
    models::SubstanceRecord substance;
    models::ModelSelection models;
    models::EosParameters eos_parameters;
    models::JiTorvikParameters ji_torvik;
    bool ji_torvik_given =
        false;  ///< its parameters stand as they are; no program is asked for them
    models::ReferenceState reference;

    // Units
    models::UnitChoice units;     ///< its T of R T is that of the last curve, in `unit_choice`
    double caloric_factor = 1.0;  ///< on kJ/kmol, as a project keeps it
    bool units_changed = false;   ///< by the options, when they were applied last

    // Calculations
    report::CalculationState calculation;
    bool batch_mode = false;
    calculation::Tank tank;
    report::ResultSet results;
    report::Protocol protocol;
    char csv_separator = ';';
    bool decimal_comma = false;

    // Measured data and points
    datafiles::MeasuredData measured;
    bool measured_unsaved = false;  ///< changed since they were loaded or saved
    datafiles::XyData xy;           ///< the XY editor's list
    bool xy_unsaved = false;
    datafiles::XyGraph xy_graph;  ///< that the XY editor draws
    FitSource fit_source = FitSource::xyList;
    std::int16_t fit_column = 1;  ///< of the measured data: 1 p, 2 rhoL, 3 rhoV, 4 hLV, 5 cp

    // Diagrams and surfaces
    const diagrams::Diagram* diagram = nullptr;          ///< chosen last in the menu
    diagrams::StateParameters diagram_at{298.15, 0, 0};  ///< of the last curve
    diagrams::CoordinateDefaults coordinates;
    diagrams::CurveOptions curve_options;
    diagrams::ProcessLine process_line;  ///< with the points of the last polytropic process
    bool new_substance_diagram = true;   ///< no diagram of the substance was opened yet
    std::int16_t surface_kind = 0;       ///< chosen last in the menu
    std::int16_t state_chart = 0;        ///< kind of state chart chosen last
    bool surface_scurve = false;         ///< it shows the S-shaped curves of a cubic equation

    // Files and folders
    std::string folder_measured, folder_diagrams, folder_surfaces, folder_xy, folder_projects;
    std::string last_session_file;
    /// When it was written, as this run knows; none while it was not there.
    std::optional<std::filesystem::file_time_type> last_session_written;
    std::string project_file;
    std::string project_comment;

    // Language, and what is said once
    bool english = true;
    bool tips_hidden = false, tips_requested = false;
    bool diagram_note_pending = true, project_note_pending = true, synonym_note_pending = true;
    bool isoline_note_pending = true;  ///< that p v^n = const is drawn without its program

    CommandStates commands;
};

}  // namespace quor::session
