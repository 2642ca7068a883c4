#include "diagrams/drawn.h"

#include <map>

#include "app/menu_graph_rows.h"
#include "diagrams/catalogue.h"
#include "diagrams/coordinates.h"

using namespace quor;

std::int16_t DiagramOf(std::int16_t code) {
    static const std::map<int, int> shown = {
        {70, 150},  {71, 151}, {72, 154},  {73, 152},  {74, 153}, {75, 155},  {80, 8},
        {89, 159},  {96, 21},  {97, 156},  {98, 182},  {99, 183}, {100, 157}, {101, 158},
        {102, 160}, {105, 5},  {120, 107}, {121, 109}, {190, 2}};
    const auto diagram = shown.find(code);
    return diagram == shown.end() ? code : static_cast<std::int16_t>(diagram->second);
}

std::int16_t SectionKindOf(std::int16_t code) {
    for (const menu::Row& row : menu::graph_rows())
        if (row.action == "Diagram2D" && row.code == DiagramOf(code)) return row.sectionKind;
    return code == 155 ? Module9::kIsothermal : Module9::kProjection;
}

diagrams::DiagramRequest RequestFor(std::int16_t code) {
    diagrams::DiagramRequest request;
    request.DiagramType = DiagramOf(code);
    Module9::fill_diagram_window(legacy::the_coordinates, request);
    request.DiagramType = code;
    request.sectionKind = SectionKindOf(code);
    return request;
}

Drawn Draw(diagrams::DiagramRequest request, const Parameters& at) {
    Drawn curve;
    curve.request = std::move(request);
    curve.result = diagrams::calc_curve(curve.request, curve.all, at.T, at.p, at.v);
    return curve;
}

Drawn Draw(std::int16_t code, const Parameters& at) {
    return Draw(RequestFor(code), at);
}

bool HeaderIsRight(const Drawn& curve) {
    return !curve.all.empty() && curve.all[0].x == static_cast<float>(curve.count()) &&
           curve.all[0].y == 0;
}
