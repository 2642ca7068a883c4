#include "diagrams/diagram_sheet.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "chart/sheet2d.h"
#include "common/constants.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "common/text.h"
#include "models/model_tables.h"

namespace quor::diagrams {

namespace {

using chart::Group;
using chart::Series;

constexpr std::size_t kMostSteps = 50;  // of undo

// The chart keeps at least these places before its reference lines and critical points, so that
// these stand where every version of the program looks for them.
constexpr int kLeastCurves = 24, kLeastPointSets = 12;

// Indices of labels.
constexpr int kMarkerEnd = 7;
constexpr int kCriticalEx = 7, kCriticalCalc = 8;
constexpr int kFirstCurve = 10, kFirstText = 100;
constexpr int kFurtherCurves = 1000000;  // of the curves that have no room before the texts

std::size_t at(int place) {
    return static_cast<std::size_t>(place);
}

int lowest_free(const std::vector<SheetCurve>& curves) {
    const auto free =
        std::find_if(curves.begin(), curves.end(), [](const SheetCurve& c) { return !c.drawn; });
    return static_cast<int>(free - curves.begin());
}

int lowest_free(const std::vector<bool>& sets) {
    return static_cast<int>(std::find(sets.begin(), sets.end(), false) - sets.begin());
}

/// Where the line between two points reaches an x that lies between theirs.
CurvePoint point_at_x(const CurvePoint& a, const CurvePoint& b, float x) {
    const double part = (static_cast<double>(x) - static_cast<double>(a.x)) /
                        (static_cast<double>(b.x) - static_cast<double>(a.x));
    const double y =
        static_cast<double>(a.y) + part * (static_cast<double>(b.y) - static_cast<double>(a.y));
    return {x, static_cast<float>(y), a.z};
}

template <class Belongs>
void erase_labels(DiagramSheet& sheet, Belongs belongs) {
    std::erase_if(sheet.chart.labels, belongs);
}

template <class Belongs>
bool has_labels(const DiagramSheet& sheet, Belongs belongs) {
    return std::any_of(sheet.chart.labels.begin(), sheet.chart.labels.end(), belongs);
}

auto is_kind(LabelKind kind) {
    return [kind](const chart::Label& l) { return kind_of(l) == kind; };
}

LabelKind critical(bool experimental) {
    return experimental ? LabelKind::criticalEx : LabelKind::criticalCalc;
}

/// Makes room for one more place of a group before what stands behind its places.
void add_place(DiagramSheet& sheet, Group group, int place) {
    auto& all = chart::series_of(sheet.chart, group);
    const int least = group == Group::Curves ? kLeastCurves : kLeastPointSets;
    if (place < least || static_cast<int>(all.size()) <= place) return;
    all.insert(all.begin() + place, group == Group::Curves ? chart::default_curve(place)
                                                           : chart::default_point_set(place));
    for (chart::Label& label : sheet.chart.labels)
        if (label.on_point && label.group == group && label.series >= place) ++label.series;
}

void clear_curve(DiagramSheet& sheet, int place) {
    chart::clear_series(sheet.chart, Group::Curves, place);
    erase_labels(sheet, [&](const chart::Label& l) { return curve_place_of(l) == place; });
    sheet.curves[at(place)] = {};
}

void clear_point_set(DiagramSheet& sheet, int place) {
    chart::clear_series(sheet.chart, Group::Points, place);
    sheet.point_sets[at(place)] = false;
}

/// Lines that cross the whole window reach its new end.
void stretch_reference_lines(DiagramSheet& sheet) {
    auto& curves = sheet.chart.curves;
    for (std::size_t i = at(first_reference_line(sheet)); i < curves.size(); ++i) {
        Series& line = curves[i];
        if (!line.is_reference || line.x.size() != 2) continue;
        const bool vertical = line.x[0] == line.x[1];
        float& end = vertical ? line.y[1] : line.x[1];
        const double limit = vertical ? sheet.chart.y.max : sheet.chart.x.max;
        end = std::max(end, static_cast<float>(limit));
    }
}

void show_window(DiagramSheet& sheet, const chart::Window& window) {
    sheet.chart.x.min = window.x.min;
    sheet.chart.x.max = window.x.max;
    sheet.chart.y.min = window.y.min;
    sheet.chart.y.max = window.y.max;
    sheet.chart.x.automatic = sheet.chart.y.automatic = false;
    stretch_reference_lines(sheet);
}

bool is_range(const chart::Range& range) {
    const auto is_single = [](double value) {
        return std::isfinite(value) && std::fabs(value) <= 3e38;
    };
    // The limits have to differ as 32-bit numbers, in which the coordinates are kept.
    return is_single(range.min) && is_single(range.max) &&
           static_cast<float>(range.min) < static_cast<float>(range.max);
}

CurveWindow in_single_precision(const chart::Window& w) {
    return {static_cast<float>(w.x.min), static_cast<float>(w.x.max), static_cast<float>(w.y.min),
            static_cast<float>(w.y.max)};
}

chart::Window as_chart_window(const CurveWindow& w) {
    return {{static_cast<double>(w.x_min), static_cast<double>(w.x_max)},
            {static_cast<double>(w.y_min), static_cast<double>(w.y_max)}};
}

/// T/K and p/kPa in a line of text.
std::string state_text(double T, double p) {
    return numbers::general(static_cast<float>(T)) + " K, " +
           numbers::general(static_cast<float>(p)) + " kPa";
}

/// Adds a text to others unless it is empty or among them.
void add_once(std::vector<std::string>& texts, const std::string& text) {
    if (!text.empty() && std::find(texts.begin(), texts.end(), text) == texts.end())
        texts.push_back(text);
}

std::string joined(const std::vector<std::string>& texts, const char* between) {
    std::string all;
    for (const std::string& text : texts) all += (all.empty() ? "" : between) + text;
    return all;
}

}  // namespace

// ------------------------------------------------------------------------------------------ labels

LabelKind kind_of(const chart::Label& label) {
    const int i = label.index;
    if (i == kCriticalEx) return LabelKind::criticalEx;
    if (i == kCriticalCalc) return LabelKind::criticalCalc;
    if (i >= 0 && i < kMarkerEnd) return LabelKind::marker;
    if ((i >= kFirstCurve && i < kFirstText) || i >= kFurtherCurves) return LabelKind::curve;
    return i >= kFirstText ? LabelKind::text : LabelKind::none;
}

int curve_place_of(const chart::Label& label) {
    if (kind_of(label) != LabelKind::curve) return -1;
    return label.index >= kFurtherCurves ? label.index - kFurtherCurves : label.index - kFirstCurve;
}

int label_index_of_curve(int place) {
    return place < kFirstText - kFirstCurve ? kFirstCurve + place : kFurtherCurves + place;
}

int label_index(LabelKind critical_point) {
    return critical_point == LabelKind::criticalEx ? kCriticalEx : kCriticalCalc;
}

// ------------------------------------------------------------------------------------------- texts

std::string reference_note(const Diagram& diagram, const models::ReferenceState& reference) {
    const bool exergy = shows(diagram, Axis::eH) || shows(diagram, Axis::eU);
    bool caloric = exergy;
    for (const Axis axis : {Axis::h, Axis::hSpaced, Axis::s, Axis::g, Axis::a, Axis::u})
        caloric = caloric || shows(diagram, axis);
    if (!caloric) return {};
    const bool over_enthalpy = diagram.x == Axis::h || diagram.x == Axis::hSpaced;
    return reference_text(!exergy || over_enthalpy, exergy, reference);
}

std::string reference_text(bool zero_point, bool surroundings, const models::ReferenceState& r) {
    const std::string around =
        surroundings ? "surroundings: " + state_text(r.Tenv, r.penv) : std::string();
    if (!zero_point) return around;
    constexpr std::int16_t kConventional = 2, kFormation = 10;
    const bool pressure_set = r.p0 > 0;
    std::string note = "reference state: " + state_text(static_cast<double>(r.T0),
                                                        pressure_set ? static_cast<double>(r.p0)
                                                                     : constants::kNormalPressure);
    if (r.mode == kConventional) note = "conventional reference state";
    if (r.mode == kFormation) note = "reference state: quantities of formation";
    return surroundings ? note + "; " + around : note;
}

std::string wrap_title(const std::string& title, std::size_t length) {
    std::string wrapped;
    std::size_t in_line = 0;
    for (const std::string& word : text::split(title, ' ')) {
        const std::size_t more = text::length(word);
        if (in_line > 0 && in_line + 1 + more > length) {
            wrapped += '\n';
            in_line = 0;
        } else if (!wrapped.empty()) {
            wrapped += ' ';
            ++in_line;
        }
        wrapped += word;
        in_line += more;
    }
    return wrapped;
}

namespace {

/// The footer: what the curves were made with, and on which references their values rest.
void show_footer(DiagramSheet& sheet, const std::string& titles,
                 const std::vector<std::string>& notes) {
    std::string footer = wrap_title(text::trim(titles), kFooterLine);
    for (const std::string& note : notes) footer += "\n" + wrap_title(note, kFooterLine);
    if (sheet.chart.footer.text == sheet.given_footer) sheet.chart.footer.text = footer;
    sheet.given_footer = footer;
}

}  // namespace

void show_texts(DiagramSheet& sheet, const models::ReferenceState& reference) {
    const DiagramTexts& texts = sheet.request.texts;
    sheet.chart.header.text = wrap_title(text::trim(texts.title), kHeaderLine);
    sheet.chart.x.title = text::trim(texts.x);
    sheet.chart.y.title = text::trim(texts.y);
    std::vector<std::string> notes;
    if (sheet.request.diagram != nullptr)
        add_once(notes, reference_note(*sheet.request.diagram, reference));
    show_footer(sheet, texts.sub_title, notes);
}

DiagramSheet open_sheet(const DiagramRequest& request, const Basis& basis,
                        const StateParameters& parameters) {
    DiagramSheet sheet;
    sheet.request = request;
    sheet.units = basis.units.choice;
    sheet.at = parameters;
    show_texts(sheet, basis.reference);
    show_window(sheet, as_chart_window(request.window));
    return sheet;
}

Basis in_units_of(const DiagramSheet& sheet, const Basis& basis) {
    Basis own = basis;
    models::UnitChoice choice = sheet.units;
    choice.T_of_RT = basis.units.choice.T_of_RT;
    own.units = models::make_units(choice, basis.fluid);
    if (own.units.choice.system != sheet.units.system)
        throw faults::Fault("The fluid has no critical volume for the units of this diagram");
    return own;
}

// ----------------------------------------------------------------------------------------- content

bool is_drawn(const DiagramSheet& sheet, int place) {
    return place >= 0 && at(place) < sheet.curves.size() && sheet.curves[at(place)].drawn;
}

bool has_point_set(const DiagramSheet& sheet, int place) {
    return place >= 0 && at(place) < sheet.point_sets.size() && sheet.point_sets[at(place)];
}

int curve_count(const DiagramSheet& sheet) {
    return static_cast<int>(std::count_if(sheet.curves.begin(), sheet.curves.end(),
                                          [](const SheetCurve& c) { return c.drawn; }));
}

int point_set_count(const DiagramSheet& sheet) {
    return static_cast<int>(std::count(sheet.point_sets.begin(), sheet.point_sets.end(), true));
}

int first_reference_line(const DiagramSheet& sheet) {
    return std::max(kLeastCurves, static_cast<int>(sheet.curves.size()));
}

int critical_point_place(const DiagramSheet& sheet, bool experimental) {
    return std::max(kLeastPointSets, static_cast<int>(sheet.point_sets.size())) +
           (experimental ? 0 : 1);
}

int store_curve(DiagramSheet& sheet, NewCurve curve, float x_max) {
    remember(sheet, "Draw curve");
    const int place = lowest_free(sheet.curves);
    if (at(place) == sheet.curves.size()) {
        add_place(sheet, Group::Curves, place);
        sheet.curves.emplace_back();
    }
    const CurvePoints& points = curve.points;
    std::size_t end = points.size();
    while (end > 0 && points[end - 1].x >= x_max) --end;
    if (end == 0) end = points.size();

    Series& series = chart::series_at(sheet.chart, Group::Curves, place);
    series.x.clear();
    series.y.clear();
    series.visible = true;
    SheetCurve& stored = sheet.curves[at(place)];
    stored = {};
    const auto add = [&](const CurvePoint& point) {
        series.x.push_back(point.x);
        series.y.push_back(point.y);
        if (stored.z.size() < kMaxParameters) stored.z.push_back(point.z);
    };
    for (std::size_t i = 0; i < end; ++i) add(points[i]);
    if (end > 0 && end < points.size()) add(point_at_x(points[end - 1], points[end], x_max));
    stored.parameter = curve.parameter;
    stored.basis = std::move(curve.basis);
    stored.source = std::move(curve.source);
    stored.drawn = true;
    sheet.current_place = place;
    name_curve(sheet, place, curve.name);
    name_fluids(sheet);
    return place;
}

int store_points(DiagramSheet& sheet, std::vector<float> x, std::vector<float> y,
                 const std::string& legend) {
    NewCurve curve{.name = {legend, ""}};
    for (std::size_t i = 0; i < std::min(x.size(), y.size()); ++i)
        curve.points.push_back({x[i], y[i], 0});
    return store_curve(sheet, std::move(curve), sheet.request.window.x_max);
}

int store_point_set(DiagramSheet& sheet, std::vector<float> x, std::vector<float> y,
                    const std::string& legend) {
    remember(sheet, "Add points");
    const int place = lowest_free(sheet.point_sets);
    if (at(place) == sheet.point_sets.size()) {
        add_place(sheet, Group::Points, place);
        sheet.point_sets.push_back(false);
    }
    Series& series = chart::series_at(sheet.chart, Group::Points, place);
    series.x = std::move(x);
    series.y = std::move(y);
    series.legend = legend;
    series.visible = true;
    sheet.point_sets[at(place)] = true;
    return place;
}

// --------------------------------------------------------------------------------- names of fluids

namespace {

/// The model by which a diagram shows a fluid; empty where the database itself is shown.
std::string model_of(const DiagramSheet& sheet, const SheetCurve& curve) {
    const Diagram* diagram = sheet.request.diagram;
    if (diagram == nullptr || diagram->section == Section::database) return {};
    if (diagram->sub_title == SubTitle::vaporisation)
        return text::trim(models::hlv_name(curve.basis.fluid.models().vaporisation));
    return model_name(*diagram, curve.basis.fluid);
}

bool has_fluid(const SheetCurve& curve) {
    return curve.drawn && !curve.basis.fluid.substance().name.empty();
}

/// Which parts of their origin the curves of a sheet have to name.
struct Distinction {
    bool fluids = false, models = false;
};

Distinction distinction_of(const DiagramSheet& sheet) {
    std::set<std::string> fluids, models;
    for (const SheetCurve& curve : sheet.curves) {
        if (!has_fluid(curve)) continue;
        fluids.insert(curve.basis.fluid.substance().name);
        models.insert(model_of(sheet, curve));
    }
    return {fluids.size() > 1, models.size() > 1};
}

std::string origin_of(const DiagramSheet& sheet, const SheetCurve& curve, Distinction told) {
    if (!has_fluid(curve)) return {};
    std::vector<std::string> parts;
    if (told.fluids) add_once(parts, curve.basis.fluid.substance().name);
    if (told.models) add_once(parts, model_of(sheet, curve));
    return joined(parts, ", ");
}

/// A text behind the name of its fluid; an empty one stays empty.
std::string behind(const std::string& origin, const std::string& text) {
    return origin.empty() || text.empty() ? text : origin + " " + text;
}

void show_name(DiagramSheet& sheet, int place, Distinction told) {
    SheetCurve& curve = sheet.curves[at(place)];
    Series& series = chart::series_at(sheet.chart, Group::Curves, place);
    const std::string origin = origin_of(sheet, curve, told);
    const CurveName shown{behind(origin, curve.name.legend), behind(origin, curve.name.label)};
    if (series.legend == curve.given.legend) series.legend = shown.legend;
    if (curve.label.text == curve.given.label) curve.label.text = shown.label;
    curve.given = shown;
}

}  // namespace

void name_curve(DiagramSheet& sheet, int place, const CurveName& name) {
    if (!is_drawn(sheet, place)) return;
    SheetCurve& curve = sheet.curves[at(place)];
    Series& series = chart::series_at(sheet.chart, Group::Curves, place);
    series.legend.clear();
    curve.label.text.clear();
    curve.name = name;
    curve.given = {};
    show_name(sheet, place, distinction_of(sheet));
}

void name_fluids(DiagramSheet& sheet) {
    const Distinction told = distinction_of(sheet);
    std::vector<std::string> titles, notes;
    for (std::size_t i = 0; i < sheet.curves.size(); ++i) {
        const SheetCurve& curve = sheet.curves[i];
        if (!curve.drawn) continue;
        show_name(sheet, static_cast<int>(i), told);
        if (!has_fluid(curve)) continue;
        add_once(titles, text::trim(curve.source));
        if (sheet.request.diagram != nullptr)
            add_once(notes, reference_note(*sheet.request.diagram, curve.basis.reference));
    }
    // A sheet without a curve of a fluid keeps the footer that it was opened with.
    if (!titles.empty()) show_footer(sheet, joined(titles, "; "), notes);
}

// ---------------------------------------------------------------------------------------- deleting

void delete_curve(DiagramSheet& sheet, int number) {
    const auto chosen = [&](int place) {
        return (number == 0 || place == number - 1) && is_drawn(sheet, place);
    };
    const int places = static_cast<int>(sheet.curves.size());
    bool any = false;
    for (int place = 0; place < places; ++place) any = any || chosen(place);
    if (!any) return;
    remember(sheet, number == 0 ? "Delete curves" : "Delete curve");
    for (int place = 0; place < places; ++place)
        if (chosen(place)) clear_curve(sheet, place);
    name_fluids(sheet);
}

void delete_point_set(DiagramSheet& sheet, int number) {
    const auto chosen = [&](int place) {
        return (number == 0 || place == number - 1) && has_point_set(sheet, place);
    };
    const int places = static_cast<int>(sheet.point_sets.size());
    bool any = false;
    for (int place = 0; place < places; ++place) any = any || chosen(place);
    if (!any) return;
    remember(sheet, "Delete points");
    for (int place = 0; place < places; ++place)
        if (chosen(place)) clear_point_set(sheet, place);
}

namespace {

void clear_reference_lines(DiagramSheet& sheet) {
    auto& curves = sheet.chart.curves;
    if (static_cast<int>(curves.size()) > first_reference_line(sheet))
        curves.resize(at(first_reference_line(sheet)));
}

void clear_critical_point(DiagramSheet& sheet, bool experimental) {
    chart::clear_series(sheet.chart, Group::Points, critical_point_place(sheet, experimental));
    erase_labels(sheet, is_kind(critical(experimental)));
}

}  // namespace

void delete_total(DiagramSheet& sheet) {
    if (!has_anything(sheet) && !sheet.chart.legend.shown) return;
    remember(sheet, "Delete everything");
    for (std::size_t i = 0; i < sheet.curves.size(); ++i)
        if (sheet.curves[i].drawn) clear_curve(sheet, static_cast<int>(i));
    for (std::size_t i = 0; i < sheet.point_sets.size(); ++i)
        if (sheet.point_sets[i]) clear_point_set(sheet, static_cast<int>(i));
    clear_reference_lines(sheet);
    clear_critical_point(sheet, true);
    clear_critical_point(sheet, false);
    sheet.chart.labels.clear();
    sheet.chart.legend.shown = false;
}

void delete_reference_lines(DiagramSheet& sheet) {
    if (!has_reference_lines(sheet)) return;
    remember(sheet, "Delete markers");
    clear_reference_lines(sheet);
}

void delete_marker_labels(DiagramSheet& sheet) {
    if (!has_marker_labels(sheet)) return;
    remember(sheet, "Delete texts of the markers");
    erase_labels(sheet, is_kind(LabelKind::marker));
}

void delete_critical_point(DiagramSheet& sheet, bool experimental) {
    if (!has_critical_point(sheet, experimental)) return;
    remember(sheet, "Delete critical point");
    clear_critical_point(sheet, experimental);
}

void delete_curve_labels(DiagramSheet& sheet) {
    remember(sheet, "Delete curve labels");
    for (SheetCurve& curve : sheet.curves) curve.label.shown = false;
    erase_labels(sheet, is_kind(LabelKind::curve));
}

void delete_texts(DiagramSheet& sheet) {
    if (!has_texts(sheet)) return;
    remember(sheet, "Delete texts");
    erase_labels(sheet, is_kind(LabelKind::text));
}

void delete_legend(DiagramSheet& sheet) {
    if (!sheet.chart.legend.shown) return;
    remember(sheet, "Delete legend");
    sheet.chart.legend.shown = false;
}

bool delete_single_point(DiagramSheet& sheet, int place, int point) {
    if (!is_drawn(sheet, place)) return false;
    const Series& series = chart::series_at(sheet.chart, Group::Curves, place);
    if (series.line.pattern != chart::LinePattern::None) return false;
    if (point < 0 || point >= static_cast<int>(series.x.size())) return false;
    const std::string question = "point x =" + numbers::general(series.x[at(point)]) +
                                 ",  y =" + numbers::general(series.y[at(point)]) +
                                 " Really delete?";
    if (!dialogs::ask(question, "Delete a Curve Point")) return false;
    remember(sheet, "Delete point");
    chart::delete_point(sheet.chart, Group::Curves, place, point);
    auto& z = sheet.curves[at(place)].z;
    if (at(point) < z.size()) z.erase(z.begin() + point);
    return true;
}

// -------------------------------------------------------------------------------------------- undo

SheetContent content_of(const DiagramSheet& sheet) {
    return {sheet.chart, sheet.curves, sheet.point_sets, sheet.given_footer};
}

namespace {

/// The window that `now` shows, in place of that of a chart.
void keep_window(chart::Chart2D& chart, const chart::Chart2D& now) {
    const auto keep = [](chart::Axis& axis, const chart::Axis& shown) {
        axis.min = shown.min;
        axis.max = shown.max;
        axis.automatic = shown.automatic;
        axis.logarithmic = shown.logarithmic;
    };
    keep(chart.x, now.x);
    keep(chart.y, now.y);
}

/// The content of a step; the window, which the user may have moved since, stays.
void show_content(DiagramSheet& sheet, SheetContent content) {
    keep_window(content.chart, sheet.chart);
    sheet.chart = std::move(content.chart);
    sheet.curves = std::move(content.curves);
    sheet.point_sets = std::move(content.point_sets);
    sheet.given_footer = std::move(content.given_footer);
    stretch_reference_lines(sheet);
}

/// Moves the newest step of one list to the other with what is there now.
bool step(DiagramSheet& sheet, std::vector<UndoStep>& from, std::vector<UndoStep>& to) {
    if (from.empty()) return false;
    UndoStep last = std::move(from.back());
    from.pop_back();
    to.push_back({last.name, content_of(sheet), false});
    show_content(sheet, std::move(last.before));
    return true;
}

}  // namespace

void remember(DiagramSheet& sheet, const std::string& name) {
    sheet.redo.clear();
    sheet.undo.push_back({name, content_of(sheet), false});
    if (sheet.undo.size() > kMostSteps) sheet.undo.erase(sheet.undo.begin());
}

void remember_design(DiagramSheet& sheet, const SheetContent& before, const std::string& name) {
    SheetContent kept = before;
    keep_window(kept.chart, sheet.chart);
    const auto label = [](const SheetCurve& curve) { return curve.label; };
    const bool same_labels =
        std::equal(kept.curves.begin(), kept.curves.end(), sheet.curves.begin(), sheet.curves.end(),
                   [&](const auto& a, const auto& b) { return label(a) == label(b); });
    if (kept.chart == sheet.chart && same_labels) return;
    sheet.redo.clear();
    const bool goes_on =
        !sheet.undo.empty() && sheet.undo.back().is_design && sheet.undo.back().name == name;
    if (!goes_on) sheet.undo.push_back({name, std::move(kept), true});
    if (sheet.undo.size() > kMostSteps) sheet.undo.erase(sheet.undo.begin());
}

bool undo(DiagramSheet& sheet) {
    return step(sheet, sheet.undo, sheet.redo);
}

bool redo(DiagramSheet& sheet) {
    return step(sheet, sheet.redo, sheet.undo);
}

bool has_reference_lines(const DiagramSheet& sheet) {
    const auto& curves = sheet.chart.curves;
    return std::any_of(curves.begin(), curves.end(),
                       [](const Series& s) { return s.is_reference && !s.x.empty(); });
}

bool has_marker_labels(const DiagramSheet& sheet) {
    return has_labels(sheet, is_kind(LabelKind::marker));
}

bool has_critical_point(const DiagramSheet& sheet, bool experimental) {
    return has_labels(sheet, is_kind(critical(experimental)));
}

bool has_curve_labels(const DiagramSheet& sheet) {
    return has_labels(sheet, is_kind(LabelKind::curve));
}

bool has_texts(const DiagramSheet& sheet) {
    return has_labels(sheet, is_kind(LabelKind::text));
}

bool has_anything(const DiagramSheet& sheet) {
    return curve_count(sheet) > 0 || point_set_count(sheet) > 0 || has_reference_lines(sheet) ||
           !sheet.chart.labels.empty();
}

// ------------------------------------------------------------------------------------------ window

bool set_coordinates(DiagramSheet& sheet, const chart::Window& window) {
    if (!is_range(window.x) || !is_range(window.y)) {
        dialogs::tell("Lower limit has to smaller than upper limit.", "INPUT ERROR");
        return false;
    }
    sheet.request.window = in_single_precision(window);
    show_window(sheet, window);
    return true;
}

void follow_window(DiagramSheet& sheet) {
    stretch_reference_lines(sheet);
}

bool fit_window(DiagramSheet& sheet) {
    const std::optional<chart::Window> window = chart::fitting_window(sheet.chart);
    if (!window || !is_range(window->x) || !is_range(window->y)) return false;
    sheet.request.window = in_single_precision(*window);
    show_window(sheet, *window);
    return true;
}

void default_coordinates(DiagramSheet& sheet) {
    const chart::Window window = as_chart_window(sheet.request.proposed);
    if (is_range(window.x) && is_range(window.y)) set_coordinates(sheet, window);
}

namespace {

void swap_window(CurveWindow& w) {
    std::swap(w.x_min, w.y_min);
    std::swap(w.x_max, w.y_max);
}

}  // namespace

void change_xy(DiagramSheet& sheet) {
    sheet.swapped_axes = !sheet.swapped_axes;
    chart::swap_axes(sheet.chart);
    swap_window(sheet.request.window);
    swap_window(sheet.request.proposed);
    std::swap(sheet.request.texts.x, sheet.request.texts.y);
    // What can be taken back, or made again, keeps to the axes as they stand.
    for (auto* steps : {&sheet.undo, &sheet.redo})
        for (UndoStep& kept : *steps) chart::swap_axes(kept.before.chart);
}

void set_logarithmic(DiagramSheet& sheet, bool x_axis, bool on) {
    (x_axis ? sheet.chart.x : sheet.chart.y).logarithmic = on;
}

void set_scaling(DiagramSheet& sheet, int index, const Scaling& values) {
    sheet.manual_scaling = index == 1;
    const Scaling scaling = sheet.manual_scaling ? values : Scaling{};
    const auto positive = [](double value) {
        return std::isfinite(value) && value > 0 ? value : 0;
    };
    const auto digits = [](int value) { return value < 0 ? -1 : std::min(value, 15); };
    chart::Axis& x = sheet.chart.x;
    chart::Axis& y = sheet.chart.y;
    x.tick_spacing = positive(scaling.x_tick);
    y.tick_spacing = positive(scaling.y_tick);
    x.grid_spacing = positive(scaling.x_grid);
    y.grid_spacing = positive(scaling.y_grid);
    x.decimals = digits(scaling.x_digits);
    y.decimals = digits(scaling.y_digits);
}

// ----------------------------------------------------------------------------- placing the labels

void place_labels(DiagramSheet& sheet, double width, double height,
                  const chart::MeasureText& measure) {
    auto& labels = sheet.chart.labels;
    // Labels keep out of each other's way in the order of their curves, wherever they stood before.
    for (chart::Label& label : labels)
        if (kind_of(label) == LabelKind::curve) label.shown = false;
    for (int place = 0; at(place) < sheet.curves.size(); ++place) {
        const SheetCurve& curve = sheet.curves[at(place)];
        const CurveLabel& wanted = curve.label;
        auto found = std::find_if(labels.begin(), labels.end(), [&](const chart::Label& l) {
            return curve_place_of(l) == place;
        });
        if (!curve.drawn || !wanted.shown || wanted.text.empty()) {
            if (found != labels.end()) labels.erase(found);
            continue;
        }
        chart::Label label;
        if (found != labels.end()) {
            label = *found;
            labels.erase(found);
        } else {
            label.index = label_index_of_curve(place);
            label.text_colour = chart::series_at(sheet.chart, Group::Curves, place).line.colour;
        }
        label.text = wanted.text;
        label.shown = chart::place_curve_label(sheet.chart, place, wanted.shift, width, height,
                                               measure, label);
        if (!label.shown) {
            label.on_point = true;
            label.series = place;
        }
        labels.push_back(std::move(label));
    }
}

void add_text(DiagramSheet& sheet, const std::string& text) {
    if (text.empty()) return;
    remember(sheet, "Add text");
    int index = kFirstText;
    for (const chart::Label& l : sheet.chart.labels)
        if (kind_of(l) == LabelKind::text) index = std::max(index, l.index + 1);
    const chart::WindowScale scale(sheet.chart);
    chart::Label label;
    label.index = index;
    label.text = text;
    label.x = scale.x(0.5);
    label.y = scale.y(0.5);
    sheet.chart.labels.push_back(std::move(label));
}

}  // namespace quor::diagrams
