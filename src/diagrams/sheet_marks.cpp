#include "diagrams/sheet_marks.h"

#include <array>
#include <cmath>
#include <initializer_list>
#include <string>

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "diagrams/axis_units.h"
#include "diagrams/caloric_functions.h"
#include "diagrams/project_state.h"
#include "diagrams/sheet_delete.h"
#include "diagrams/sheet_labels.h"
#include "diagrams/sheet_names.h"
#include "diagrams/sheet_places.h"
#include "diagrams/sheet_undo.h"
#include "diagrams/sheet_window.h"
#include "models/state_solver.h"
#include "models/vapour_pressure.h"

namespace quor::diagrams {

namespace {

constexpr float kFarT = -1e10F, kFarP = -1e6F, kFarV = -1e8F;
constexpr double kPlaceOfText = 1.0 / 6.0;  // of the window
constexpr chart::Colour kMarkColour = chart::rgb(0x6B7280);

/// Where an axis of the diagram shows a quantity.
enum class Direction { None, Vertical, Horizontal };

Direction direction_of(const DiagramSheet& sheet, std::initializer_list<Axis> quantities) {
    const Diagram* row = sheet.request.diagram;
    if (row == nullptr) return Direction::None;
    for (const Axis quantity : quantities) {
        if (row->x == quantity) return Direction::Vertical;
        if (row->y == quantity) return Direction::Horizontal;
    }
    return Direction::None;
}

/// From the number of a line as it is computed to that which its axis shows.
double on_axis(const DiagramSheet& sheet, const Basis& basis, Direction direction, double value) {
    const AxisScales scales = shown_scales(*sheet.request.diagram, basis);
    return direction == Direction::Vertical ? scales.x(value) : scales.y(value);
}

Direction direction_of_T(const DiagramSheet& sheet) {
    return direction_of(sheet, {Axis::T, Axis::inverseT, Axis::inverseTSlope});
}
Direction direction_of_p(const DiagramSheet& sheet) {
    return direction_of(sheet, {Axis::p, Axis::lnp});
}
Direction direction_of_v(const DiagramSheet& sheet) {
    return direction_of(sheet, {Axis::v});
}
Direction direction_of_rho(const DiagramSheet& sheet) {
    return direction_of(sheet, {Axis::rho});
}

struct ReferenceLine {
    int label_index;
    double value;  ///< in the unit of its axis
    std::string text;
    float far;  ///< where the line begins
};

/// A line across the window with a text at one sixth of it.
void add_line(DiagramSheet& sheet, Direction direction, const ReferenceLine& line) {
    auto& curves = sheet.chart.curves;
    chart::series_at(sheet.chart, chart::Group::Curves, first_reference_line(sheet) - 1);
    chart::Series series;
    series.is_reference = true;
    series.in_legend = false;
    series.legend = line.text;  // by which it is found again
    series.line = {chart::LinePattern::Dashed, kMarkColour, 1};
    series.symbol = chart::SymbolShape::Hidden;

    chart::Label label;
    label.index = line.label_index;
    label.text = line.text;
    label.text_colour = kMarkColour;
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
void remove_line(DiagramSheet& sheet, int label_index, std::string_view text) {
    std::erase_if(sheet.chart.labels,
                  [&](const chart::Label& l) { return l.index == label_index; });
    std::erase_if(sheet.chart.curves,
                  [&](const chart::Series& s) { return s.is_reference && s.legend == text; });
}

bool refuse_vapour_only(const Pen& pen, const char* text) {
    if (!pen.basis.fluid.models().vapour_only) return false;
    dialogs::tell(text, dialogs::kNotPossible);
    return true;
}

constexpr auto kTooHot = "only possible in the 2-phase region V-L  (T<T(cr))";
constexpr auto kTooHigh = "only possible in the 2-phase region V-L  (p<p(cr))";

/// The parameter of the section must lie below the critical point.
bool refuse_supercritical(const DiagramSheet& sheet, const Pen& pen) {
    const models::SubstanceRecord& s = pen.basis.fluid.substance();
    const Section section = sheet.request.section();
    const bool too_hot = section == Section::isothermal && sheet.at.T >= s.Tcrit;
    const bool too_high = section == Section::isobaric && sheet.at.p >= s.pcrit;
    if (too_hot || too_high) dialogs::tell(too_hot ? kTooHot : kTooHigh, dialogs::kNotPossible);
    return too_hot || too_high;
}

/// The basis of a mark in the units of the sheet; nothing, and said, where there is none.
std::optional<Basis> basis_of_mark(const DiagramSheet& sheet, const Pen& pen) {
    try {
        return in_units_of(sheet, pen.basis);
    } catch (const faults::Fault& fault) {
        dialogs::tell(fault.what(), dialogs::kNotPossible);
        return std::nullopt;
    }
}

/// Takes the lines of temperatures or pressures away, which a new set replaces.
void clear_lines(DiagramSheet& sheet) {
    auto& curves = sheet.chart.curves;
    const auto first = static_cast<std::size_t>(first_reference_line(sheet));
    if (curves.size() > first) curves.resize(first);
    std::erase_if(sheet.chart.labels,
                  [](const chart::Label& l) { return kind_of(l) == LabelKind::marker; });
}

}  // namespace

bool is_far(float value) {
    return value == kFarT || value == kFarP || value == kFarV;
}

bool offers_mark(const DiagramSheet& sheet, Mark mark) {
    const Diagram* diagram = sheet.request.diagram;
    if (diagram == nullptr) return false;
    switch (mark) {
        case Mark::T:
            return direction_of_T(sheet) != Direction::None;
        case Mark::p:
            return direction_of_p(sheet) != Direction::None;
        case Mark::v:
            return direction_of_v(sheet) != Direction::None;
        case Mark::b:
            return direction_of_v(sheet) != Direction::None ||
                   direction_of_rho(sheet) != Direction::None;
        case Mark::SCurve:
            return diagram->metastable != Metastable::none;
        case Mark::CriticalEx:
        case Mark::CriticalCalc:
            return shows_states(*diagram);
        case Mark::Bisection:
            return diagram->bisection != 0;
        case Mark::Inversion:
            return diagram->inversion != 0;
        case Mark::Coexistence:
        case Mark::Isohygric:
            return diagram->dome != 0;
        case Mark::TieLine:
            return (diagram->section == Section::isothermal ||
                    diagram->section == Section::isobaric) &&
                   shows_states(*diagram);
    }
    return false;
}

bool mark_temperatures(DiagramSheet& sheet, const Pen& pen) {
    const Upright upright(sheet);
    if (!offers_mark(sheet, Mark::T)) return false;
    const auto basis = basis_of_mark(sheet, pen);
    if (!basis) return false;
    remember(sheet, "T Marker");
    clear_lines(sheet);

    const models::SubstanceRecord& s = basis->fluid.substance();
    const Direction direction = direction_of_T(sheet);
    const double factor = basis->T_factor();
    const bool inverse = direction_of(sheet, {Axis::T}) == Direction::None;
    int index = marker_label::kFirstT;
    const auto line = [&](const char* text, std::optional<double> T) {
        if (T > 0.0) {
            const double value = inverse ? 1 / (factor * *T) : factor * *T;
            add_line(sheet, direction,
                     {index, on_axis(sheet, *basis, direction, value), text, kFarT});
        }
        ++index;
    };
    line("T(cr)", s.Tcrit);
    line("T(triple)", static_cast<double>(s.Ttriple));
    if (pen.options.partial_gas) {
        const auto boiling =
            models::boiling_temperature(s, sheet.at.p, basis->fluid.models().vapour_pressure);
        line("                      T(LV) at p",
             boiling ? std::optional(boiling->T) : std::nullopt);
        line("                      T(LV) at normal pressure", static_cast<double>(s.Tboil));
    }
    return has_reference_lines(sheet);
}

bool mark_pressures(DiagramSheet& sheet, const Pen& pen) {
    const Upright upright(sheet);
    if (!offers_mark(sheet, Mark::p)) return false;
    const auto basis = basis_of_mark(sheet, pen);
    if (!basis) return false;
    remember(sheet, "p Marker");
    clear_lines(sheet);

    const models::SubstanceRecord& s = basis->fluid.substance();
    const Direction direction = direction_of_p(sheet);
    const double factor = basis->p_factor();
    const bool logarithm = direction_of(sheet, {Axis::lnp}) != Direction::None;
    int index = marker_label::kFirstP;
    const auto line = [&](const char* text, std::optional<double> p) {
        if (p > 0.0) {
            const double value = logarithm ? std::log(factor * *p) : factor * *p;
            add_line(sheet, direction,
                     {index, on_axis(sheet, *basis, direction, value), text, kFarP});
        }
        ++index;
    };
    line("p(cr)", s.pcrit);
    const auto saturation =
        models::vapour_pressure(s, sheet.at.T, basis->fluid.models().vapour_pressure);
    line("p(LV) at T ", saturation ? std::optional(saturation->p) : std::nullopt);
    line(logarithm ? "Normal-p" : "normal p", constants::kNormalPressure);
    return has_reference_lines(sheet);
}

bool mark_volume(DiagramSheet& sheet, const Pen& pen) {
    const Upright upright(sheet);
    if (!offers_mark(sheet, Mark::v)) return false;
    const double v = pen.basis.fluid.eos().vcrit_calculated;
    if (!(v > 0)) return false;
    const auto basis = basis_of_mark(sheet, pen);
    if (!basis) return false;
    remember(sheet, "V-Mark");
    remove_line(sheet, marker_label::kVolume, "v(crit)");
    const Direction direction = direction_of_v(sheet);
    add_line(sheet, direction,
             {marker_label::kVolume, on_axis(sheet, *basis, direction, v * basis->v_factor()),
              "v(crit)", kFarV});
    return true;
}

bool mark_covolume(DiagramSheet& sheet, const Pen& pen) {
    const Upright upright(sheet);
    if (!offers_mark(sheet, Mark::b)) return false;
    const models::Fluid& fluid = pen.basis.fluid;
    const bool cubic = !fluid.models().vapour_only;
    const double b = cubic ? models::eos_at(fluid, sheet.at.T).b : 0;
    if (!(b > 0)) {
        dialogs::tell("possible for cubic EOS only.", dialogs::kNotPossible);
        return false;
    }
    const auto basis = basis_of_mark(sheet, pen);
    if (!basis) return false;
    remember(sheet, "Marker v = B");
    remove_line(sheet, marker_label::kCovolume, "v = b");
    const Direction of_volume = direction_of_v(sheet);
    const bool density = of_volume == Direction::None;
    const Direction direction = density ? direction_of_rho(sheet) : of_volume;
    const double value = density ? basis->M() / b : b * basis->v_factor();
    add_line(sheet, direction,
             {marker_label::kCovolume, on_axis(sheet, *basis, direction, value), "v = b", kFarV});
    return true;
}

bool mark_s_curve(DiagramSheet& sheet, const Pen& pen) {
    if (!offers_mark(sheet, Mark::SCurve)) return false;
    if (refuse_vapour_only(pen, "V-L coex. curve possible for cubic EOS only.")) return false;
    const bool tested = sheet.request.diagram->metastable == Metastable::subcritical;
    if (tested && refuse_supercritical(sheet, pen)) return false;
    return draw_curve(sheet, pen, {.branch = Branch::metastable}).place >= 0;
}

namespace {

/// The critical point on the axes of a sheet, by the data or by the EOS.
std::optional<Projection> critical_projection(const DiagramSheet& sheet, const Basis& basis,
                                              bool experimental) {
    const models::Fluid& fluid = basis.fluid;
    const models::SubstanceRecord& s = fluid.substance();
    const Diagram& diagram = *sheet.request.diagram;
    const double v = experimental ? s.vcrit_measured : fluid.eos().vcrit_calculated;
    const bool needs_volume =
        direction_of(sheet, {Axis::v, Axis::rho, Axis::pv}) != Direction::None;
    if (!(v > 0) && needs_volume) return std::nullopt;
    std::optional<models::StateValues> functions;
    if (shows_caloric_values(diagram)) {
        // The caloric values belong to the state of the EOS at T(cr) and p(cr).
        const auto state = models::solve_state_tp(fluid, s.Tcrit, s.pcrit);
        double of_state = v;
        if (state) of_state = (state->has_V ? state->vV : state->vL).value_or(v);
        functions = CaloricFunctions(basis)(s.Tcrit, s.pcrit, of_state);
    }
    return project_state(diagram, basis, {s.Tcrit, s.pcrit, v}, functions);
}

constexpr double kBesidePoint = 34, kAbovePoint = 12;  // pixels; both texts have room at one place
constexpr chart::Colour kExperimental = chart::kInk, kCalculated = chart::rgb(0x1D4ED8);

/// The height of the point of a label, as a share of the window.
double height_of(const DiagramSheet& sheet, const chart::Label& label) {
    const chart::Series& series = sheet.chart.points[at(label.series)];
    return chart::WindowScale(sheet.chart).v(static_cast<double>(series.y.front()));
}

/// The label of the upper critical point stands above it, that of the lower one below it, as long
/// as they stand where they were put.
void part_critical_labels(DiagramSheet& sheet) {
    std::array<chart::Label*, 2> both{};
    for (chart::Label& label : sheet.chart.labels) {
        const LabelKind kind = kind_of(label);
        if (kind == LabelKind::criticalEx) both[0] = &label;
        if (kind == LabelKind::criticalCalc) both[1] = &label;
    }
    const auto untouched = [](const chart::Label* label) {
        return label != nullptr && std::fabs(label->dy) == kAbovePoint;
    };
    if (!untouched(both[0]) || !untouched(both[1])) return;
    const bool first_above = height_of(sheet, *both[0]) >= height_of(sheet, *both[1]);
    both[0]->dy = first_above ? -kAbovePoint : kAbovePoint;
    both[1]->dy = -both[0]->dy;
}

}  // namespace

bool mark_critical_point(DiagramSheet& sheet, const Pen& pen, bool experimental) {
    const Upright upright(sheet);
    if (!offers_mark(sheet, experimental ? Mark::CriticalEx : Mark::CriticalCalc)) return false;
    const auto basis = basis_of_mark(sheet, pen);
    if (!basis) return false;
    const auto at = critical_projection(sheet, *basis, experimental);
    if (!at) {
        dialogs::tell("No critical density available", dialogs::kNotPossible);
        return false;
    }
    remember(sheet, "Critical point");
    const LabelKind kind = experimental ? LabelKind::criticalEx : LabelKind::criticalCalc;
    std::erase_if(sheet.chart.labels, [&](const chart::Label& l) { return kind_of(l) == kind; });
    const int place = critical_point_place(sheet, experimental);
    chart::Series& series = chart::series_at(sheet.chart, chart::Group::Points, place);
    series = chart::default_point_set(place);
    series.in_legend = false;
    series.symbol = experimental ? chart::SymbolShape::Box : chart::SymbolShape::Circle;
    series.symbol_colour = experimental ? kExperimental : kCalculated;
    const AxisScales scales = shown_scales(*sheet.request.diagram, *basis);
    series.x = {static_cast<float>(scales.x(at->x))};
    series.y = {static_cast<float>(scales.y(at->y))};
    chart::Label label;
    label.index = label_index(kind);
    label.on_point = true;
    label.group = chart::Group::Points;
    label.series = place;
    label.text = experimental ? "CP (exp.)" : "CP (calc.)";
    label.text_colour = series.symbol_colour;
    label.dx = kBesidePoint;
    label.dy = experimental ? -kAbovePoint : kAbovePoint;
    sheet.chart.labels.push_back(std::move(label));
    part_critical_labels(sheet);
    return true;
}

bool mark_bisection(DiagramSheet& sheet, const Pen& pen) {
    if (!offers_mark(sheet, Mark::Bisection)) return false;
    const Diagram& line = diagram_of(sheet.request.diagram->bisection);
    const DrawOutcome drawn = draw_curve(sheet, pen, {.curve = &line});
    if (drawn.place < 0) return false;
    name_curve(sheet, drawn.place, {"rho-bisection line", ""});
    return true;
}

bool mark_inversion(DiagramSheet& sheet, const Pen& pen) {
    if (!offers_mark(sheet, Mark::Inversion)) return false;
    if (refuse_vapour_only(pen, "Inversion curve only possible by cubic EOS")) return false;
    const Diagram& line = diagram_of(sheet.request.diagram->inversion);
    return draw_curve(sheet, pen, {.curve = &line}).place >= 0;
}

bool mark_coexistence(DiagramSheet& sheet, const Pen& pen) {
    if (!offers_mark(sheet, Mark::Coexistence)) return false;
    if (refuse_vapour_only(pen, "V-L coex. curve possible for cubic EOS only.")) return false;
    return draw_both_branches(sheet, pen, diagram_of(sheet.request.diagram->dome));
}

bool may_mark_isohygric(const Pen& pen) {
    return !refuse_vapour_only(pen, "Isohygrics - possible only using cubic EOS");
}

bool mark_isohygric(DiagramSheet& sheet, const Pen& pen, double fraction) {
    if (!offers_mark(sheet, Mark::Isohygric) || !(fraction >= 0 && fraction <= 1)) return false;
    if (!may_mark_isohygric(pen)) return false;
    const Diagram& dome = diagram_of(sheet.request.diagram->dome);
    const std::string text = " y(V) = " + numbers::general_point(fraction);
    const DrawOutcome drawn =
        draw_curve(sheet, pen, {.curve = &dome, .vapour_fraction = fraction}, text);
    if (drawn.place < 0) return false;
    CurveName name = sheet.curves[static_cast<std::size_t>(drawn.place)].name;
    name.label = text.substr(1);
    name_curve(sheet, drawn.place, name);
    return true;
}

bool mark_tie_line(DiagramSheet& sheet, const Pen& pen) {
    if (!offers_mark(sheet, Mark::TieLine)) return false;
    if (refuse_vapour_only(pen, "Tie-line V-L - possible only using cubic EOS")) return false;
    if (refuse_supercritical(sheet, pen)) return false;
    return draw_curve(sheet, pen, {.branch = Branch::tieLine}).place >= 0;
}

}  // namespace quor::diagrams
