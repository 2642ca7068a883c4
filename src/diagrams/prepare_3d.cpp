#include "diagrams/prepare_3d.h"

#include <exception>

#include "common/dialogs.h"
#include "diagrams/surface.h"
#include "diagrams/surface_grid.h"
#include "session/module2.h"

namespace quor::Module9 {

namespace {

using legacy::the_session;

void set_axis(chart::Axis3D& axis, const Limits& limits, const std::string& title) {
    axis.min = static_cast<double>(limits.low);
    axis.max = static_cast<double>(limits.high);
    axis.automatic = false;
    axis.title = title;
}

}  // namespace

Diagram3DViews& Views3D() {
    static Diagram3DViews views;
    return views;
}

void PrepareDiagram3D() {
    try {
        session::RefreshUnits();
        the_session.CaloricFactor =
            session::CaloricFactorOf(the_session.CaloricUnit, the_session.DiagramT);
        legacy::the_grid3D = DefaultGrid(the_session.Diagram3DKind, the_session.SCurve3D);
        if (Views3D().openDiagram) Views3D().openDiagram();
    } catch (const std::exception&) {
        dialogs::Tell(
            "The registration of the 3D graph module \\...\\olch8x3.ocx during the installation "
            "process failed.\nPlease carry out the registration manually (c.f. our website)",
            "Execution not possible");
    }
}

void InitGraph3D(chart::Chart3D& chart, int nx, int ny) {
    constexpr auto kFamily = "Arial";
    constexpr float kTitle = 15, kText = 10, kNumbers = 9;
    chart.header.font = {kFamily, kTitle, true, false};
    chart.subtitle.font = chart.titleFont = {kFamily, kText, false, false};
    chart.numberFont = chart.footer.font = {kFamily, kNumbers, false, false};
    RenewSurface(chart, nx, ny);
}

void RenewSurface(chart::Chart3D& chart, int nx, int ny) {
    const SurfaceKind* kind = FindSurface(the_session.Diagram3DKind);
    if (kind == nullptr) return;
    const SurfaceTexts texts = TextsOf(*kind);
    chart.header.text = texts.title;
    chart.subtitle.text = texts.subTitle;
    chart.footer.text = texts.note;
    set_axis(chart.x, LimitsOf(legacy::the_grid3D, kind->x), texts.xLabel);
    set_axis(chart.y, LimitsOf(legacy::the_grid3D, kind->y), texts.yLabel);
    const Limits z = LimitsOf(legacy::the_grid3D, kind->z);
    set_axis(chart.z, z, texts.zLabel);
    chart.z.automatic = IsCaloric(*kind) && (z.low == kNoLowerClip || z.high == kNoUpperClip);
    chart.surface = diagrams::Calc_3DArray(nx, ny);
}

bool AddCriticalPoint(chart::Chart3D& chart) {
    const SurfaceKind* kind = FindSurface(the_session.Diagram3DKind);
    if (kind == nullptr) return false;
    const SurfaceMark mark = CriticalMark(*kind);
    if (!mark.remark.empty()) {
        dialogs::Tell(mark.remark, "Note", dialogs::Icon::Information);
        return false;
    }
    std::erase_if(chart.markers, [&](const chart::Marker3D& m) { return m.text == mark.text; });
    chart.markers.push_back({mark.x, mark.y, mark.z, mark.text});
    return true;
}

bool TellEmptySurface(const chart::Chart3D& chart) {
    if (diagrams::HasSurface(chart.surface)) return false;
    dialogs::Tell(diagrams::kNoSurface, "Remark");
    return true;
}

}  // namespace quor::Module9
