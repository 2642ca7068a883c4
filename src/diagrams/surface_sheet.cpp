#include "diagrams/surface_sheet.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <utility>

#include "chart/chart_file.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "common/paths.h"
#include "common/text.h"
#include "diagrams/axis_units.h"
#include "diagrams/chart_saving.h"

namespace quor::diagrams {

namespace {

constexpr auto kFilter = "picture file (*.oc3)|*.oc3";
constexpr auto kExtension = ".oc3";
constexpr auto kAnyFile = "*.oc3";

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
    keep(c.subtitle.text, shown.sub_title, given.sub_title);
    keep(c.x.title, shown.x_label, given.x_label);
    keep(c.y.title, shown.y_label, given.y_label);
    keep(c.z.title, shown.z_label, given.z_label);
    keep(c.footer.text, shown.note, given.note);
}

bool is_critical_mark(const chart::Marker3D& marker) {
    return marker.text == kCriticalMarkText;
}

void set_fonts(chart::Chart3D& chart) {
    constexpr auto kFamily = "Arial";
    constexpr float kTitle = 15, kText = 10, kNumbers = 9;
    chart.header.font = {kFamily, kTitle, true, false};
    chart.subtitle.font = chart.title_font = {kFamily, kText, false, false};
    chart.number_font = chart.footer.font = {kFamily, kNumbers, false, false};
}

void set_axis(chart::Axis3D& axis, const Limits& limits, const std::string& title) {
    axis.min = static_cast<double>(limits.low);
    axis.max = static_cast<double>(limits.high);
    axis.automatic = false;
    axis.title = title;
}

/// Texts, axes and surface of the chart. The axis of z follows the data where no limits are set.
/// Fonts, styles and view stay.
void compute(SurfaceSheet& sheet) {
    const dialogs::BusyPointer busy;
    const SurfaceKind& kind = *sheet.kind;
    chart::Chart3D& chart = sheet.chart;
    const SurfaceTexts texts = texts_of(kind, sheet.basis);
    chart.header.text = texts.title;
    chart.subtitle.text = texts.sub_title;
    chart.footer.text = texts.note;
    set_axis(chart.x, limits_of(sheet.limits, kind.x), texts.x_label);
    set_axis(chart.y, limits_of(sheet.limits, kind.y), texts.y_label);
    const Limits z = limits_of(sheet.limits, kind.z);
    set_axis(chart.z, z, texts.z_label);
    chart.z.automatic = is_caloric(kind) && (z.low == kNoLowerClip || z.high == kNoUpperClip);
    chart.surface =
        surface_grid(kind, sheet.basis, sheet.limits, sheet.s_curve, sheet.nx, sheet.ny);
    sheet.given = texts_of(chart);
}

int within_bounds(int nodes) {
    return std::clamp(nodes, kFewestNodes, kMostNodes);
}

/// Computes what the sheet holds; texts that the user has changed stay, a critical point moves
/// along, and an empty surface is remarked upon.
void redraw(SurfaceSheet& sheet) {
    if (sheet.kind == nullptr) return;
    const SurfaceTexts shown = texts_of(sheet.chart), given = sheet.given;
    sheet.foreign = false;
    compute(sheet);
    keep_changed_texts(sheet.chart, shown, given);
    if (has_critical_mark(sheet)) {
        remove_critical_mark(sheet);
        add_critical_point(sheet);
    }
    tell_empty_surface(sheet.chart);
}

}  // namespace

SurfaceSheet open_surface(const SurfaceKind& kind, const Basis& basis, bool s_curve, int nx,
                          int ny) {
    SurfaceSheet sheet;
    sheet.kind = &kind;
    sheet.basis = basis;
    sheet.s_curve = s_curve && !basis.fluid.models().vapour_only;
    sheet.limits = default_limits(kind, basis, sheet.s_curve);
    sheet.nx = within_bounds(nx);
    sheet.ny = within_bounds(ny);
    set_fonts(sheet.chart);
    compute(sheet);
    return sheet;
}

