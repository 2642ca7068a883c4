#include "diagrams/sheet_marks.h"
#include "legacy/current_fluid.h"
#include "legacy/wrappers.h"

#include <cmath>
#include <initializer_list>
#include <string>

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "diagrams/catalogue.h"
#include "diagrams/project_state.h"
#include "diagrams/sheet_draw.h"
#include "legacy/declare.h"
#include "models/caloric.h"
#include "models/state_solver.h"
#include "models/vapour_pressure.h"
#include "session/module2.h"

namespace quor::Module9 {

namespace {

using legacy::the_models;
using legacy::the_session;
using legacy::the_substance;

constexpr auto kRefused = "Execution not possible";
constexpr float kFarT = -1e10F, kFarP = -1e6F, kFarV = -1e8F;
constexpr double kPlaceOfText = 1.0 / 6.0;  // of the window
constexpr chart::Colour kMarkColour = chart::rgb(0x6B7280);

constexpr std::int16_t kLogarithmic = 10, kSlope = 11;
constexpr std::int16_t kRhoTProjection = 8, kBisectionCode = 80;

bool is_one_of(std::int16_t code, std::initializer_list<int> codes) {
    for (const int one : codes)
        if (one == code) return true;
    return false;
}

/// Where an axis of the diagram shows a quantity.
enum class Direction { None, Vertical, Horizontal };

Direction direction_of(const diagrams::DiagramRequest& request,
                       std::initializer_list<Axis> quantities) {
    const CatalogueRow* row = find_row(request.DiagramType);
    if (row == nullptr) return Direction::None;
    for (const Axis quantity : quantities) {
        if (row->x == quantity) return Direction::Vertical;
        if (row->y == quantity) return Direction::Horizontal;
    }
    return Direction::None;
}

Direction direction_of_T(const diagrams::DiagramRequest& request) {
    return direction_of(request, {Axis::T, Axis::inverseT, Axis::inverseTSlope});
}
Direction direction_of_p(const diagrams::DiagramRequest& request) {
    return direction_of(request, {Axis::p, Axis::lnp});
}
Direction direction_of_v(const diagrams::DiagramRequest& request) {
    return direction_of(request, {Axis::v});
}
Direction direction_of_rho(const diagrams::DiagramRequest& request) {
    return direction_of(request, {Axis::rho});
}

struct ReferenceLine {
    int labelIndex;
    double value;  ///< in displayed units
    std::string text;
    float far;  ///< where the line begins
};

/// A line across the window with a text at one sixth of it.
void add_line(DiagramSheet& sheet, Direction direction, const ReferenceLine& line) {
    auto& curves = sheet.chart.curves;
    chart::series_at(sheet.chart, chart::Group::Curves, kFirstReferenceLine - 1);
    chart::Series series;
    series.isReference = true;
    series.inLegend = false;
    series.legend = line.text;  // by which it is found again
    series.line = {chart::LinePattern::Dashed, kMarkColour, 1};
    series.symbol = chart::SymbolShape::Hidden;

    chart::Label label;
    label.index = line.labelIndex;
    label.text = line.text;
    label.textColour = kMarkColour;
    const auto value = static_cast<float>(line.value);
    const chart::WindowScale scale(sheet.chart);
    constexpr double kClear = 9;  // pixels between line and text
    if (direction == Direction::Vertical) {
        series.x = {value, value};
        series.y = {line.far, static_cast<float>(sheet.chart.y.max)};
        label.x = line.value;
        label.y = scale.y(kPlaceOfText);
        label.rotation = 90;
        label.dx = kClear;
    } else {
        series.x = {line.far, static_cast<float>(sheet.chart.x.max)};
        series.y = {value, value};
        label.x = scale.x(kPlaceOfText);
        label.y = line.value;
        label.dy = -kClear;
    }
    curves.push_back(std::move(series));
    sheet.chart.labels.push_back(std::move(label));
}

/// Takes away an earlier line of the same meaning.
void remove_line(DiagramSheet& sheet, int labelIndex, std::string_view text) {
    std::erase_if(sheet.chart.labels, [&](const chart::Label& l) { return l.index == labelIndex; });
    std::erase_if(sheet.chart.curves,
                  [&](const chart::Series& s) { return s.isReference && s.legend == text; });
}

bool refuse_vapour_only(const char* text) {
    if (!the_models.EOSOnlyV) return false;
    dialogs::tell(text, kRefused);
    return true;
}

constexpr auto kTooHot = "only possible in the 2-phase region V-L  (T<T(cr))";
constexpr auto kTooHigh = "only possible in the 2-phase region V-L  (p<p(cr))";

bool refuse_supercritical_T() {
    if (the_session.DiagramT < the_substance.Tcrit) return false;
    dialogs::tell(kTooHot, kRefused);
    return true;
}

bool refuse_supercritical_p() {
    if (the_session.DiagramP < the_substance.pcrit) return false;
    dialogs::tell(kTooHigh, kRefused);
    return true;
}

/// Another code and section kind while a mark runs.
class Borrowed {
  public:
    Borrowed(DiagramSheet& sheet, std::int16_t code, std::int16_t sectionKind)
        : request_(sheet.request), code_(request_.DiagramType), kind_(request_.sectionKind) {
        request_.DiagramType = code;
        request_.sectionKind = sectionKind;
    }
    ~Borrowed() {
        request_.DiagramType = code_;
        request_.sectionKind = kind_;
    }
    Borrowed(const Borrowed&) = delete;
    Borrowed& operator=(const Borrowed&) = delete;

