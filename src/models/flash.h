#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "common/result.h"
#include "models/caloric.h"
#include "models/fluid.h"
#include "models/reference_record.h"

/// The stable state of a fluid from any two of T, p, v, h, s, u and the vapour fraction x.
namespace quor::models {

enum class Property : std::uint8_t { T, p, v, h, s, u, x };

/// A value that the state has to have: K, kPa, m^3/kmol, kJ/kmol, kJ/(kmol K), and for x the amount
/// of vapour over that of both phases, 0 to 1.
struct GivenValue {
    Property property = Property::T;
    double value = 0;
};

/// Which of several answers: they are told from the denser to the lighter one. T and p of a
/// saturated state have two, the liquid and the vapour.
enum class FlashChoice : std::uint8_t { first, second, third };

enum class FlashPhase : std::uint8_t { liquid, vapour, supercritical, twoPhases };

/// Words for a phase: "two phases".
std::string_view name_of(FlashPhase phase);

/// Why there is no state.
enum class NoFlashReason : std::uint8_t {
    notANumber,       ///< a value is not finite
    sameProperty,     ///< the same property twice
    notPositive,      ///< T, p or v is not above 0
    outsideFraction,  ///< x outside 0 to 1
    noEquation,       ///< no equation of state was chosen, or its constants are no numbers
    noHeatCapacity,   ///< h, s or u without cp of the ideal gas there
    noLiquid,         ///< x of an equation for the V phase alone
    aboveCritical,    ///< x above the critical point
    noSaturation,     ///< the equation has no equilibrium of two phases there
    belowCovolume,    ///< v is not above the smallest volume of the equation
    onlyOfT,          ///< of the ideal gas: h and u say the same as T
    noState,          ///< the equation has no state there
    unstable,         ///< the equation has one state there, whose cv is not positive
    noSolution,       ///< no state between the ends of the search has both values
    noSuchAnswer      ///< there is a state, but not as many as the choice asks for
};

struct NoFlash {
    NoFlashReason reason = NoFlashReason::noSolution;
    double T_low = 0, T_high = 0;  ///< ends of the search in K, as far as there was one
};

/// A sentence for the user.
std::string words_of(const NoFlash& failure);

/// h, u, s, g, a of the whole: kJ/kmol, s in kJ/(kmol K).
struct FlashValues {
    double h = 0, u = 0, s = 0, g = 0, a = 0;
};

/// One of two phases in equilibrium.
struct FlashPart {
    double v = 0;                       ///< m^3/kmol
    std::optional<StateValues> values;  ///< missing without cp
};

struct FlashState {
    double T = 0, p = 0, v = 0;  ///< K, kPa, m^3/kmol
    FlashPhase phase = FlashPhase::vapour;
    std::optional<FlashValues> values;  ///< of the whole; missing without cp
    std::optional<StateValues> single;  ///< with cp, cv, w: of a single phase, where there is cp
    std::optional<double> x;            ///< vapour fraction of two phases
    std::optional<FlashPart> L, V;      ///< the two phases
    int answers = 1;                    ///< states that have both values
    int answer = 0;                     ///< which of them this is, from 0
    bool below_triple = false;          ///< T is below the triple point of the substance
    std::int16_t cp_deviation = 0;      ///< K outside the range of cp, negative below it

    bool other_answer() const { return answers > 1; }
};

/// Ends of the searches for T, K. T that is given may lie outside.
struct FlashRange {
    double low = 0, high = 0;
};

/// Finds states of one fluid. What it knows of the two-phase region is made once, so that many
/// states cost little; threads may share it.
///
/// A search for T reaches from nine tenths of the triple point (or of 0.45 Tcrit, if that is less)
/// up to where the equation loses its attraction or to the larger of 10 Tcrit and 3000 K; for h, s,
/// u it ends sooner, where cp of the ideal gas is no longer above R.
class Flash {
  public:
    /// `reference` must be settled, and resolved where it is a named one. With surroundings the
    /// states have exergies.
    Flash(const Fluid& fluid, const ReferenceState& reference,
          const std::optional<Surroundings>& surroundings = {});

    /// The stable state with both values, in any order. The returned values equal the given ones
    /// to 1E-9, of h, s, u relative to no less than R T or R.
    Result<FlashState, NoFlash> operator()(GivenValue a, GivenValue b,
                                           FlashChoice choice = FlashChoice::first) const;

    const Fluid& fluid() const { return fluid_; }
    /// Where T is searched for, without and with h, s, u; empty (0) without cp.
    const FlashRange& range() const { return range_; }
    const FlashRange& caloric_range() const { return caloric_; }

  private:
    class States;
    class Answers;
    class Search;

    /// A state of the two-phase region.
    struct Saturated {
        double T = 0, p = 0, vL = 0, vV = 0;
    };
    /// h, s, u of a phase.
    struct Caloric {
        double h = 0, s = 0, u = 0;
    };
    struct Node {
        Saturated at;
        double log_p = 0;
        Caloric L, V;  ///< NaN without cp
    };
    static constexpr std::size_t kNodes = 49;

    void find_ranges();
    void find_dome();
    bool equation_holds(double T) const;
    bool has_dome() const { return low_node_ < kNodes; }

    Fluid fluid_;
    ReferenceState reference_;
    std::optional<Surroundings> surroundings_;
    FlashRange range_, caloric_;
    /// From the lowest temperature to the critical point, denser towards it; those below the first
    /// that the equation has are not used.
    std::array<Node, kNodes> dome_{};
    std::size_t low_node_ = kNodes;
    double dome_low_ = 0;  ///< temperature of node 0
    bool simple_ = false;  ///< a cubic equation with constant b, c, d
};

/// One state, see `Flash`. Who needs many of a fluid makes a `Flash`.
Result<FlashState, NoFlash> flash(const Fluid& fluid, const ReferenceState& reference, GivenValue a,
                                  GivenValue b, FlashChoice choice = FlashChoice::first);

}  // namespace quor::models