namespace {

bool same_units(models::UnitChoice a, const models::UnitChoice& b) {
    a.T_of_RT = b.T_of_RT;
    return a == b;
}

/// Limits in the units of another basis, for the fluid that they were chosen for; the default ones
/// where they cannot be converted.
SurfaceLimits limits_in(const SurfaceSheet& sheet, const Basis& basis) {
    const models::UnitChoice &from = sheet.basis.units.choice, &to = basis.units.choice;
    if (same_units(from, to)) return sheet.limits;
    try {
        return converted_limits(sheet.limits, *sheet.kind, [&](Axis axis, double value) {
            return conversion(nullptr, axis, from, to, sheet.basis.fluid).value()(value);
        });
    } catch (const std::bad_optional_access&) {
        return default_limits(*sheet.kind, basis, sheet.s_curve);
    }
}

SurfaceNumbers numbers_of(const SurfaceSheet& sheet) {
    const chart::Chart3D& c = sheet.chart;
    return {sheet.limits,
            c.surface,
            {{c.x.min, c.x.max}, {c.y.min, c.y.max}, {c.z.min, c.z.max}},
            c.markers};
}

void show_numbers(SurfaceSheet& sheet, const SurfaceNumbers& numbers) {
    chart::Chart3D& c = sheet.chart;
    sheet.limits = numbers.limits;
    c.surface = numbers.grid;
    c.markers = numbers.markers;
    const auto set = [](chart::Axis3D& axis, const chart::Range& range) {
        axis.min = range.min;
        axis.max = range.max;
    };
    set(c.x, numbers.axes.x);
    set(c.y, numbers.axes.y);
    set(c.z, numbers.axes.z);
}

struct SurfaceScales {
    AxisScale x, y, z;
};

std::optional<SurfaceScales> scales_between(const SurfaceKind& kind, const models::Fluid& fluid,
                                            const models::UnitChoice& from,
                                            const models::UnitChoice& to) {
    const auto x = conversion(nullptr, kind.x, from, to, fluid),
               y = conversion(nullptr, kind.y, from, to, fluid),
               z = conversion(nullptr, kind.z, from, to, fluid);
    if (!x || !y || !z) return std::nullopt;
    return SurfaceScales{*x, *y, *z};
}

SurfaceNumbers converted(SurfaceNumbers numbers, const SurfaceKind& kind, const SurfaceScales& s) {
    numbers.limits = converted_limits(numbers.limits, kind, [&](Axis axis, double value) {
        return (axis == kind.x ? s.x : axis == kind.y ? s.y : s.z)(value);
    });
    convert_grid(numbers.grid, s.x, s.y, s.z);
    const auto range = [](chart::Range& r, const AxisScale& scale) {
        r = {scale(r.min), scale(r.max)};
    };
    range(numbers.axes.x, s.x);
    range(numbers.axes.y, s.y);
    range(numbers.axes.z, s.z);
    for (chart::Marker3D& marker : numbers.markers) {
        marker.x = s.x(marker.x);
        marker.y = s.y(marker.y);
        marker.z = s.z(marker.z);
    }
    return numbers;
}

/// The texts of the basis take the place of those that were given.
void renew_texts(SurfaceSheet& sheet) {
    const SurfaceTexts shown = texts_of(sheet.chart), given = sheet.given;
    const SurfaceTexts texts = texts_of(*sheet.kind, sheet.basis);
    chart::Chart3D& c = sheet.chart;
    c.header.text = texts.title;
    c.subtitle.text = texts.sub_title;
    c.x.title = texts.x_label;
    c.y.title = texts.y_label;
    c.z.title = texts.z_label;
    c.footer.text = texts.note;
    sheet.given = texts_of(c);
    keep_changed_texts(c, shown, given);
}

bool has_labels(const SurfaceSheet& sheet, const models::UnitChoice& units) {
    const SurfaceKind& kind = *sheet.kind;
    const auto same = [&](Axis axis, const std::string& title) {
        return text::trim(surface_axis_text(axis, units)) == text::trim(title);
    };
    const chart::Chart3D& c = sheet.chart;
    return same(kind.x, c.x.title) && same(kind.y, c.y.title) && same(kind.z, c.z.title);
}

/// The units that the axes of a chart name; nothing for a chart of another kind.
std::optional<models::UnitChoice> units_of_chart(const SurfaceSheet& sheet) {
    const models::UnitChoice& own = sheet.basis.units.choice;
    if (has_labels(sheet, own)) return own;
    for (const models::UnitSet& set : models::unit_sets())
        if (has_labels(sheet, set.choice)) return set.choice;
    const SurfaceKind& kind = *sheet.kind;
    const chart::Chart3D& c = sheet.chart;
    for (const auto& z : choices_with_text(kind.z, text::trim(c.z.title), {}))
        for (const auto& y : choices_with_text(kind.y, text::trim(c.y.title), z))
            for (const auto& x : choices_with_text(kind.x, text::trim(c.x.title), y))
                if (has_labels(sheet, x)) return x;
    return std::nullopt;
}

}  // namespace

