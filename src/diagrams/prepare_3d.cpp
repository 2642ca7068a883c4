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

Diagram3DViews& views3_d() {
    static Diagram3DViews views;
    return views;
}

void prepare_diagram3_d() {
    try {
        session::refresh_units();
        the_session.CaloricFactor =
            session::caloric_factor_of(the_session.CaloricUnit, the_session.DiagramT);
        legacy::the_grid3D = default_grid(the_session.Diagram3DKind, the_session.SCurve3D);
        if (views3_d().openDiagram) views3_d().openDiagram();
    } catch (const std::exception&) {
        dialogs::tell(
            "The registration of the 3D graph module \\...\\olch8x3.ocx during the installation "
            "process failed.\nPlease carry out the registration manually (c.f. our website)",
            "Execution not possible");
    }
}

void init_graph3_d(chart::Chart3D& chart, int nx, int ny) {
    constexpr auto kFamily = "Arial";
    constexpr float kTitle = 15, kText = 10, kNumbers = 9;
    chart.header.font = {kFamily, kTitle, true, false};
    chart.subtitle.font = chart.titleFont = {kFamily, kText, false, false};
    chart.numberFont = chart.footer.font = {kFamily, kNumbers, false, false};
    renew_surface(chart, nx, ny);
}

void renew_surface(chart::Chart3D& chart, int nx, int ny) {
    const SurfaceKind* kind = find_surface(the_session.Diagram3DKind);
    if (kind == nullptr) return;
    const SurfaceTexts texts = TextsOf(*kind);
    chart.header.text = texts.title;
    chart.subtitle.text = texts.subTitle;
    chart.footer.text = texts.note;
    set_axis(chart.x, limits_of(legacy::the_grid3D, kind->x), texts.xLabel);
    set_axis(chart.y, limits_of(legacy::the_grid3D, kind->y), texts.yLabel);
    const Limits z = limits_of(legacy::the_grid3D, kind->z);
    set_axis(chart.z, z, texts.zLabel);
    chart.z.automatic = IsCaloric(*kind) && (z.low == kNoLowerClip || z.high == kNoUpperClip);
    chart.surface = diagrams::calc_3_d_array(nx, ny);
}

bool add_critical_point(chart::Chart3D& chart) {
    const SurfaceKind* kind = find_surface(the_session.Diagram3DKind);
    if (kind == nullptr) return false;
    const SurfaceMark mark = critical_mark(*kind);
    if (!mark.remark.empty()) {
        dialogs::tell(mark.remark, "Note", dialogs::Icon::Information);
        return false;
    }
    std::erase_if(chart.markers, [&](const chart::Marker3D& m) { return m.text == mark.text; });
    chart.markers.push_back({mark.x, mark.y, mark.z, mark.text});
    return true;
}

bool tell_empty_surface(const chart::Chart3D& chart) {
    if (diagrams::has_surface(chart.surface)) return false;
    dialogs::tell(diagrams::kNoSurface, "Remark");
    return true;
}

}  // namespace quor::Module9
