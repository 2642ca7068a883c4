#include "diagrams/catalogue.h"

#include <algorithm>
#include <array>

#include "common/numbers.h"
#include "common/text.h"
#include "diagrams/database_functions.h"
#include "models/model_tables.h"

namespace quor::Module9 {

namespace {

using legacy::the_models;
using legacy::the_session;
using Texts = std::array<std::string_view, 4>;  // by CaloricUnit

constexpr std::int16_t kSpecific = 3;  // CaloricUnit
constexpr std::int16_t kReduced = 2;   // UnitMode

/// Texts of the axes that do not follow the volume unit, in the order of `Axis`. The doubled
/// brackets are part of the wording.
constexpr Texts same(std::string_view text) {
    return {text, text, text, text};
}

constexpr std::array kAxisTexts = {
    same("T / K"),
    same("p / kPa"),
    same(""),  // v, by UnitMode
    same("rho / (kg/m^3)"),
    same(""),  // pv, by UnitMode
    same("1/T / (1/K) "),
    same("1/T / (1/K)"),
    same("ln(p/kPa) "),
    same("dln(p/kPa) / d(1/T) "),
    same("delta / (K/kPa)"),
    Texts{"h / (kJ/kmol) ", "h / K", "h / (R T)", "h / (kJ/kg) "},
    Texts{"h / (kJ/kmol) ", "h / K ", "h / (R T) ", "h / (kJ/kg) "},
    Texts{"s / (kJ/kmol/K) ", "s / R ", "s / (1/K) ", "s / (kJ/kg/K)) "},
    Texts{"g / (kJ/kmol) ", "g / K", "g / (R T)", "g / (kJ/kg) "},
    Texts{"a / (kJ/kmol) ", "a / K", "a / (R T)", "a / (kJ/kg) "},
    Texts{"u / (kJ/kmol) ", "u / K", "u / (R T)", "u / (kJ/kg) "},
    Texts{"e / (kJ/kmol) ", "e / K", "e / (R T)", "e / (kJ/kg) "},
    Texts{"cp / (kJ/kmol/K) ", "cp / R ", "cp / (1/K) ", "cp / (kJ/kg/K)) "},
    Texts{"cp / (kJ/kmol/K) ", "cp / R ", "cp / (1/K) ", "cp / (kJ/kg/K) "},
    Texts{"cV / (kJ/kmol/K) ", "cV / R ", "cV / (1/K) ", "cV / (kJ/kg/K)) "},
    Texts{"cV / (kJ/kmol/K) ", "cp / R ", "cV / (1/K) ", "cV / (kJ/kg/K)) "},
    Texts{"delta(LV)h / (kJ/kmol) ", "delta(LV)h / K", "delta(LV)h / (R T)",
          "delta(LV)h / (kJ/kg) "},
    Texts{"delta s / (kJ/kmol/K) ", "delta s / R ", "delta s / (1/K) ", "delta s / (kJ/kg/K)) "},
    Texts{"delta h / (kJ/kmol) ", "delta h / K", "delta h / (R T)", "delta h / (kJ/kg) "},
    Texts{"delta g / (kJ/kmol) ", "delta g / K", "delta g / (R T)", "delta g / (kJ/kg) "},
    Texts{"delta cp / (kJ/kmol/K) ", "delta cp / R ", "delta cp / (1/K) ",
          "delta cp /(kJ/ (kg K)) "},
    Texts{"(T(u) * s) / (kJ/kmol) ", "(T(surr) * s) / K ", "(T(surr) *s) / (R T) ",
          "T(surr) * s / (kJ/kg) "},
};
static_assert(kAxisTexts.size() == static_cast<std::size_t>(Axis::Tenvs) + 1);

constexpr std::array<std::string_view, 3> kVolumeTexts = {"v / (m^3/kmol)", "v / (m^3/kg)",
                                                          "V(red)"};
constexpr std::array<std::string_view, 3> kPvTexts = {"pv / (kPa*m^3/kmol)", "pv / (kPa*m^3/kg)",
                                                      "p(red) * v(red)"};

/// A text of reduced mode for a run of codes.
struct ReducedRule {
    std::int16_t first, last;
    ReducedText text;
};

constexpr ReducedText kxp{"p / p(cr)", ""};
constexpr ReducedText kxT{"T / T(cr)", ""};
constexpr ReducedText kyp{"", "p / p(cr)"};
constexpr ReducedText kyT{"", "T / T(cr)"};

constexpr auto kReducedRules = std::to_array<ReducedRule>({
    {306, 309, kyp},
    {2, 2, kxp},
    {26, 27, kxp},
    {40, 43, kxp},
    {106, 106, kxp},
    {190, 190, kxp},
    {150, 155, kxp},
    {5, 5, kxT},
    {8, 9, kxT},
    {105, 105, kxT},
    {13, 20, kxT},
    {30, 34, kxT},
    {181, 185, kxT},
    {300, 310, kxT},
    {1, 1, kyp},
    {6, 6, kyp},
    {3, 4, kyT},
    {7, 7, kyT},
    {12, 12, kyT},
    {10, 10, {"1 / T(red)", "ln (p/p(cr))"}},
    {11, 11, {"1 / T(red)", ""}},
});

std::string eos_name() {
    return text::trim(models::EOSName(the_models.EOSModel));
}

std::string vapour_pressure_name() {
    return text::trim(models::vp_name(the_models.VPModel));
}

/// Code 10 draws the equilibrium of the EOS only where the EOS has priority and has one.
bool vapour_pressure_by_eos() {
    return the_models.PriorityCEOS && !the_models.EOSOnlyV;
}

std::string title_of(const CatalogueRow& row) {
    std::string title(row.title);
    if (row.code == 10)
        return vapour_pressure_by_eos() ? title + eos_name()
                                        : "Vapour pressure equation " + vapour_pressure_name();
    if (row.code == 301 && the_session.CaloricUnit == kSpecific)
        title = "specific" + title.substr(std::string_view("molar").size());
    if (const std::string_view equation = pressure_equation_of(row.code); !equation.empty())
        title += text::trim(models::vp_name(models::vp_of_code(equation)));
    if (row.prefixed)
        title.insert(0, the_session.CaloricUnit == kSpecific ? "specific " : "molar ");
    return title;
}

std::string validity_text(const CatalogueRow& row, const diagrams::DiagramRequest& request) {
    std::string text(row.suffix);
    if (row.code == 302)
        text += the_models.CpModel == models::CpForm::sinhCosh ? "sinh/cosh function)" : "Polynom)";
    if (row.code != 300 && row.code != 301) text += ", validity T = ";
    return text + numbers::General(request.validityLow) + " ..." +
           numbers::General(request.validityHigh) + " K";
}

std::string sub_title_of(const CatalogueRow& row, const diagrams::DiagramRequest& request) {
    const std::string& name = legacy::the_substance.Name;
    switch (row.subTitle) {
        case SubTitle::database:
            return name + validity_text(row, request);
        case SubTitle::vaporisation:
            return name + ",  " + text::trim(models::hlv_name(the_models.HLVModel));
        case SubTitle::vapourPressure:
            if (!vapour_pressure_by_eos())
                return name + ",  vapour press. equ. " + vapour_pressure_name();
            [[fallthrough]];
        default:
            return name + ",  " + the_session.CurveModelName + std::string(row.suffix);
    }
}

/// The volume of the database equation is molar or specific, never reduced.
std::string_view axis_text_of(std::int16_t code, Axis axis) {
    if (code == 301 && axis == Axis::v) return kVolumeTexts[liquid_volume_is_specific() ? 1 : 0];
    return AxisText(axis, the_session.CaloricUnit, the_session.UnitMode);
}

}  // namespace

std::string_view AxisText(Axis axis, std::int16_t CaloricUnit, std::int16_t UnitMode) {
    const auto mode = static_cast<std::size_t>(std::clamp<std::int16_t>(UnitMode, 0, 2));
    if (axis == Axis::v) return kVolumeTexts[mode];
    if (axis == Axis::pv) return kPvTexts[mode];
    const auto unit = static_cast<std::size_t>(std::clamp<std::int16_t>(CaloricUnit, 0, 3));
    return kAxisTexts[static_cast<std::size_t>(axis)][unit];
}

ReducedText reduced_text_of(std::int16_t DiagramType) {
    ReducedText text;
    for (const ReducedRule& rule : kReducedRules) {
        if (DiagramType < rule.first || DiagramType > rule.last) continue;
        if (!rule.text.x.empty()) text.x = rule.text.x;
        if (!rule.text.y.empty()) text.y = rule.text.y;
    }
    return text;
}

std::string CurveModelName(std::int16_t DiagramType) {
    const bool correlation = DiagramType == 11 || (DiagramType == 10 && !vapour_pressure_by_eos());
    return correlation ? vapour_pressure_name() : eos_name();
}

void FillTexts(diagrams::DiagramRequest& request) {
    const CatalogueRow* row = find_row(request.DiagramType);
    if (row == nullptr) return;
    request.title = title_of(*row);
    request.subTitle = sub_title_of(*row, request);
    request.xLabel = axis_text_of(row->code, row->x);
    request.yLabel = axis_text_of(row->code, row->y);
    if (the_session.UnitMode != kReduced) return;
    const ReducedText reduced = reduced_text_of(row->code);
    if (!reduced.x.empty()) request.xLabel = reduced.x;
    if (!reduced.y.empty()) request.yLabel = reduced.y;
}

OpeningAnswer AnswerOf(const diagrams::DiagramRequest& request) {
    const std::int16_t code = request.DiagramType;
    if (code == 19 && the_models.CpModel == models::CpForm::none)
        return {false, "No cp(idGas) parameters available"};
    if (request.sectionKind == kDatabase && !HasDatabaseFunction(code))
        return {false, "No parameters for this function in the database"};
    if (request.sectionKind != kProjection || !the_models.EOSOnlyV || code == 106) return {};

    // What a correlation gives is drawn all the same, and said.
    const std::string refusal =
        "Phase equlilibria calculations are possible by using a cubic EOS only";
    const std::string instead = "\nCurve according to the actual ";
    if (code >= 9 && code <= 11) return {true, refusal + instead + "vapour pressure equation"};
    if (code == 13) return {true, refusal + instead + "model of the enthalpy of vaporization"};
    return {false, refusal};
}

}  // namespace quor::Module9
