#include <algorithm>

#include "common/numbers.h"
#include "common/text.h"
#include "diagrams/state_chart_picture.h"
#include "models/reference_state.h"
#include "session/diagram_choice.h"
#include "tools/quorcalc/command_list.h"

namespace quor::quorcalc {

namespace {

using diagrams::ChartQuantity;

std::string keys_of_charts() {
    std::string keys;
    for (const diagrams::StateChartKind& row : diagrams::state_chart_kinds())
        keys += (keys.empty() ? "" : ", ") + std::string(row.key);
    return keys;
}

std::vector<diagrams::FamilyRequest> families_of(const std::string& list) {
    constexpr ChartQuantity kPossible[] = {ChartQuantity::T, ChartQuantity::p, ChartQuantity::v,
                                           ChartQuantity::h, ChartQuantity::s};
    std::vector<diagrams::FamilyRequest> families;
    if (list.empty()) return families;
    for (const std::string& part : text::split(list, ',')) {
        const auto* const found =
            std::ranges::find(kPossible, text::trim(part),
                              [](ChartQuantity q) { return std::string(diagrams::name_of(q)); });
        if (found == std::end(kPossible))
            throw WrongCall{"--families: none of T, p, v, h, s: " + part};
        families.push_back({*found, {}});
    }
    return families;
}

diagrams::ChartWindow window_of(const std::string& list) {
    const std::vector<std::string> parts = text::split(list, ',');
    if (parts.size() != 4) throw WrongCall{"--window needs xmin,xmax,ymin,ymax"};
    const auto value = [&](std::size_t i) {
        const auto read = numbers::number(parts[i]);
        if (!read) throw WrongCall{"--window: not a number: " + parts[i]};
        return *read;
    };
    const diagrams::ChartWindow w{value(0), value(1), value(2), value(3)};
    if (!(w.x_min < w.x_max) || !(w.y_min < w.y_max))
        throw WrongCall{"--window needs xmin,xmax,ymin,ymax, the smaller ones first"};
    return w;
}

/// The parts of a line one after the other, null between them.
template <class Point>
Json points_of(const diagrams::ChartParts& parts, Point point) {
    Json points = Json::array();
    for (const auto& part : parts) {
        if (&part != &parts.front()) points.push_back(nullptr);
        for (const diagrams::ChartVertex& at : part) points.push_back(point(at));
    }
    return points;
}

Json place(const diagrams::ChartVertex& at) {
    return {number(at.x), number(at.y)};
}

Json families_json(const diagrams::StateChart& c) {
    Json families = Json::array();
    for (const diagrams::ChartFamily& family : c.families) {
        Json lines = Json::array();
        for (const diagrams::ChartLine& line : family.lines) {
            Json on_dome = Json::array();
            for (const diagrams::ChartVertex& at : line.on_dome) on_dome.push_back(place(at));
            lines.push_back({{"value", number(line.value)},
                             {"points", points_of(line.parts, place)},
                             {"dome", std::move(on_dome)}});
        }
        families.push_back({{"quantity", diagrams::name_of(family.quantity)},
                            {"unit", family.unit},
                            {"lines", std::move(lines)}});
    }
    return families;
}

Json chart(Call& call, const Arguments& a) {
    const diagrams::StateChartKind* const row = diagrams::find_state_chart(a.kind);
    if (row == nullptr)
        throw WrongCall{"--kind: no such chart: " + a.kind + " (" + keys_of_charts() + ")"};
    diagrams::StateChartRequest request{.kind = row->kind, .families = families_of(a.families)};
    if (!a.window.empty()) request.window = window_of(a.window);
    set_up(call, a);
    const diagrams::Basis basis = session::present_basis(call.session);
    models::ReferenceState reference = basis.reference;
    models::settle_reference(reference);
    const auto made = diagrams::state_chart(basis.fluid, reference, basis.units, request);
    if (!made) throw CannotBeDone{made.reason()};

    const diagrams::StateChart& c = *made;
    if (wants_picture(a)) {
        diagrams::DiagramSheet sheet;
        sheet.chart = diagrams::chart_of(c, basis);
        sheet.request.texts.title = sheet.chart.header.text;
        write_pictures(call.pictures, a, sheet);
    }
    const models::Scale of_T = basis.units.of(models::Dimension::temperature);
    const auto with_T = [&](const diagrams::ChartVertex& at) {
        return Json{number(at.x), number(at.y), number(of_T.shown(at.T))};
    };
    const auto end = [&](const std::optional<diagrams::ChartVertex>& at) {
        return at ? with_T(*at) : Json();
    };
    Json fractions = Json::array();
    for (const diagrams::FractionLine& line : c.fractions)
        fractions.push_back({{"x", line.fraction}, {"points", points_of(line.parts, place)}});
    const diagrams::ChartWindow& w = c.window;
    return {{"status", 0},
            {"kind", row->key},
            {"window", {number(w.x_min), number(w.x_max), number(w.y_min), number(w.y_max)}},
            {"xaxis",
             {{"quantity", diagrams::name_of(row->x.quantity)},
              {"unit", c.x_unit},
              {"log", row->x.logarithmic}}},
            {"yaxis",
             {{"quantity", diagrams::name_of(row->y.quantity)},
              {"unit", c.y_unit},
              {"log", row->y.logarithmic}}},
            {"dome", points_of(c.dome, with_T)},
            {"critical", end(c.critical)},
            {"triple", points_of(c.triple, with_T)},
            {"fractions", std::move(fractions)},
            {"families", families_json(c)},
            {"skipped", c.skipped}};
}

/// One point a line: x, y; an empty line between lines, and before each its quantity and value.
std::string chart_text(const Json& result) {
    std::string out;
    const auto add = [&](const std::string& head, const Json& points) {
        out += "# " + head + "\n";
        for (const Json& point : points) {
            for (const Json& value : point) out += value.dump() + "\t";
            if (!point.empty()) out.pop_back();
            out += "\n";
        }
        out += "\n";
    };
    add("dome", result.at("dome"));
    for (const Json& family : result.at("families"))
        for (const Json& line : family.at("lines"))
            add(family.at("quantity").get<std::string>() + " = " + line.at("value").dump() + " " +
                    family.at("unit").get<std::string>(),
                line.at("points"));
    for (const Json& text : result.at("skipped")) out += "# " + text.get<std::string>() + "\n";
    return out;
}

}  // namespace

std::vector<Command> chart_commands() {
    return {{"chart",
             "dome and families of lines of a state chart",
             {"kind!", "families", "window", "png", "svg", "pdf", "points-out"},
             chart,
             chart_text,
             true}};
}

}  // namespace quor::quorcalc
