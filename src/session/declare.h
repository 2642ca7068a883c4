#pragma once

#include "session/batch_records.h"
#include "session/diagram_records.h"
#include "session/eos_records.h"
#include "session/model_selection.h"
#include "session/reference_state.h"
#include "session/session_record.h"
#include "session/substance_record.h"

/// The process-level records: one session, one substance, one choice of models. Nothing here
/// computes; `Module2::ResetEverything` gives every record its default.
namespace Declare {

inline Session session;
inline SubstanceRecord substance;
inline ModelSelection models;
inline ReferenceState reference;

inline EOSParameters eosParameters;
inline JiTorvikParameters jiTorvik;
inline EOSState eosState;               ///< at the last T evaluated
inline std::array<double, 3> vRoots{};  ///< volumes of the last cubic solve, ascending, m^3/kmol
inline std::int16_t PhaseRegion = 0;    ///< region of the last state, see `Calc::SolveStateTP`
inline double Bvirial = 0;              ///< last second virial coefficient, m^3/kmol

inline std::vector<BatchDataSet> BatchData(2);      ///< element 0 is the direct input
inline std::vector<ResultRecord> ResultRecords(3);  ///< one per data set
inline ResultRecord currentResult;
inline LastState lastState;
inline FuArray Fu{};
inline std::vector<std::array<float, 42>> protocol;  ///< one entry per written calculation

inline DiagramRequest diagram;
inline TieLine tieLine;  ///< of the last curve that crossed or asked for one
inline CoordinateDefaults coordinates;
inline ProcessLineRecord processLine;
inline std::vector<PolytropicPoint> polytropicPoints;  ///< of the last polytropic calculation
inline Grid3D grid3D;

inline SubstanceLists substances;
inline std::vector<FitPoint> xyPoints;  ///< the XY editor's list, from element 0
inline std::string xyComment;

}  // namespace Declare
