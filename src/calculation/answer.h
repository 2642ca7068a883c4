#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calculation/task.h"
#include "models/caloric.h"
#include "models/enthalpy_of_vaporisation.h"

namespace quor::calculation {

/// A phase of a state; its volume and density need not be known.
struct Phase {
    std::optional<double> v, rho;  ///< m^3/kmol, kg/m^3
};

/// The phases that exist.
struct Phases {
    std::optional<Phase> liquid, vapour;
    bool both() const { return liquid && vapour; }
};

/// Functions of a phase, in the order of every list.
enum Function : std::size_t { kVolume, kH, kS, kG, kU, kA, kExergyH, kExergyU, kCp, kCv, kSound };
inline constexpr std::size_t kFunctionCount = 11;

/// Functions of one phase in m^3/kmol, kJ/kmol, kJ/(kmol K) and m/s.
struct FunctionValues {
    std::array<double, kFunctionCount> z{};
};

/// Functions of the phases that have a volume and functions.
struct FunctionPair {
    std::optional<FunctionValues> liquid, vapour;
    bool complete = true;  ///< false where a phase has a volume but no functions
};

/// Derivatives and residual functions of one phase, in molar units.
struct PhaseDerivatives {
    models::PhaseTable table;
    /// Expansion (1/v)(dv/dT)p, compressibility -(1/v)(dv/dp)T and tension (1/p)(dp/dT)v.
    std::array<double, 3> mechanical{};
};

/// The pages that were asked for, of the phases that a fresh solution gives.
struct PageValues {
    Phases phases;
    std::optional<PhaseDerivatives> liquid, vapour;
    models::Inflexion inflexion;
    bool has_heat_capacity = false;
    std::optional<FunctionPair> functions;
};

/// Region of T and p, with the code of the solver.
enum class Region : std::int16_t {
    subcritical = 0,
    liquid = 1,         ///< T <= T(cr), p > p(cr)
    supercritical = 2,  ///< T > T(cr), p > p(cr)
    vapour = 3,         ///< T > T(cr), p < p(cr)
    critical = 4
};

/// Content of a tank by phases.
struct TankContent {
    double V = 0, m = 0;               ///< m^3, kg
    double vapour_volume = 0;          ///< volume of the V phase, m^3
    std::optional<double> rhoL, rhoV;  ///< kg/m^3 of the phases that exist
    double y = 0;                      ///< vapour fraction (of mass and of amount)
    /// Share of the volume that the L phase fills, per cent.
    double level() const { return (V - vapour_volume) * 100.0 / V; }
};

/// Range of validity in K; both 0 when nothing is known of it.
struct Range {
    std::int16_t T_low = 0, T_high = 0;
    bool known() const { return T_low != 0 || T_high != 0; }
};

/// A function of T from the database: kg/m^3, kJ/kmol, kJ/(kmol K) or kPa.
struct DatabaseValue {
    double value = 0;
    Range range;
};

/// B of an equation of state, m^3/kmol.
struct VirialValue {
    models::Eos eos = models::Eos::none;
    double B = 0;
};

/// A state of a process; without a volume there is none, without functions no cp form.
struct ProcessState {
    double T = 0, p = 0;      ///< K, kPa
    std::optional<double> v;  ///< m^3/kmol
    std::optional<FunctionValues> functions;
};

/// The enthalpy of vaporisation by the chosen method, beside it the equation of the database.
struct VaporisationValues {
    models::Vaporisation found;
    std::optional<double> database;  ///< kJ/kmol
};

/// The volume roots of a cubic EOS behind a state, for its diagnosis.
struct LastState {
    double T = 0;               ///< K
    double p = 0;               ///< kPa
    std::array<double, 3> v{};  ///< volume roots, m^3/kmol
    bool has_L = false, has_V = false;
    std::int16_t root_count = 0;
    Region region = Region::subcritical;
};

/// Where an equilibrium comes from.
enum class Source { none, cubicEos, vapourPressureEquation, dataSet };

/// Why there is no answer.
enum class Reason {
    none,
    noT,
    noP,
    noRho,
    noLiquidDensity,
    aboveCritical,        ///< T or p beyond the critical value
    belowVirial,          ///< v at or below B: no p
    belowCovolume,        ///< v at or below b
    solver,               ///< a solver has found nothing
    noTemperature,        ///< none at p and rho
    noStandIn,            ///< neither an equation nor a measured value
    noVaporisation,       ///< the method has no result; `explanation` of its values tells
    noDatabaseValue,      ///
    noVapourPressure,     ///< of a partial tank
    noVapourDensity,      ///< of a partial tank
    noTankLiquidDensity,  ///< of a partial tank
    noTank,               ///< V, m and T do not describe one
    tankAboveCritical,    ///< a partial tank at or above T(cr)
    arithmetic            ///< a fault; `fault` says which
};

/// Something to be told beside the numbers.
struct Note {
    enum class Kind {
        belowTriplePoint,
        tankBelowTriplePoint,
        pressureRange,      ///< of the vapour pressure equation
        temperatureRange,   ///< of its inverse
        densityRange,       ///< of the liquid's density
        vaporisationRange,  ///< of the database equation
        databaseRange       ///< of a function of the database
    };
    Kind kind;
    std::int16_t deviation = 0;  ///< K outside the range, negative below it
    Range range = {};
};

/// What a calculation found. Numbers that it has no use for stay 0.
struct Answer {
    Task task = Task::none;
    Reason reason = Reason::none;
    std::string fault;  ///< an arithmetic fault in words
    bool ok() const { return reason == Reason::none; }

    double T = 0, p = 0;  ///< K, kPa; 0 as long as unknown
    Phases phases;
    std::int16_t roots = 0;  ///< volume roots of the EOS, 3 in the two-phase region
    std::optional<Region> region;
    bool same_density = false;  ///< L and V are the same phase
    std::string_view solver;    ///< what the state solver says
    std::vector<Note> notes;

    bool two_phase = false;                 ///< the given density belongs to a mixture
    bool mixture = false;                   ///< both phases exist below the critical point
    double y = 1;                           ///< vapour fraction of it
    double pLV = 0;                         ///< vapour pressure at a given T and rho, kPa
    Source source = Source::none;           ///< of an equilibrium
    bool other_liquid = false;              ///< the L density is not that of the equation of state
    bool critical_point = false;            ///< T and p are close to the critical point
    std::optional<FunctionPair> functions;  ///< of the task itself
    std::optional<double> hLV;              ///< kJ/kmol
    std::optional<VaporisationValues> vaporisation;
    std::optional<TankContent> tank;
    std::optional<DatabaseValue> database;
    std::vector<VirialValue> virials;
    std::optional<double> active_virial;  ///< B of the active equation beside the others
    std::vector<ProcessState> process;
    std::optional<models::EosState> parameters;  ///< a, b, c, d at T of a cubic EOS
    std::optional<double> B;                     ///< of a V-only equation, m^3/kmol
    std::optional<PageValues> pages;
    LastState last;
    bool diagnosable = false;  ///< the cubic EOS itself has found the state
};

}  // namespace quor::calculation
