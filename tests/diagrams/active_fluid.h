#pragma once

#include <cmath>
#include <string>

#include "diagrams/coordinates.h"
#include "diagrams/curve.h"
#include "diagrams/curve_frame.h"
#include "diagrams/diagram_request.h"
#include "diagrams/drawn.h"
#include "diagrams/sheet_draw.h"
#include "models/caloric.h"
#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/state_solver.h"
#include "models/vapour_pressure.h"
#include "support/fluids.h"
#include "support/session_test.h"

using namespace quor;

/// Equal to the digits of a 32-bit float.
inline bool Close(double a, double b) {
    return std::fabs(a - b) <= 1e-6 * std::fabs(b) + 1e-9;
}

/// Fixture with a substance of data/substances.csv and models of one's choice, whose parts a test
/// may change before it draws.
class ActiveFluid : public SessionTest {
  protected:
    static constexpr std::int16_t kVanDerWaals = 2, kBerthelot = 3, kRedlichKwong = 4, kSoave = 5,
                                  kPengRobinson = 6, kVirial = 15, kPitzerCurl = 16;

    /// Makes a substance with an EOS, the Wagner equation and the first cp form it has active. The
    /// limits of the diagrams follow.
    void activate(const std::string& name, int code = kPengRobinson);

    /// The same with a V-only equation.
    void activate_vapour_only(const std::string& name, int code = kVirial) { activate(name, code); }

    /// Units as the options set them: caloric unit and system.
    void set_units(int caloric, int system);

    models::Fluid fluid() const { return {substance, selection, eosConstants, jt}; }
    diagrams::Basis basis() const {
        return {fluid(), reference, models::make_units(units, fluid()), {}};
    }
    diagrams::Pen pen() const { return {basis(), options, limits}; }

    // What the models say of a state.
    Result<models::StateTP, models::NoState> solve(double T, double p) const {
        return models::solve_state_tp(fluid(), T, p);
    }
    std::optional<models::StateValues> functions(double T, double p, double v) const;
    double pressure(double T, double v) const;

    /// Request with the default window of the diagram that shows the code.
    diagrams::DiagramRequest RequestFor(int code) const;
    Drawn Draw(const diagrams::DiagramRequest& request, const diagrams::StateParameters& at) const;
    Drawn Draw(int code, const diagrams::StateParameters& at) const {
        return Draw(RequestFor(code), at);
    }
    /// What is told of a curve.
    diagrams::StatusText TextOf(const Outcome& outcome) const {
        return diagrams::text_of(static_cast<diagrams::CurveStatus>(outcome.status),
                                 outcome.message, fluid());
    }

    models::SubstanceRecord substance;
    models::ModelSelection selection;
    models::EosParameters eosConstants;
    models::JiTorvikParameters jt;
    models::ReferenceState reference;
    models::UnitChoice units;
    diagrams::CurveOptions options;
    diagrams::CoordinateDefaults limits;
    diagrams::ProcessLine process;  ///< or range of two functions
    diagrams::Branch branch = diagrams::Branch::stable;
    double vapour_fraction = 1;  ///< of the vapour
};