  private:
    diagrams::DiagramRequest& request_;
    std::int16_t code_, kind_;
};

/// A session flag while a mark runs.
class Raised {
  public:
    explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
    ~Raised() { flag_ = false; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

  private:
    bool& flag_;
};

bool s_curve_is_isothermal(std::int16_t code) {
    return is_one_of(code, {1, 2, 26, 40, 41, 42, 43}) || code > 149;
}

bool s_curve_is_isobaric(std::int16_t code) {
    return is_one_of(code, {3, 4, 15, 16, 18, 30, 31, 32, 33});
}

std::int16_t inversion_code(std::int16_t code) {
    constexpr std::int16_t kOverPressure = 190, kOverT = 105;
    if (is_one_of(code, {2, 106})) return kOverPressure;
    if (is_one_of(code, {5, 9})) return kOverT;
    return 0;
}

}  // namespace

bool offers_mark(const DiagramSheet& sheet, Mark mark) {
    const diagrams::DiagramRequest& r = sheet.request;
    if (sheet.SwappedAxes) return false;
    switch (mark) {
        case Mark::T:
            return direction_of_T(r) != Direction::None;
        case Mark::p:
            return direction_of_p(r) != Direction::None;
        case Mark::v:
            return direction_of_v(r) != Direction::None;
        case Mark::b:
            return direction_of_v(r) != Direction::None || direction_of_rho(r) != Direction::None;
        case Mark::SCurve:
            return diagrams::has_metastable_branch(r.DiagramType);
        case Mark::CriticalEx:
        case Mark::CriticalCalc:
            return r.DiagramType == kLogarithmic || diagrams::ShowsStates(r.DiagramType);
        case Mark::Bisection:
            return r.DiagramType == kRhoTProjection;
        case Mark::Inversion:
            return inversion_code(r.DiagramType) != 0;
        case Mark::Coexistence:
        case Mark::Isohygric:
            return coexistence_code_of(r.DiagramType) != 0;
        case Mark::TieLine:
            return (r.sectionKind == kIsothermal || r.sectionKind == kIsobaric) &&
                   diagrams::ShowsStates(r.DiagramType);
    }
    return false;
}

bool mark_t_grenzen(DiagramSheet& sheet) {
    if (!offers_mark(sheet, Mark::T)) return false;
    delete_reference_lines(sheet);
    delete_marker_labels(sheet);

    const Direction direction = direction_of_T(sheet.request);
    const double factor = static_cast<double>(the_session.TemperatureFactor);
    const bool inverse = is_one_of(sheet.request.DiagramType, {kLogarithmic, kSlope});
    int index = LabelIndex::kFirstT;
    const auto line = [&](const char* text, double T) {
        if (T > 0) {
            const double value = inverse ? 1 / (factor * T) : factor * T;
            add_line(sheet, direction, {index, value, text, kFarT});
        }
        ++index;
    };
    line("T(cr)", the_substance.Tcrit);
    line("T(triple)", the_substance.Ttriple);
    if (the_session.PartialGasCurve) {
        line("                      T(LV) at p",
             models::BoilingTemperature(the_session.DiagramP, the_models.VPModel, false).T);
        line("                      T(LV) at normal pressure", the_substance.Tboil);
    }
    return has_reference_lines(sheet);
}

bool mark_pressures(DiagramSheet& sheet) {
    if (!offers_mark(sheet, Mark::p)) return false;
    delete_reference_lines(sheet);
    delete_marker_labels(sheet);

    const Direction direction = direction_of_p(sheet.request);
    const double factor = static_cast<double>(the_session.PressureFactor);
    const bool logarithm = sheet.request.DiagramType == kLogarithmic;
    int index = LabelIndex::kFirstP;
    const auto line = [&](const char* text, double p) {
        if (p > 0) {
            const double value = logarithm ? std::log(factor * p) : factor * p;
            add_line(sheet, direction, {index, value, text, kFarP});
        }
        ++index;
    };
    line("p(cr)", the_substance.pcrit);
    line("p(LV) at T ", models::VapourPressure(the_session.DiagramT, the_models.VPModel, false).p);
    line(logarithm ? "Normal-p" : "normal p", constants::kNormalPressure);
    return has_reference_lines(sheet);
}

bool mark_volume(DiagramSheet& sheet) {
    if (!offers_mark(sheet, Mark::v)) return false;
    const double v = legacy::the_eosParameters.vcritCalc;
    if (!(v > 0)) return false;
    remove_line(sheet, LabelIndex::kVolume, "v(crit)");
    add_line(sheet, direction_of_v(sheet.request),
             {LabelIndex::kVolume, v * the_session.VolumeFactor, "v(crit)", kFarV});
    return true;
}

bool mark_covolume(DiagramSheet& sheet) {
    if (!offers_mark(sheet, Mark::b)) return false;
    models::EOSState state = legacy::the_eosState;
    if (!the_models.EOSOnlyV)
        state = models::solve_state_tp(models::current_fluid(), the_session.DiagramT,
                                       the_substance.pcrit)
                    .state;
    const double b = state.eosB;
    if (the_models.EOSOnlyV || !(b > 0)) {
        dialogs::tell("possible for cubic EOS only.", kRefused);
        return false;
    }
    remove_line(sheet, LabelIndex::kCovolume, "v = b");
    const Direction ofVolume = direction_of_v(sheet.request);
    const bool density = ofVolume == Direction::None;
    add_line(sheet, density ? direction_of_rho(sheet.request) : ofVolume,
             {LabelIndex::kCovolume, density ? the_substance.M / b : b * the_session.VolumeFactor,
              "v = b", kFarV});
    return true;
}

bool mark_s_curve(DiagramSheet& sheet) {
    if (!offers_mark(sheet, Mark::SCurve)) return false;
    if (refuse_vapour_only("V-L coex. curve possible for cubic EOS only.")) return false;
    const std::int16_t code = sheet.request.DiagramType;
    if (s_curve_is_isothermal(code) && refuse_supercritical_T()) return false;
    if (s_curve_is_isobaric(code) && refuse_supercritical_p()) return false;
    const Raised requested(the_session.SCurveRequested);
    return draw_curve(sheet).slot >= 0;
}

bool mark_critical_point(DiagramSheet& sheet, bool experimental) {
    if (!offers_mark(sheet, experimental ? Mark::CriticalEx : Mark::CriticalCalc)) return false;
    session::refresh_units();
    const double v = experimental ? the_substance.vcritExp : legacy::the_eosParameters.vcritCalc;
    const double T = the_substance.Tcrit, p = the_substance.pcrit;
    const std::int16_t code = sheet.request.DiagramType;
    models::StateValues functions;
    if (diagrams::needs_functions(code)) {
        // The caloric values belong to the state of the EOS at T(cr) and p(cr).
        const models::StateTP state = models::SolveStateTP(T, p);
        const double ofState = state.hasV ? state.vV : state.vL;
        functions = models::StateFunctions(T, p, ofState > 0 ? ofState : v);
    }
    const bool needsVolume =
        direction_of(sheet.request, {Axis::v, Axis::rho, Axis::pv}) != Direction::None;
    diagrams::Projection at;
    if (v > 0 || !needsVolume) at = diagrams::project_state(code, T, p, v, functions);
    if (!at.exists) {
        dialogs::tell("No critical density available", kRefused);
        return false;
    }

    delete_critical_point(sheet, experimental);
    const int slot = experimental ? kCriticalExSeries : kCriticalCalcSeries;
    chart::Series& series = chart::series_at(sheet.chart, chart::Group::Points, slot);
    series = chart::default_point_set(slot);
    series.inLegend = false;
    series.symbol = experimental ? chart::SymbolShape::Box : chart::SymbolShape::Circle;
    series.symbolColour = chart::kInk;
    series.x = {static_cast<float>(at.x)};
    series.y = {static_cast<float>(at.y)};
    chart::Label label;
    label.index = experimental ? LabelIndex::kCriticalEx : LabelIndex::kCriticalCalc;
    label.onPoint = true;
    label.group = chart::Group::Points;
    label.series = slot;
    label.text = experimental ? "CP (exp.)" : "CP (calc.)";
    constexpr double kBeside = 34, kAbove = 12;  // pixels; both texts have room at one place
    label.dx = kBeside;
    label.dy = experimental ? -kAbove : kAbove;
    sheet.chart.labels.push_back(std::move(label));
    return true;
}

bool mark_bisection(DiagramSheet& sheet) {
    if (!offers_mark(sheet, Mark::Bisection)) return false;
    const Borrowed code(sheet, kBisectionCode, sheet.request.sectionKind);
    const DrawOutcome drawn = draw_curve(sheet);
    if (drawn.slot < 0) return false;
    name_curve(sheet, drawn.slot, "rho-bisection line", "");
    return true;
}

bool mark_inversion(DiagramSheet& sheet) {
    if (!offers_mark(sheet, Mark::Inversion)) return false;
    if (refuse_vapour_only("Inversion curve only possible by cubic EOS")) return false;
    const Borrowed code(sheet, inversion_code(sheet.request.DiagramType), kInversion);
    return draw_curve(sheet).slot >= 0;
}

bool mark_coexistence(DiagramSheet& sheet) {
    if (!offers_mark(sheet, Mark::Coexistence)) return false;
    if (refuse_vapour_only("V-L coex. curve possible for cubic EOS only.")) return false;
    const Borrowed code(sheet, coexistence_code_of(sheet.request.DiagramType), kProjection);
    return draw_both_branches(sheet);
}

bool may_mark_isohygric() {
    return !refuse_vapour_only("Isohygrics - possible only using cubic EOS");
}

bool mark_isohygric(DiagramSheet& sheet, double fraction) {
    if (!offers_mark(sheet, Mark::Isohygric) || !(fraction >= 0 && fraction <= 1)) return false;
    if (!may_mark_isohygric()) return false;
    const Borrowed code(sheet, coexistence_code_of(sheet.request.DiagramType), kProjection);
    const Raised requested(the_session.CoexistenceRequested);
    the_session.VapourFraction = fraction;
    const std::string text = " y(V) = " + numbers::general_point(fraction);
    const DrawOutcome drawn = draw_curve(sheet, text);
    the_session.VapourFraction = 1;
    if (drawn.slot < 0) return false;
    sheet.CurveLabels[static_cast<std::size_t>(drawn.slot)].text = text.substr(1);
    return true;
}

bool mark_tie_line(DiagramSheet& sheet) {
    if (!offers_mark(sheet, Mark::TieLine)) return false;
    if (refuse_vapour_only("Tie-line V-L - possible only using cubic EOS")) return false;
    const std::int16_t kind = sheet.request.sectionKind;
    if (kind == kIsothermal && refuse_supercritical_T()) return false;
    if (kind == kIsobaric && refuse_supercritical_p()) return false;
    const Raised requested(the_session.TieLineRequested);
    return draw_curve(sheet).slot >= 0;
}

}  // namespace quor::Module9
