#include "diagrams/surface_sheet.h"

#include <algorithm>
#include <cmath>

#include "chart/chart_file.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "common/text.h"
#include "diagrams/prepare_3d.h"
#include "session/module2.h"

namespace quor::Module9 {

namespace {

using legacy::the_session;

constexpr auto kFilter = "picture file (*.oc3)|*.oc3";
constexpr auto kExtension = ".oc3";
constexpr auto kAnyFile = "*.oc3";

std::string in_folder(const std::string& name) {
    return session::has_separator(name) ? name : the_session.FolderDiagram3D + name;
}

std::string with_extension(const std::string& name) {
    const std::string title = session::file_title(name);
    return title.find('.') == std::string::npos ? name + kExtension : name;
}

/// The texts of a chart that its sheet gives and that its user may change.
SurfaceTexts texts_of(const chart::Chart3D& c) {
    return {c.header.text, c.subtitle.text, c.x.title, c.y.title, c.z.title, c.footer.text};
}

/// Texts that the user has changed come back after new ones were given.
void keep_changed_texts(chart::Chart3D& c, const SurfaceTexts& shown, const SurfaceTexts& given) {
    const auto keep = [](std::string& now, const std::string& before, const std::string& was) {
        if (before != was) now = before;
    };
    keep(c.header.text, shown.title, given.title);
    keep(c.subtitle.text, shown.subTitle, given.subTitle);
    keep(c.x.title, shown.xLabel, given.xLabel);
    keep(c.y.title, shown.yLabel, given.yLabel);
    keep(c.z.title, shown.zLabel, given.zLabel);
    keep(c.footer.text, shown.note, given.note);
}

bool is_critical_mark(const chart::Marker3D& marker) {
    return marker.text == kCriticalMarkText;
}

using Computation = void (*)(chart::Chart3D&, int nx, int ny);

void compute(SurfaceSheet& sheet, Computation what) {
    const session::BusyPointer busy;
    what(sheet.chart, sheet.nx, sheet.ny);
    sheet.given = texts_of(sheet.chart);
}

}  // namespace

void open_surface(SurfaceSheet& sheet) {
    sheet.Diagram3DKind = the_session.Diagram3DKind;
    sheet.SCurve3D = the_session.SCurve3D;
    sheet.limits = legacy::the_grid3D;
    compute(sheet, init_graph3_d);
}

void give_to_session(const SurfaceSheet& sheet) {
    the_session.Diagram3DKind = sheet.Diagram3DKind;
    the_session.SCurve3D = sheet.SCurve3D;
    legacy::the_grid3D = sheet.limits;
}

void new_draw(SurfaceSheet& sheet) {
    give_to_session(sheet);
    const SurfaceTexts shown = texts_of(sheet.chart), given = sheet.given;
    compute(sheet, renew_surface);
    keep_changed_texts(sheet.chart, shown, given);
    if (has_critical_mark(sheet)) {
        remove_critical_mark(sheet);
        add_critical_point(sheet.chart);
    }
    tell_empty_surface(sheet.chart);
}

bool SetLimits(SurfaceSheet& sheet, const diagrams::Grid3D& limits) {
    const SurfaceKind* kind = find_surface(sheet.Diagram3DKind);
    if (kind == nullptr) return false;
    const std::string refusal = refusal_of(limits, *kind);
    if (!refusal.empty()) {
        dialogs::tell(refusal, "INPUT ERROR");
        return false;
    }
    sheet.limits = limits;
    new_draw(sheet);
    return true;
}

void set_meshlines(SurfaceSheet& sheet, int nx, int ny) {
    sheet.nx = std::clamp(nx, diagrams::kFewestNodes, diagrams::kMostNodes);
    sheet.ny = std::clamp(ny, diagrams::kFewestNodes, diagrams::kMostNodes);
    new_draw(sheet);
}

bool has_critical_mark(const SurfaceSheet& sheet) {
    const auto& markers = sheet.chart.markers;
    return std::any_of(markers.begin(), markers.end(), is_critical_mark);
}

void remove_critical_mark(SurfaceSheet& sheet) {
    std::erase_if(sheet.chart.markers, is_critical_mark);
}

bool save_oc3(const SurfaceSheet& sheet) {
    const std::optional<std::string> name =
        dialogs::choose_file({.save = true,
                              .title = "Save this diagram design",
                              .filter = kFilter,
                              .folder = the_session.FolderDiagram3D,
                              .name = kAnyFile,
                              .defaultExtension = kExtension,
                              .overwritePrompt = true});
    if (!name || name->empty()) return false;
    const std::string path = with_extension(in_folder(*name));
    the_session.FolderDiagram3D = session::folder_of(path);
    const chart::FileOutcome saved = chart::save_chart(sheet.chart, path);
    if (!saved.ok) dialogs::tell(saved.message, "ERROR", dialogs::Icon::Stop);
    return saved.ok;
}

std::string load_oc3(SurfaceSheet& sheet) {
    // The title names the other kind of file.
    const std::optional<std::string> name =
        dialogs::choose_file({.title = "Load a saved pattern (*.oc2)",
                              .filter = kFilter,
                              .folder = the_session.FolderDiagram3D,
                              .name = kAnyFile,
                              .defaultExtension = kExtension});
    if (!name || name->empty()) return {};
    const std::string path = in_folder(*name);
    the_session.FolderDiagram3D = session::folder_of(path);
    const chart::FileOutcome read = chart::load_chart(path, sheet.chart);
    if (read.ok) {
        // Drawing anew gives the texts of this surface, which the file need not show.
        sheet.given = texts_of(sheet.chart);
        return path;
    }
    dialogs::tell(read.message, "Execution not possible", dialogs::Icon::Stop);
    return {};
}

std::string surface_readout(const chart::Chart3D& chart, double x, double y, double z) {
    // More digits than these are not in a value between two nodes.
    constexpr int kDigits = 5;
    const auto part = [](const std::string& title, double value) {
        const double size = value == 0 ? 0 : std::floor(std::log10(std::fabs(value)));
        const double step = std::pow(10, size - (kDigits - 1));
        return text::trim(title) + " = " +
               numbers::General(static_cast<float>(std::round(value / step) * step));
    };
    return part(chart.x.title, x) + "     " + part(chart.y.title, y) + "     " +
           part(chart.z.title, z);
}

}  // namespace quor::Module9
