#include "diagrams/state_chart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

#include "common/constants.h"
#include "common/numbers.h"
#include "diagrams/chart_states.h"
#include "diagrams/chart_tracer.h"
#include "models/caloric.h"

namespace quor::diagrams {

namespace {

using models::FlashChoice;
using models::FlashState;
using models::GivenValue;
using models::Property;
using enum ChartQuantity;

using Found = Result<FlashState, models::NoFlash>;

/// A place where a line crosses the dome.
struct Crossing {
    double T = 0, p = 0;
    ChartVertex at;
};

/// Draws the lines of one chart.
class ChartBuilder {
  public:
    ChartBuilder(const ChartStates& states, const ChartRange& range, const ChartWindow& window,
                 const StateChartRequest& request)
        : states_(states),
          flash_(states.flash()),
          range_(range),
          window_(window),
          frame_(states.row(), window, request.width, request.height, range.T_end),
          tracer_(states, frame_),
          Tc_(states.fluid().substance().Tcrit),
          pc_(states.fluid().substance().pcrit) {
        find_reach();
    }

    void add_dome(StateChart& chart);
    void add_family(StateChart& chart, const FamilyRequest& request);

  private:
    // How far lines run in T and p.
    void find_reach();
    double least_p() const { return p_from_; }

    std::optional<ChartVertex> vertex(const Found& z) const {
        return z ? states_.vertex(*z) : std::nullopt;
    }
    /// Liquid (0) or vapour (1) at T or p.
    std::optional<Crossing> saturated(GivenValue at, double x) const;
    std::vector<Crossing> crossings(ChartQuantity quantity, double value) const;

    /// A piece over T, parted at the critical temperature, where some equations have a kink.
    template <class At>
    void over_T(At at, double from, double to, int parts,
                const std::optional<ChartVertex>& start = {},
                const std::optional<ChartVertex>& end = {}) {
        if (!(from < Tc_ && Tc_ < to)) {
            tracer_.piece(at, from, to, parts, start, end);
            return;
        }
        const double share = (Tc_ - from) / (to - from);
        const int below = std::clamp(static_cast<int>(share * parts), 1, parts - 1);
        tracer_.piece(at, from, Tc_, below, start);
        tracer_.piece(at, std::nextafter(Tc_, to), to, parts - below, {}, end);
    }

    void follow(ChartQuantity quantity, double value, ChartLine& line);
    void follow_isotherm(double T, ChartLine& line);
    void follow_isobar(double p, ChartLine& line);
    void follow_isochore(double v, ChartLine& line);
    void follow_rising(Property y, double value, ChartLine& line);
    void cross(const Crossing& at, ChartLine& line) const;
    /// The line between both phases.
    void through_dome(GivenValue at, const Crossing& L, const Crossing& V);
    std::vector<ChartLine> lines_of(ChartQuantity quantity, const std::vector<double>& values);
    /// Why a line ends in the window, in words; empty where it does not.
    std::string reason_of_end(const ChartLine& line, ChartQuantity quantity) const;

