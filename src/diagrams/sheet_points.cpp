#include "diagrams/sheet_points.h"

#include <cmath>
#include <optional>
#include <utility>

#include "common/dialogs.h"
#include "common/faults.h"
#include "common/text.h"
#include "diagrams/axis_units.h"
#include "diagrams/sheet_window.h"

namespace quor::diagrams {

namespace {

using Value = std::optional<double>;

/// A value of the data; 0 means that there is none.
Value given(double value) {
    return value != 0 && std::isfinite(value) ? Value(value) : std::nullopt;
}

Value product(Value a, Value b) {
    return a && b ? Value(*a * *b) : std::nullopt;
}

/// One line of data seen with one of its densities.
struct Measured {
    const Basis& basis;
    const MeasuredState& data;
    double T_of_diagram;  ///< K
    Value density;

    Value T() const { return product(given(data.T), basis.T_factor()); }
    Value p() const { return product(given(data.p), basis.p_factor()); }
    Value v() const {
        if (!density || !(basis.M() > 0)) return std::nullopt;
        return basis.M() / *density * basis.v_factor();
    }
    double caloric() const { return basis.caloric(data.T > 0 ? data.T : T_of_diagram); }
};

Value on_axis(Axis axis, const Measured& m) {
    switch (axis) {
        case Axis::T:
            return m.T();
        case Axis::p:
            return m.p();
        case Axis::v:
            return m.v();
        case Axis::rho:
            return m.density;
        case Axis::pv:
            return product(m.p(), m.v());
        case Axis::inverseT:
        case Axis::inverseTSlope:
            return m.T() ? Value(1 / *m.T()) : std::nullopt;
        case Axis::lnp:
            return m.p() && *m.p() > 0 ? Value(std::log(*m.p())) : std::nullopt;
        case Axis::deltaLVh:
            return product(given(m.data.hLV), m.caloric());
        case Axis::cp:
        case Axis::cpDatabase:
            return product(given(m.data.cp), m.caloric());
        default:
            return std::nullopt;
    }
}

/// A function of the database that shows the density or the volume of a condensed phase.
bool is_condensed_function(const Diagram& diagram) {
    return diagram.section == Section::database && (diagram.y == Axis::rho || diagram.y == Axis::v);
}

bool in_window(const DiagramSheet& sheet, float x, float y) {
    const chart::Window w = chart::shown_window(sheet.chart);
    return static_cast<double>(x) >= w.x.min && static_cast<double>(x) <= w.x.max &&
           static_cast<double>(y) >= w.y.min && static_cast<double>(y) <= w.y.max;
}

}  // namespace

MeasuredPoints map_measured(const Diagram& diagram, const Basis& basis,
                            std::span<const MeasuredState> data, double T) {
    MeasuredPoints points;
    const AxisScales scales = shown_scales(diagram, basis);
    const auto add = [&](const MeasuredState& line, Value density) {
        const Measured measured{basis, line, T, density};
        const Value x = on_axis(diagram.x, measured), y = on_axis(diagram.y, measured);
        if (!x || !y) return false;
        const auto xf = static_cast<float>(scales.x(*x)), yf = static_cast<float>(scales.y(*y));
        if (!chart::is_shown(xf) || !chart::is_shown(yf)) return false;
        points.x.push_back(xf);
        points.y.push_back(yf);
        return true;
    };
    for (const MeasuredState& line : data) {
        const Value V = given(line.rhoV), L = given(line.rhoL);
        const bool needs_density = !add(line, std::nullopt);
        if (!needs_density) continue;
        if (is_condensed_function(diagram)) {
            add(line, L ? L : V);
        } else {
            add(line, V);
            add(line, L);
        }
    }
    return points;
}

bool add_measured_points(DiagramSheet& sheet, const Pen& pen, std::span<const MeasuredState> data,
                         const std::string& file) {
    const Upright upright(sheet);
    MeasuredPoints points;
    try {
        if (sheet.request.diagram != nullptr)
            points = map_measured(*sheet.request.diagram, in_units_of(sheet, pen.basis), data,
                                  sheet.at.T);
    } catch (const faults::Fault& fault) {
        dialogs::tell(fault.what(), dialogs::kNotPossible);
        return false;
    }
    bool any = false;
    for (std::size_t i = 0; i < points.x.size(); ++i)
        any = any || in_window(sheet, points.x[i], points.y[i]);
    if (!any) {
        dialogs::tell("No experimental points in this range of the diagram ",
                      dialogs::kNotPossible);
        return false;
    }
    store_point_set(sheet, std::move(points.x), std::move(points.y),
                    file.empty() ? "exper. points" : file);
    return true;
}

namespace {

std::string editor_name(const std::string& comment) {
    const std::string trimmed = text::trim(comment);
    return trimmed.empty() ? "manual data input" : trimmed;
}

}  // namespace

DiagramRequest request_of_editor_graph(const EditorGraph& graph) {
    // The curve stays inside of the window, whose limits its points would touch.
    constexpr float kRim = 0.05F;
    const auto widen = [](float& low, float& high) {
        const float rim = high > low ? kRim * (high - low) : 1;
        low -= rim;
        high += rim;
    };
    CurveWindow window = graph.range;
    widen(window.x_min, window.x_max);
    widen(window.y_min, window.y_max);
    return {
        .proposed = window,
        .window = window,
        .texts = {.title = graph.title, .sub_title = {}, .x = graph.x_title, .y = graph.y_title}};
}

bool add_editor_points(DiagramSheet& sheet, std::vector<float> x, std::vector<float> y,
                       const std::string& comment) {
    if (x.empty()) return false;
    const Upright upright(sheet);
    return store_point_set(sheet, std::move(x), std::move(y), editor_name(comment)) >= 0;
}

bool add_editor_curve(DiagramSheet& sheet, std::vector<float> x, std::vector<float> y,
                      const std::string& comment) {
    if (x.empty()) return false;
    const Upright upright(sheet);
    return store_points(sheet, std::move(x), std::move(y), editor_name(comment)) >= 0;
}

}  // namespace quor::diagrams
