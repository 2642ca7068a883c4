#include <algorithm>
#include <cmath>
#include <limits>

#include "common/constants.h"
#include "diagrams/chart_states.h"
#include "models/cubic_eos.h"

namespace quor::diagrams {

namespace {

using constants::R;
using models::FlashState;
using models::Property;
using enum ChartQuantity;

constexpr double kLowestTr = 0.45;
/// A triple point above it begins a chart, below it the chart leaves the coldest liquid out.
constexpr double kTripleTr = 0.4;
constexpr double kLowestTrOfGas = 0.6;  ///< where only the vapour is described
constexpr double kHighestTr = 1.5, kHighestPr = 2.5;
constexpr double kLowestPr = 1e-5, kLowestPrOfGas = 1e-3;
constexpr double kMostTr = 6;  ///< of lines in windows that reach far

/// A number times a power of ten, as its decimal fraction is read.
double scaled(double number, int decade) {
    const double power = std::pow(10.0, std::abs(decade));
    return decade < 0 ? number / power : number * power;
}
int decade_of(double value) {
    return static_cast<int>(std::floor(std::log10(value)));
}

/// The smallest of 1, 2, 5 by powers of ten that is no less.
struct Step {
    int digit = 1, decade = 0;
    double size() const { return scaled(digit, decade); }
    /// No -0.
    double times(double count) const { return scaled(count * digit, decade) + 0.0; }
};

Step round_step(double least) {
    const int decade = decade_of(least);
    for (const int digit : {1, 2, 5})
        if (scaled(digit, decade) >= least * (1 - 1e-9)) return {digit, decade};
    return {1, decade + 1};
}

struct Limits {
    double low = 0, high = 0;
};

Limits rounded_outwards(const Limits& l) {
    const Step step = round_step((l.high - l.low) / 25);
    return {step.times(std::floor(l.low / step.size() + 1e-9)),
            step.times(std::ceil(l.high / step.size() - 1e-9))};
}

/// The same on a logarithmic axis, to one of ten numbers a decade.
Limits rounded_outwards_log(const Limits& l) {
    constexpr double kDigits[] = {1, 1.5, 2, 2.5, 3, 4, 5, 6, 8, 10};
    Limits r = l;
    const int low = decade_of(l.low), high = decade_of(l.high);
    for (const double digit : kDigits)
        if (scaled(digit, low) <= l.low * (1 + 1e-9)) r.low = scaled(digit, low);
    for (const double digit : kDigits)
        if (scaled(digit, high) >= l.high * (1 - 1e-9)) {
            r.high = scaled(digit, high);
            break;
        }
    return r;
}

/// The number of the fewest digits that is not above a value and not below another, or the value.
double rounded_down(double value, double least) {
    for (int digits = 0; digits < 3; ++digits) {
        const int decade = decade_of(value) - digits;
        const double rounded = scaled(std::floor(value / scaled(1, decade) + 1e-9), decade);
        if (rounded >= least) return rounded;
    }
    return value;
}

/// Widens by a value; the first sets it.
void include(std::optional<Limits>& limits, double value) {
    if (!std::isfinite(value)) return;
    if (!limits) limits = {value, value};
    limits->low = std::min(limits->low, value);
    limits->high = std::max(limits->high, value);
}

/// States over the range of T and p, the saturated ones among them.
template <class Take>
void over_range(const ChartStates& states, const ChartRange& r, Take take) {
    constexpr int kOfT = 14, kOfP = 9;
    for (int i = 0; i <= kOfT; ++i) {
        const double T = r.T_low + (r.T_high - r.T_low) * i / kOfT;
        for (int k = 0; k <= kOfP; ++k) {
            const double p = r.p_low * std::pow(r.p_high / r.p_low, 1.0 * k / kOfP);
            if (const auto z = states.flash()({Property::T, T}, {Property::p, p})) take(*z);
        }
        for (const double x : {0.0, 1.0})
            if (const auto z = states.flash()({Property::T, T}, {Property::x, x})) take(*z);
    }
}

/// What of the dome lies between two limits of y, in shown units, over x in base units.
std::optional<Limits> reach_of_dome(const ChartStates& states, const ChartRange& r,
                                    const Limits& y) {
    constexpr int kSteps = 60;
    std::optional<Limits> limits;
    const double Tc = states.fluid().substance().Tcrit;
    for (int i = 0; i <= kSteps && r.has_dome; ++i)
        for (const double x : {0.0, 1.0}) {
            const double T = r.T_end + (Tc - r.T_end) * i / kSteps;
            const auto z = states.flash()({Property::T, T}, {Property::x, x});
            const auto at = z ? states.vertex(*z) : std::nullopt;
            if (at && at->y >= y.low && at->y <= y.high)
                include(limits, ChartStates::value_of(*z, states.row().x.quantity));
        }
    return limits;
}

/// What an axis shows, in base units; x follows from y, which is in shown units.
Result<Limits> limits_of(const ChartStates& states, const ChartRange& r, ChartQuantity quantity,
                         bool logarithmic, const std::optional<Limits>& y) {
    const models::SubstanceRecord& s = states.fluid().substance();
    const double v_unit = R * s.Tcrit / s.pcrit;
    std::optional<Limits> all;
    over_range(states, r,
               [&](const FlashState& z) { include(all, ChartStates::value_of(z, quantity)); });
    if (!all || !(all->high > all->low))
        return Failure{"The fluid has no states in the range of the chart."};
    switch (quantity) {
        case T:
            return Limits{r.T_low, r.T_high};
        case p:
            return Limits{logarithmic ? r.p_low : 0, r.p_high};
        case Z:
            return Limits{0, std::max(1.1, all->high)};
        case v: {
            if (!logarithmic) return Limits{0, 2.6 * v_unit};
            const bool with_p = states.row().y.quantity == p;
            const double far = 1.2 * R * r.T_high / r.p_low;
            return Limits{all->low, with_p ? far : std::min(far, 60 * v_unit)};
        }
        default:
            break;
    }
    if (!y) return *all;
    const auto dome = reach_of_dome(states, r, *y);
    if (!dome || !(dome->high > dome->low)) return *all;
    // The dome fills a part of the width as on the charts of handbooks.
    constexpr double kWidest = 0.57, kNarrowest = 0.3, kLeft = 0.06;
    const double width = dome->high - dome->low, low = dome->low - kLeft * width;
    return Limits{low, std::clamp(all->high, low + width / kWidest, low + width / kNarrowest)};
}

}  // namespace

Result<ChartRange> chart_range(const ChartStates& states) {
    const models::Flash& flash = states.flash();
    const models::SubstanceRecord& s = states.fluid().substance();
    const StateChartKind& row = states.row();
    if (!(flash.range().high > 0))
        return Failure{"There is no equation of state with usable constants."};
    if (!(s.Tcrit > 0) || !(s.pcrit > 0))
        return Failure{"The chart needs the critical temperature and pressure of the substance."};
    const bool caloric = is_caloric(row.x.quantity) || is_caloric(row.y.quantity);
    if (caloric && !(flash.caloric_range().high > 0))
        return Failure{
            "The chart needs the heat capacity of the ideal gas, which the substance has not."};
    const models::FlashRange within = caloric ? flash.caloric_range() : flash.range();

    ChartRange r;
    const auto triple = static_cast<double>(s.Ttriple);
    const bool has_triple = triple > within.low && triple < 0.95 * s.Tcrit;
    // A little inside, so that the ends of lines are found between states.
    constexpr double kInside = 2e-5;
    r.T_end = has_triple ? triple : within.low * (1 + kInside);
    r.T_most = std::min(within.high, kMostTr * s.Tcrit);
    const auto saturated = [&](double T) { return flash({Property::T, T}, {Property::x, 1}); };
    const auto critical = saturated(s.Tcrit);
    r.T_low = std::max(kLowestTr * s.Tcrit, r.T_end);
    if (has_triple && triple > kTripleTr * s.Tcrit) r.T_low = triple;
    constexpr double kStep = 1.03;
    while (critical && r.T_low < s.Tcrit && !saturated(r.T_low)) r.T_low *= kStep;
    r.T_high = std::min(kHighestTr * s.Tcrit, r.T_most);
    r.has_dome = critical && r.T_low < s.Tcrit;
    r.p_high = kHighestPr * s.pcrit;
    if (r.has_dome) {
        r.p_low = std::max(saturated(r.T_low)->p, kLowestPr * s.pcrit);
        if (has_triple && saturated(triple)) r.T_triple = triple;
        if (row.kind == ChartKind::logpv) {
            constexpr double kFoot = 0.005;
            r.p_low = std::max(r.p_low, kFoot * s.pcrit);
        }
    } else {
        r.T_low = std::max(r.T_low, kLowestTrOfGas * s.Tcrit);
        r.p_low = kLowestPrOfGas * s.pcrit;
        r.p_high = s.pcrit;
    }
    if (row.y.quantity == p && !row.y.logarithmic && row.x.quantity == v && r.has_dome)
        r.p_high = 2 * s.pcrit;
    if (!(r.T_low < r.T_high)) return Failure{"The fluid has no states in the range of the chart."};
    return r;
}

Result<ChartWindow> proposed_window(const ChartStates& states, const ChartRange& range) {
    const auto shown = [&](const ChartAxis& axis,
                           const std::optional<Limits>& other) -> Result<Limits> {
        const auto limits = limits_of(states, range, axis.quantity, axis.logarithmic, other);
        if (!limits) return limits;
        const models::Scale scale = states.scale(axis.quantity);
        Limits l{scale.shown(limits->low), scale.shown(limits->high)};
        if (!axis.logarithmic) return rounded_outwards(l);
        // Pressures over that of the atmosphere begin below zero.
        constexpr double kLeast = 1e-3;
        if (!(l.low > 0)) l.low = kLeast * l.high;
        const Limits rounded = rounded_outwards_log(l);
        if (axis.quantity != v) return rounded;
        // Below the covolume there are no states: lines of dense liquids would not leave the
        // window.
        const models::Fluid& fluid = states.fluid();
        const double covolume =
            fluid.models().vapour_only ? 0 : models::eos_at(fluid, range.T_low).b;
        return Limits{rounded_down(l.low, scale.shown(1.02 * covolume)), rounded.high};
    };
    const auto y = shown(states.row().y, std::nullopt);
    if (!y) return y.failure();
    const auto x = shown(states.row().x, *y);
    if (!x) return x.failure();
    return ChartWindow{x->low, x->high, y->low, y->high};
}

namespace {

bool is_of_flash(ChartQuantity quantity) {
    return quantity != Z && quantity != e;
}

/// States all over a window.
std::vector<FlashState> states_in(const ChartStates& states, const ChartRange& r,
                                  const ChartWindow& w) {
    std::vector<FlashState> found;
    const ChartAxis &ax = states.row().x, &ay = states.row().y;
    const bool by_axes = is_of_flash(ax.quantity) && is_of_flash(ay.quantity);
    over_range(states, r, [&](const FlashState& z) {
        const auto at = states.vertex(z);
        if (at && at->x >= w.x_min && at->x <= w.x_max && at->y >= w.y_min && at->y <= w.y_max)
            found.push_back(z);
    });
    if (!by_axes) return found;
    constexpr int kColumns = 9, kRows = 7;
    constexpr double kInset = 0.01;
    const auto between = [](const ChartAxis& axis, double low, double high, int i, int count) {
        const double share = kInset + (1 - 2 * kInset) * i / (count - 1);
        return axis.logarithmic ? low * std::pow(high / low, share) : low + share * (high - low);
    };
    const auto given = [&](const ChartAxis& axis, double value) {
        return models::GivenValue{ChartStates::property_of(axis.quantity),
                                  states.scale(axis.quantity).value(value)};
    };
    for (int i = 0; i < kColumns; ++i)
        for (int k = 0; k < kRows; ++k) {
            const models::GivenValue x = given(ax, between(ax, w.x_min, w.x_max, i, kColumns)),
                                     y = given(ay, between(ay, w.y_min, w.y_max, k, kRows));
            // T and h of two phases are those of a dense liquid, too.
            int answers = 1;
            for (int n = 0; n < std::min(answers, 3); ++n) {
                const auto z = states.flash()(x, y, static_cast<models::FlashChoice>(n));
                if (!z) break;
                answers = z->answers;
                if (z->T >= r.T_end && z->T <= r.T_most) found.push_back(*z);
            }
        }
    return found;
}

/// The numbers 1, 2, 5 of all decades, or part of them where they are many.
std::vector<double> geometric_values(const Limits& l, int wanted) {
    constexpr double kDigits[] = {1, 2, 5};
    const double low = std::max(l.low, 1e-12 * l.high);
    const int first = static_cast<int>(std::floor(std::log10(low))) * 3;
    const int last = static_cast<int>(std::ceil(std::log10(l.high))) * 3;
    std::vector<double> best;
    for (const int stride : {1, 2, 3, 6, 9}) {
        std::vector<double> values;
        for (int n = first; n <= last; ++n) {
            const int decade = static_cast<int>(std::floor(n / 3.0));
            if (((n % stride) + stride) % stride != 0) continue;
            const double value = scaled(kDigits[n - 3 * decade], decade);
            if (value >= low && value <= l.high) values.push_back(value);
        }
        const auto off = [&](const std::vector<double>& list) {
            return std::abs(static_cast<int>(list.size()) - wanted);
        };
        if (stride == 1 || off(values) < off(best)) best = values;
    }
    return best;
}

std::vector<double> linear_values(const Limits& l, int wanted) {
    std::vector<double> best;
    Step step = round_step(l.high - l.low);
    for (int i = 0; i < 12; ++i) {
        const double first = std::ceil(l.low / step.size() - 1e-9),
                     last = std::floor(l.high / step.size() + 1e-9);
        if (last - first > 4.0 * wanted) break;
        std::vector<double> values;
        for (double n = first; n <= last; ++n) values.push_back(step.times(n));
        const auto off = [&](const std::vector<double>& list) {
            return std::abs(static_cast<int>(list.size()) - wanted);
        };
        if (i == 0 || off(values) < off(best)) best = values;
        step = round_step(0.3 * step.size());
    }
    return best;
}

}  // namespace

std::vector<double> round_values(const ChartStates& states, const ChartRange& range,
                                 const ChartWindow& window, ChartQuantity quantity, int wanted) {
    const std::vector<FlashState> found = states_in(states, range, window);
    const double pc = states.fluid().substance().pcrit;
    // Far corners of the window have states that nobody wants lines of.
    std::optional<Limits> usual, all;
    int count = 0;
    for (const FlashState& z : found) {
        const double value = states.shown(quantity, ChartStates::value_of(z, quantity));
        include(all, value);
        constexpr double kBelow = 0.5, kAbove = 3, kWarmer = 1.05;
        if (z.p < kBelow * range.p_low || z.p > kAbove * pc || z.T > kWarmer * range.T_high)
            continue;
        include(usual, value);
        ++count;
    }
    constexpr int kEnough = 6;
    const std::optional<Limits>& limits = count >= kEnough ? usual : all;
    if (!limits || !(limits->high > limits->low)) return {};
    if (quantity == p || quantity == v) {
        constexpr std::size_t kLeast = 4;
        if (limits->high > 0) {
            std::vector<double> values = geometric_values(*limits, wanted);
            if (values.size() >= kLeast) return values;
        }
    }
    return linear_values(*limits, wanted);
}

}  // namespace quor::diagrams
