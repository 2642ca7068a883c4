#include "diagrams/diagram.h"

#include <array>
#include <map>
#include <set>

#include "app/menu_catalogue.h"
#include "app/menu_graph_rows.h"
#include "diagrams/active_fluid.h"
#include "support/codes.h"

using namespace quor;

namespace {

using diagrams::Axis;

class Catalogue : public ActiveFluid {
  protected:
    diagrams::DiagramTexts texts(int code, const diagrams::Validity& validity = {}) const {
        return diagrams::texts_of(diagrams::diagram_of(code), basis(), validity);
    }
};

struct Expected {
    int code;
    const char *title, *x, *y, *suffix;
};

/// Molar units; the subtitle is the substance, the model and this suffix.
constexpr auto kMolar = std::to_array<Expected>({
    {1, "Isothermal section p - v", "v / (m^3/kmol)", "p / kPa", ""},
    {2, "isothermal section pv-p", "p / kPa", "pv / (kPa*m^3/kmol)", ""},
    {3, "Isobaric section T - v", "v / (m^3/kmol)", "T / K", ""},
    {4, "Isobaric Section T - rho", "rho / (kg/m^3)", "T / K", ""},
    {5, "Isochoric section p - T", "T / K", "p / kPa", ""},
    {6, "Projection p - v", "v / (m^3/kmol)", "p / kPa", ""},
    {7, "Projection T - v", "v / (m^3/kmol)", "T / K", ""},
    {8, "Projection rho - T", "T / K", "rho / (kg/m^3)", ""},
    {9, "Projection p - T", "T / K", "p / kPa", ""},
    {10, "Vapour pressure curve by using CEOS Peng / Robinson", "1/T / (1/K) ", "ln(p/kPa) ", ""},
    {12, "Projection T - rho", "rho / (kg/m^3)", "T / K", ""},
    {15, "molar Enthalpy h", "T / K", "h / (kJ/kmol) ", "  (isobaric section)"},
    {16, "molar Entropy s", "T / K", "s / (kJ/kmol/K) ", "  (isobaric section)"},
    {17, "molar Gibbs Function g", "T / K", "g / (kJ/kmol) ", "  (isobaric section)"},
    {18, "molar Exergy of H", "T / K", "e / (kJ/kmol) ", "  (isobaric section)"},
    {19,
     "molar Heat capacity cp (real) = cp(idGas) + Residual value by EOS, at the respective "
     "saturation pressure",
     "T / K", "cp / (kJ/kmol/K) ", ""},
    {21, "molar Exergy of H e vs. Enthalpy, isothermal", "h / (kJ/kmol) ", "e / (kJ/kmol) ", ""},
    {22, "molar Exergy of H e vs. Enthalpy, isobaric", "h / (kJ/kmol) ", "e / (kJ/kmol) ", ""},
    {23, "molar Exergy of H e vs. (T(surr)* entropy), isobaric", "(T(u) * s) / (kJ/kmol) ",
     "e / (kJ/kmol) ", ""},
    {24, "molar Enthalpy h vs. Entropy s, isobaric", "s / (kJ/kmol/K) ", "h / (kJ/kmol) ", ""},
    {26, "isothermal section rho - p", "p / kPa", "rho / (kg/m^3)", ""},
    {27, "Projection rho - p", "p / kPa", "rho / (kg/m^3)", ""},
    {30, "molar Residual Entropy    (s - s_idG), isobaric", "T / K", "delta s / (kJ/kmol/K) ", ""},
    {31, "molar Residual Enthalpy   (h - h_idG), isobaric", "T / K", "delta h / (kJ/kmol) ", ""},
    {32, "molar Residual Gibbs Function  (g - g_idG) = RT ln(phi), isobaric", "T / K",
     "delta g / (kJ/kmol) ", ""},
    {33, "molar Residual Heat Capacity   (cp - cp_idG), isobaric", "T / K",
     "delta cp / (kJ/kmol/K) ", ""},
    {34, "differential Joule-Thomson coefficient by  EOS, isobaric", "T / K", "delta / (K/kPa)",
     ""},
    {40, "molar Residual Entropy    (s - s_idG), isothermal", "p / kPa", "delta s / (kJ/kmol/K) ",
     ""},
    {41, "molar Residual Enthalpy   (h - h_idG), isothermal", "p / kPa", "delta h / (kJ/kmol) ",
     ""},
    {42, "molar Residual Gibbs Function  (g - g_idG) = RT ln(phi), isothermal", "p / kPa",
     "delta g / (kJ/kmol) ", ""},
    {43, "molar Residual Heat Capacity   (cp - cp_idG), isothermal", "p / kPa",
     "delta cp / (kJ/kmol/K) ", ""},
    {90, "molar Enthalpy H(T) in the phase-equilibrium V - L", "T / K", "h / (kJ/kmol) ", ""},
    {91, "molar Entropy S(T) in the phase-equilibrium V - L", "T / K", "s / (kJ/kmol/K) ", ""},
    {92, "molar Heat Capacity cp(T) in the phase-equilibrium V - L", "T / K", "cp / (kJ/kmol/K) ",
     ""},
    {93, "molar Gibbs Function g(T) in the phase equilibrium V - L", "T / K", "g / (kJ/kmol) ", ""},
    {94, "molar Exergy of H e(T), VLE ", "T / K", "e / (kJ/kmol) ", ""},
    {95, "molar Exergy of U e, VLE", "T / K", "e / (kJ/kmol) ", ""},
    {106, "Projection pv - p", "p / kPa", "pv / (kPa*m^3/kmol)", ""},
    {107, "molar Enthalpy h vs. Entropy s, isothermal", "s / (kJ/kmol/K) ", "h / (kJ/kmol) ", ""},
    {109, "molar Exergy of H e vs. (T(surr)* entropy), isothermal", "(T(u) * s) / (kJ/kmol) ",
     "e / (kJ/kmol) ", ""},
    {150, "molar Enthalpy h", "p / kPa", "h / (kJ/kmol) ", "  (isothermal section)"},
    {151, "molar Entropy s", "p / kPa", "s / (kJ/kmol/K) ", "  (isothermal section)"},
    {152, "molar Gibbs Function g", "p / kPa", "g / (kJ/kmol) ", "  (isothermal section)"},
    {153, "molar Exergy of H", "p / kPa", "e / (kJ/kmol) ", "  (isothermal section)"},
    {154,
     "molar Heat capacity cp (real) = cp(idGas) + Residual value by EOS, at the respective "
     "saturation pressure",
     "p / kPa", "cp / (kJ/kmol/K) ", ""},
    {155, "molar Exergy of U e", "p / kPa", "e / (kJ/kmol) ", "  (isothermal section)"},
    {156, "molar Helmholtz Function a vs. Volume v", "v / (m^3/kmol)", "a / (kJ/kmol) ",
     "  (isothermal section)"},
    {157, "molar Internal Energy vs. Volume v", "v / (m^3/kmol)", "u / (kJ/kmol) ",
     "  (isothermal section)"},
    {158, "molar Entropy s vs. Volume", "v / (m^3/kmol)", "s / (kJ/kmol/K) ", ""},
    {159, "molar Heat capacity cV vs. volume", "v / (m^3/kmol)", "cV / (kJ/kmol/K) ", ""},
    {160, "molar Exergy of U e vs. Volume", "v / (m^3/kmol)", "e / (kJ/kmol) ", ""},
    {181, "molar Exergy of U e", "T / K", "e / (kJ/kmol) ", "  (isochoric section)"},
    {182, "molar Helmholtz Function a vs. Temperature T", "T / K", "a / (kJ/kmol) ",
     "  (isochoric section)"},
    {183, "molar Internal Energy vs. Temperature T", "T / K", "u / (kJ/kmol) ",
     "  (isochoric section)"},
    {184, "molar Entropy s", "T / K", "s / (kJ/kmol/K) ", "  (isochoric section)"},
    {185, "molar Heat Capacity cV(T)            (isochoric)", "T / K", "cV / (kJ/kmol/K) ", ""},
    {190, "Inversion curve delta = 0", "p / kPa", "pv / (kPa*m^3/kmol)", ""},
});

TEST_F(Catalogue, MolarTitlesAxesAndSubtitlesStandAsWorded) {
    activate("Propane");
    for (const Expected& e : kMolar) {
        const auto r = texts(e.code);
        EXPECT_EQ(r.title, e.title) << e.code;
        EXPECT_EQ(r.x, e.x) << e.code;
        EXPECT_EQ(r.y, e.y) << e.code;
        EXPECT_EQ(r.sub_title, std::string("Propane,  CEOS Peng / Robinson") + e.suffix) << e.code;
    }
}

TEST_F(Catalogue, OnlyPrefixedTitlesBecomeSpecific) {
    activate("Propane");
    set_units(3, 1);
    for (const Expected& e : kMolar) {
        std::string title = e.title;
        if (title.starts_with("molar ")) title.replace(0, 5, "specific");
        EXPECT_EQ(texts(e.code).title, title) << e.code;
    }
}

/// Texts for CaloricUnit 1, 2, 3 by the text for unit 0.
const std::map<std::string, std::array<std::string, 3>>& families() {
    static const std::map<std::string, std::array<std::string, 3>> texts = {
        {"h / (kJ/kmol) ", {"h / K", "h / (R T)", "h / (kJ/kg) "}},
        {"s / (kJ/kmol/K) ", {"s / R ", "s / (1/K) ", "s / (kJ/kg/K)) "}},
        {"g / (kJ/kmol) ", {"g / K", "g / (R T)", "g / (kJ/kg) "}},
        {"a / (kJ/kmol) ", {"a / K", "a / (R T)", "a / (kJ/kg) "}},
        {"u / (kJ/kmol) ", {"u / K", "u / (R T)", "u / (kJ/kg) "}},
        {"e / (kJ/kmol) ", {"e / K", "e / (R T)", "e / (kJ/kg) "}},
        {"cp / (kJ/kmol/K) ", {"cp / R ", "cp / (1/K) ", "cp / (kJ/kg/K)) "}},
        {"cV / (kJ/kmol/K) ", {"cV / R ", "cV / (1/K) ", "cV / (kJ/kg/K)) "}},
        {"delta(LV)h / (kJ/kmol) ",
         {"delta(LV)h / K", "delta(LV)h / (R T)", "delta(LV)h / (kJ/kg) "}},
        {"delta s / (kJ/kmol/K) ", {"delta s / R ", "delta s / (1/K) ", "delta s / (kJ/kg/K)) "}},
        {"delta h / (kJ/kmol) ", {"delta h / K", "delta h / (R T)", "delta h / (kJ/kg) "}},
        {"delta g / (kJ/kmol) ", {"delta g / K", "delta g / (R T)", "delta g / (kJ/kg) "}},
        {"delta cp / (kJ/kmol/K) ",
         {"delta cp / R ", "delta cp / (1/K) ", "delta cp /(kJ/ (kg K)) "}},
        {"(T(u) * s) / (kJ/kmol) ",
         {"(T(surr) * s) / K ", "(T(surr) *s) / (R T) ", "T(surr) * s / (kJ/kg) "}},
    };
    return texts;
}

TEST_F(Catalogue, LabelsFollowTheCaloricUnit) {
    activate("Propane");
    const auto follows = [](const std::string& molar, int unit) {
        const auto family = families().find(molar);
        return family == families().end() ? molar
                                          : family->second[static_cast<std::size_t>(unit - 1)];
    };
    for (const int unit : {1, 2, 3}) {
        set_units(unit, 0);
        for (const Expected& e : kMolar) {
            const auto r = texts(e.code);
            std::string x = follows(e.x, unit);
            std::string y = follows(e.y, unit);
            if ((e.code == 21 || e.code == 22) && unit < 3) x += " ";
            if (e.code == 185 && unit == 1) y = "cp / R ";
            EXPECT_EQ(r.x, x) << e.code << " unit " << unit;
            EXPECT_EQ(r.y, y) << e.code << " unit " << unit;
        }
    }
}

TEST_F(Catalogue, VolumesFollowTheUnitMode) {
    activate("Propane");
    set_units(3, 1);
    EXPECT_EQ(texts(1).x, "v / (m^3/kg)");
    EXPECT_EQ(texts(2).y, "pv / (kPa*m^3/kg)");
    EXPECT_EQ(texts(301).y, "v / (m^3/kg)");
    set_units(0, 2);
    EXPECT_EQ(texts(1).x, "V(red)");
    EXPECT_EQ(texts(2).y, "p(red) * v(red)");
    EXPECT_EQ(texts(301).y, "v / (m^3/kmol)") << "never reduced";
}

TEST_F(Catalogue, ReducedModeNamesEveryAxisByWhatItShows) {
    activate("Propane");
    set_units(0, 2);
    for (const diagrams::Diagram& row : diagrams::all_diagrams()) {
        if (!row.opens()) continue;
        const auto r = texts(row.code);
        EXPECT_EQ(r.x == "p / p(cr)", row.x == diagrams::Axis::p) << row.code;
        EXPECT_EQ(r.x == "T / T(cr)", row.x == diagrams::Axis::T) << row.code;
        EXPECT_EQ(r.y == "p / p(cr)", row.y == diagrams::Axis::p) << row.code;
        EXPECT_EQ(r.y == "T / T(cr)", row.y == diagrams::Axis::T) << row.code;
    }
    EXPECT_EQ(texts(10).x, "1 / T(red)");
    EXPECT_EQ(texts(10).y, "ln (p/p(cr))");
    EXPECT_EQ(texts(11).x, "1 / T(red)");
    EXPECT_EQ(texts(11).y, "dln(p/kPa) / d(1/T) ");
    EXPECT_EQ(texts(9).y, "p / p(cr)");
    EXPECT_EQ(texts(90).x, "T / T(cr)");
}

TEST_F(Catalogue, VapourPressureDiagramsNameTheirSource) {
    activate("Propane");
    EXPECT_EQ(texts(9).sub_title, "Propane,  CEOS Peng / Robinson");
    EXPECT_EQ(texts(11).sub_title, "Propane,  Wagner");
    EXPECT_EQ(texts(13).title, "molar Heat of vaporization delta(LV)h = F(T)");
    EXPECT_EQ(texts(13).sub_title, "Propane,  Chen-correlation");

    selection.eos_has_priority = false;
    EXPECT_EQ(texts(9).sub_title, "Propane,  vapour press. equ. Wagner");
    EXPECT_EQ(texts(10).title, "Vapour pressure equation Wagner");
    EXPECT_EQ(texts(10).sub_title, "Propane,  Wagner");
}

TEST_F(Catalogue, DatabaseFunctionsTellTheirValidity) {
    activate("Propane");
    const auto with_window = [this](int code) { return texts(code, {86, 369}); };
    EXPECT_EQ(with_window(300).title, "L-density from data-bank function");
    EXPECT_EQ(with_window(300).sub_title,
              "Propane,  L-density, data-bank function, validity T = 86 ...369 K");
    EXPECT_EQ(with_window(301).title, "molar volume from database function rho(L) = F(T)");
    EXPECT_EQ(with_window(301).sub_title,
              "Propane,  volume from database function, validity T =86 ...369 K");
    EXPECT_EQ(with_window(302).sub_title,
              "Propane, ideal gas heat capacity (database functionPolynom), validity T = 86 ...369 "
              "K");
    EXPECT_EQ(with_window(303).sub_title,
              "Propane, liquid heat capacity cp(L) (database function), validity T = 86 ...369 K");
    EXPECT_EQ(with_window(304).sub_title,
              "Propane, solid gas heat capacity cp(S) (database function), validity T = 86 ...369 "
              "K");
    EXPECT_EQ(with_window(305).sub_title,
              "Propane, enthalpy of vaporization (database function), validity T = 86 ...369 K");
    EXPECT_EQ(with_window(310).sub_title,
              "Propane, S density, database function, validity T = 86 ...369 K");
    EXPECT_EQ(with_window(307).title, "saturation pressure pLV = Fu(T), Datenbankfunktion Wagner");
    EXPECT_EQ(with_window(306).title,
              "saturation pressure pLV = Fu(T), Datenbankfunktion FROST/KALKWARF");
    EXPECT_EQ(with_window(309).sub_title,
              "Propane, saturation pressure (database function), validity T = 86 ...369 K");

    selection.cp_form = codes::cp(2);
    EXPECT_EQ(with_window(302).sub_title,
              "Propane, ideal gas heat capacity (database functionsinh/cosh function), validity T "
              "= 86 ...369 K");
    EXPECT_EQ(with_window(302).title,
              "molar Ideal Gas Heat-Capacity cp = Fu(T), Database Function");
    EXPECT_EQ(with_window(302).y, "cp / (kJ/kmol/K) ");
    set_units(3, 1);
    EXPECT_EQ(with_window(301).title, "specific volume from database function rho(L) = F(T)");
    EXPECT_EQ(with_window(302).y, "cp / (kJ/kg/K) ");
    EXPECT_EQ(with_window(303).title,
              "specific Liquid Heat-Capacity cp = Fu(T), Database Function");
    EXPECT_EQ(with_window(305).y, "delta(LV)h / (kJ/kg) ");
}

TEST_F(Catalogue, EveryMenuRowHasItsDiagram) {
    int rows = 0;
    for (const menu::Row& row : menu::graph_rows()) {
        if (row.action != "Diagram2D") continue;
        ++rows;
        const diagrams::Diagram* found = diagrams::find_diagram(row.code);
        ASSERT_NE(found, nullptr) << row.caption;
        EXPECT_TRUE(found->opens()) << row.caption;
        EXPECT_EQ(found->section == diagrams::Section::database, found->x_limits.low == nullptr);
    }
    EXPECT_EQ(rows, 6 + 11 + 5 + 5 + 4 + 4 + 6 + 14 + 7 + 4);
}

TEST_F(Catalogue, ResidualMenuLeadsCrosswise) {
    activate("Propane");
    const menu::Row* entropy = menu::find("mnuGraf_sub_res_FuT_1");
    ASSERT_NE(entropy, nullptr);
    EXPECT_TRUE(entropy->caption.starts_with("Resid. Entropy"));
    EXPECT_EQ(texts(entropy->code).title, "molar Residual Enthalpy   (h - h_idG), isobaric");
}

TEST_F(Catalogue, ProjectionsNeedACubicEquation) {
    activate_vapour_only("Propane");
    const auto answer = [&](int code) {
        return diagrams::opening_answer(diagrams::diagram_of(code), fluid());
    };
    const std::string refusal =
        "Phase equlilibria calculations are possible by using a cubic EOS only";
    for (const int code : {6, 7, 8, 27, 90, 94}) {
        EXPECT_FALSE(answer(code).opens) << code;
        EXPECT_EQ(answer(code).text, refusal) << code;
    }
    for (const int code : {9, 10, 11, 13}) {
        EXPECT_TRUE(answer(code).opens) << code;
        EXPECT_TRUE(answer(code).text.starts_with(refusal + "\nCurve according to the actual "))
            << code;
    }
    EXPECT_TRUE(answer(106).opens);
    EXPECT_EQ(answer(106).text, "");
    activate("Propane");
    EXPECT_EQ(answer(6).text, "");
}

TEST_F(Catalogue, HeatCapacityNeedsAnIdealGasForm) {
    activate("Propane");
    const diagrams::Diagram& heatCapacity = diagrams::diagram_of(19);
    EXPECT_TRUE(diagrams::opening_answer(heatCapacity, fluid()).opens);
    selection.cp_form = codes::cp(0);
    EXPECT_FALSE(diagrams::opening_answer(heatCapacity, fluid()).opens);
    EXPECT_EQ(diagrams::opening_answer(heatCapacity, fluid()).text,
              "No cp(idGas) parameters available");
}

TEST_F(Catalogue, ANumberOfNoDiagramIsRefused) {
    EXPECT_EQ(diagrams::find_diagram(14), nullptr);
    EXPECT_EQ(diagrams::find_diagram(0), nullptr);
    EXPECT_EQ(diagrams::find_diagram(1000), nullptr);
    EXPECT_THROW((void)diagrams::diagram_of(14), std::out_of_range);
}

TEST_F(Catalogue, EveryCodeThatARowNamesHasARow) {
    int named = 0;
    for (const diagrams::Diagram& row : diagrams::all_diagrams()) {
        EXPECT_NE(row.compute, nullptr) << row.code;
        for (const int code : {row.dome, row.inversion, row.bisection, row.base}) {
            if (code == 0) continue;
            ++named;
            EXPECT_NE(diagrams::find_diagram(code), nullptr) << row.code << " names " << code;
        }
        const diagrams::Diagram& home = diagrams::home_of(row);
        const bool isProcess = row.section == diagrams::Section::process;
        EXPECT_NE(home.opens(), isProcess) << row.code;
    }
    EXPECT_GT(named, 50);
}

}  // namespace
