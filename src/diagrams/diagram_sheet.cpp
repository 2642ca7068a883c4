#include "diagrams/diagram_sheet.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

#include "chart/sheet2d.h"
#include "common/constants.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "common/text.h"
#include "diagrams/catalogue.h"
#include "legacy/declare.h"
#include "session/module2.h"

namespace quor::Module9 {

namespace {

using chart::Group;
using chart::Series;

constexpr std::size_t kMaxUndo = 50;

std::size_t at(int slot) {
    return static_cast<std::size_t>(slot);
}

bool is_curve(int slot) {
    return slot >= 0 && slot < kMaxCurves;
}

template <std::size_t n>
int lowest_free(const std::array<bool, n>& free) {
    const auto found = std::find(free.begin(), free.end(), true);
    return found == free.end() ? -1 : static_cast<int>(found - free.begin());
}

void remember(DiagramSheet& sheet, UndoStep step) {
    if (step.curves.empty() && step.points.empty()) return;
    sheet.undo.push_back(std::move(step));
    if (sheet.undo.size() > kMaxUndo) sheet.undo.erase(sheet.undo.begin());
}

SavedCurve saved_curve(DiagramSheet& sheet, int slot) {
    const auto& z = sheet.CurveParameters[at(slot)];
    Series& series = chart::series_at(sheet.chart, Group::Curves, slot);
    const std::size_t kept = std::min(series.x.size() + 1, z.size());
    return {slot,
            sheet.CurveFree[at(slot)],
            series,
            sheet.CurveLabels[at(slot)],
            sheet.CurveMarks[at(slot)],
            {z.begin(), z.begin() + static_cast<std::ptrdiff_t>(kept)}};
}

SavedPointSet saved_points(DiagramSheet& sheet, int slot) {
    return {slot, sheet.PointSetFree[at(slot)], chart::series_at(sheet.chart, Group::Points, slot)};
}

/// Where the line between two points reaches an x that lies between theirs.
diagrams::CurvePoint point_at_x(const diagrams::CurvePoint& a, const diagrams::CurvePoint& b,
                                float x) {
    const double part = (static_cast<double>(x) - static_cast<double>(a.x)) /
                        (static_cast<double>(b.x) - static_cast<double>(a.x));
    const double y =
        static_cast<double>(a.y) + part * (static_cast<double>(b.y) - static_cast<double>(a.y));
    return {x, static_cast<float>(y), a.z};
}

void erase_labels(DiagramSheet& sheet, int from, int to) {
    std::erase_if(sheet.chart.labels,
                  [&](const chart::Label& l) { return l.index >= from && l.index < to; });
}

bool has_labels(const DiagramSheet& sheet, int from, int to) {
    return std::any_of(sheet.chart.labels.begin(), sheet.chart.labels.end(),
                       [&](const chart::Label& l) { return l.index >= from && l.index < to; });
}

void erase_label_of(DiagramSheet& sheet, int slot) {
    erase_labels(sheet, LabelIndex::kFirstCurve + slot, LabelIndex::kFirstCurve + slot + 1);
}

void count_slots(DiagramSheet& sheet) {
    const auto used = [](const auto& free) {
        return static_cast<std::int16_t>(std::count(free.begin(), free.end(), false));
    };
    sheet.CurveCount = used(sheet.CurveFree);
    sheet.PointSetCount = used(sheet.PointSetFree);
}

void clear_curve(DiagramSheet& sheet, int slot) {
    chart::clear_series(sheet.chart, Group::Curves, slot);
    erase_label_of(sheet, slot);
    sheet.CurveFree[at(slot)] = true;
    sheet.CurveLabels[at(slot)] = {};
    sheet.CurveMarks[at(slot)] = 0;
    sheet.CurveParameters[at(slot)].fill(0);
}

void clear_point_set(DiagramSheet& sheet, int slot) {
    chart::clear_series(sheet.chart, Group::Points, slot);
    sheet.PointSetFree[at(slot)] = true;
}

/// Lines that cross the whole window reach its new end.
void stretch_reference_lines(DiagramSheet& sheet) {
    auto& curves = sheet.chart.curves;
    for (std::size_t i = at(kFirstReferenceLine); i < curves.size(); ++i) {
        Series& line = curves[i];
        if (!line.isReference || line.x.size() != 2) continue;
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
    const auto isSingle = [](double value) {
        return std::isfinite(value) && std::fabs(value) <= 3e38;
    };
    // The limits have to differ as 32-bit numbers, in which the coordinates are kept.
    return isSingle(range.min) && isSingle(range.max) &&
           static_cast<float>(range.min) < static_cast<float>(range.max);
}

void keep_coordinates(DiagramSheet& sheet, const chart::Window& window) {
    diagrams::DiagramRequest& r = sheet.request;
    r.xMin = static_cast<float>(window.x.min);
    r.xMax = static_cast<float>(window.x.max);
    r.yMin = static_cast<float>(window.y.min);
    r.yMax = static_cast<float>(window.y.max);
}

}  // namespace

namespace {

bool shows_any(const CatalogueRow& row, std::initializer_list<Axis> axes) {
    return std::any_of(axes.begin(), axes.end(),
                       [&](Axis axis) { return row.x == axis || row.y == axis; });
}

/// T/K and p/kPa in a line of text.
std::string state_text(double T, double p) {
    return numbers::General(static_cast<float>(T)) + " K, " +
           numbers::General(static_cast<float>(p)) + " kPa";
}

}  // namespace

std::string reference_note(std::int16_t DiagramType) {
    const CatalogueRow* row = find_row(DiagramType);
    if (row == nullptr) return {};
    const bool exergy = shows_any(*row, {Axis::e});
    if (!exergy && !shows_any(*row, {Axis::h, Axis::hSpaced, Axis::s, Axis::g, Axis::a, Axis::u}))
        return {};
    const bool zeroPoint =
        !(exergy && row->y == Axis::e && row->x != Axis::h && row->x != Axis::hSpaced);
    return reference_text(zeroPoint, exergy);
}

std::string reference_text(bool zeroPoint, bool surroundings) {
    const models::ReferenceState& r = legacy::the_reference;
    const std::string around =
        surroundings ? "surroundings: " + state_text(r.Tenv, r.penv) : std::string();
    if (!zeroPoint) return around;
    constexpr std::int16_t kConventional = 2, kFormation = 10;
    const bool pressureSet = r.p0 > 0;
    std::string note = "reference state: " + state_text(static_cast<double>(r.T0),
                                                        pressureSet ? static_cast<double>(r.p0)
                                                                    : constants::kNormalPressure);
    if (r.RefMode == kConventional) note = "conventional reference state";
    if (r.RefMode == kFormation) note = "reference state: quantities of formation";
    return surroundings ? note + "; " + around : note;
}

DiagramSheet::DiagramSheet() : CurveParameters(kMaxCurves) {
    CurveFree.fill(true);
    PointSetFree.fill(true);
}

std::string wrap_title(const std::string& title, std::size_t length) {
    std::string wrapped;
    std::size_t inLine = 0;
    for (const std::string& word : text::split(title, ' ')) {
        const std::size_t more = text::Length(word);
        if (inLine > 0 && inLine + 1 + more > length) {
            wrapped += '\n';
            inLine = 0;
        } else if (!wrapped.empty()) {
            wrapped += ' ';
            ++inLine;
        }
        wrapped += word;
        inLine += more;
    }
    return wrapped;
}

void show_texts(DiagramSheet& sheet) {
    sheet.chart.header.text = wrap_title(text::trim(sheet.request.title), kHeaderLine);
    sheet.chart.footer.text = wrap_title(text::trim(sheet.request.subTitle), kFooterLine);
    const std::string note = reference_note(sheet.request.DiagramType);
    if (!note.empty()) sheet.chart.footer.text += "\n" + wrap_title(note, kFooterLine);
    sheet.chart.x.title = text::trim(sheet.request.xLabel);
    sheet.chart.y.title = text::trim(sheet.request.yLabel);
}

void open_sheet(DiagramSheet& sheet, const diagrams::DiagramRequest& request) {
    sheet = DiagramSheet();
    sheet.request = request;
    show_texts(sheet);
    show_window(sheet, {{request.xMin, request.xMax}, {request.yMin, request.yMax}});
    take_parameters(sheet);
}

void take_parameters(DiagramSheet& sheet) {
    sheet.T = legacy::the_session.DiagramT;
    sheet.p = legacy::the_session.DiagramP;
    sheet.v = legacy::the_session.DiagramV;
}

void give_to_session(const DiagramSheet& sheet) {
    legacy::the_diagram = sheet.request;
    legacy::the_session.DiagramT = sheet.T;
    legacy::the_session.DiagramP = sheet.p;
    legacy::the_session.DiagramV = sheet.v;
    legacy::the_session.DiagramIsProjection = sheet.request.sectionKind == kProjection;
    legacy::the_session.CurveModelName = CurveModelName(sheet.request.DiagramType);
}

int store_curve(DiagramSheet& sheet, const diagrams::CurvePointArray& points) {
    const int slot = lowest_free(sheet.CurveFree);
    if (slot < 0) {
        sheet.CurveCount = kMaxCurves;
        dialogs::tell(
            "Maximum " + std::to_string(kMaxCurves) + " curves possible\nDelete existing curves",
            "WARNING");
        return -1;
    }
    remember(sheet, {{saved_curve(sheet, slot)}, {}});

    std::size_t end = points.size();
    while (end > 1 && points[end - 1].x >= sheet.request.xMax) --end;
    if (end <= 1) end = points.size();

    Series& series = chart::series_at(sheet.chart, Group::Curves, slot);
    series.x.clear();
    series.y.clear();
    series.visible = true;
    auto& z = sheet.CurveParameters[at(slot)];
    z.fill(0);
    const auto add = [&](const diagrams::CurvePoint& point) {
        series.x.push_back(point.x);
        series.y.push_back(point.y);
        if (series.x.size() < z.size()) z[series.x.size()] = point.z;
    };
    for (std::size_t i = 1; i < end; ++i) add(points[i]);
    if (end > 1 && end < points.size())
        add(point_at_x(points[end - 1], points[end], sheet.request.xMax));
    sheet.CurveMarks[at(slot)] = points.empty() ? 0 : points.front().z;
    sheet.CurveLabels[at(slot)] = {};
    sheet.CurveFree[at(slot)] = false;
    ++sheet.CurveCount;
    sheet.currentSlot = slot;
    return slot;
}

int store_points(DiagramSheet& sheet, std::vector<float> x, std::vector<float> y) {
    diagrams::CurvePointArray points(1);
    for (std::size_t i = 0; i < std::min(x.size(), y.size()); ++i)
        points.push_back({x[i], y[i], 0});
    points[0].x = static_cast<float>(points.size() - 1);
    return store_curve(sheet, points);
}

bool has_free_point_set(const DiagramSheet& sheet) {
    if (lowest_free(sheet.PointSetFree) >= 0) return true;
    dialogs::tell("Maximum " + std::to_string(kMaxPointSets) +
                      " sets of experimental points possible\n"
                      "Delete the experimental points if exist",
                  "Execution not possible");
    return false;
}

int store_point_set(DiagramSheet& sheet, std::vector<float> x, std::vector<float> y,
                    const std::string& legend) {
    if (!has_free_point_set(sheet)) return -1;
    const int slot = lowest_free(sheet.PointSetFree);
    remember(sheet, {{}, {saved_points(sheet, slot)}});
    Series& series = chart::series_at(sheet.chart, Group::Points, slot);
    series.x = std::move(x);
    series.y = std::move(y);
    series.legend = legend;
    series.visible = true;
    sheet.PointSetFree[at(slot)] = false;
    ++sheet.PointSetCount;
    return slot;
}

void name_curve(DiagramSheet& sheet, int slot, const std::string& legend,
                const std::string& label) {
    if (!is_curve(slot)) return;
    chart::series_at(sheet.chart, Group::Curves, slot).legend = legend;
    sheet.CurveLabels[at(slot)].text = label;
}

// ---------------------------------------------------------------------------------------- deleting

void delete_curve(DiagramSheet& sheet, int number) {
    UndoStep step;
    for (int slot = 0; slot < kMaxCurves; ++slot) {
        if (number != 0 && slot != number - 1) continue;
        if (sheet.CurveFree[at(slot)]) continue;
        step.curves.push_back(saved_curve(sheet, slot));
        clear_curve(sheet, slot);
    }
    remember(sheet, std::move(step));
    count_slots(sheet);
}

void delete_point_set(DiagramSheet& sheet, int number) {
    UndoStep step;
    for (int slot = 0; slot < kMaxPointSets; ++slot) {
        if (number != 0 && slot != number - 1) continue;
        if (sheet.PointSetFree[at(slot)]) continue;
        step.points.push_back(saved_points(sheet, slot));
        clear_point_set(sheet, slot);
    }
    remember(sheet, std::move(step));
    count_slots(sheet);
}

void delete_total(DiagramSheet& sheet) {
    UndoStep step;
    for (int slot = 0; slot < kMaxCurves; ++slot)
        if (!sheet.CurveFree[at(slot)]) step.curves.push_back(saved_curve(sheet, slot));
    for (int slot = 0; slot < kMaxPointSets; ++slot)
        if (!sheet.PointSetFree[at(slot)]) step.points.push_back(saved_points(sheet, slot));
    for (const SavedCurve& curve : step.curves) clear_curve(sheet, curve.slot);
    for (const SavedPointSet& set : step.points) clear_point_set(sheet, set.slot);
    remember(sheet, std::move(step));
    count_slots(sheet);
    delete_reference_lines(sheet);
    delete_critical_point(sheet, true);
    delete_critical_point(sheet, false);
    sheet.chart.labels.clear();
    sheet.chart.legend.shown = false;
}

void delete_reference_lines(DiagramSheet& sheet) {
    auto& curves = sheet.chart.curves;
    if (static_cast<int>(curves.size()) > kFirstReferenceLine)
        curves.resize(at(kFirstReferenceLine));
}

void delete_marker_labels(DiagramSheet& sheet) {
    erase_labels(sheet, 0, LabelIndex::kMarkerEnd);
}

void delete_critical_point(DiagramSheet& sheet, bool experimental) {
    chart::clear_series(sheet.chart, Group::Points,
                        experimental ? kCriticalExSeries : kCriticalCalcSeries);
    const int index = experimental ? LabelIndex::kCriticalEx : LabelIndex::kCriticalCalc;
    erase_labels(sheet, index, index + 1);
}

void delete_curve_labels(DiagramSheet& sheet) {
    for (CurveLabel& label : sheet.CurveLabels) label.shown = false;
    erase_labels(sheet, LabelIndex::kFirstCurve, LabelIndex::kFirstCurve + kMaxCurves);
}

void delete_texts(DiagramSheet& sheet) {
    std::erase_if(sheet.chart.labels,
                  [](const chart::Label& l) { return l.index >= LabelIndex::kFirstText; });
}

bool delete_single_point(DiagramSheet& sheet, int slot, int point) {
    if (!is_curve(slot) || sheet.CurveFree[at(slot)]) return false;
    const Series& series = chart::series_at(sheet.chart, Group::Curves, slot);
    if (series.line.pattern != chart::LinePattern::None) return false;
    if (point < 0 || point >= static_cast<int>(series.x.size())) return false;
    const std::string question = "point x =" + numbers::General(series.x[at(point)]) +
                                 ",  y =" + numbers::General(series.y[at(point)]) +
                                 " Really delete?";
    if (!dialogs::ask(question, "Delete a Curve Point")) return false;
    remember(sheet, {{saved_curve(sheet, slot)}, {}});
    chart::delete_point(sheet.chart, Group::Curves, slot, point);
    auto& z = sheet.CurveParameters[at(slot)];
    if (at(point) + 1 < z.size()) {
        std::move(z.begin() + point + 2, z.end(), z.begin() + point + 1);
        z.back() = 0;
    }
    return true;
}

bool Undo(DiagramSheet& sheet) {
    if (sheet.undo.empty()) return false;
    const UndoStep step = std::move(sheet.undo.back());
    sheet.undo.pop_back();
    for (const SavedCurve& curve : step.curves) {
        clear_curve(sheet, curve.slot);
        Series& series = chart::series_at(sheet.chart, Group::Curves, curve.slot);
        series = curve.series;
        sheet.CurveFree[at(curve.slot)] = curve.free;
        sheet.CurveLabels[at(curve.slot)] = curve.label;
        sheet.CurveMarks[at(curve.slot)] = curve.mark;
        std::copy(curve.parameters.begin(), curve.parameters.end(),
                  sheet.CurveParameters[at(curve.slot)].begin());
    }
    for (const SavedPointSet& set : step.points) {
        chart::series_at(sheet.chart, Group::Points, set.slot) = set.series;
        sheet.PointSetFree[at(set.slot)] = set.free;
    }
    count_slots(sheet);
    return true;
}

bool has_reference_lines(const DiagramSheet& sheet) {
    const auto& curves = sheet.chart.curves;
    return std::any_of(curves.begin(), curves.end(),
                       [](const Series& s) { return s.isReference && !s.x.empty(); });
}

bool has_marker_labels(const DiagramSheet& sheet) {
    return has_labels(sheet, 0, LabelIndex::kMarkerEnd);
}

bool has_critical_point(const DiagramSheet& sheet, bool experimental) {
    const int index = experimental ? LabelIndex::kCriticalEx : LabelIndex::kCriticalCalc;
    return has_labels(sheet, index, index + 1);
}

bool has_curve_labels(const DiagramSheet& sheet) {
    return has_labels(sheet, LabelIndex::kFirstCurve, LabelIndex::kFirstCurve + kMaxCurves);
}

bool has_texts(const DiagramSheet& sheet) {
    return std::any_of(sheet.chart.labels.begin(), sheet.chart.labels.end(),
                       [](const chart::Label& l) { return l.index >= LabelIndex::kFirstText; });
}

bool has_anything(const DiagramSheet& sheet) {
    return sheet.CurveCount > 0 || sheet.PointSetCount > 0 || has_reference_lines(sheet) ||
           !sheet.chart.labels.empty();
}

// ------------------------------------------------------------------------------------------ window

bool set_coordinates(DiagramSheet& sheet, const chart::Window& window) {
    if (!is_range(window.x) || !is_range(window.y)) {
        dialogs::tell("Lower limit has to smaller than upper limit.", "INPUT ERROR");
        return false;
    }
    keep_coordinates(sheet, window);
    show_window(sheet, window);
    return true;
}

void follow_window(DiagramSheet& sheet) {
    stretch_reference_lines(sheet);
}

bool Fit(DiagramSheet& sheet) {
    const std::optional<chart::Window> window = chart::fitting_window(sheet.chart);
    if (!window || !is_range(window->x) || !is_range(window->y)) return false;
    keep_coordinates(sheet, *window);
    show_window(sheet, *window);
    return true;
}

void default_coordinates(DiagramSheet& sheet) {
    const diagrams::DiagramRequest& r = sheet.request;
    const chart::Window window{{r.xMinDefault, r.xMaxDefault}, {r.yMinDefault, r.yMaxDefault}};
    if (is_range(window.x) && is_range(window.y)) set_coordinates(sheet, window);
}

void change_xy(DiagramSheet& sheet) {
    sheet.SwappedAxes = !sheet.SwappedAxes;
    chart::swap_axes(sheet.chart);
    diagrams::DiagramRequest& r = sheet.request;
    std::swap(r.xMin, r.yMin);
    std::swap(r.xMax, r.yMax);
    std::swap(r.xMinDefault, r.yMinDefault);
    std::swap(r.xMaxDefault, r.yMaxDefault);
    std::swap(r.xLabel, r.yLabel);
    // What can be taken back keeps to the axes as they stand.
    for (UndoStep& step : sheet.undo) {
        for (SavedCurve& curve : step.curves) std::swap(curve.series.x, curve.series.y);
        for (SavedPointSet& set : step.points) std::swap(set.series.x, set.series.y);
    }
}

void set_logarithmic(DiagramSheet& sheet, bool xAxis, bool on) {
    (xAxis ? sheet.chart.x : sheet.chart.y).logarithmic = on;
}

void set_scaling(DiagramSheet& sheet, int index, const Scaling& values) {
    sheet.manualScaling = index == 1;
    const Scaling scaling = sheet.manualScaling ? values : Scaling{};
    const auto positive = [](double value) {
        return std::isfinite(value) && value > 0 ? value : 0;
    };
    const auto digits = [](int value) { return value < 0 ? -1 : std::min(value, 15); };
    chart::Axis& x = sheet.chart.x;
    chart::Axis& y = sheet.chart.y;
    x.tickSpacing = positive(scaling.xTick);
    y.tickSpacing = positive(scaling.yTick);
    x.gridSpacing = positive(scaling.xGrid);
    y.gridSpacing = positive(scaling.yGrid);
    x.decimals = digits(scaling.xDigits);
    y.decimals = digits(scaling.yDigits);
}

// ------------------------------------------------------------------------------------------ labels

void place_labels(DiagramSheet& sheet, double width, double height,
                  const chart::MeasureText& measure) {
    // Labels keep out of each other's way in the order of their curves, wherever they stood before.
    for (chart::Label& label : sheet.chart.labels)
        if (label.index >= LabelIndex::kFirstCurve &&
            label.index < LabelIndex::kFirstCurve + kMaxCurves)
            label.shown = false;
    for (int slot = 0; slot < kMaxCurves; ++slot) {
        const CurveLabel& wanted = sheet.CurveLabels[at(slot)];
        const int index = LabelIndex::kFirstCurve + slot;
        auto& labels = sheet.chart.labels;
        auto found = std::find_if(labels.begin(), labels.end(),
                                  [&](const chart::Label& l) { return l.index == index; });
        if (sheet.CurveFree[at(slot)] || !wanted.shown || wanted.text.empty()) {
            if (found != labels.end()) labels.erase(found);
            continue;
        }
        chart::Label label;
        if (found != labels.end()) {
            label = *found;
            labels.erase(found);
        } else {
            label.index = index;
            label.textColour = chart::series_at(sheet.chart, Group::Curves, slot).line.colour;
        }
        label.text = wanted.text;
        label.shown = chart::place_curve_label(sheet.chart, slot, wanted.shift, width, height,
                                               measure, label);
        if (!label.shown) {
            label.onPoint = true;
            label.series = slot;
        }
        labels.push_back(std::move(label));
    }
}

void add_text(DiagramSheet& sheet, const std::string& text) {
    if (text.empty()) return;
    int index = LabelIndex::kFirstText;
    for (const chart::Label& l : sheet.chart.labels) index = std::max(index, l.index + 1);
    const chart::WindowScale scale(sheet.chart);
    chart::Label label;
    label.index = index;
    label.text = text;
    label.x = scale.x(0.5);
    label.y = scale.y(0.5);
    sheet.chart.labels.push_back(std::move(label));
}

}  // namespace quor::Module9
