#pragma once

#include "diagrams/curve_kinds.h"
#include "diagrams/diagram.h"

/// The words in which the rows of the table of diagrams are written: families of rows that share
/// all but some fields. What follows from the axes of a row, they find themselves.
namespace quor::diagrams::rows {

using Compute = decltype(Diagram::compute);

// ---------------------------------------------------------- what follows from the axes of a row

/// The limits that a quantity proposes for its axis.
constexpr LimitPair limits_of(Axis axis) {
    switch (axis) {
        case Axis::T:
            return {&CoordinateDefaults::T_min, &CoordinateDefaults::T_max};
        case Axis::p:
            return {&CoordinateDefaults::p_min, &CoordinateDefaults::p_max};
        case Axis::v:
            return {&CoordinateDefaults::v_min, &CoordinateDefaults::v_max};
        case Axis::rho:
            return {&CoordinateDefaults::rho_min, &CoordinateDefaults::rho_max};
        case Axis::pv:
            return {&CoordinateDefaults::pv_min, &CoordinateDefaults::pv_max};
        case Axis::inverseT:
        case Axis::inverseTSlope:
            return {&CoordinateDefaults::inverse_T_min, &CoordinateDefaults::inverse_T_max};
        case Axis::lnp:
            return {&CoordinateDefaults::lnp_min, &CoordinateDefaults::lnp_max};
        case Axis::dlnp:
            return {&CoordinateDefaults::dlnp_min, &CoordinateDefaults::dlnp_max};
        case Axis::jouleThomson:
            return {&CoordinateDefaults::jt_min, &CoordinateDefaults::jt_max};
        case Axis::s:
            return {&CoordinateDefaults::entropy_min, &CoordinateDefaults::entropy_max};
        case Axis::cp:
        case Axis::cpDatabase:
        case Axis::cV:
        case Axis::cVIsochoric:
        case Axis::deltacp:
            return {&CoordinateDefaults::cp_min, &CoordinateDefaults::cp_max};
        case Axis::deltaLVh:
            return {&CoordinateDefaults::vaporisation_min, &CoordinateDefaults::vaporisation_max};
        case Axis::deltas:
            return {&CoordinateDefaults::res_entropy_min, &CoordinateDefaults::res_entropy_max};
        case Axis::deltah:
        case Axis::deltag:
            return {&CoordinateDefaults::res_enthalpy_min, &CoordinateDefaults::res_enthalpy_max};
        case Axis::h:
        case Axis::hSpaced:
        case Axis::g:
        case Axis::a:
        case Axis::u:
        case Axis::eH:
        case Axis::eU:
        case Axis::Tenvs:
            return {&CoordinateDefaults::func_min, &CoordinateDefaults::func_max};
        case Axis::none:
            break;
    }
    return {};
}

inline constexpr LimitPair kTResidual{&CoordinateDefaults::T_min,
                                      &CoordinateDefaults::T_max_residual};
/// The residual functions of p keep the temperature limit as their lower end.
inline constexpr LimitPair kPResidual{&CoordinateDefaults::T_min, &CoordinateDefaults::p_max};

/// The kind of the axes; a `y` is any other quantity.
constexpr std::string_view pair_of(Axis x, Axis y) {
    if (x == Axis::v) return y == Axis::p ? "pv" : y == Axis::T ? "Tv" : "yv";
    if (x == Axis::rho) return "Tx";
    if (x == Axis::p) return "yp";
    if (x == Axis::T) return y == Axis::p ? "pT" : "yT";
    if (x == Axis::inverseT) return "pT";
    return x == Axis::inverseTSlope ? "yT" : "yy";
}

// -------------------------------------------------------------------------------- families of rows

/// The numbers in a row: its own code, those of the rows that it names, its exchange number. They
/// mean what the fields of `Diagram` mean.
struct Codes {
    std::int16_t code = 0, dome = 0, inversion = 0, bisection = 0, base = 0;
    int exchange = 0;
};

/// A row while it is written down: each function gives it with one field changed, for what it has
/// beside its family.
struct Row : Diagram {
  private:
    // First, so that every compiler knows it where a table is made while compiling.
    template <class Change>
    constexpr Row with(Change change) const {
        Row changed = *this;
        change(changed);
        return changed;
    }

