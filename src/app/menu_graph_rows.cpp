#include "app/menu_graph_rows.h"

#include <algorithm>
#include <vector>

#include "diagrams/diagram.h"
#include "diagrams/state_chart.h"
#include "diagrams/surface.h"

namespace quor::menu {

namespace {

using diagrams::Diagram;
using diagrams::SurfaceKind;

/// A menu of diagrams in its place under Graph-2D.
struct Group {
    std::string_view caption, menu;
};
constexpr Group kGroups[] = {
    {"Sections p - v - T", "mnuGraf_sub_cut"},
    {"Functions of T", "mnuGraf_sub_FuT"},
    {"Functions of p", "mnuGraf_sub_Fup"},
    {"Functions of V", "mnuGraf_sub_FuV"},
    {"Residual Functions of T", "mnuGraf_sub_res_FuT"},
    {"Residual Functions of p", "mnuGraf_sub_res_Fup"},
    {"h - s Diagram", "mnuGraf_sub_HS"},
    {"e - s Diagram", "mnuGraf_sub_ES"},
    {"e - h Diagram", "mnuGraf_sub_EH"},
    {"Projections (Phase Equilibrium L-V)", "mnuGraf_sub_proj"},
    {"Database Functions Fu(T)", "mnuGraf_sub_database"},
};
/// The menu inside that of the database functions.
constexpr Group kPressures{"L density", "mnuGraf_sub_sub_database"};
constexpr std::string_view kDatabase = "mnuGraf_sub_database";
constexpr std::string_view kSurfaces = "mnu3D";

Row submenu(std::string_view parent, std::string_view control, int index, const Group& group,
            std::string_view hint = {}) {
    return {.parent = parent,
            .control = control,
            .index = index,
            .caption = group.caption,
            .kind = Kind::Submenu,
            .submenu = group.menu,
            .hint = hint};
}

Row row_of(const Diagram& diagram) {
    return {.parent = diagram.menu.menu,
            .control = diagram.menu.menu,
            .index = diagram.menu.index,
            .caption = diagram.menu.caption,
            .action = "Diagram2D",
            .code = diagram.code,
            .hint = diagram.menu.hint};
}

Row row_of(const SurfaceKind& kind) {
    return {.parent = kSurfaces,
            .control = "mnu3DSub",
            .index = kind.menu_index,
            .caption = kind.menu_caption,
            .action = "Diagram3D",
            .code = kind.code};
}

constexpr std::string_view kStateCharts = "mnuStateChart";

/// The state charts stand first: one click draws a whole chart.
void add_state_charts(std::vector<Row>& all) {
    all.push_back({.parent = "mnu2D",
                   .control = "mnuStateCharts",
                   .caption = "State charts",
                   .kind = Kind::Submenu,
                   .submenu = kStateCharts,
                   .hint = "Whole charts of the fluid with dome and labelled lines"});
    for (const diagrams::StateChartKind& kind : diagrams::state_chart_kinds())
        all.push_back({.parent = kStateCharts,
                       .control = kStateCharts,
                       .index = static_cast<int>(kind.kind),
                       .caption = kind.title,
                       .action = "StateChart",
                       .code = static_cast<std::int16_t>(kind.kind)});
    all.push_back({.parent = "mnu2D", .kind = Kind::Separator});
}

/// The rows of a menu by their indices; a gap between two of them is a separator.
void add_rows(std::vector<Row>& all, std::vector<Row> rows) {
    std::sort(rows.begin(), rows.end(),
              [](const Row& a, const Row& b) { return a.index < b.index; });
    int expected = rows.empty() ? 0 : rows.front().index;
    for (const Row& row : rows) {
        if (row.index > expected) all.push_back({.parent = row.parent, .kind = Kind::Separator});
        all.push_back(row);
        expected = row.index + 1;
    }
}

void add_menu(std::vector<Row>& all, std::string_view menu) {
    std::vector<Row> rows;
    for (const Diagram& diagram : diagrams::all_diagrams())
        if (diagram.menu.menu == menu) rows.push_back(row_of(diagram));
    add_rows(all, std::move(rows));
}

std::vector<Row> all_rows() {
    std::vector<Row> all;
    add_state_charts(all);
    int index = 0;
    for (const Group& group : kGroups) {
        all.push_back(submenu("mnu2D", "mnuGraf", index++, group));
        if (group.menu == kDatabase)
            all.push_back(submenu(kDatabase, kDatabase, 0, kPressures,
                                  "Vapour pressure equations of the database"));
        add_menu(all, group.menu);
    }
    add_menu(all, kPressures.menu);
    std::vector<Row> surfaces;
    for (const SurfaceKind& kind : diagrams::surface_kinds())
        if (kind.menu_index >= 0) surfaces.push_back(row_of(kind));
    add_rows(all, std::move(surfaces));
    return all;
}

}  // namespace

std::span<const Row> graph_rows() {
    static const std::vector<Row> rows = all_rows();
    return rows;
}

}  // namespace quor::menu
