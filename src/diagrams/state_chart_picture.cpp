#include "diagrams/state_chart_picture.h"

#include <array>
#include <utility>

#include "common/numbers.h"
#include "common/text.h"
#include "diagrams/sheet_names.h"
#include "models/model_tables.h"

namespace quor::diagrams {

namespace {

using chart::Chart2D;
using chart::LinePattern;
using chart::Series;

constexpr int kLabelDigits = 6, kReadoutDigits = 5, kFractionDigits = 3;
constexpr float kDomeWidth = 2, kLineWidth = 1, kFractionWidth = 0.7F, kTripleWidth = 1.2F;

/// One style for a quantity in every chart.
chart::LineStyle style_of(ChartQuantity quantity) {
    switch (quantity) {
        case ChartQuantity::T:
            return {LinePattern::Solid, chart::rgb(0xB3261E), kLineWidth};
        case ChartQuantity::p:
            return {LinePattern::Solid, chart::rgb(0x1D4E9E), kLineWidth};
        case ChartQuantity::v:
            return {LinePattern::Dashed, chart::rgb(0x2E7D32), kLineWidth};
        case ChartQuantity::h:
            return {LinePattern::DashDotted, chart::rgb(0x9A5B00), kLineWidth};
        case ChartQuantity::s:
            return {LinePattern::Dashed, chart::rgb(0x6A1B9A), kLineWidth};
        default:
            return {LinePattern::Solid, chart::kInk, kLineWidth};
    }
}

/// "h / (kJ/kg)", "T / degC", "Z".
std::string named(ChartQuantity quantity, const std::string& unit) {
    const std::string symbol(name_of(quantity));
    if (unit.empty()) return symbol;
    return symbol + (unit.find('/') == std::string::npos ? " / " + unit : " / (" + unit + ")");
}

Series series_of(const ChartParts& parts, const chart::LineStyle& style) {
    Series series;
    series.line = style;
    series.in_legend = false;
    for (const auto& part : parts) {
        if (!series.x.empty()) {
            series.x.push_back(series.x.back());
            series.y.push_back(chart::kHole);
        }
        for (const ChartVertex& at : part) {
            series.x.push_back(static_cast<float>(at.x));
            series.y.push_back(static_cast<float>(at.y));
        }
    }
    return series;
}

/// A value with a dash for its minus sign, which every picture format has and which is no dash of
/// its line.
std::string label_of(double value) {
    return text::replace_all(numbers::general(value, kLabelDigits), "-", "\u2013");
}

void add_labelled(Chart2D& c, const ChartParts& parts, const chart::LineStyle& style,
                  const std::string& label) {
    Series series = series_of(parts, style);
    series.label = {.text = label, .on_line = true};
    c.curves.push_back(std::move(series));
}

void add_fractions(Chart2D& c, const StateChart& values) {
    const chart::LineStyle style{LinePattern::Solid, chart::kFrameGrey, kFractionWidth};
    bool first = true;
    for (const FractionLine& line : values.fractions) {
        if (line.parts.empty()) continue;
        add_labelled(c, line.parts, style, label_of(line.fraction));
        if (std::exchange(first, false)) {
            c.curves.back().in_legend = true;
            c.curves.back().legend = "vapour fraction x";
        }
    }
}

void add_families(Chart2D& c, const StateChart& values) {
    for (const ChartFamily& family : values.families) {
        bool first = true;
        for (const ChartLine& line : family.lines) {
            if (line.parts.empty()) continue;
            add_labelled(c, line.parts, style_of(family.quantity), label_of(line.value));
            if (std::exchange(first, false)) {
                c.curves.back().in_legend = true;
                c.curves.back().legend = named(family.quantity, family.unit);
            }
        }
    }
}

void add_dome(Chart2D& c, const StateChart& values) {
    if (!values.triple.empty())
        c.curves.push_back(
            series_of(values.triple, {LinePattern::Solid, chart::kInk, kTripleWidth}));
    if (!values.dome.empty())
        c.curves.push_back(series_of(values.dome, {LinePattern::Solid, chart::kInk, kDomeWidth}));
    if (!values.critical) return;
    Series point = chart::default_point_set(0);
    point.x = {static_cast<float>(values.critical->x)};
    point.y = {static_cast<float>(values.critical->y)};
    point.legend = "critical point";
    c.points.push_back(std::move(point));
}

void set_axis(chart::Axis& axis, const ChartAxis& kind, double low, double high,
              const std::string& unit) {
    axis.min = low;
    axis.max = high;
    axis.logarithmic = kind.logarithmic;
    axis.title = named(kind.quantity, unit);
}

bool is_caloric(ChartQuantity quantity) {
    return quantity == ChartQuantity::h || quantity == ChartQuantity::s ||
           quantity == ChartQuantity::e;
}

std::string footer_of(const StateChart& values, const Basis& basis) {
    const StateChartKind& kind = row_of(values.kind);
    const bool exergy = kind.y.quantity == ChartQuantity::e;
    bool caloric = is_caloric(kind.x.quantity) || is_caloric(kind.y.quantity);
    for (const ChartFamily& family : values.families)
        caloric = caloric || is_caloric(family.quantity);
    std::string footer = text::trim(models::eos_name(basis.fluid.models().eos));
    if (caloric || exergy)
        footer += "\n" + reference_text(caloric, exergy, basis.reference, basis.units);
    return footer;
}

std::optional<models::GivenValue> given(ChartQuantity quantity, double shown,
                                        const models::Units& units) {
    constexpr std::array kProperties = {models::Property::T, models::Property::p,
                                        models::Property::v, models::Property::h,
                                        models::Property::s};
    const auto dimension = dimension_of(quantity);
    const auto place = static_cast<std::size_t>(quantity);
    if (!dimension || place >= kProperties.size()) return std::nullopt;
    return models::GivenValue{kProperties[place], units.of(*dimension).value(shown)};
}

}  // namespace

Chart2D chart_of(const StateChart& values, const Basis& basis) {
    const StateChartKind& kind = row_of(values.kind);
    Chart2D c;
    set_axis(c.x, kind.x, values.window.x_min, values.window.x_max, values.x_unit);
    set_axis(c.y, kind.y, values.window.y_min, values.window.y_max, values.y_unit);
    add_fractions(c, values);
    add_families(c, values);
    add_dome(c, values);
    c.header.text = text::trim(basis.fluid.substance().name) + ": " + std::string(kind.title);
    c.footer.text = footer_of(values, basis);
    c.legend.shown = true;
    c.legend.anchor = chart::LegendAnchor::OutsideSouth;
    c.legend.vertical = false;
    return c;
}

std::optional<models::FlashState> state_at(const models::Flash& flash, ChartKind kind, double x,
                                           double y, const models::Units& units) {
    const StateChartKind& row = row_of(kind);
    const auto a = given(row.x.quantity, x, units), b = given(row.y.quantity, y, units);
    if (!a || !b) return std::nullopt;
    const auto found = flash(*a, *b);
    return found ? std::optional(*found) : std::nullopt;
}

std::string state_text(const models::FlashState& state, const models::Units& units) {
    using models::Dimension;
    std::string all(models::name_of(state.phase));
    if (state.x) all += ", x = " + numbers::general(*state.x, kFractionDigits);
    const auto add = [&](const char* symbol, double value, Dimension dimension) {
        const models::Scale& scale = units.of(dimension);
        all.append("   ").append(symbol).append(" = ");
        all += numbers::general(scale.shown(value), kReadoutDigits) + " " +
               text::with_unit_signs(std::string(scale.name));
    };
    add("T", state.T, Dimension::temperature);
    add("p", state.p, Dimension::pressure);
    add("v", state.v, Dimension::volume);
    if (state.values) {
        add("h", state.values->h, Dimension::energy);
        add("s", state.values->s, Dimension::entropy);
        add("u", state.values->u, Dimension::energy);
    }
    return all;
}

}  // namespace quor::diagrams
