#include "app/menu_graph_rows.h"

#include <array>

namespace quor::menu {

namespace {

// Section kinds of `diagrams::DiagramRequest`.
constexpr std::int16_t kIsotherm = 1, kIsobar = 2, kIsochore = 3, kProjection = 5, kDatabase = 7;

constexpr Row group(int index, std::string_view caption, std::string_view opens) {
    return {.parent = "mnu2D",
            .control = "mnuGraf",
            .index = index,
            .caption = caption,
            .kind = Kind::Submenu,
            .submenu = opens};
}

constexpr Row line(std::string_view parent) {
    return {.parent = parent, .kind = Kind::Separator};
}

constexpr Row curve(std::string_view control, int index, std::string_view caption,
                    std::int16_t code, std::int16_t sectionKind, std::string_view axisPair,
                    std::string_view hint = {}) {
    return {.parent = control,
            .control = control,
            .index = index,
            .caption = caption,
            .action = "Diagram2D",
            .code = code,
            .sectionKind = sectionKind,
            .axisPair = axisPair,
            .hint = hint};
}

constexpr Row surface(int index, std::string_view caption, std::int16_t kind) {
    return {.parent = "mnu3D",
            .control = "mnu3DSub",
            .index = index,
            .caption = caption,
            .action = "Diagram3D",
            .code = kind};
}

constexpr std::string_view kCut = "mnuGraf_sub_cut";
constexpr std::string_view kFuT = "mnuGraf_sub_FuT";
constexpr std::string_view kFup = "mnuGraf_sub_Fup";
constexpr std::string_view kFuV = "mnuGraf_sub_FuV";
constexpr std::string_view kResFuT = "mnuGraf_sub_res_FuT";
constexpr std::string_view kResFup = "mnuGraf_sub_res_Fup";
constexpr std::string_view kHS = "mnuGraf_sub_HS";
constexpr std::string_view kES = "mnuGraf_sub_ES";
constexpr std::string_view kEH = "mnuGraf_sub_EH";
constexpr std::string_view kProj = "mnuGraf_sub_proj";
constexpr std::string_view kData = "mnuGraf_sub_database";
constexpr std::string_view kDataVP = "mnuGraf_sub_sub_database";

constexpr auto kRows = std::to_array<Row>({
    group(0, "Sections p - v - T", kCut),
    curve(kCut, 1, "isothermal p - v", 1, kIsotherm, "pv"),
    curve(kCut, 2, "isotherm.  rho - p", 26, kIsotherm, "yp"),
    curve(kCut, 3, "isothermal pv - p", 2, kIsotherm, "yp"),
    line(kCut),
    curve(kCut, 5, "isobaric T - v", 3, kIsobar, "Tv"),
    curve(kCut, 6, "isobaric T - rho", 4, kIsobar, "Tx"),
    line(kCut),
    curve(kCut, 8, "isochoric p - T", 5, kIsochore, "pT"),

    group(1, "Functions of T", kFuT),
    curve(kFuT, 1, "diff. Joule-Thomson Coeff.    (isobaric)", 34, kIsobar, "yT"),
    line(kFuT),
    curve(kFuT, 3, "Enthalpy h(T)                         (isobaric)", 15, kIsobar, "yT"),
    curve(kFuT, 4, "Entropy s(T)                           (isobaric)", 16, kIsobar, "yT"),
    curve(kFuT, 5, "g(T) = h - T*s                         (isobaric)", 17, kIsobar, "yT"),
    curve(kFuT, 6, "Exergy of H e(T)                     (isobaric)", 18, kIsobar, "yT"),
    curve(kFuT, 7, "Heat capacity cp(T)                (isobaric)", 19, kIsobar, "yT"),
    line(kFuT),
    curve(kFuT, 9, "Entropy s(T)                           (isochoric)", 184, kIsochore, "yT"),
    curve(kFuT, 10, "Internal Energy u(T)                (isochoric)", 183, kIsochore, "yT"),
    curve(kFuT, 11, "Helmholtz Fu. a(T)                  (isochoric)", 182, kIsochore, "yT"),
    curve(kFuT, 12, "Exergy of U e(T)                      (isochoric)", 181, kIsochore, "yT"),
    curve(kFuT, 13, "Heat capacity  cV(T)              (isochoric)", 185, kIsochore, "yT"),

    group(2, "Functions of p", kFup),
    curve(kFup, 1, "Enthalpy h(p)                (isothermal)", 150, kIsotherm, "yp"),
    curve(kFup, 2, "Entropy s(p)                  (isothermal)", 151, kIsotherm, "yp"),
    curve(kFup, 3, "g(p) = h - T*s                (isothermal)", 152, kIsotherm, "yp"),
    curve(kFup, 4, "Exergy of H e(p)           (isothermal)", 153, kIsotherm, "yp"),
    curve(kFup, 5, "Heat capacity cp(p)      (isothermal)", 154, kIsotherm, "yp"),

    group(3, "Functions of V", kFuV),
    curve(kFuV, 1, "Entropy s(V)               (isothermal)", 158, kIsotherm, "yv"),
    curve(kFuV, 2, "Internal Energy u(V)    (isothermal)", 157, kIsotherm, "yv"),
    curve(kFuV, 3, "Helmholtz Fu. a(V)      (isothermal)", 156, kIsotherm, "yv"),
    curve(kFuV, 4, "Exergy of U e(V)          (isothermal)", 160, kIsotherm, "yv"),
    curve(kFuV, 5, "Heat capacity cV(V)    (isothermal)", 159, kIsotherm, "yv"),

    // The first two rows of the residual menus lead crosswise to each other's diagram, whose title
    // follows the code.
    group(4, "Residual Functions of T", kResFuT),
    curve(kResFuT, 1, "Resid. Entropy              (s - s_id)  (isobaric)", 31, kIsobar, "yT"),
    curve(kResFuT, 2, "Resid. Enthalpy             (h - h_id) (isobaric)", 30, kIsobar, "yT"),
    curve(kResFuT, 3, "Resid. Gibbs Fu.            (g - g_id) = RT ln(phi)  (isobaric)", 32,
          kIsobar, "yT"),
    curve(kResFuT, 4, "Resid. Heat Capacity     (cp - c_id) (isobaric)", 33, kIsobar, "yT"),

    group(5, "Residual Functions of p", kResFup),
    curve(kResFup, 1, "Resid. Entropy              (s - s_id)  (isothermal)", 41, kIsotherm, "yp"),
    curve(kResFup, 2, "Resid. Enthalpy             (h - h_id) (isothermal)", 40, kIsotherm, "yp"),
    curve(kResFup, 3, "Resid. Gibbs Fu.            (g - g_id) = RT ln(phi)  (isothermal)", 42,
          kIsotherm, "yp"),
    curve(kResFup, 4, "Resid. Heat Capacity     (cp - c_id) (isothermal)", 43, kIsotherm, "yp"),

    group(6, "h - s Diagram", kHS),
    curve(kHS, 1, "isothermal", 107, kIsotherm, "yy"),
    curve(kHS, 2, "isobaric", 24, kIsobar, "yy"),

    group(7, "e - s Diagram", kES),
    curve(kES, 1, "isothermal", 109, kIsotherm, "yy"),
    curve(kES, 2, "isobaric", 23, kIsobar, "yy"),

    group(8, "e - h Diagram", kEH),
    curve(kEH, 1, "isothermal", 21, kIsotherm, "yy"),
    curve(kEH, 2, "isobaric", 22, kIsobar, "yy"),

    group(9, "Projections (Phase Equilibrium L-V)", kProj),
    curve(kProj, 0, "Enthalpy of vaporiz. delta(LV)h(T) acc. to \"Models\"", 13, kProjection, "yT"),
    curve(kProj, 1, "pressure p(v)", 6, kProjection, "pv"),
    curve(kProj, 2, "density rho(p)", 27, kProjection, "yp"),
    curve(kProj, 3, "pv( p)", 106, kProjection, "yp"),
    curve(kProj, 4, "Temperature T( v)", 7, kProjection, "Tv"),
    curve(kProj, 5, "density rho(T)", 8, kProjection, "yT"),
    curve(kProj, 6, "pressure p(T)", 9, kProjection, "pT"),
    line(kProj),
    curve(kProj, 8, "Enthalpy h(T)", 90, kProjection, "yT"),
    curve(kProj, 9, "Entropy s(T)", 91, kProjection, "yT"),
    curve(kProj, 10, "Gibbs Function g(T)", 93, kProjection, "yT"),
    curve(kProj, 11, "Exergy of H e(T)", 94, kProjection, "yT"),
    curve(kProj, 12, "Heat Capacity cp(T)", 92, kProjection, "yT"),
    line(kProj),
    curve(kProj, 14, "ln(p(LV)) vs. 1/T", 10, kProjection, "pT"),
    curve(kProj, 15, "d(ln(p)/d(1/T) vs. 1/T", 11, kProjection, "yT"),

    // The captions of this menu do not stand beside their diagrams; the hints name the diagram.
    group(10, "Database Functions Fu(T)", kData),
    {.parent = kData,
     .control = kData,
     .index = 0,
     .caption = "L density",
     .kind = Kind::Submenu,
     .submenu = kDataVP,
     .hint = "Vapour pressure equations of the database"},
    curve(kData, 1, "Enthalpy of vaporization", 300, kDatabase, "yT", "Density of the liquid"),
    curve(kData, 2, "Ideal-gas heat capacity", 301, kDatabase, "yT", "Volume of the liquid"),
    curve(kData, 3, "L heat capacity", 310, kDatabase, "yT", "Density of the solid"),
    curve(kData, 4, "S heat capacity", 305, kDatabase, "yT", "Enthalpy of vaporization"),
    curve(kData, 5, "Ideal gas heat capacity", 302, kDatabase, "yT",
          "Heat capacity of the ideal gas"),
    curve(kData, 6, "L heat capacity", 303, kDatabase, "yT", "Heat capacity of the liquid"),
    curve(kData, 7, "S heat capacity", 304, kDatabase, "yT", "Heat capacity of the solid"),
    curve(kDataVP, 0, "extended Frost-Kalkwarf equation", 306, kDatabase, "pT"),
    curve(kDataVP, 1, "Wagner equation", 307, kDatabase, "pT"),
    curve(kDataVP, 2, "Antoine equation (Lo-p)", 308, kDatabase, "pT"),
    curve(kDataVP, 3, "Antoine equation (Hi-p)", 309, kDatabase, "pT"),

    surface(0, "Pressure                p(v, T) ", 1),
    surface(1, "Volume                  v(p, T)", 3),
    surface(2, "Temperature          T(p, v)", 4),
    line("mnu3D"),
    surface(4, "Heat Capacity         cp(p, T)", 5),
    surface(5, "Enthalpy                 h(p, T)", 7),
    surface(6, "Entropy                  s(p, T)", 8),
    surface(7, "Gibbs Function       g(p, T)", 9),
    surface(8, "Exergy of H            e(p, T)", 10),
});

}  // namespace

std::span<const Row> graph_rows() {
    return kRows;
}

}  // namespace quor::menu