    const ChartStates& states_;
    const models::Flash& flash_;
    const ChartRange& range_;
    const ChartWindow& window_;
    ChartFrame frame_;
    ChartTracer tracer_;
    double Tc_ = 0, pc_ = 0;
    double T_to_ = 0, p_from_ = 0, p_to_ = 0;
    /// Why lines end, with the values of those that do.
    std::map<std::string, std::vector<double>> ends_;
};

void ChartBuilder::find_reach() {
    const StateChartKind& row = states_.row();
    // A little beyond an axis, so that lines are known to cross it.
    constexpr double kBeyond = 1.02, kFarLow = 1e-4, kFarHigh = 1e4, kNearZero = 1e-7;
    T_to_ = range_.T_most;
    p_from_ = kFarLow * range_.p_low;
    p_to_ = kFarHigh * pc_;
    const auto along = [&](const ChartAxis& axis, double low, double high) {
        const models::Scale scale = states_.scale(axis.quantity);
        if (axis.quantity == T) T_to_ = std::min(T_to_, kBeyond * scale.value(high));
        if (axis.quantity == p) {
            p_to_ = kBeyond * scale.value(high);
            p_from_ = std::max(scale.value(low) / kBeyond, kNearZero * pc_);
        }
        // Of a thin gas s rises by R where p falls to the e-th part of it, and the exergy falls.
        const double T_of_e = states_.reference().Tenv;
        const double unit = constants::R * (axis.quantity == e ? T_of_e : 1);
        constexpr double kMost = 500;
        if (axis.quantity == s || axis.quantity == e)
            p_from_ *= std::exp(-std::min(kMost, (scale.value(high) - scale.value(low)) / unit));
    };
    along(row.x, window_.x_min, window_.x_max);
    along(row.y, window_.y_min, window_.y_max);
}

std::optional<Crossing> ChartBuilder::saturated(GivenValue at, double x) const {
    if (!range_.has_dome) return std::nullopt;
    const auto z = flash_(at, {Property::x, x});
    if (!z) return std::nullopt;
    const auto place = states_.vertex(*z);
    return place ? std::optional(Crossing{z->T, z->p, *place}) : std::nullopt;
}

std::vector<Crossing> ChartBuilder::crossings(ChartQuantity quantity, double value) const {
    std::vector<Crossing> found;
    if (!range_.has_dome) return found;
    const GivenValue given{ChartStates::property_of(quantity), value};
    for (const double x : {0.0, 1.0}) {
        int answers = 1;
        for (int i = 0; i < std::min(answers, 3); ++i) {
            const auto z = flash_(given, {Property::x, x}, static_cast<FlashChoice>(i));
            if (!z) break;
            answers = z->answers;
            const auto place = states_.vertex(*z);
            if (place && z->T > range_.T_end) found.push_back({z->T, z->p, *place});
        }
    }
    std::ranges::sort(found, {}, &Crossing::T);
    return found;
}

void ChartBuilder::cross(const Crossing& at, ChartLine& line) const {
    if (frame_.is_inside(at.at)) line.on_dome.push_back(frame_.kept_inside(at.at));
}

void ChartBuilder::through_dome(GivenValue at, const Crossing& L, const Crossing& V) {
    tracer_.piece([&](double x) { return flash_(at, {Property::x, x}); }, 0, 1, 2, L.at, V.at);
}

void ChartBuilder::follow_isotherm(double T_at, ChartLine& line) {
    constexpr int kParts = 8;
    const GivenValue given{Property::T, T_at};
    const auto L = T_at < Tc_ ? saturated(given, 0) : std::nullopt;
    const auto V = T_at < Tc_ ? saturated(given, 1) : std::nullopt;
    if (L && V) {
        const auto at_p = [&](double q) { return flash_(given, {Property::p, std::exp(q)}); };
        const double p_sat = std::log(L->p);
        if (p_to_ > L->p) tracer_.piece(at_p, std::log(p_to_), p_sat, kParts, {}, L->at);
        through_dome(given, *L, *V);
        if (p_from_ < L->p) tracer_.piece(at_p, p_sat, std::log(p_from_), kParts, V->at);
        cross(*L, line);
        cross(*V, line);
        return;
    }
    // Near the critical point v, not p, runs evenly.
    const auto dense = flash_(given, {Property::p, p_to_}),
               thin = flash_(given, {Property::p, p_from_});
    if (states_.fluid().models().vapour_only || !dense || !thin) {
        tracer_.piece(
            [&](double q) {
                return flash_(given, {Property::p, std::exp(q)});
            },
            std::log(p_to_), std::log(p_from_), 2 * kParts);
        return;
    }
    tracer_.piece(
        [&](double q) {
            return flash_(given, {Property::v, std::exp(q)});
        },
        std::log(dense->v), std::log(thin->v), 2 * kParts);
}

void ChartBuilder::follow_isobar(double p_at, ChartLine& line) {
    constexpr int kParts = 8;
    const GivenValue given{Property::p, p_at};
    const auto at_T = [&](double T) { return flash_(given, {Property::T, T}); };
    const auto L = p_at < pc_ ? saturated(given, 0) : std::nullopt;
    const auto V = p_at < pc_ ? saturated(given, 1) : std::nullopt;
    if (!L || !V) {
        over_T(at_T, range_.T_end, T_to_, 2 * kParts);
        return;
    }
    if (L->T > range_.T_end) over_T(at_T, range_.T_end, L->T, kParts, {}, L->at);
    through_dome(given, *L, *V);
    if (L->T < T_to_) over_T(at_T, L->T, T_to_, kParts, V->at);
    cross(*L, line);
    cross(*V, line);
}

void ChartBuilder::follow_isochore(double v_at, ChartLine& line) {
    constexpr int kParts = 16;
    const GivenValue given{Property::v, v_at};
    const auto at_T = [&](double T) { return flash_(given, {Property::T, T}); };
    double from = range_.T_end;
    std::optional<ChartVertex> start;
    for (const Crossing& c : crossings(v, v_at)) {
        if (!(c.T < T_to_)) break;
        over_T(at_T, from, c.T, kParts, start, c.at);
        cross(c, line);
        from = c.T;
        start = c.at;
    }
    over_T(at_T, from, T_to_, kParts, start);
}

/// Along isentropes and isenthalps p runs: a step of T in the liquid would leave the window.
void ChartBuilder::follow_rising(Property y, double value, ChartLine& line) {
    constexpr int kParts = 16;
    const GivenValue given{y, value};
    const auto at_p = [&](double q) { return flash_(given, {Property::p, std::exp(q)}); };
    std::vector<Crossing> found = crossings(y == Property::h ? h : s, value);
    std::ranges::sort(found, {}, &Crossing::p);
    double from = p_from_;
    std::optional<ChartVertex> start;
    for (const Crossing& c : found) {
        if (!(c.p > p_from_ && c.p < p_to_)) continue;
        tracer_.piece(at_p, std::log(from), std::log(c.p), kParts, start, c.at);
        cross(c, line);
        from = c.p;
        start = c.at;
    }
    tracer_.piece(at_p, std::log(from), std::log(p_to_), kParts, start);
}

void ChartBuilder::follow(ChartQuantity quantity, double value, ChartLine& line) {
    tracer_.begin();
    switch (quantity) {
        case T:
            follow_isotherm(value, line);
            break;
        case p:
            follow_isobar(value, line);
            break;
        case v:
            follow_isochore(value, line);
            break;
        default:
            follow_rising(ChartStates::property_of(quantity), value, line);
    }
    line.parts = tracer_.take();
}

std::string ChartBuilder::reason_of_end(const ChartLine& line, ChartQuantity quantity) const {
    if (tracer_.gap()) return models::words_of(*tracer_.gap());
    const StateChartKind& row = states_.row();
    const bool caloric =
        is_caloric(quantity) || is_caloric(row.x.quantity) || is_caloric(row.y.quantity);
    constexpr double kNear = 1e-9, kInside = 1;
    for (const auto& part : line.parts)
        for (const ChartVertex& at : {part.front(), part.back()}) {
            if (at.T < range_.T_most * (1 - kNear)) continue;
            const auto margins = frame_.margins(at);
            if (std::ranges::min(margins) < kInside) continue;
            return std::string(caloric ? "no cp" : "no states of the equation") + " above " +
                   numbers::general(std::round(10 * range_.T_most) / 10) + " K.";
        }
    return {};
}

std::vector<ChartLine> ChartBuilder::lines_of(ChartQuantity quantity,
                                              const std::vector<double>& values) {
    ends_.clear();
    std::vector<ChartLine> lines;
    for (const double value : values) {
        ChartLine line{.value = value, .parts = {}, .on_dome = {}};
        const double base = states_.scale(quantity).value(value);
        const bool possible = std::isfinite(base) && (base > 0 || quantity == h || quantity == s);
        if (possible) follow(quantity, base, line);
        if (possible)
            if (const std::string why = reason_of_end(line, quantity); !why.empty())
                ends_[why].push_back(value);
        if (!line.parts.empty()) lines.push_back(std::move(line));
    }
    return lines;
}

void ChartBuilder::add_family(StateChart& chart, const FamilyRequest& request) {
    const ChartQuantity quantity = request.quantity;
    const std::string name(name_of(quantity));
    const StateChartKind& row = states_.row();
    if (quantity == Z || quantity == e || quantity == row.x.quantity ||
        quantity == row.y.quantity) {
        chart.skipped.push_back("Lines of constant " + name + ": not in this chart.");
        return;
    }
    if (is_caloric(quantity) && !(flash_.caloric_range().high > 0)) {
        chart.skipped.push_back("Lines of constant " + name +
                                ": the substance has no heat capacity of the ideal gas.");
        return;
    }
    const models::Scale scale = states_.scale(quantity);
    ChartFamily family{.quantity = quantity, .unit = std::string(scale.name), .lines = {}};
    if (!request.values.empty()) {
        std::vector<double> values = request.values;
        std::ranges::sort(values);
        family.lines = lines_of(quantity, values);
        for (const double value : values)
            if (std::ranges::find(family.lines, value, &ChartLine::value) == family.lines.end())
                ends_["not in the window."].push_back(value);
    } else {
        // Lines of the outermost values may miss the window.
        constexpr std::size_t kFew = 4;
        for (const int wanted : {8, 14, 24}) {
            family.lines =
                lines_of(quantity, round_values(states_, range_, window_, quantity, wanted));
            if (family.lines.size() >= kFew) break;
        }
    }
    for (const auto& [why, values] : ends_) {
        std::string text = name + " = ";
        for (const double& value : values)
            text += (&value == &values.front() ? "" : "; ") + numbers::general(value);
        if (!family.unit.empty()) text += " " + family.unit;
        chart.skipped.push_back(text + ": " + why);
    }
    if (family.lines.empty() && request.values.empty())
        chart.skipped.push_back("Lines of constant " + name + ": none in the window.");
    chart.families.push_back(std::move(family));
}

void ChartBuilder::add_dome(StateChart& chart) {
    if (!range_.has_dome) {
        chart.skipped.emplace_back(
            states_.fluid().models().vapour_only
                ? "The equation of state describes the vapour alone: there is no dome."
                : "The equation of state has no saturated states: there is no dome.");
        return;
    }
    // Near the critical point the dome is a parabola over T, which runs evenly over the root of
    // the distance.
    constexpr int kParts = 16;
    const double span = Tc_ - range_.T_end;
    const auto along = [&](double x) {
        return [this, span, x](double t) {
            return flash_({Property::T, Tc_ - span * t * t}, {Property::x, x});
        };
    };
    const bool one_line = states_.row().kind == ChartKind::pt;
    const auto critical = saturated({Property::T, Tc_}, 0);
    const std::optional<ChartVertex> top = critical ? std::optional(critical->at) : std::nullopt;
    if (top && frame_.is_inside(*top)) chart.critical = top;
    tracer_.begin();
    tracer_.piece(along(0), 1, 0, kParts, {}, top);
    if (!one_line) tracer_.piece(along(1), 0, 1, kParts, top);
    chart.dome = tracer_.take();
    if (tracer_.gap())
        chart.skipped.push_back("A part of the dome: " + models::words_of(*tracer_.gap()));

    if (range_.T_triple) {
        const GivenValue at{Property::T, *range_.T_triple};
        const auto L = saturated(at, 0), V = saturated(at, 1);
        if (L && V) {
            if (frame_.is_inside(L->at)) chart.triple_liquid = frame_.kept_inside(L->at);
            if (frame_.is_inside(V->at)) chart.triple_vapour = frame_.kept_inside(V->at);
            tracer_.begin();
            through_dome(at, *L, *V);
            chart.triple = tracer_.take();
        }
    }
    if (one_line) return;
    constexpr int kFractions = 9;
    for (int i = 1; i <= kFractions; ++i) {
        const double x = i / 10.0;
        std::optional<ChartVertex> end = top;
        if (end) end->fraction = x;
        tracer_.begin();
        tracer_.piece(along(x), 1, 0, kParts, {}, end);
        chart.fractions.push_back({x, tracer_.take()});
    }
    std::erase_if(chart.fractions, [](const FractionLine& line) { return line.parts.empty(); });
}

bool is_window(const StateChartKind& row, const ChartWindow& w) {
    const auto is_range = [](const ChartAxis& axis, double low, double high) {
        return std::isfinite(low) && std::isfinite(high) && low < high &&
               (!axis.logarithmic || low > 0);
    };
    return is_range(row.x, w.x_min, w.x_max) && is_range(row.y, w.y_min, w.y_max);
}

}  // namespace

Result<StateChart> state_chart(const models::Fluid& fluid, const models::ReferenceState& reference,
                               const models::Units& units, const StateChartRequest& request) {
    const StateChartKind& row = row_of(request.kind);
    if (!(request.width > 0) || !(request.height > 0) || !std::isfinite(request.width) ||
        !std::isfinite(request.height))
        return Failure{"The plot has no size."};
    if (request.window && !is_window(row, *request.window))
        return Failure{
            "The window is none: each axis needs two numbers, the smaller one first, above 0 on a "
            "logarithmic axis."};
    const ChartStates states(fluid, reference, units, row);
    const auto range = chart_range(states);
    if (!range) return range.failure();
    if (row.y.quantity == e && !models::surroundings_state(fluid, reference))
        return Failure{"The chart needs a state of the fluid at T and p of the surroundings."};
    StateChart chart;
    chart.kind = request.kind;
    if (request.window) {
        chart.window = *request.window;
    } else {
        const auto window = proposed_window(states, *range);
        if (!window) return window.failure();
        chart.window = *window;
    }
    chart.x_unit = states.scale(row.x.quantity).name;
    chart.y_unit = states.scale(row.y.quantity).name;

    ChartBuilder builder(states, *range, chart.window, request);
    builder.add_dome(chart);
    if (request.families.empty())
        for (const ChartQuantity quantity : row.families) builder.add_family(chart, {quantity, {}});
    for (const FamilyRequest& family : request.families) builder.add_family(chart, family);
    return chart;
}

}  // namespace quor::diagrams
