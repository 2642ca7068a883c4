#include <charconv>

#include "chart/chart2d.h"
#include "common/numbers.h"
#include "common/single.h"
#include "common/text.h"
#include "session/diagram_choice.h"
#include "tools/quorcalc/command_list.h"

namespace quor::quorcalc {

namespace {

std::vector<float> numbers_of(const std::string& list, const char* option) {
    std::vector<float> values;
    for (const std::string& part : text::split(list, ',')) {
        const std::optional<double> value = numbers::number(part);
        if (!value) throw WrongCall{std::string(option) + ": not a number: " + part};
        if (!numbers::fits_single(*value))
            throw WrongCall{std::string(option) + ": out of range: " + part};
        values.push_back(static_cast<float>(*value));
    }
    return values;
}

/// The diagram of a code with one curve in it, as the diagram view shows it.
void draw(const Call& call, const Arguments& a, const diagrams::Basis& basis,
          const diagrams::CurveRequest& request, const diagrams::Curve& curve) {
    const diagrams::Diagram& diagram = diagrams::home_of(*request.curve);
    diagrams::DiagramRequest shown =
        diagrams::prepare_diagram(diagram, basis, session::present_start(call.session)).request;
    shown.window = request.window;
    diagrams::DiagramSheet sheet = diagrams::open_sheet(shown, basis, request.at);
    const diagrams::DiagramTexts texts = diagrams::texts_of(diagram, basis, shown.validity);
    diagrams::store_curve(sheet,
                          {curve.points, curve.parameter, basis,
                           diagrams::name_of(request, basis, false), texts.sub_title},
                          request.window.x_max);
    write_pictures(call.pictures, a, sheet);
}

const diagrams::Diagram& diagram_of_type(const Arguments& a) {
    int code = 0;
    const char* const end = a.type.data() + a.type.size();
    const auto parsed = std::from_chars(a.type.data(), end, code);
    const bool whole = parsed.ec == std::errc() && parsed.ptr == end;
    const diagrams::Diagram* found = whole ? diagrams::find_diagram(code) : nullptr;
    if (found == nullptr) throw WrongCall{"--type: no such curve: " + a.type};
    return *found;
}

diagrams::CurveWindow window_of(const Arguments& a, const diagrams::Diagram& diagram,
                                const diagrams::Basis& basis,
                                const diagrams::CoordinateDefaults& limits) {
    if (a.window.empty()) return diagrams::proposed_window(diagram, basis, limits).window;
    const std::vector<float> w = numbers_of(a.window, "--window");
    if (w.size() != 4) throw WrongCall{"--window needs xmin,xmax,ymin,ymax"};
    return {w[0], w[1], w[2], w[3]};
}

/// Refuses a call without what its curve holds constant.
void require_parameter(const diagrams::Diagram& diagram, const Arguments& a) {
    using enum diagrams::Section;
    if (diagram.section == isothermal && !a.T) throw WrongCall{"--T is required for this curve"};
    if (diagram.section == isobaric && !a.p) throw WrongCall{"--p is required for this curve"};
    if (diagram.section == isochoric && !a.v) throw WrongCall{"--v is required for this curve"};
}

/// The range of two functions over each other, in K and kPa; by default that of the coordinates.
diagrams::ProcessLine range_of(const Arguments& a, const diagrams::Diagram& diagram,
                               const diagrams::Basis& basis,
                               const diagrams::CoordinateDefaults& limits) {
    diagrams::ProcessLine line;
    if (diagrams::input_of(diagram) != diagrams::DiagramInput::range) {
        if (a.from || a.to) throw WrongCall{"--from and --to: this curve has no range"};
        return line;
    }
    const bool runs_in_T = diagram.section == diagrams::Section::isobaric;
    const double factor = runs_in_T ? basis.T_factor() : basis.p_factor();
    const double low = static_cast<double>(runs_in_T ? limits.T_min : limits.p_min) / factor;
    const double high = static_cast<double>(runs_in_T ? limits.T_max : limits.p_max) / factor;
    line.range_is_T = runs_in_T;
    line.range_start = a.from.value_or(low);
    line.range_end = a.to.value_or(high);
    if (!(line.range_start > 0) || !(line.range_end > line.range_start))
        throw WrongCall{"--from and --to: 0 < from < to"};
    return line;
}

diagrams::Branch branch_of(const Arguments& a) {
    if (a.tieline) return diagrams::Branch::tieLine;
    return a.scurve ? diagrams::Branch::metastable : diagrams::Branch::stable;
}

Json points_of(const diagrams::Curve& curve) {
    Json list = Json::array();
    // A gap of the curve has no y.
    const auto shown = [](float value) {
        return chart::is_shown(value) ? number(static_cast<double>(value)) : Json();
    };
    for (const diagrams::CurvePoint& point : curve.points)
        list.push_back({shown(point.x), shown(point.y), number(static_cast<double>(point.z))});
    return list;
}

Json curve(Call& call, const Arguments& a) {
    const diagrams::Diagram& diagram = diagram_of_type(a);
    require_parameter(diagram, a);
    set_up(call, a);
    diagrams::CurveOptions options = call.session->curve_options;
    if (a.points) {
        if (*a.points < 1 || *a.points > 32000) throw WrongCall{"--points is out of range"};
        options.points = *a.points;
    }
    if (a.T) call.session.change()->diagram_at.T = *a.T;
    const diagrams::Basis basis = session::present_basis(call.session);
    const diagrams::CoordinateDefaults limits = diagrams::coordinate_defaults(basis);
    const diagrams::CurveRequest request{.curve = &diagram,
                                         .window = window_of(a, diagram, basis, limits),
                                         .at = {a.T.value_or(0), a.p.value_or(0), a.v.value_or(0)},
                                         .branch = branch_of(a),
                                         .vapour_fraction = a.fraction.value_or(0.0),
                                         .options = options,
                                         .line = range_of(a, diagram, basis, limits),
                                         .p_min = limits.p_min,
                                         .p_max = limits.p_max};
    const diagrams::Curve r = diagrams::curve(basis, request);
    const diagrams::StatusText told = diagrams::text_of(r.status, r.message, basis.fluid);
    const std::string message = r.message.empty() ? told.text : r.message;
    if (wants_picture(a)) {
        if (!diagrams::is_drawn(r.status)) throw CannotBeDone{message};
        draw(call, a, basis, request, r);
    }
    return {{"status", static_cast<int>(r.status)},
            {"count", r.points.size()},
            {"mark", diagrams::mark_of(r.parameter)},
            {"message", message},
            {"points", points_of(r)}};
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
             {"type!", "T", "p", "v", "from", "to", "window", "points", "fraction", "scurve",
              "tieline", "points-out", "png", "svg", "pdf"},
             curve,
             curve_text,
             true}};
}

}  // namespace quor::quorcalc