Result<void> change_units(SurfaceSheet& sheet, const models::UnitChoice& choice) {
    const models::UnitChoice from = sheet.basis.units.choice;
    if (sheet.kind == nullptr || same_units(from, choice)) return {};
    Basis basis = sheet.basis;
    try {
        basis.units = models::make_units(choice, basis.fluid);
    } catch (const std::exception& fault) {
        return Failure{std::string("The surface keeps its units: ") + fault.what()};
    }
    if (basis.units.choice.system != choice.system)
        return Failure{"The surface keeps its units: " + basis.fluid.substance().name +
                       " has no critical volume"};
    if (sheet.foreign) {
        sheet.limits = limits_in(sheet, basis);
        sheet.basis = std::move(basis);
        return Failure{"The chart of the file keeps its units until the surface is drawn anew"};
    }
    const SurfaceNumbers now = numbers_of(sheet);
    const bool known = sheet.origin && sheet.origin->after == now;
    const models::UnitChoice source = known ? sheet.origin->units : from;
    const auto scales = scales_between(*sheet.kind, basis.fluid, source, choice);
    if (!scales) {
        // Values in R T belong to the T of each node: the surface is computed anew.
        new_draw(sheet, basis);
        return {};
    }
    const SurfaceNumbers before = known ? sheet.origin->before : now;
    show_numbers(sheet,
                 same_units(source, choice) ? before : converted(before, *sheet.kind, *scales));
    sheet.basis = std::move(basis);
    renew_texts(sheet);
    sheet.origin = SurfaceOrigin{source, before, numbers_of(sheet)};
    return {};
}

std::optional<SurfaceQuantity> quantity_of(const SurfaceSheet& sheet, Axis axis) {
    const auto unit = plain_unit_of(nullptr, axis, sheet.basis.units.choice);
    const auto scale = axis_scale(nullptr, axis, sheet.basis.units.choice, sheet.basis.fluid);
    if (!unit || !scale) return std::nullopt;
    return SurfaceQuantity{unit->dimension, {scale->factor, scale->zero, unit->name}};
}

void new_draw(SurfaceSheet& sheet, const Basis& basis) {
    if (sheet.kind != nullptr) sheet.limits = limits_in(sheet, basis);
    sheet.basis = basis;
    redraw(sheet);
}

bool set_limits(SurfaceSheet& sheet, const SurfaceLimits& limits) {
    if (sheet.kind == nullptr) return false;
    const std::string refusal = refusal_of(limits, *sheet.kind);
    if (!refusal.empty()) {
        dialogs::tell(refusal, "INPUT ERROR");
        return false;
    }
    sheet.limits = limits;
    redraw(sheet);
    return true;
}

void set_meshlines(SurfaceSheet& sheet, int nx, int ny) {
    sheet.nx = within_bounds(nx);
    sheet.ny = within_bounds(ny);
    redraw(sheet);
}

