#include <charconv>

#include "app/menu_catalogue.h"
#include "common/text.h"
#include "diagrams/catalogue.h"
#include "diagrams/coordinates.h"
#include "diagrams/curve.h"
#include "diagrams/prepare_2d.h"
#include "diagrams/sheet_draw.h"
#include "session/module2.h"
#include "tools/quorcalc/command_list.h"
#include "tools/quorcalc/pictures.h"

namespace quor::quorcalc {

namespace {

std::vector<float> numbers_of(const std::string& list, const char* option) {
    std::vector<float> values;
    for (const std::string& part : text::split(list, ',')) {
        float value = 0;
        const auto result = std::from_chars(part.data(), part.data() + part.size(), value);
        if (result.ec != std::errc() || result.ptr != part.data() + part.size())
            throw WrongCall{std::string(option) + ": not a number: " + part};
        values.push_back(value);
    }
    return values;
}

/// Kind of section and axes of a diagram's code, as its menu row sets them; an added curve is a
/// projection.
void choose_section(diagrams::DiagramRequest& request) {
    for (const menu::Row& row : menu::Rows()) {
        if (row.code != request.DiagramType || !row.control.starts_with("mnuGraf")) continue;
        request.sectionKind = row.sectionKind;
        request.axisPair = row.axisPair;
        return;
    }
    request.sectionKind = Module9::kProjection;
}

/// The diagram of a code with one curve in it, as the diagram view shows it.
void draw(const Arguments& a, const diagrams::DiagramRequest& computed,
          const diagrams::CurvePointArray& points) {
    diagrams::DiagramRequest request = computed;
    Module9::prepare_diagram2_d(request);
    // A new substance begins with its critical state: the names of the curve need the asked one.
    legacy::Session& s = legacy::the_session;
    s.DiagramT = a.T.value_or(s.DiagramT);
    s.DiagramP = a.p.value_or(s.DiagramP);
    s.DiagramV = a.v.value_or(s.DiagramV);
    request.xMin = computed.xMin;
    request.xMax = computed.xMax;
    request.yMin = computed.yMin;
    request.yMax = computed.yMax;
    Module9::DiagramSheet sheet;
    Module9::open_sheet(sheet, request);
    const int slot = Module9::store_curve(sheet, points);
    if (slot < 0) throw CannotBeDone{"The curve has no points to draw."};
    const Module9::CurveName name = Module9::name_of(request, false);
    Module9::name_curve(sheet, slot, name.legend, name.label);
    write_pictures(a, sheet);
}

Json curve(const Arguments& a) {
    int code = 0;
    const auto parsed = std::from_chars(a.type.data(), a.type.data() + a.type.size(), code);
    if (parsed.ec != std::errc() || !diagrams::has_curve(static_cast<std::int16_t>(code)))
        throw WrongCall{"--type: no such curve: " + a.type};
    set_up(a);
    legacy::Session& s = legacy::the_session;
    if (a.points) {
        if (*a.points < 1 || *a.points > 32000) throw WrongCall{"--points is out of range"};
        s.PointsPerCurve = static_cast<std::int16_t>(*a.points);
    }
    s.VapourFraction = a.fraction.value_or(0.0);
    s.SCurveRequested = a.scurve;
    s.TieLineRequested = a.tieline;
    s.DiagramT = a.T.value_or(s.DiagramT);
    s.DiagramP = a.p.value_or(0);
    s.DiagramV = a.v.value_or(0);

    diagrams::DiagramRequest& request = legacy::the_diagram;
    request.DiagramType = static_cast<std::int16_t>(code);
    choose_section(request);
    Module9::calc_coordinate_defaults(legacy::the_coordinates);
    Module9::fill_diagram_window(legacy::the_coordinates, request);
    if (!a.window.empty()) {
        const std::vector<float> w = numbers_of(a.window, "--window");
        if (w.size() != 4) throw WrongCall{"--window needs xmin,xmax,ymin,ymax"};
        request.xMin = w[0];
        request.xMax = w[1];
        request.yMin = w[2];
        request.yMax = w[3];
    }

    diagrams::CurvePointArray points;
    const diagrams::CurveResult r =
        diagrams::calc_curve(request, points, a.T.value_or(0), a.p.value_or(0), a.v.value_or(0));
    Json list = Json::array();
    for (std::size_t i = 1; i < points.size(); ++i)
        list.push_back({Number(static_cast<double>(points[i].x)),
                        Number(static_cast<double>(points[i].y)),
                        Number(static_cast<double>(points[i].z))});
    const diagrams::StatusText told = diagrams::TextOf(r);
    if (wants_picture(a)) {
        if (!diagrams::is_drawn(r.status))
            throw CannotBeDone{r.message.empty() ? told.text : r.message};
        draw(a, request, points);
    }
    return {{"status", r.status},
            {"count", diagrams::point_count(points)},
            {"mark", points.empty() ? Json() : Json(static_cast<int>(points.front().z))},
            {"message", r.message.empty() ? told.text : r.message},
            {"points", list}};
}

std::string curve_text(const Json& result) {
    std::string out;
    for (const Json& point : result.at("points")) {
        for (const Json& value : point) out += value.dump() + "\t";
        out.back() = '\n';
    }
    return out;
}

}  // namespace

std::vector<Command> curve_commands() {
    return {{"curve",
             "points of a curve of a diagram",
             {"type!", "T", "p", "v", "window", "points", "fraction", "scurve", "tieline", "png",
              "svg", "pdf"},
             curve,
             curve_text}};
}

}  // namespace quor::quorcalc