  public:
    /// Other limits than its axes propose.
    constexpr Row within(LimitPair of_x, LimitPair of_y) const {
        return with([&](Row& r) {
            r.x_limits = of_x;
            r.y_limits = of_y;
        });
    }
    /// What stands behind the model in the second title.
    constexpr Row along(std::string_view text) const {
        return with([&](Row& r) { r.suffix = text; });
    }
    constexpr Row second_title(SubTitle text) const {
        return with([&](Row& r) { r.sub_title = text; });
    }
    constexpr Row drawn_by(Source model) const {
        return with([&](Row& r) { r.source = model; });
    }
    constexpr Row with_metastable(Metastable where) const {
        return with([&](Row& r) { r.metastable = where; });
    }
    constexpr Row when_without_dome(WithoutDome answer) const {
        return with([&](Row& r) { r.without_dome = answer; });
    }
    constexpr Row with_branches() const {
        return with([](Row& r) { r.branches = true; });
    }
    constexpr Row molar_or_specific() const {
        return with([](Row& r) { r.prefixed = true; });
    }
    constexpr Row needing_cp() const {
        return with([](Row& r) { r.needs_cp_form = true; });
    }
    /// The first curve at normal pressure instead of the critical one.
    constexpr Row from_normal_pressure() const {
        return with([](Row& r) { r.starts_at_normal_pressure = true; });
    }
    /// A function that may be independent of pressure.
    constexpr Row perhaps_a_point() const {
        return with([](Row& r) { r.may_shrink_to_a_point = true; });
    }
    /// Its row in a menu of diagrams; `index` is the place in its control array.
    constexpr Row in_menu(std::string_view name, int index, std::string_view caption,
                          std::string_view hint = {}) const {
        return with([&](Row& r) {
            r.menu = {name, index, caption, hint};
            r.axis_pair = pair_of(r.x, r.y);
        });
    }
};

/// Any row; `z` is what the parameter of its points holds.
constexpr Row row(Codes codes, std::string_view title, Axis x, Axis y, Section section,
                  Compute compute, Parameter z) {
    return {{.code = codes.code,
             .title = title,
             .x = x,
             .y = y,
             .x_limits = limits_of(x),
             .y_limits = limits_of(y),
             .section = section,
             .compute = compute,
             .parameter = z,
             .dome = codes.dome,
             .inversion = codes.inversion,
             .bisection = codes.bisection,
             .base = codes.base,
             .exchange = codes.exchange}};
}

constexpr Row isotherm(Codes codes, std::string_view title, Axis x, Axis y, Compute compute) {
    return row(codes, title, x, y, Section::isothermal, compute, Parameter::T)
        .with_metastable(Metastable::subcritical);
}

constexpr Row isobar(Codes codes, std::string_view title, Axis x, Axis y, Compute compute) {
    return row(codes, title, x, y, Section::isobaric, compute, Parameter::p)
        .with_metastable(Metastable::subcritical);
}

constexpr Row projection(Codes codes, std::string_view title, Axis x, Axis y, Compute compute,
                         Parameter z) {
    return row(codes, title, x, y, Section::projection, compute, z);
}

/// A caloric function of T along an isobar.
constexpr Row isobaric_of_T(Codes codes, std::string_view title, Axis y,
                            Compute compute = functions_of_T) {
    return isobar(codes, title, Axis::T, y, compute).molar_or_specific().from_normal_pressure();
}

/// A caloric function of T along an isochore.
constexpr Row isochoric_of_T(Codes codes, std::string_view title, Axis y) {
    return row(codes, title, Axis::T, y, Section::isochoric, functions_of_T, Parameter::v)
        .molar_or_specific();
}

/// A caloric function of p along an isotherm.
constexpr Row isothermal_of_p(Codes codes, std::string_view title, Axis y,
                              Compute compute = functions_of_p) {
    return isotherm(codes, title, Axis::p, y, compute).molar_or_specific();
}

/// A caloric function of v along an isotherm.
constexpr Row isothermal_of_v(Codes codes, std::string_view title, Axis y) {
    return row(codes, title, Axis::v, y, Section::isothermal, functions_of_v, Parameter::p)
        .molar_or_specific()
        .with_metastable(Metastable::subcritical);
}

constexpr Row residual_of_T_along_p(std::int16_t code, std::string_view title, Axis y) {
    return isobaric_of_T({.code = code}, title, y, residual_of_T).within(kTResidual, limits_of(y));
}

constexpr Row residual_of_p_along_T(std::int16_t code, std::string_view title, Axis y) {
    return isothermal_of_p({.code = code}, title, y, residual_of_p)
        .within(kPResidual, limits_of(y))
        .from_normal_pressure();
}

/// One caloric function over another along isotherms, or along isobars.
constexpr Row isothermal_pair(Codes codes, std::string_view title, Axis x, Axis y) {
    return row(codes, title, x, y, Section::isothermal, function_pairs, Parameter::p)
        .molar_or_specific();
}
constexpr Row isobaric_pair(Codes codes, std::string_view title, Axis x, Axis y) {
    return row(codes, title, x, y, Section::isobaric, function_pairs, Parameter::T)
        .molar_or_specific()
        .from_normal_pressure();
}

/// A caloric function of T of both phases in equilibrium.
constexpr Row saturated_of_T(std::int16_t code, std::string_view title, Axis y) {
    return projection({.code = code}, title, Axis::T, y, saturation_functions_over_T, Parameter::p)
        .molar_or_specific()
        .with_branches()
        .from_normal_pressure()
        .perhaps_a_point();
}

/// The coexistence curve that is added to the diagram `base`.
constexpr Row added_dome(Codes codes, Compute compute, Parameter z) {
    return row(codes, {}, Axis::none, Axis::none, Section::projection, compute, z).with_branches();
}
constexpr Row added_dome_over_p(Codes codes) {
    return added_dome(codes, saturation_functions_over_p, Parameter::T).from_normal_pressure();
}
constexpr Row added_dome_over_T(Codes codes) {
    return added_dome(codes, saturation_functions_over_T, Parameter::p)
        .from_normal_pressure()
        .perhaps_a_point();
}
constexpr Row added_dome_over_v(Codes codes) {
    return added_dome(codes, saturation_functions_over_v, Parameter::T);
}

constexpr Row process(std::int16_t code, Compute compute) {
    return {{.code = code, .section = Section::process, .compute = compute}};
}

/// A function of the database over its range of validity.
constexpr Row database(std::int16_t code, std::string_view title, Axis y, std::string_view suffix,
                       DatabaseFunction function) {
    Row made = row({.code = code}, title, Axis::T, y, Section::database, database_function,
                   Parameter::none)
                   .within({}, {})
                   .second_title(SubTitle::database)
                   .along(suffix);
    made.database = function;
    return made;
}

/// A vapour pressure equation with the parameters of the database.
constexpr Row database_pressure(std::int16_t code, models::VapourPressureEquation equation) {
    Row made =
        database(code, "saturation pressure pLV = Fu(T), Datenbankfunktion ", Axis::p,
                 ", saturation pressure (database function)", DatabaseFunction::vapourPressure);
    made.equation = equation;
    return made;
}

}  // namespace quor::diagrams::rows
