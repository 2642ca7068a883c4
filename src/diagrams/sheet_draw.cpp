#include "diagrams/sheet_draw.h"

#include <algorithm>
#include <array>

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "common/text.h"
#include "diagrams/catalogue.h"
#include "legacy/declare.h"
#include "models/model_tables.h"
#include "session/module2.h"

namespace quor::Module9 {

namespace {

using legacy::the_session;

constexpr std::int16_t kIsochoreDiagram = 5;
constexpr std::int16_t kFirstProcessLine = 201, kLastProcessLine = 211;

// Codes of the coexistence curve in the diagrams in which it can be added.
struct CodePair {
    std::int16_t diagram, coexistence;
};
constexpr auto kCoexistence = std::to_array<CodePair>(
    {{1, 6},     {2, 106},   {3, 7},     {4, 12},   {5, 9},     {15, 90},  {16, 91},   {184, 91},
     {17, 93},   {18, 94},   {19, 92},   {21, 96},  {22, 96},   {23, 121}, {109, 121}, {24, 120},
     {107, 120}, {26, 27},   {150, 70},  {151, 71}, {152, 73},  {153, 74}, {154, 72},  {155, 75},
     {156, 97},  {157, 100}, {158, 101}, {159, 89}, {160, 102}, {181, 95}, {182, 98},  {183, 99}});

// Projections that a diagram of their own shows as one line for each branch.
constexpr auto kOwnBranches =
    std::to_array<std::int16_t>({6, 7, 12, 27, 90, 91, 92, 93, 94, 95, 106});

std::string point(double value, std::string_view mask) {
    return numbers::format_point(value, mask);
}

std::string temperature() {
    return point(the_session.DiagramT, "####0.0# K ");
}

std::string pressure() {
    return point(the_session.DiagramP, "#####0.0# kPa ");
}

CurveName plain(const std::string& legend) {
    return {legend, legend};
}

CurveName process_line_name() {
    constexpr std::array<std::string_view, 7> kKinds{
        "free straight line", "Isotherm",    "Isobar",    "Isochore ",
        "Isentropic",         "Isenthalpic", "Polytropic"};
    const std::size_t kind = std::min<std::size_t>(legacy::the_processLine.Kind, kKinds.size() - 1);
    std::string name(kKinds[kind]);
    if (kind == 1) name += " " + temperature();
    if (kind == 2) name += " " + pressure();
    return plain("(" + name + ") ");
}

CurveName isochore_name(bool criticalPointMarked, std::int16_t code) {
    if (!criticalPointMarked || code != kIsochoreDiagram)
        return plain(point(the_session.DiagramV, "####0.0#### m^3/kmol "));
    const double vcrit = legacy::the_eosParameters.vcritCalc;
    const bool specific = the_session.UnitMode == 1;
    const double shown =
        specific ? the_session.DiagramV * the_session.VolumeFactor : the_session.DiagramV;
    const std::string volume = point(shown, "###0.0####") + (specific ? " m^3/kg " : " m^3/kmol ");
    // The volume counts as critical when it shows the digits of the critical one.
    constexpr std::string_view kDigits = "###0.0####";
    if (point(the_session.DiagramV, kDigits) == point(vcrit, kDigits))
        return {volume + " (cr) ", volume + "(cr)"};
    if (the_session.DiagramV > vcrit) return {volume + " (V) ", volume + "(V)"};
    return {volume + " (L) ", volume + "(L)"};
}

/// Names of the list of equations are padded with blanks.
std::string equation_name(std::string_view code) {
    return text::trim(models::vp_name(models::vp_of_code(code)));
}

std::string database_equation(std::int16_t code) {
    switch (code) {
        case 300:
            return "rho(L) = Fu(T)";
        case 301:
            return "v(L) = M / rho(L)";
        case 302:
            return "cp(id. gas) = Fu(T)";
        case 303:
            return "cp(L) = Fu(T)";
        case 304:
            return "cp(S) = Fu(T)";
        case 305:
            return "delta(LV)h = Fu(T)";
        case 306:
            return equation_name("FRO");
        case 307:
            return equation_name("WAG");
        case 308:
            return equation_name("ALP");
        case 309:
            return equation_name("AHP");
        case 310:
            return "rho(S) = Fu(T)";
        default:
            return "Fu(T)";
    }
}

/// The range in which a curve is computed: the coordinates, and what is shown beside them.
diagrams::DiagramRequest computing_request(const DiagramSheet& sheet) {
    diagrams::DiagramRequest request = sheet.request;
    const chart::Window shown = chart::shown_window(sheet.chart);
    request.xMin = std::min(request.xMin, static_cast<float>(shown.x.min));
    request.xMax = std::max(request.xMax, static_cast<float>(shown.x.max));
    request.yMin = std::min(request.yMin, static_cast<float>(shown.y.min));
    request.yMax = std::max(request.yMax, static_cast<float>(shown.y.max));
    return request;
}

/// The kinds that complete their texts while they are computed.
void take_texts(DiagramSheet& sheet, const diagrams::DiagramRequest& computed) {
    if (computed.title == sheet.request.title && computed.subTitle == sheet.request.subTitle)
        return;
    sheet.request.title = computed.title;
    sheet.request.subTitle = computed.subTitle;
    show_texts(sheet);
}

}  // namespace

std::int16_t coexistence_code_of(std::int16_t DiagramType) {
    const auto found = std::find_if(kCoexistence.begin(), kCoexistence.end(),
                                    [&](const CodePair& p) { return p.diagram == DiagramType; });
    return found == kCoexistence.end() ? std::int16_t{0} : found->coexistence;
}

bool has_branches(std::int16_t code) {
    if (std::find(kOwnBranches.begin(), kOwnBranches.end(), code) != kOwnBranches.end())
        return true;
    constexpr std::int16_t kVapourPressure = 9;
    return code != kVapourPressure &&
           std::any_of(kCoexistence.begin(), kCoexistence.end(),
                       [&](const CodePair& p) { return p.coexistence == code; });
}

CurveName name_of(const diagrams::DiagramRequest& request, bool criticalPointMarked) {
    if (request.DiagramType >= kFirstProcessLine && request.DiagramType <= kLastProcessLine)
        return process_line_name();
    if (the_session.TieLineRequested) return plain("Tie-Line V-L ");
    switch (request.sectionKind) {
        case kIsothermal:
            return {"(" + temperature() + ") ", temperature()};
        case kIsobaric:
            return plain(pressure());
        case kIsochoric:
            return isochore_name(criticalPointMarked, request.DiagramType);
        case kInversion:
            return {"Inversion curve", "delta = 0 "};
        case kProjection:
            return plain("VLE ");
        case kDatabase:
            return plain("(" + database_equation(request.DiagramType) + ")");
        default:
            return {};
    }
}

DrawOutcome draw_curve(DiagramSheet& sheet, const std::string& branch) {
    session::refresh_units();
    DrawOutcome outcome;
    diagrams::CurvePointArray points;
    diagrams::CurveResult result;
    diagrams::DiagramRequest request = computing_request(sheet);
    {
        const session::BusyPointer busy;
        result = diagrams::calc_curve(request, points, the_session.DiagramT, the_session.DiagramP,
                                      the_session.DiagramV);
    }
    outcome.status = result.status;
    const diagrams::StatusText said = diagrams::TextOf(result);
    if (!said.text.empty()) dialogs::tell(said.text, said.title);
    if (!diagrams::is_drawn(result.status)) return outcome;

    take_texts(sheet, request);
    // The series ends at the range in which it was computed.
    std::swap(sheet.request.xMax, request.xMax);
    outcome.slot = store_curve(sheet, points);
    std::swap(sheet.request.xMax, request.xMax);
    if (outcome.slot < 0) return outcome;
    const bool marked = has_critical_point(sheet, true) || has_critical_point(sheet, false);
    const CurveName name = name_of(sheet.request, marked);
    name_curve(sheet, outcome.slot, name.legend + branch, name.label + branch);
    return outcome;
}

bool draw_both_branches(DiagramSheet& sheet) {
    if (!has_branches(sheet.request.DiagramType)) return draw_curve(sheet).slot >= 0;
    the_session.CoexistenceRequested = true;
    the_session.VapourFraction = 0;
    bool drawn = draw_curve(sheet, " (L)").slot >= 0;
    if (drawn) {
        the_session.VapourFraction = 1;
        drawn = draw_curve(sheet, " (V)").slot >= 0;
    }
    the_session.VapourFraction = 1;
    the_session.CoexistenceRequested = false;
    return drawn;
}

bool Draw(DiagramSheet& sheet) {
    if (sheet.SwappedAxes || !diagrams::has_curve(sheet.request.DiagramType)) return false;
    the_session.CaloricFactor =
        session::caloric_factor_of(the_session.CaloricUnit, the_session.DiagramT);
    if (sheet.request.sectionKind == kProjection) return draw_both_branches(sheet);
    return draw_curve(sheet).slot >= 0;
}

}  // namespace quor::Module9
