#include <charconv>

#include "diagrams/surface_sheet.h"
#include "session/diagram_choice.h"
#include "tools/quorcalc/command_list.h"

namespace quor::quorcalc {

namespace {

int nodes_of(const std::optional<int>& given, const char* option) {
    const int nodes = given.value_or(diagrams::kNodesAtStart);
    if (nodes < diagrams::kFewestNodes || nodes > diagrams::kMostNodes)
        throw WrongCall{std::string(option) + " is out of range"};
    return nodes;
}

/// z[i][j] at x0 + i dx, y0 + j dy; null in a hole.
Json values_of(const chart::SurfaceGrid& grid) {
    Json columns = Json::array();
    for (int i = 0; i < grid.nx; ++i) {
        Json column = Json::array();
        for (int j = 0; j < grid.ny; ++j) {
            const float z = grid.z[grid.at(i, j)];
            column.push_back(grid.is_hole(z) ? Json() : number(static_cast<double>(z)));
        }
        columns.push_back(std::move(column));
    }
    return columns;
}

Json surface(Call& call, const Arguments& a) {
    int code = 0;
    const char* const last = a.kind.data() + a.kind.size();
    const auto read = std::from_chars(a.kind.data(), last, code);
    const diagrams::SurfaceKind* kind =
        read.ec == std::errc() && read.ptr == last ? diagrams::find_surface(code) : nullptr;
    if (kind == nullptr) throw WrongCall{"--kind: no such surface: " + a.kind};
    const int nx = nodes_of(a.nx, "--nx"), ny = nodes_of(a.ny, "--ny");
    set_up(call, a);
    const diagrams::SurfaceSheet sheet =
        diagrams::open_surface(*kind, session::present_basis(call.session), a.scurve, nx, ny);
    const chart::SurfaceGrid& grid = sheet.chart.surface;
    if (!diagrams::has_surface(grid))
        throw CannotBeDone{"No point of the surface can be computed."};
    if (wants_picture(a)) write_pictures(call.pictures, a, sheet.chart);
    return {{"status", 0},   {"x0", grid.x0}, {"dx", grid.dx}, {"y0", grid.y0},
            {"dy", grid.dy}, {"nx", grid.nx}, {"ny", grid.ny}, {"z", values_of(grid)}};
}

/// One node a line: x, y, z.
std::string surface_text(const Json& result) {
    std::string out;
    const Json& z = result.at("z");
    for (std::size_t i = 0; i < z.size(); ++i) {
        const double x =
            result.at("x0").get<double>() + static_cast<double>(i) * result.at("dx").get<double>();
        for (std::size_t j = 0; j < z[i].size(); ++j) {
            const double y = result.at("y0").get<double>() +
                             static_cast<double>(j) * result.at("dy").get<double>();
            out += Json(x).dump() + "\t" + Json(y).dump() + "\t" + z[i][j].dump() + "\n";
        }
    }
    return out;
}

}  // namespace

std::vector<Command> surface_commands() {
    return {{"surface",
             "values of a surface over a regular grid",
             {"kind!", "nx", "ny", "scurve", "points-out", "png", "svg", "pdf"},
             surface,
             surface_text,
             true}};
}

}  // namespace quor::quorcalc
