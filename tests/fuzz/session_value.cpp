#include "session_value.h"

#include <array>
#include <string_view>
#include <tuple>

#include "harness.h"
#include "session/substance_session.h"
#include "support/database_builder.h"

using namespace quor;

namespace fuzz {

namespace {

bool same(const datafiles::Database& a, const datafiles::Database& b) {
    return a.path() == b.path() && a.english() == b.english() &&
           a.entries().data() == b.entries().data();
}

bool same(const datafiles::Synonyms& a, const datafiles::Synonyms& b) {
    // What it holds is its own; two files that differ give these names to different blocks.
    return std::ranges::all_of(std::array<std::string_view, 3>{"PROPAN", "R290", "74-98-6"},
                               [&](std::string_view name) {
                                   const auto x = a.find(name), y = b.find(name);
                                   return x.has_value() == y.has_value() &&
                                          (!x || (x->casrn == y->casrn && x->line == y->line));
                               });
}

bool same(const report::CalculationState& a, const report::CalculationState& b) {
    const auto fields = [](const report::CalculationState& s) {
        const auto& [task, method, pages, direct, input, data_set, volume, function, given] = s;
        const auto& [T, p, rho, substance] = direct;
        return std::tie(task, method, pages, T, p, rho, substance, input, data_set, volume,
                        function, given);
    };
    return fields(a) == fields(b);
}

bool same(const calculation::Tank& a, const calculation::Tank& b) {
    return std::tie(a.V, a.m, a.T) == std::tie(b.V, b.m, b.T);
}

bool same(const report::ResultSet& a, const report::ResultSet& b) {
    return a.rows.size() == b.rows.size() && a.current.made == b.current.made &&
           a.current.numbers == b.current.numbers && a.current.data_set == b.current.data_set;
}

bool same(const report::Protocol& a, const report::Protocol& b) {
    return a.file == b.file && a.rows.size() == b.rows.size() && a.pending == b.pending &&
           a.is_own() == b.is_own();
}

bool same(const datafiles::XyGraph& a, const datafiles::XyGraph& b) {
    const auto fields = [](const datafiles::XyGraph& graph) {
        const auto& [title, x, y, points, range, as_points] = graph;
        const auto& [x_min, x_max, y_min, y_max] = range;
        return std::tie(title, x, y, points, x_min, x_max, y_min, y_max, as_points);
    };
    return fields(a) == fields(b);
}

bool same(const diagrams::PolytropicPoint& a, const diagrams::PolytropicPoint& b) {
    return std::tie(a.T, a.p, a.columns) == std::tie(b.T, b.p, b.columns);
}

bool same(const diagrams::ProcessLine& a, const diagrams::ProcessLine& b) {
    const auto fields = [](const diagrams::ProcessLine& line) {
        const auto& [kind, vapour, is_T, from, to, T1, p1, x1, y1, x2, y2, back, last, exponent,
                     mode, calculated, fraction, kappa, heterogeneous, metastable, ideal, values,
                     points] = line;
        return std::tie(kind, vapour, is_T, from, to, T1, p1, x1, y1, x2, y2, back, last.T, last.p,
                        exponent, mode, calculated, fraction, kappa, heterogeneous, metastable,
                        ideal, values);
    };
    return fields(a) == fields(b) &&
           std::ranges::equal(a.polytropic_points, b.polytropic_points,
                              [](const auto& x, const auto& y) { return same(x, y); });
}

bool same(const session::CommandStates& a, const session::CommandStates& b) {
    return a.enabled == b.enabled;
}

/// Everything else compares by itself.
template <class T>
bool same(const T& a, const T& b) {
    return a == b;
}

auto fields(const session::SessionState& state) {
    const auto& [database, database_file, database_folders, synonyms, synonym_file,
                 substance_number, substance_set, applied_unsaved, substance, models,
                 eos_parameters, ji_torvik, ji_torvik_given, reference, units, caloric_factor,
                 units_changed, calculation, batch_mode, tank, results, protocol, csv_separator,
                 decimal_comma, measured, measured_unsaved, xy, xy_unsaved, xy_graph, fit_source,
                 fit_column, diagram, diagram_at, coordinates, curve_options, process_line,
                 new_substance_diagram, surface_kind, state_chart, surface_scurve, folder_measured,
                 folder_diagrams, folder_surfaces, folder_xy, folder_projects, last_session_file,
                 last_session_written, project_file, project_comment, english, tips_hidden,
                 tips_requested, diagram_note, project_note, synonym_note, isoline_note, commands] =
        state;
    return std::tie(database, database_file, database_folders, synonyms, synonym_file,
                    substance_number, substance_set, applied_unsaved, substance, models,
                    eos_parameters, ji_torvik, ji_torvik_given, reference, units, caloric_factor,
                    units_changed, calculation, batch_mode, tank, results, protocol, csv_separator,
                    decimal_comma, measured, measured_unsaved, xy, xy_unsaved, xy_graph, fit_source,
                    fit_column, diagram, diagram_at, coordinates, curve_options, process_line,
                    new_substance_diagram, surface_kind, state_chart, surface_scurve,
                    folder_measured, folder_diagrams, folder_surfaces, folder_xy, folder_projects,
                    last_session_file, last_session_written, project_file, project_comment, english,
                    tips_hidden, tips_requested, diagram_note, project_note, synonym_note,
                    isoline_note, commands);
}

template <class Fields, std::size_t... place>
bool same_fields(const Fields& a, const Fields& b, std::index_sequence<place...>) {
    return (same(std::get<place>(a), std::get<place>(b)) && ...);
}

}  // namespace

bool same(const session::SessionState& a, const session::SessionState& b) {
    const auto x = fields(a), y = fields(b);
    return same_fields(x, y, std::make_index_sequence<std::tuple_size_v<decltype(x)>>());
}

const std::filesystem::path& database_file() {
    static const std::filesystem::path file = [] {
        builder::Substance methane = builder::Plain("Methane", "74-82-8");
        methane.number = 2;
        return as_file(builder::Database({methane, builder::Propane()}), "fuzz.Q05");
    }();
    return file;
}

PropaneSession::PropaneSession() : session(Places(own_folder(), {}, "15.11.2026")) {
    dialogs::Functions& user = dialogs::current();
    user = dialogs::silent();
    user.message = [](const dialogs::Message& message) { return message.default_answer; };
    FUZZ_CHECK(session::load_database(session, database_file().string()) ==
               session::LoadOutcome::Loaded);
    FUZZ_CHECK(session::take_substance(session, 2));
}

}  // namespace fuzz
