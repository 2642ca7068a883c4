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
    return session::HasSeparator(name) ? name : the_session.FolderDiagram3D + name;
}

std::string with_extension(const std::string& name) {
    const std::string title = session::FileTitle(name);
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

void OpenSurface(SurfaceSheet& sheet) {
    sheet.Diagram3DKind = the_session.Diagram3DKind;
    sheet.SCurve3D = the_session.SCurve3D;
    sheet.limits = legacy::the_grid3D;
    compute(sheet, InitGraph3D);
}

void GiveToSession(const SurfaceSheet& sheet) {
    the_session.Diagram3DKind = sheet.Diagram3DKind;
    the_session.SCurve3D = sheet.SCurve3D;
    legacy::the_grid3D = sheet.limits;
}

void NewDraw(SurfaceSheet& sheet) {
    GiveToSession(sheet);
    const SurfaceTexts shown = texts_of(sheet.chart), given = sheet.given;
    compute(sheet, RenewSurface);
    keep_changed_texts(sheet.chart, shown, given);
    if (HasCriticalMark(sheet)) {
        RemoveCriticalMark(sheet);
        AddCriticalPoint(sheet.chart);
    }
    TellEmptySurface(sheet.chart);
}

bool SetLimits(SurfaceSheet& sheet, const diagrams::Grid3D& limits) {
    const SurfaceKind* kind = FindSurface(sheet.Diagram3DKind);
    if (kind == nullptr) return false;
    const std::string refusal = RefusalOf(limits, *kind);
    if (!refusal.empty()) {
        dialogs::Tell(refusal, "INPUT ERROR");
        return false;
    }
    sheet.limits = limits;
    NewDraw(sheet);
    return true;
}

void SetMeshlines(SurfaceSheet& sheet, int nx, int ny) {
    sheet.nx = std::clamp(nx, diagrams::kFewestNodes, diagrams::kMostNodes);
    sheet.ny = std::clamp(ny, diagrams::kFewestNodes, diagrams::kMostNodes);
    NewDraw(sheet);
}

bool HasCriticalMark(const SurfaceSheet& sheet) {
    const auto& markers = sheet.chart.markers;
    return std::any_of(markers.begin(), markers.end(), is_critical_mark);
}

void RemoveCriticalMark(SurfaceSheet& sheet) {
    std::erase_if(sheet.chart.markers, is_critical_mark);
}

bool SaveOC3(const SurfaceSheet& sheet) {
    const std::optional<std::string> name =
        dialogs::ChooseFile({.save = true,
                             .title = "Save this diagram design",
                             .filter = kFilter,
                             .folder = the_session.FolderDiagram3D,
                             .name = kAnyFile,
                             .defaultExtension = kExtension,
                             .overwritePrompt = true});
    if (!name || name->empty()) return false;
    const std::string path = with_extension(in_folder(*name));
    the_session.FolderDiagram3D = session::FolderOf(path);
    const chart::FileOutcome saved = chart::SaveChart(sheet.chart, path);
    if (!saved.ok) dialogs::Tell(saved.message, "ERROR", dialogs::Icon::Stop);
    return saved.ok;
}

std::string LoadOC3(SurfaceSheet& sheet) {
    // The title names the other kind of file.
    const std::optional<std::string> name =
        dialogs::ChooseFile({.title = "Load a saved pattern (*.oc2)",
                             .filter = kFilter,
                             .folder = the_session.FolderDiagram3D,
                             .name = kAnyFile,
                             .defaultExtension = kExtension});
    if (!name || name->empty()) return {};
    const std::string path = in_folder(*name);
    the_session.FolderDiagram3D = session::FolderOf(path);
    const chart::FileOutcome read = chart::LoadChart(path, sheet.chart);
    if (read.ok) {
        // Drawing anew gives the texts of this surface, which the file need not show.
        sheet.given = texts_of(sheet.chart);
        return path;
    }
    dialogs::Tell(read.message, "Execution not possible", dialogs::Icon::Stop);
    return {};
}

std::string SurfaceReadout(const chart::Chart3D& chart, double x, double y, double z) {
    // More digits than these are not in a value between two nodes.
    constexpr int kDigits = 5;
    const auto part = [](const std::string& title, double value) {
        const double size = value == 0 ? 0 : std::floor(std::log10(std::fabs(value)));
        const double step = std::pow(10, size - (kDigits - 1));
        return text::Trim(title) + " = " +
               numbers::General(static_cast<float>(std::round(value / step) * step));
    };
    return part(chart.x.title, x) + "     " + part(chart.y.title, y) + "     " +
           part(chart.z.title, z);
}

}  // namespace quor::Module9