bool add_critical_point(SurfaceSheet& sheet) {
    if (sheet.kind == nullptr) return false;
    const SurfaceMark mark = critical_mark(*sheet.kind, sheet.basis);
    if (!mark.remark.empty()) {
        dialogs::tell(mark.remark, "Note", dialogs::Icon::Information);
        return false;
    }
    remove_critical_mark(sheet);
    sheet.chart.markers.push_back({mark.x, mark.y, mark.z, mark.text});
    return true;
}

bool has_critical_mark(const SurfaceSheet& sheet) {
    const auto& markers = sheet.chart.markers;
    return std::any_of(markers.begin(), markers.end(), is_critical_mark);
}

void remove_critical_mark(SurfaceSheet& sheet) {
    std::erase_if(sheet.chart.markers, is_critical_mark);
}

bool tell_empty_surface(const chart::Chart3D& chart) {
    if (has_surface(chart.surface)) return false;
    dialogs::tell(kNoSurface, "Remark");
    return true;
}

std::string proposed_file(const SurfaceSheet& sheet, const std::string& substance) {
    const SurfaceKind& kind = *sheet.kind;
    return paths::as_title(substance + " " + axis_symbol(kind.z) + "-" + axis_symbol(kind.x) + "-" +
                           axis_symbol(kind.y)) +
           kExtension;
}

std::optional<std::string> save_oc3(const SurfaceSheet& sheet, const std::string& folder,
                                    const std::string& proposed) {
    return save_chart(sheet.chart, {.title = "Save this diagram design",
                                    .filter = kFilter,
                                    .folder = folder,
                                    .name = proposed,
                                    .default_extension = kExtension});
}

namespace {

/// The limits that the surface is drawn with follow the units of the chart that was read.
void take_units_of_chart(SurfaceSheet& sheet) {
    sheet.foreign = true;
    if (sheet.kind == nullptr) return;
    const auto units = units_of_chart(sheet);
    if (!units) return;
    Basis basis = sheet.basis;
    try {
        basis.units = models::make_units(*units, basis.fluid);
    } catch (const std::exception&) {
        return;  // the units of another fluid
    }
    sheet.limits = limits_in(sheet, basis);
    sheet.basis = std::move(basis);
    sheet.foreign = false;
}

}  // namespace

SurfaceFileAnswer load_oc3(SurfaceSheet& sheet, const std::string& folder) {
    // The title names the other kind of file.
    const std::optional<std::string> name =
        dialogs::choose_file({.title = "Load a saved pattern (*.oc2)",
                              .filter = kFilter,
                              .folder = folder,
                              .name = kAnyFile,
                              .default_extension = kExtension});
    if (!name || name->empty()) return {std::nullopt, folder};
    const std::string path = paths::in_folder(*name, folder);
    const Result<void> read = chart::load_chart(path, sheet.chart);
    if (read) {
        // Drawing anew gives the texts of this surface, which the file need not show.
        sheet.given = texts_of(sheet.chart);
        sheet.origin.reset();
        take_units_of_chart(sheet);
        return {path, paths::folder_of(path)};
    }
    dialogs::tell(read.reason(), dialogs::kNotPossible, dialogs::Icon::Stop);
    return {std::nullopt, paths::folder_of(path)};
}

std::string surface_readout(const chart::Chart3D& chart, double x, double y, double z) {
    // More digits than these are not in a value between two nodes.
    constexpr int kDigits = 5;
    const auto part = [](const std::string& title, double value) {
        const double size = value == 0 ? 0 : std::floor(std::log10(std::fabs(value)));
        const double step = std::pow(10, size - (kDigits - 1));
        return text::trim(title) + " = " +
               numbers::general(static_cast<float>(std::round(value / step) * step));
    };
    return part(chart.x.title, x) + "     " + part(chart.y.title, y) + "     " +
           part(chart.z.title, z);
}

}  // namespace quor::diagrams
