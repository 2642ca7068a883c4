#pragma once

#include "calculation/result_records.h"
#include "datafiles/fit_point.h"
#include "datafiles/substance_lists.h"
#include "diagrams/diagram_records.h"
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

inline std::vector<calculation::BatchDataSet> the_BatchData(2);  ///< from element 1 on
inline report::ResultSet the_results;
inline report::Protocol the_protocol;
inline session::CalculationViews the_calculationViews;  ///< those of the program

inline diagrams::DiagramRequest the_diagram;
inline diagrams::TieLine the_tieLine;  ///< of the last curve that crossed or asked for one
inline diagrams::CoordinateDefaults the_coordinates;
inline diagrams::ProcessLineRecord the_processLine;
inline std::vector<diagrams::PolytropicPoint>
    the_polytropicPoints;  ///< of the last polytropic calculation
inline diagrams::Grid3D the_grid3D;

inline datafiles::SubstanceLists the_substances;
inline std::vector<datafiles::FitPoint> the_xyPoints;  ///< the XY editor's list, from element 0
inline std::string the_xyComment;

}  // namespace quor::legacy
