#include "diagrams/prepare_3d.h"

#include <exception>

#include "common/dialogs.h"
#include "diagrams/surface.h"
#include "diagrams/surface_grid.h"
#include "session/module2.h"

namespace Module9 {

namespace {

using Declare::session;

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
        Module2::RefreshUnits();
        session.CaloricFactor = Module2::CaloricFactorOf(session.CaloricUnit, session.DiagramT);
        Declare::grid3D = DefaultGrid(session.Diagram3DKind, session.SCurve3D);
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
    const SurfaceKind* kind = FindSurface(session.Diagram3DKind);
    if (kind == nullptr) return;
    const SurfaceTexts texts = TextsOf(*kind);
    chart.header.text = texts.title;
    chart.subtitle.text = texts.subTitle;
    chart.footer.text = texts.note;
    set_axis(chart.x, LimitsOf(Declare::grid3D, kind->x), texts.xLabel);
    set_axis(chart.y, LimitsOf(Declare::grid3D, kind->y), texts.yLabel);
    const Limits z = LimitsOf(Declare::grid3D, kind->z);
    set_axis(chart.z, z, texts.zLabel);
    chart.z.automatic = IsCaloric(*kind) && (z.low == kNoLowerClip || z.high == kNoUpperClip);
    chart.surface = kurve::Calc_3DArray(nx, ny);
}

bool AddCriticalPoint(chart::Chart3D& chart) {
    const SurfaceKind* kind = FindSurface(session.Diagram3DKind);
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
    if (kurve::HasSurface(chart.surface)) return false;
    dialogs::Tell(kurve::kNoSurface, "Remark");
    return true;
}

}  // namespace Module9
