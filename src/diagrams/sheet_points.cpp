#include "diagrams/sheet_points.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "common/dialogs.h"
#include "common/text.h"
#include "datafiles/xy_points.h"
#include "diagrams/catalogue.h"
#include "diagrams/database_functions.h"
#include "legacy/declare.h"
#include "session/module2.h"
#include "session/xy_session.h"

namespace quor::Module9 {

namespace {

using calculation::BatchDataSet;
using legacy::the_session;
using legacy::the_substance;
using Value = std::optional<double>;

/// A value of the data; 0 means that there is none.
Value given(double value) {
    return value != 0 && std::isfinite(value) ? Value(value) : std::nullopt;
}

Value product(Value a, Value b) {
    return a && b ? Value(*a * *b) : std::nullopt;
}

Value volume(Value density) {
    if (!density || !(the_substance.M > 0)) return std::nullopt;
    return the_substance.M / *density * the_session.VolumeFactor;
}

double caloric(double T) {
    return session::caloric_factor_of(the_session.CaloricUnit, T > 0 ? T : the_session.DiagramT);
}

/// One line of data seen with one of its densities.
struct Measured {
    const BatchDataSet& data;
    Value density;

    Value T() const {
        return product(given(data.T), static_cast<double>(the_session.TemperatureFactor));
    }
    Value p() const {
        return product(given(data.p), static_cast<double>(the_session.PressureFactor));
    }
};

Value on_axis(Axis axis, const Measured& m) {
    switch (axis) {
        case Axis::T:
            return m.T();
        case Axis::p:
            return m.p();
        case Axis::v:
            return volume(m.density);
        case Axis::rho:
            return m.density;
        case Axis::pv:
            return product(m.p(), volume(m.density));
        case Axis::inverseT:
        case Axis::inverseTSlope:
            return m.T() ? Value(1 / *m.T()) : std::nullopt;
        case Axis::lnp:
            return m.p() && *m.p() > 0 ? Value(std::log(*m.p())) : std::nullopt;
        case Axis::deltaLVh:
            return product(given(static_cast<double>(m.data.hLV)), caloric(m.data.T));
        case Axis::cp:
        case Axis::cpDatabase:
            return product(given(static_cast<double>(m.data.cp)), caloric(m.data.T));
        default:
            return std::nullopt;
    }
}

bool is_liquid_function(std::int16_t code) {
    constexpr std::int16_t kDensity = 300, kVolume = 301, kSolidDensity = 310;
    return code == kDensity || code == kVolume || code == kSolidDensity;
}

bool shows_coexistence(std::int16_t code) {
    return (code >= 6 && code <= 8) || code == 12 || code == 27 || code == 106;
}

bool in_window(const DiagramSheet& sheet, float x, float y) {
    const chart::Window w = chart::shown_window(sheet.chart);
    return static_cast<double>(x) >= w.x.min && static_cast<double>(x) <= w.x.max &&
           static_cast<double>(y) >= w.y.min && static_cast<double>(y) <= w.y.max;
}

}  // namespace

MeasuredPoints map_measured(std::int16_t DiagramType) {
    MeasuredPoints points;
    const CatalogueRow* row = find_row(DiagramType);
    if (row == nullptr) return points;
    const auto add = [&](const Measured& measured) {
        const Value x = on_axis(row->x, measured), y = on_axis(row->y, measured);
        if (!x || !y) return false;
        const auto xf = static_cast<float>(*x), yf = static_cast<float>(*y);
        if (!chart::is_shown(xf) || !chart::is_shown(yf)) return false;
        points.x.push_back(xf);
        points.y.push_back(yf);
        return true;
    };
    const auto& lines = legacy::the_BatchData;
    const auto count = static_cast<std::size_t>(std::max<std::int16_t>(the_session.BatchCount, 0));
    for (std::size_t i = 1; i <= count && i < lines.size(); ++i) {
        const BatchDataSet& data = lines[i];
        if (data.skip != 0) continue;
        const Value V = given(static_cast<double>(data.rhoV));
        const Value L = given(static_cast<double>(data.rhoL));
        const bool needsDensity = !add({data, std::nullopt});
        if (!needsDensity) continue;
        if (is_liquid_function(DiagramType)) {
            add({data, L ? L : V});
        } else if (shows_coexistence(DiagramType)) {
            add({data, V});
            add({data, L});
        } else {
            add({data, V ? V : L});
        }
    }
    return points;
}

bool add_measured_points(DiagramSheet& sheet) {
    if (!has_free_point_set(sheet)) return false;
    session::refresh_units();
    MeasuredPoints points = map_measured(sheet.request.DiagramType);
    if (sheet.SwappedAxes) std::swap(points.x, points.y);
    bool any = false;
    for (std::size_t i = 0; i < points.x.size(); ++i)
        any = any || in_window(sheet, points.x[i], points.y[i]);
    if (!any) {
        dialogs::tell("No experimental points in this range of the diagram ",
                      "Execution not possible");
        return false;
    }
    const std::string file = session::file_title(the_session.BatchFile);
    return store_point_set(sheet, std::move(points.x), std::move(points.y),
                           file.empty() ? "exper. points" : file) >= 0;
}

namespace {

MeasuredPoints editor_points(const DiagramSheet& sheet) {
    MeasuredPoints points;
    for (const datafiles::FitPoint& p : datafiles::active_points(legacy::the_xyPoints)) {
        points.x.push_back(p.x);
        points.y.push_back(p.y);
    }
    if (sheet.SwappedAxes) std::swap(points.x, points.y);
    return points;
}

std::string editor_name() {
    const std::string comment = text::trim(legacy::the_xyComment);
    return comment.empty() ? "manual data input" : comment;
}

}  // namespace

diagrams::DiagramRequest request_of_editor_graph() {
    const datafiles::XYGraph& graph = legacy::the_xyGraph;
    diagrams::DiagramRequest request;
    request.title = graph.title;
    request.xLabel = graph.xTitle;
    request.yLabel = graph.yTitle;
    // The curve stays inside of the window, whose limits its points would touch.
    constexpr float kRim = 0.05F;
    const auto widen = [](float low, float high, float& min, float& max) {
        const float rim = high > low ? kRim * (high - low) : 1;
        min = low - rim;
        max = high + rim;
    };
    const datafiles::XYRange& range = graph.range;
    widen(range.xMin, range.xMax, request.xMin, request.xMax);
    widen(range.yMin, range.yMax, request.yMin, request.yMax);
    request.xMinDefault = request.xMin;
    request.xMaxDefault = request.xMax;
    request.yMinDefault = request.yMin;
    request.yMaxDefault = request.yMax;
    return request;
}

bool add_editor_graph(DiagramSheet& sheet) {
    const datafiles::XYGraph& graph = legacy::the_xyGraph;
    std::vector<float> x, y;
    for (const datafiles::FitPoint& p : graph.points) {
        x.push_back(p.x);
        y.push_back(p.y);
    }
    if (x.empty()) return false;
    if (graph.asPoints)
        return store_point_set(sheet, std::move(x), std::move(y), editor_name()) >= 0;
    const int slot = store_points(sheet, std::move(x), std::move(y));
    if (slot < 0) return false;
    name_curve(sheet, slot, editor_name(), "");
    return true;
}

bool add_editor_points(DiagramSheet& sheet) {
    if (!session::enough_active_points(legacy::the_xyPoints, true)) return false;
    MeasuredPoints points = editor_points(sheet);
    return store_point_set(sheet, std::move(points.x), std::move(points.y), editor_name()) >= 0;
}

bool add_editor_curve(DiagramSheet& sheet) {
    if (!session::enough_active_points(legacy::the_xyPoints, false)) return false;
    MeasuredPoints points = editor_points(sheet);
    const int slot = store_points(sheet, std::move(points.x), std::move(points.y));
    if (slot < 0) return false;
    name_curve(sheet, slot, editor_name(), "");
    return true;
}

}  // namespace quor::Module9
