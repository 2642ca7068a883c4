#include <charconv>

#include "chart/chart2d.h"
#include "common/text.h"
#include "session/diagram_choice.h"
#include "tools/quorcalc/command_list.h"

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

/// The diagram of a code with one curve in it, as the diagram view shows it.
void draw(const Call& call, const Arguments& a, const diagrams::Basis& basis,
          const diagrams::CurveRequest& request, const diagrams::Curve& curve) {
    const diagrams::Diagram& diagram = diagrams::home_of(*request.curve);
    diagrams::DiagramRequest shown =
        diagrams::prepare_diagram(*request.curve, basis, session::present_start(call.session))
            .request;
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
    const auto parsed = std::from_chars(a.type.data(), a.type.data() + a.type.size(), code);
    const diagrams::Diagram* found =
        parsed.ec == std::errc() ? diagrams::find_diagram(code) : nullptr;
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
             {"type!", "T", "p", "v", "window", "points", "fraction", "scurve", "tieline", "png",
              "svg", "pdf"},
             curve,
             curve_text}};
}

}  // namespace quor::quorcalc
