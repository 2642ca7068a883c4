#pragma once

#include "calculation/result_records.h"
#include "datafiles/fit_point.h"
#include "datafiles/substance_lists.h"
#include "diagrams/coordinate_defaults.h"
#include "diagrams/diagram.h"
#include "diagrams/process.h"
#include "legacy/session_record.h"
#include "models/eos_records.h"
#include "models/model_selection.h"
#include "models/reference_record.h"
#include "models/substance_record.h"

/// The process-level records: one session, one substance, one choice of models. Nothing here
/// computes; `session::reset_everything` gives every record its default.
namespace quor::legacy {

inline Session the_session;
inline models::SubstanceRecord the_substance;
inline models::ModelSelection the_models;
inline models::ReferenceState the_reference;

inline models::EOSParameters the_eosParameters;
inline models::JiTorvikParameters the_jiTorvik;
inline models::EOSState the_eosState;  ///< at the last T evaluated
inline std::array<double, 3>
    the_vRoots{};                         ///< volumes of the last cubic solve, ascending, m^3/kmol
inline std::int16_t the_PhaseRegion = 0;  ///< region of the last state, see `models::SolveStateTP`
inline double the_Bvirial = 0;            ///< last second virial coefficient, m^3/kmol

inline std::vector<calculation::BatchDataSet> the_BatchData(2);  ///< element 0 is the direct input
inline std::vector<calculation::ResultRecord> the_ResultRecords(3);  ///< one per data set
inline calculation::ResultRecord the_currentResult;
inline calculation::LastState the_lastState;
inline calculation::FuArray the_Fu{};
inline std::vector<std::array<float, 42>> the_protocol;  ///< one entry per written calculation

inline const diagrams::Diagram* the_diagram = nullptr;  ///< chosen last in the menu
inline diagrams::CoordinateDefaults the_coordinates;
inline diagrams::ProcessLine the_processLine;  ///< with the points of the last polytropic process

inline datafiles::SubstanceLists the_substances;
inline std::vector<datafiles::FitPoint> the_xyPoints;  ///< the XY editor's list, from element 0
inline std::string the_xyComment;

}  // namespace quor::legacy
