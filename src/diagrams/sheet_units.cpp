#include "diagrams/sheet_units.h"

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

#include "chart/ticks.h"
#include "common/numbers.h"
#include "common/text.h"
#include "diagrams/sheet_draw.h"
#include "diagrams/sheet_marks.h"
#include "diagrams/sheet_names.h"
#include "diagrams/sheet_places.h"
#include "diagrams/sheet_window.h"

namespace quor::diagrams {

namespace {

using models::Fluid;
using models::UnitChoice;
using Of = UnitOrigin::Of;

bool is_named(const Fluid& fluid) {
    return !fluid.substance().name.empty();
}

/// What a change of the units of a sheet needs.
struct Change {
    const Diagram& row;
    UnitChoice from, to;
    const Fluid& fluid;  ///< of what has none of its own
    const std::vector<UnitOrigin>& before;
    std::vector<UnitOrigin>& after;

    Axis axis(Of of) const { return of == Of::x || of == Of::xTicks ? row.x : row.y; }
    std::optional<AxisScale> scale(Of of, const UnitChoice& units, const Fluid& of_fluid) const {
        return axis_scale(&row, axis(of), units, of_fluid);
    }
};

/// The numbers from which the present ones have come, and their units.
struct Source {
    UnitChoice units;
    std::vector<double> numbers;
};

Source source_of(const Change& c, Of of, const Fluid& fluid, std::vector<double> now) {
    const auto scale = c.scale(of, c.from, fluid);
    for (const UnitOrigin& origin : c.before)
        if (scale && origin.of == of && origin.after == *scale && origin.shown == now &&
            c.scale(of, origin.units, fluid) == origin.before)
            return {origin.units, origin.numbers};
    return {c.from, std::move(now)};
}

void keep_origin(const Change& c, Of of, const Fluid& fluid, Source source,
                 const std::vector<double>& shown) {
    const auto before = c.scale(of, source.units, fluid), after = c.scale(of, c.to, fluid);
    if (!before || !after || *before == *after) return;
    for (const UnitOrigin& known : c.after)
        if (known.of == of && known.before == *before && known.after == *after &&
            known.shown == shown)
            return;
    c.after.push_back({of, source.units, *before, *after, std::move(source.numbers), shown});
}

/// Numbers of an axis in the new units; `convert` makes one from the scale between both.
template <class Convert>
std::vector<double> changed(const Change& c, Of of, const Fluid& fluid, std::vector<double> now,
                            Convert convert) {
    Source source = source_of(c, of, fluid, std::move(now));
    const auto scale = conversion(&c.row, c.axis(of), source.units, c.to, fluid);
    std::vector<double> shown = source.numbers;
    if (scale && !scale->is_identity()) convert(shown, *scale);
    keep_origin(c, of, fluid, std::move(source), shown);
    return shown;
}

std::vector<double> as_doubles(const std::vector<float>& values) {
    return {values.begin(), values.end()};
}

void change_series(const Change& c, Of of, const Fluid& fluid, std::vector<float>& values,
                   bool is_reference) {
    const std::vector<double> shown = changed(
        c, of, fluid, as_doubles(values), [&](std::vector<double>& all, const AxisScale& s) {
            for (double& value : all) {
                const auto single = static_cast<float>(value);
                // Where a reference line begins, and a hole, are no values of the axis.
                if (!chart::is_shown(single) || (is_reference && is_far(single))) continue;
                value = static_cast<double>(numbers::to_single(s(value)));
            }
        });
    std::transform(shown.begin(), shown.end(), values.begin(),
                   [](double value) { return static_cast<float>(value); });
}

enum class Kept { inDouble, inSingle };

std::vector<double> change_values(const Change& c, Of of, std::vector<double> values,
                                  Kept kept = Kept::inDouble) {
    return changed(
        c, of, c.fluid, std::move(values), [kept](std::vector<double>& all, const AxisScale& s) {
            for (double& value : all)
                value = kept == Kept::inSingle ? static_cast<double>(numbers::to_single(s(value)))
                                               : s(value);
        });
}

void change_axis(const Change& c, bool is_x, chart::Axis& axis) {
    const Of of = is_x ? Of::x : Of::y;
    const std::vector<double> limits = change_values(c, of, {axis.min, axis.max});
    axis.min = limits[0];
    axis.max = limits[1];
    if (!axis.automatic_origin) axis.origin = change_values(c, of, {axis.origin})[0];
    const std::vector<double> ticks =
        changed(c, is_x ? Of::xTicks : Of::yTicks, c.fluid,
                {axis.tick_spacing, axis.grid_spacing, static_cast<double>(axis.decimals)},
                [](std::vector<double>& all, const AxisScale& s) {
                    all[0] = converted_spacing(all[0], s.factor);
                    all[1] = converted_spacing(all[1], s.factor);
                    if (s.factor != 1) all[2] = -1;
                });
    axis.tick_spacing = ticks[0];
    axis.grid_spacing = ticks[1];
    axis.decimals = static_cast<int>(ticks[2]);
}

void change_window(const Change& c, CurveWindow& window) {
    const auto pair = [&](Of of, float& low, float& high) {
        const std::vector<double> shown = change_values(
            c, of, {static_cast<double>(low), static_cast<double>(high)}, Kept::inSingle);
        low = numbers::to_single(shown[0]);
        high = numbers::to_single(shown[1]);
    };
    pair(Of::x, window.x_min, window.x_max);
    pair(Of::y, window.y_min, window.y_max);
}

/// A window on the axes as they are shown.
void change_unzoomed(const Change& c, chart::Window& window, bool turned) {
    const auto change = [&](Of of, chart::Range& range) {
        const std::vector<double> shown = change_values(c, of, {range.min, range.max});
        range = {shown[0], shown[1]};
    };
    change(turned ? Of::y : Of::x, window.x);
    change(turned ? Of::x : Of::y, window.y);
}

/// A text that was given is replaced; one that the user has changed stays.
void replace_given(std::string& shown, const std::string& before, const std::string& after) {
    if (shown == before) shown = after;
}

Basis in_units(const Basis& basis, const UnitChoice& choice) {
    Basis other = basis;
    other.units = models::make_units(choice, basis.fluid);
    return other;
}

/// The texts of a diagram in old and new units for a basis in the new ones.
struct TextsInBoth {
    DiagramTexts before, after;
};

TextsInBoth texts_in_both(const Change& c, const Validity& validity, const Basis& basis) {
    Basis old = basis;
    old.units = models::make_units(c.from, basis.fluid);
    return {texts_of(c.row, old, validity), texts_of(c.row, basis, validity)};
}

/// Points, names and basis of the curves of a content.
void change_curves(const Change& c, DiagramSheet& sheet) {
    auto& series = sheet.chart.curves;
    for (std::size_t i = 0; i < series.size(); ++i) {
        SheetCurve* curve = i < sheet.curves.size() ? &sheet.curves[i] : nullptr;
        const bool has_fluid = curve != nullptr && is_named(curve->basis.fluid);
        const Fluid& fluid = has_fluid ? curve->basis.fluid : c.fluid;
        change_series(c, Of::x, fluid, series[i].x, series[i].is_reference);
        change_series(c, Of::y, fluid, series[i].y, series[i].is_reference);
        if (!has_fluid) continue;
        const std::string held = held_text(curve->held, curve->basis.units);
        curve->basis = in_units(curve->basis, c.to);
        const std::string now = held_text(curve->held, curve->basis.units);
        if (!held.empty() && held != now)
            for (std::string* text : {&curve->name.legend, &curve->name.label})
                *text = text::replace_all(*text, held, now);
        const TextsInBoth texts = texts_in_both(c, sheet.request.validity, curve->basis);
        replace_given(curve->source, texts.before.sub_title, texts.after.sub_title);
    }
}

void change_points(const Change& c, chart::Chart2D& chart) {
    for (chart::Series& points : chart.points) {
        change_series(c, Of::x, c.fluid, points.x, false);
        change_series(c, Of::y, c.fluid, points.y, false);
    }
    for (chart::Label& label : chart.labels) {
        if (label.on_point) continue;
        label.x = change_values(c, Of::x, {label.x})[0];
        label.y = change_values(c, Of::y, {label.y})[0];
    }
}

/// What the program tells of a sheet beside its curves.
struct Told {
    DiagramTexts texts;
    std::string footer;  ///< before a curve gives one
};

Told told_by(const DiagramSheet& sheet) {
    return {sheet.request.texts, opening_footer(sheet.request, sheet.basis)};
}

/// One content of a sheet.
void change_content(const Change& c, DiagramSheet& sheet, const Told& told_before,
                    const Told& told_after) {
    const DiagramTexts &before = told_before.texts, &after = told_after.texts;
    change_curves(c, sheet);
    change_points(c, sheet.chart);
    change_axis(c, true, sheet.chart.x);
    change_axis(c, false, sheet.chart.y);
    change_axis(c, false, sheet.chart.y2);
    replace_given(sheet.chart.x.title, text::trim(before.x), text::trim(after.x));
    replace_given(sheet.chart.y.title, text::trim(before.y), text::trim(after.y));
    replace_given(sheet.chart.y2.title, text::trim(before.y), text::trim(after.y));
    const auto header = [](const DiagramTexts& texts) {
        return wrap_title(text::trim(texts.title), kHeaderLine);
    };
    replace_given(sheet.chart.header.text, header(before), header(after));
    if (sheet.given_footer == told_before.footer) {
        replace_given(sheet.chart.footer.text, told_before.footer, told_after.footer);
        sheet.given_footer = told_after.footer;
    }
    name_fluids(sheet);
}

/// The texts of the request in the new units: what the program has given of them.
DiagramTexts changed_texts(const Change& c, const DiagramSheet& sheet) {
    DiagramTexts texts = sheet.request.texts;
    replace_given(texts.x, axis_text_in(c.row, c.row.x, c.from),
                  axis_text_in(c.row, c.row.x, c.to));
    replace_given(texts.y, axis_text_in(c.row, c.row.y, c.from),
                  axis_text_in(c.row, c.row.y, c.to));
    // The texts of an axis come from a file without the blanks around them.
    replace_given(texts.x, text::trim(axis_text_in(c.row, c.row.x, c.from)),
                  axis_text_in(c.row, c.row.x, c.to));
    replace_given(texts.y, text::trim(axis_text_in(c.row, c.row.y, c.from)),
                  axis_text_in(c.row, c.row.y, c.to));
    if (!is_named(c.fluid)) return texts;
    const Basis basis = in_units({.fluid = c.fluid}, c.to);
    const TextsInBoth both = texts_in_both(c, sheet.request.validity, basis);
    const std::size_t maximum = texts.title.find(kMaximumCaption);
    std::string title = texts.title.substr(0, maximum);
    replace_given(title, both.before.title, both.after.title);
    texts.title = maximum == std::string::npos
                      ? title
                      : title + maximum_text(sheet.T_of_maximum, basis.units);
    replace_given(texts.sub_title, both.before.sub_title, both.after.sub_title);
    return texts;
}

constexpr auto kNoUnits =
    "The diagram keeps its units: its points cannot be converted without a molar mass, critical "
    "values and T of each state";

/// Whether the axes can be converted for a fluid; the reason why not.
Result<void> may_convert(const Diagram& row, const UnitChoice& from, const UnitChoice& to,
                         const Fluid& fluid) {
    for (const Axis axis : {row.x, row.y})
        if (!conversion(&row, axis, from, to, fluid)) return Failure{kNoUnits};
    if (!is_named(fluid)) return {};
    try {
        if (models::make_units(to, fluid).choice.system != to.system)
            return Failure{"The diagram keeps its units: " + fluid.substance().name +
                           " has no critical volume"};
        (void)models::make_units(from, fluid);
    } catch (const std::exception& fault) {
        return Failure{std::string("The diagram keeps its units: ") + fault.what()};
    }
    return {};
}

Result<void> may_convert(const Diagram& row, const UnitChoice& from, const UnitChoice& to,
                         const std::vector<SheetCurve>& curves) {
    for (const SheetCurve& curve : curves) {
        if (!is_named(curve.basis.fluid)) continue;
        const Result<void> may = may_convert(row, from, to, curve.basis.fluid);
        if (!may) return may;
    }
    return {};
}

Result<void> may_convert(const DiagramSheet& sheet, const UnitChoice& to) {
    const Diagram& row = *sheet.request.diagram;
    if (const auto may = may_convert(row, sheet.units, to, fluid_of(sheet)); !may) return may;
    if (const auto may = may_convert(row, sheet.units, to, sheet.curves); !may) return may;
    for (const auto* steps : {&sheet.undo, &sheet.redo})
        for (const UndoStep& step : *steps)
            if (const auto may = may_convert(row, sheet.units, to, step.before.curves); !may)
                return may;
    return {};
}

/// The steps that can be taken back go along.
void change_steps(const Change& c, const DiagramSheet& sheet, const Told& before, const Told& after,
                  std::vector<UndoStep>& steps) {
    for (UndoStep& step : steps) {
        DiagramSheet of_step;
        of_step.request = sheet.request;
        of_step.basis = sheet.basis;
        of_step.units = sheet.units;
        SheetContent& content = step.before;
        of_step.chart = std::move(content.chart);
        of_step.curves = std::move(content.curves);
        of_step.point_sets = std::move(content.point_sets);
        of_step.given_footer = std::move(content.given_footer);
        change_content(c, of_step, before, after);
        content = {std::move(of_step.chart), std::move(of_step.curves),
                   std::move(of_step.point_sets), std::move(of_step.given_footer)};
    }
}

bool same_units(UnitChoice a, const UnitChoice& b) {
    a.T_of_RT = b.T_of_RT;
    return a == b;
}

}  // namespace

double converted_spacing(double spacing, double factor) {
    if (!(spacing > 0) || factor == 1) return spacing;
    return chart::nice_step(spacing * factor);
}

const Fluid& fluid_of(const DiagramSheet& sheet) {
    for (const SheetCurve& curve : sheet.curves)
        if (curve.drawn && is_named(curve.basis.fluid)) return curve.basis.fluid;
    return sheet.basis.fluid;
}

Result<void> change_units(DiagramSheet& sheet, const UnitChoice& choice, chart::Window* unzoomed) {
    if (same_units(sheet.units, choice)) return {};
    if (sheet.request.diagram == nullptr) {
        sheet.units = choice;
        return {};
    }
    if (const auto may = may_convert(sheet, choice); !may) return may;
    const Upright upright(sheet);
    const Fluid fluid = fluid_of(sheet);
    std::vector<UnitOrigin> origins;
    const Change change{*sheet.request.diagram, sheet.units, choice, fluid, sheet.origins, origins};

    const Told before = told_by(sheet);
    sheet.request.texts = changed_texts(change, sheet);
    if (is_named(sheet.basis.fluid)) sheet.basis = in_units(sheet.basis, choice);
    const Told after = told_by(sheet);
    change_content(change, sheet, before, after);
    change_window(change, sheet.request.window);
    change_window(change, sheet.request.proposed);
    if (unzoomed != nullptr) change_unzoomed(change, *unzoomed, upright.turned());
    change_steps(change, sheet, before, after, sheet.undo);
    change_steps(change, sheet, before, after, sheet.redo);
    sheet.units = choice;
    sheet.origins = std::move(origins);
    follow_window(sheet);
    return {};
}

std::optional<AxisQuantity> quantity_of(const DiagramSheet& sheet, bool x) {
    const Diagram* row = sheet.request.diagram;
    if (row == nullptr) return std::nullopt;
    const Axis axis = x == sheet.chart.swapped ? row->y : row->x;
    const auto unit = plain_unit_of(row, axis, sheet.units);
    const auto scale = axis_scale(row, axis, sheet.units, fluid_of(sheet));
    if (!unit || !scale) return std::nullopt;
    return AxisQuantity{unit->dimension, {scale->factor, scale->zero, unit->name}};
}

}  // namespace quor::diagrams
