#pragma once

#include "calculation/result_records.h"
#include "common/paths.h"
#include "datafiles/database.h"
#include "datafiles/synonyms.h"
#include "datafiles/xy_file.h"
#include "datafiles/xy_points.h"
#include "diagrams/coordinate_defaults.h"
#include "diagrams/diagram.h"
#include "diagrams/process.h"
#include "legacy/session_record.h"
#include "models/eos_records.h"
#include "models/model_selection.h"
#include "models/reference_record.h"
#include "models/substance_record.h"
#include "report/protocol.h"
#include "session/calculation_views.h"

/// The process-level records: one session, one substance, one choice of models. Nothing here
/// computes; `session::reset_everything` gives every record its default.
namespace quor::legacy {

inline Places the_places;  ///< set at the start of the program
inline Session the_session;
inline models::SubstanceRecord the_substance;
inline models::ModelSelection the_models;
inline models::ReferenceState the_reference;

inline models::EOSParameters the_eosParameters;
inline models::JiTorvikParameters the_jiTorvik;

inline std::vector<calculation::BatchDataSet> the_BatchData(2);  ///< from element 1 on
inline report::ResultSet the_results;
inline report::Protocol the_protocol;
inline session::CalculationViews the_calculationViews;  ///< those of the program

inline const diagrams::Diagram* the_diagram = nullptr;  ///< chosen last in the menu
inline diagrams::CoordinateDefaults the_coordinates;
inline diagrams::ProcessLine the_processLine;  ///< with the points of the last polytropic process

inline datafiles::Database the_database;
inline std::vector<std::filesystem::path> the_databaseFolders;  ///< where databases were, once
inline datafiles::Synonyms the_synonyms;
inline std::filesystem::path the_synonymFile;  ///< that the synonyms were read from
inline datafiles::XyData the_xyData;           ///< the XY editor's list
inline std::vector<datafiles::FitPoint>& the_xyPoints = the_xyData.points;
inline std::string& the_xyComment = the_xyData.comment;
inline datafiles::XYGraph the_xyGraph;  ///< sent last; the action "graph_xy" shows it

}  // namespace quor::legacy
