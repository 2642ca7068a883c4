#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "diagrams/basis.h"
#include "diagrams/coordinate_defaults.h"
#include "diagrams/curve_point.h"

/// The one table of diagrams: a row for each kind of curve, with all that is particular to it.
namespace quor::diagrams {

class CurveFrame;

/// What the curves of a diagram hold constant, or what they are instead of sections.
enum class Section : std::uint8_t {
    none,  ///< a sheet in which nothing is computed
    isothermal,
    isobaric,
    isochoric,
    projection,  ///< the coexistence curve itself
    inversion,   ///< of the Joule-Thomson effect
    database,    ///< a function of the database
    process,     ///< a process line
};

/// What an axis shows. The caloric families have one text for each `CaloricUnit`, volumes and pv
/// one for each `UnitSystem`.
enum class Axis : std::uint8_t {
    none,
    T,
    p,
    v,
    rho,
    pv,
    inverseT,       ///< 1/T of the vapour pressure curve
    inverseTSlope,  ///< 1/T of its slope
    lnp,
    dlnp,
    jouleThomson,
    h,
    hSpaced,  ///< as h, with a blank behind the texts of units 1 and 2
    s,
    g,
    a,
    u,
    eH,  ///< exergy of a stream
    eU,  ///< exergy of a closed system
    cp,
    cpDatabase,
    cV,
    cVIsochoric,
    deltaLVh,
    deltas,
    deltah,
    deltag,
    deltacp,
    Tenvs,
};

/// What stands behind the name of the substance in the second title line.
enum class SubTitle : std::uint8_t {
    model,           ///< the curve's model and the suffix of the row
    vapourPressure,  ///< the vapour pressure equation, unless the EOS has priority
    vaporisation,    ///< the method of the enthalpy of vaporisation
    database,        ///< the suffix and the range of validity
};

/// The model that is named as that of a diagram.
enum class Source : std::uint8_t {
    equationOfState,
    priority,  ///< the EOS where it has priority and a dome, else the vapour pressure equation
    vapourPressure,
};

/// What a projection shows with an equation of state that has no liquid.
enum class WithoutDome : std::uint8_t {
    refused,
    byVapourPressure,  ///< drawn by the vapour pressure equation, and said
    byVaporisation,    ///< drawn by the model of the enthalpy of vaporisation, and said
    drawn,
};

/// Whether a curve has an unstable and metastable branch of its own.
enum class Metastable : std::uint8_t {
    none,
    subcritical,  ///< refused at and above the critical point
    anywhere,
};

/// A function of the database.
enum class DatabaseFunction : std::uint8_t {
    none,
    densityLiquid,
    volumeLiquid,
    cpIdealGas,
    cpLiquid,
    cpSolid,
    vaporisation,
    vapourPressure,  ///< by the equation of the row
    densitySolid,
};

/// A pair of limits in `CoordinateDefaults`.
struct LimitPair {
    float CoordinateDefaults::*low = nullptr;
    float CoordinateDefaults::*high = nullptr;
};

/// The row of the menu that opens a diagram; without a menu there is none.
struct MenuPlace {
    std::string_view menu{};  ///< control name of the menu
    int index = 0;            ///< in its control array; a gap is a separator
    std::string_view caption{};
    std::string_view hint{};
};

/// One row of the table. A row without a title is no diagram of its own: its curves are added to
/// the diagram `base`, or are process lines, which any diagram takes.
struct Diagram {
    std::int16_t code = 0;  ///< its number in files, in quorcalc and in JSON
    std::string_view title{};
    bool prefixed = false;  ///< "molar " or "specific " before the title
    Axis x = Axis::none, y = Axis::none;
    LimitPair x_limits{}, y_limits{};  ///< empty for the functions of the database
    Section section = Section::projection;
    std::string_view axis_pair{};  ///< "pv", "yp", "Tv", "Tx", "pT", "yT", "yv", "yy"
    void (*compute)(CurveFrame&) = nullptr;
    Parameter parameter = Parameter::none;  ///< what the z of its points holds
    SubTitle sub_title = SubTitle::model;
    std::string_view suffix{};
    Source source = Source::equationOfState;
    Metastable metastable = Metastable::none;
    std::int16_t dome = 0;       ///< code of the coexistence curve that can be added
    std::int16_t inversion = 0;  ///< of the inversion curve
    std::int16_t bisection = 0;  ///< of the rectilinear diameter
    std::int16_t base = 0;       ///< the diagram of an added curve
    bool branches = false;       ///< depends on the vapour fraction
    WithoutDome without_dome = WithoutDome::refused;
    bool needs_cp_form = false;              ///< refused without a heat capacity of the ideal gas
    bool starts_at_normal_pressure = false;  ///< the first curve, instead of at the critical one
    bool may_shrink_to_a_point = false;      ///< a function that may be independent of pressure
    DatabaseFunction database = DatabaseFunction::none;
    /// The vapour pressure equation of the database that it shows.
    models::VapourPressureEquation equation = models::VapourPressureEquation::none;
    int exchange = 0;  ///< number for the polytropic program, 0: none
    MenuPlace menu{};

    /// True for a diagram of its own, in contrast to a curve that is added to others.
    bool opens() const { return !title.empty(); }
};

/// All rows, ascending by code.
std::span<const Diagram> all_diagrams();

/// The row of a code; nullptr when there is none.
const Diagram* find_diagram(int code);
/// The row of a code that exists; `std::out_of_range` for any other.
const Diagram& diagram_of(int code);

/// The diagram in which the curves of a row are drawn: the base of an added curve, else itself.
const Diagram& home_of(const Diagram& diagram);

/// True when the states of the fluid have a place in the diagram: process lines and tie-lines can
/// be drawn in it.
bool shows_states(const Diagram& diagram);
/// True when an axis shows a caloric value.
bool shows_caloric_values(const Diagram& diagram);
/// True when one of the axes shows a quantity.
bool shows(const Diagram& diagram, Axis quantity);

/// Text of an axis in units.
std::string axis_text(Axis axis, const models::UnitChoice& units);

/// The same of an axis of a diagram: the volume of a function of the database is never reduced.
std::string axis_text_in(const Diagram& row, Axis axis, const models::UnitChoice& units);

/// What an axis shows, without its unit: "p", "ln(p)".
std::string axis_symbol(Axis axis);

/// Title, second title and texts of the axes of a diagram.
struct DiagramTexts {
    std::string title, sub_title, x, y;

    bool operator==(const DiagramTexts&) const = default;
};
/// The texts of a diagram on a basis; `validity` are the limits in K of a function of the database.
struct Validity {
    double low = 0, high = 0;

    bool operator==(const Validity&) const = default;
};
DiagramTexts texts_of(const Diagram& diagram, const Basis& basis, const Validity& validity = {});

/// A diagram with the units of its axes.
struct KnownDiagram {
    const Diagram* diagram = nullptr;
    models::UnitChoice units{};
};
/// The diagram that a chart with a title and texts of the axes shows, with the units that these
/// name; nothing where they tell none, for units on R T, and for a function of the database, whose
/// range they do not tell.
std::optional<KnownDiagram> diagram_by_texts(const std::string& title, const std::string& x,
                                             const std::string& y);

/// Name of the model that draws a diagram: the EOS, or the vapour pressure equation.
std::string model_name(const Diagram& diagram, const models::Fluid& fluid);

/// What the menu says before a diagram opens, and whether it opens at all.
struct OpeningAnswer {
    bool opens = true;
    std::string text;  ///< empty: nothing is said
};
OpeningAnswer opening_answer(const Diagram& diagram, const models::Fluid& fluid);

}  // namespace quor::diagrams
