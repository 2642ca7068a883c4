#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

#include "diagrams/diagram.h"
#include "diagrams/diagram_rows.h"

namespace quor::diagrams {

namespace {

using namespace rows;

constexpr std::string_view kAlongIsobar = "  (isobaric section)";
constexpr std::string_view kAlongIsotherm = "  (isothermal section)";
constexpr std::string_view kAlongIsochore = "  (isochoric section)";
constexpr std::string_view kCpTitle =
    "Heat capacity cp (real) = cp(idGas) + Residual value by EOS, at the respective saturation "
    "pressure";

// The menus in which diagrams stand.
constexpr std::string_view kCut = "mnuGraf_sub_cut";
constexpr std::string_view kFuT = "mnuGraf_sub_FuT";
constexpr std::string_view kFuP = "mnuGraf_sub_Fup";
constexpr std::string_view kVapourNumbers = "mnuGraf_sub_FuV";
// The first two rows of the residual menus lead crosswise to each other's diagram, whose title
// follows the code.
constexpr std::string_view kResFuT = "mnuGraf_sub_res_FuT";
constexpr std::string_view kResFuP = "mnuGraf_sub_res_Fup";
constexpr std::string_view kHS = "mnuGraf_sub_HS";
constexpr std::string_view kES = "mnuGraf_sub_ES";
constexpr std::string_view kEH = "mnuGraf_sub_EH";
constexpr std::string_view kProj = "mnuGraf_sub_proj";
// The captions of this menu do not stand beside their diagrams; the hints name the diagram.
constexpr std::string_view kData = "mnuGraf_sub_database";
constexpr std::string_view kDataVP = "mnuGraf_sub_sub_database";

constexpr auto kRows = [] {
    auto table = std::to_array<Diagram>({
        // ---- sections p-v-T
        isotherm({.code = 1, .dome = 6, .exchange = 1}, "Isothermal section p - v", Axis::v,
                 Axis::p, isotherm_p_v)
            .in_menu(kCut, 1, "isothermal p - v"),
        isotherm({.code = 26, .dome = 27, .exchange = 3}, "isothermal section rho - p", Axis::p,
                 Axis::rho, isotherm_over_p)
            .from_normal_pressure()
            .in_menu(kCut, 2, "isotherm.  rho - p"),
        isotherm({.code = 2, .dome = 106, .inversion = 190, .exchange = 2},
                 "isothermal section pv-p", Axis::p, Axis::pv, isotherm_over_p)
            .in_menu(kCut, 3, "isothermal pv - p"),
        isobar({.code = 3, .dome = 7, .exchange = 4}, "Isobaric section T - v", Axis::v, Axis::T,
               isobar_T_v)
            .in_menu(kCut, 5, "isobaric T - v"),
        isobar({.code = 4, .dome = 12, .exchange = 5}, "Isobaric Section T - rho", Axis::rho,
               Axis::T, isobar_T_v)
            .in_menu(kCut, 6, "isobaric T - rho"),
        row({.code = 5, .dome = 9, .inversion = 105, .exchange = 6}, "Isochoric section p - T",
            Axis::T, Axis::p, Section::isochoric, isochore_p_T, Parameter::v)
            .in_menu(kCut, 8, "isochoric p - T"),

        // ---- functions of T
        row({.code = 34, .exchange = 15},
            "differential Joule-Thomson coefficient by  EOS, isobaric", Axis::T, Axis::jouleThomson,
            Section::isobaric, joule_thomson, Parameter::p)
            .within(kTResidual, limits_of(Axis::jouleThomson))
            .from_normal_pressure()
            .in_menu(kFuT, 1, "diff. Joule-Thomson Coeff.    (isobaric)"),
        isobaric_of_T({.code = 15, .dome = 90, .exchange = 10}, "Enthalpy h", Axis::h)
            .along(kAlongIsobar)
            .perhaps_a_point()
            .in_menu(kFuT, 3, "Enthalpy h(T)                         (isobaric)"),
        isobaric_of_T({.code = 16, .dome = 91, .exchange = 11}, "Entropy s", Axis::s)
            .along(kAlongIsobar)
            .in_menu(kFuT, 4, "Entropy s(T)                           (isobaric)"),
        isobaric_of_T({.code = 17, .dome = 93, .exchange = 12}, "Gibbs Function g", Axis::g)
            .along(kAlongIsobar)
            .with_metastable(Metastable::anywhere)
            .in_menu(kFuT, 5, "g(T) = h - T*s                         (isobaric)"),
        isobaric_of_T({.code = 18, .dome = 94, .exchange = 13}, "Exergy of H", Axis::eH)
            .along(kAlongIsobar)
            .in_menu(kFuT, 6, "Exergy of H e(T)                     (isobaric)"),
        isobaric_of_T({.code = 19, .dome = 92, .exchange = 14}, kCpTitle, Axis::cp, heat_capacity)
            .with_metastable(Metastable::anywhere)
            .needing_cp()
            .in_menu(kFuT, 7, "Heat capacity cp(T)                (isobaric)"),
        isochoric_of_T({.code = 184, .dome = 91, .exchange = 24}, "Entropy s", Axis::s)
            .along(kAlongIsochore)
            .in_menu(kFuT, 9, "Entropy s(T)                           (isochoric)"),
        isochoric_of_T({.code = 183, .dome = 99, .exchange = 23},
                       "Internal Energy vs. Temperature T", Axis::u)
            .along(kAlongIsochore)
            .perhaps_a_point()
            .in_menu(kFuT, 10, "Internal Energy u(T)                (isochoric)"),
        isochoric_of_T({.code = 182, .dome = 98, .exchange = 22},
                       "Helmholtz Function a vs. Temperature T", Axis::a)
            .along(kAlongIsochore)
            .in_menu(kFuT, 11, "Helmholtz Fu. a(T)                  (isochoric)"),
        isochoric_of_T({.code = 181, .dome = 95, .exchange = 21}, "Exergy of U e", Axis::eU)
            .along(kAlongIsochore)
            .in_menu(kFuT, 12, "Exergy of U e(T)                      (isochoric)"),
        isochoric_of_T({.code = 185, .exchange = 25}, "Heat Capacity cV(T)            (isochoric)",
                       Axis::cVIsochoric)
            .in_menu(kFuT, 13, "Heat capacity  cV(T)              (isochoric)"),

        // ---- functions of p
        isothermal_of_p({.code = 150, .dome = 70, .exchange = 31}, "Enthalpy h", Axis::h)
            .along(kAlongIsotherm)
            .in_menu(kFuP, 1, "Enthalpy h(p)                (isothermal)"),
        isothermal_of_p({.code = 151, .dome = 71, .exchange = 32}, "Entropy s", Axis::s)
            .along(kAlongIsotherm)
            .in_menu(kFuP, 2, "Entropy s(p)                  (isothermal)"),
        isothermal_of_p({.code = 152, .dome = 73, .exchange = 33}, "Gibbs Function g", Axis::g)
            .along(kAlongIsotherm)
            .in_menu(kFuP, 3, "g(p) = h - T*s                (isothermal)"),
        isothermal_of_p({.code = 153, .dome = 74, .exchange = 34}, "Exergy of H", Axis::eH)
            .along(kAlongIsotherm)
            .in_menu(kFuP, 4, "Exergy of H e(p)           (isothermal)"),
        isothermal_of_p({.code = 154, .dome = 72, .exchange = 35}, kCpTitle, Axis::cp)
            .in_menu(kFuP, 5, "Heat capacity cp(p)      (isothermal)"),
        isothermal_of_p({.code = 155, .dome = 75}, "Exergy of U e", Axis::eU).along(kAlongIsotherm),

        // ---- functions of v
        isothermal_of_v({.code = 158, .dome = 101, .exchange = 43}, "Entropy s vs. Volume", Axis::s)
            .in_menu(kVapourNumbers, 1, "Entropy s(V)               (isothermal)"),
        isothermal_of_v({.code = 157, .dome = 100, .exchange = 42}, "Internal Energy vs. Volume v",
                        Axis::u)
            .along(kAlongIsotherm)
            .in_menu(kVapourNumbers, 2, "Internal Energy u(V)    (isothermal)"),
        isothermal_of_v({.code = 156, .dome = 97, .exchange = 41},
                        "Helmholtz Function a vs. Volume v", Axis::a)
            .along(kAlongIsotherm)
            .in_menu(kVapourNumbers, 3, "Helmholtz Fu. a(V)      (isothermal)"),
        isothermal_of_v({.code = 160, .dome = 102, .exchange = 45}, "Exergy of U e vs. Volume",
                        Axis::eU)
            .in_menu(kVapourNumbers, 4, "Exergy of U e(V)          (isothermal)"),
        isothermal_of_v({.code = 159, .dome = 89, .exchange = 44}, "Heat capacity cV vs. volume",
                        Axis::cV)
            .in_menu(kVapourNumbers, 5, "Heat capacity cV(V)    (isothermal)"),

        // ---- residual functions
        residual_of_T_along_p(31, "Residual Enthalpy   (h - h_idG), isobaric", Axis::deltah)
            .in_menu(kResFuT, 1, "Resid. Entropy              (s - s_id)  (isobaric)"),
        residual_of_T_along_p(30, "Residual Entropy    (s - s_idG), isobaric", Axis::deltas)
            .in_menu(kResFuT, 2, "Resid. Enthalpy             (h - h_id) (isobaric)"),
        residual_of_T_along_p(32, "Residual Gibbs Function  (g - g_idG) = RT ln(phi), isobaric",
                              Axis::deltag)
            .in_menu(kResFuT, 3, "Resid. Gibbs Fu.            (g - g_id) = RT ln(phi)  (isobaric)"),
        residual_of_T_along_p(33, "Residual Heat Capacity   (cp - cp_idG), isobaric", Axis::deltacp)
            .in_menu(kResFuT, 4, "Resid. Heat Capacity     (cp - c_id) (isobaric)"),
        residual_of_p_along_T(41, "Residual Enthalpy   (h - h_idG), isothermal", Axis::deltah)
            .in_menu(kResFuP, 1, "Resid. Entropy              (s - s_id)  (isothermal)"),
        residual_of_p_along_T(40, "Residual Entropy    (s - s_idG), isothermal", Axis::deltas)
            .in_menu(kResFuP, 2, "Resid. Enthalpy             (h - h_id) (isothermal)"),
        residual_of_p_along_T(42, "Residual Gibbs Function  (g - g_idG) = RT ln(phi), isothermal",
                              Axis::deltag)
            .in_menu(kResFuP, 3,
                     "Resid. Gibbs Fu.            (g - g_id) = RT ln(phi)  (isothermal)"),
        residual_of_p_along_T(43, "Residual Heat Capacity   (cp - cp_idG), isothermal",
                              Axis::deltacp)
            .in_menu(kResFuP, 4, "Resid. Heat Capacity     (cp - c_id) (isothermal)"),

        // ---- one function over another
        isothermal_pair({.code = 107, .dome = 120, .exchange = 51},
                        "Enthalpy h vs. Entropy s, isothermal", Axis::s, Axis::h)
            .in_menu(kHS, 1, "isothermal"),
        isobaric_pair({.code = 24, .dome = 120, .exchange = 52},
                      "Enthalpy h vs. Entropy s, isobaric", Axis::s, Axis::h)
            .in_menu(kHS, 2, "isobaric"),
        isothermal_pair({.code = 109, .dome = 121, .exchange = 61},
                        "Exergy of H e vs. (T(surr)* entropy), isothermal", Axis::Tenvs, Axis::eH)
            .in_menu(kES, 1, "isothermal"),
        isobaric_pair({.code = 23, .dome = 121, .exchange = 62},
                      "Exergy of H e vs. (T(surr)* entropy), isobaric", Axis::Tenvs, Axis::eH)
            .in_menu(kES, 2, "isobaric"),
        isothermal_pair({.code = 21, .dome = 96, .exchange = 71},
                        "Exergy of H e vs. Enthalpy, isothermal", Axis::hSpaced, Axis::eH)
            .from_normal_pressure()
            .in_menu(kEH, 1, "isothermal"),
        isobaric_pair({.code = 22, .dome = 96, .exchange = 72},
                      "Exergy of H e vs. Enthalpy, isobaric", Axis::hSpaced, Axis::eH)
            .in_menu(kEH, 2, "isobaric"),

        // ---- projections of the coexistence curve
        projection({.code = 13}, "Heat of vaporization delta(LV)h = F(T)", Axis::T, Axis::deltaLVh,
                   heat_of_vaporisation, Parameter::p)
            .molar_or_specific()
            .second_title(SubTitle::vaporisation)
            .when_without_dome(WithoutDome::byVaporisation)
            .from_normal_pressure()
            .perhaps_a_point()
            .in_menu(kProj, 0, "Enthalpy of vaporiz. delta(LV)h(T) acc. to \"Models\""),
        projection({.code = 6}, "Projection p - v", Axis::v, Axis::p, dome_p_v, Parameter::T)
            .with_branches()
            .in_menu(kProj, 1, "pressure p(v)"),
        projection({.code = 27}, "Projection rho - p", Axis::p, Axis::rho, dome_over_p,
                   Parameter::T)
            .with_branches()
            .from_normal_pressure()
            .in_menu(kProj, 2, "density rho(p)"),
        projection({.code = 106, .inversion = 190}, "Projection pv - p", Axis::p, Axis::pv,
                   dome_over_p, Parameter::T)
            .with_branches()
            .when_without_dome(WithoutDome::drawn)
            .in_menu(kProj, 3, "pv( p)"),
        projection({.code = 7}, "Projection T - v", Axis::v, Axis::T, dome_T_v, Parameter::p)
            .with_branches()
            .in_menu(kProj, 4, "Temperature T( v)"),
        projection({.code = 12}, "Projection T - rho", Axis::rho, Axis::T, dome_T_v, Parameter::p)
            .with_branches(),
        projection({.code = 8, .bisection = 80}, "Projection rho - T", Axis::T, Axis::rho,
                   dome_rho_T, Parameter::p)
            .in_menu(kProj, 5, "density rho(T)"),
        projection({.code = 9, .inversion = 105}, "Projection p - T", Axis::T, Axis::p,
                   vapour_pressure_p_T, Parameter::none)
            .second_title(SubTitle::vapourPressure)
            .when_without_dome(WithoutDome::byVapourPressure)
            .in_menu(kProj, 6, "pressure p(T)"),
        saturated_of_T(90, "Enthalpy H(T) in the phase-equilibrium V - L", Axis::h)
            .in_menu(kProj, 8, "Enthalpy h(T)"),
        saturated_of_T(91, "Entropy S(T) in the phase-equilibrium V - L", Axis::s)
            .in_menu(kProj, 9, "Entropy s(T)"),
        saturated_of_T(93, "Gibbs Function g(T) in the phase equilibrium V - L", Axis::g)
            .in_menu(kProj, 10, "Gibbs Function g(T)"),
        saturated_of_T(94, "Exergy of H e(T), VLE ", Axis::eH)
            .in_menu(kProj, 11, "Exergy of H e(T)"),
        saturated_of_T(95, "Exergy of U e, VLE", Axis::eU),
        saturated_of_T(92, "Heat Capacity cp(T) in the phase-equilibrium V - L", Axis::cp)
            .in_menu(kProj, 12, "Heat Capacity cp(T)"),
        projection({.code = 10}, "Vapour pressure curve by using ", Axis::inverseT, Axis::lnp,
                   vapour_pressure_logarithmic, Parameter::none)
            .drawn_by(Source::priority)
            .when_without_dome(WithoutDome::byVapourPressure)
            .in_menu(kProj, 14, "ln(p(LV)) vs. 1/T"),
        projection({.code = 11}, "dlnp / d(1/T) vs. 1/T for vapour-pressure equation",
                   Axis::inverseTSlope, Axis::dlnp, vapour_pressure_slope, Parameter::none)
            .drawn_by(Source::vapourPressure)
            .when_without_dome(WithoutDome::byVapourPressure)
            .in_menu(kProj, 15, "d(ln(p)/d(1/T) vs. 1/T"),

        // ---- the coexistence curve and others, added to a diagram
        added_dome_over_p({.code = 70, .base = 150}),
        added_dome_over_p({.code = 71, .base = 151}),
        added_dome_over_p({.code = 72, .base = 154}),
        added_dome_over_p({.code = 73, .base = 152}),
        added_dome_over_p({.code = 74, .base = 153}),
        added_dome_over_p({.code = 75, .base = 155}),
        added_dome_over_v({.code = 89, .base = 159}).from_normal_pressure(),
        added_dome_over_v({.code = 97, .base = 156}).from_normal_pressure().perhaps_a_point(),
        added_dome_over_v({.code = 100, .base = 157}),
        added_dome_over_v({.code = 101, .base = 158}),
        added_dome_over_v({.code = 102, .base = 160}),
        added_dome_over_T({.code = 98, .base = 182}),
        added_dome_over_T({.code = 99, .base = 183}),
        added_dome({.code = 96, .base = 21}, saturation_function_pairs, Parameter::p)
            .from_normal_pressure()
            .perhaps_a_point(),
        projection({.code = 120, .base = 107}, {}, Axis::s, Axis::h, saturation_function_pairs,
                   Parameter::p)
            .with_branches(),
        projection({.code = 121, .base = 109}, {}, Axis::Tenvs, Axis::eH, saturation_function_pairs,
                   Parameter::p)
            .with_branches(),
        projection({.code = 80, .base = 8}, {}, Axis::none, Axis::none, rectilinear_diameter,
                   Parameter::p)
            .from_normal_pressure(),
        row({.code = 105, .base = 5}, {}, Axis::none, Axis::none, Section::inversion, inversion_p_T,
            Parameter::v),
        row({.code = 190, .base = 2}, "Inversion curve delta = 0", Axis::p, Axis::pv,
            Section::inversion, inversion_pv_p, Parameter::T),

        // ---- process lines
        process(201, straight_line),
        process(202, process_isotherm),
        process(204, process_isobar),
        process(206, process_isochore),
        process(210, process_isoline),
        process(211, process_polytropic),

        // ---- functions of the database
        database(300, "L-density from data-bank function", Axis::rho,
                 ",  L-density, data-bank function, validity T = ", DatabaseFunction::densityLiquid)
            .in_menu(kData, 1, "Enthalpy of vaporization", "Density of the liquid"),
        database(301, "molar volume from database function rho(L) = F(T)", Axis::v,
                 ",  volume from database function, validity T =", DatabaseFunction::volumeLiquid)
            .in_menu(kData, 2, "Ideal-gas heat capacity", "Volume of the liquid"),
        database(310, "S density from database function", Axis::rho,
                 ", S density, database function", DatabaseFunction::densitySolid)
            .in_menu(kData, 3, "L heat capacity", "Density of the solid"),
        database(305, "Enthalpy of vaporization delta(LV)h = Fu(T), database function",
                 Axis::deltaLVh, ", enthalpy of vaporization (database function)",
                 DatabaseFunction::vaporisation)
            .molar_or_specific()
            .in_menu(kData, 4, "S heat capacity", "Enthalpy of vaporization"),
        database(302, "Ideal Gas Heat-Capacity cp = Fu(T), Database Function", Axis::cpDatabase,
                 ", ideal gas heat capacity (database function", DatabaseFunction::cpIdealGas)
            .molar_or_specific()
            .in_menu(kData, 5, "Ideal gas heat capacity", "Heat capacity of the ideal gas"),
        database(303, "Liquid Heat-Capacity cp = Fu(T), Database Function", Axis::cpDatabase,
                 ", liquid heat capacity cp(L) (database function)", DatabaseFunction::cpLiquid)
            .molar_or_specific()
            .in_menu(kData, 6, "L heat capacity", "Heat capacity of the liquid"),
        database(304, "Solid Heat-Capacity cp = Fu(T), Database Function", Axis::cpDatabase,
                 ", solid gas heat capacity cp(S) (database function)", DatabaseFunction::cpSolid)
            .molar_or_specific()
            .in_menu(kData, 7, "S heat capacity", "Heat capacity of the solid"),
        database_pressure(306, models::VapourPressureEquation::frostKalkwarf)
            .in_menu(kDataVP, 0, "extended Frost-Kalkwarf equation"),
        database_pressure(307, models::VapourPressureEquation::wagner)
            .in_menu(kDataVP, 1, "Wagner equation"),
        database_pressure(308, models::VapourPressureEquation::antoineLow)
            .in_menu(kDataVP, 2, "Antoine equation (Lo-p)"),
        database_pressure(309, models::VapourPressureEquation::antoineHigh)
            .in_menu(kDataVP, 3, "Antoine equation (Hi-p)"),
    });
    std::sort(table.begin(), table.end(),
              [](const Diagram& a, const Diagram& b) { return a.code < b.code; });
    return table;
}();

static_assert(std::adjacent_find(kRows.begin(), kRows.end(),
                                 [](const Diagram& a, const Diagram& b) {
                                     return a.code == b.code;
                                 }) == kRows.end());

}  // namespace

std::span<const Diagram> all_diagrams() {
    return kRows;
}

const Diagram* find_diagram(int code) {
    const auto row = std::lower_bound(kRows.begin(), kRows.end(), code,
                                      [](const Diagram& r, int wanted) { return r.code < wanted; });
    return row != kRows.end() && row->code == code ? &*row : nullptr;
}

const Diagram& diagram_of(int code) {
    if (const Diagram* found = find_diagram(code)) return *found;
    throw std::out_of_range("no such diagram: " + std::to_string(code));
}

const Diagram& home_of(const Diagram& diagram) {
    return diagram.base == 0 ? diagram : diagram_of(diagram.base);
}

}  // namespace quor::diagrams
