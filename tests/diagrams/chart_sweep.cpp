#include "diagrams/chart_sweep.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>

#include "common/constants.h"
#include "models/caloric.h"
#include "models/flash.h"
#include "models/reference_state.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "support/fluids.h"

namespace chart_sweep {

namespace {

using constants::R;
using diagrams::ChartQuantity;
using Q = diagrams::ChartQuantity;
using diagrams::ChartVertex;
using models::Property;

std::string text(double value) {
    std::array<char, 40> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.10g", value);
    return buffer.data();
}

/// One fluid's charts.
class Sweep {
  public:
    Sweep(const models::Fluid& fluid, std::string name, const models::UnitChoice& units,
          Counts& counts)
        : fluid_(fluid),
          name_(std::move(name)),
          units_(models::make_units(models::possible_choice(units, fluid), fluid)),
          counts_(counts) {
        models::settle_reference(reference_);
        around_ = models::surroundings_state(fluid, reference_);
        flash_.emplace(fluid_, reference_, around_);
    }

    void run() {
        ++counts_.fluids;
        for (const diagrams::StateChartKind& row : diagrams::state_chart_kinds()) {
            row_ = &row;
            const auto chart =
                diagrams::state_chart(fluid_, reference_, units_, {.kind = row.kind});
            if (!chart) {
                ++counts_.refused[chart.reason()];
                continue;
            }
            check(*chart);
        }
    }

  private:
    const models::SubstanceRecord& s() const { return fluid_.substance(); }
    models::Scale scale(ChartQuantity quantity) const {
        const auto dimension = diagrams::dimension_of(quantity);
        return dimension ? units_.of(*dimension) : models::Scale{};
    }
    void fail(const std::string& kind, const std::string& where) {
        counts_.fail(kind, name_ + ", " + std::string(row_->key) + ": " + where);
    }

    void check(const diagrams::StateChart& chart) {
        ++counts_.charts;
        chart_ = &chart;
        if (!chart.critical) fail("no critical point in the window", "");
        if (chart.dome.empty()) fail("no dome", "");
        check_width();
        for (const std::string& why : chart.skipped) {
            const std::size_t colon = why.find(": ");
            ++counts_.skipped[std::string(row_->key) + " " +
                              why.substr(colon == std::string::npos ? 0 : colon + 2)];
        }
        for (const auto& part : chart.dome)
            for (const ChartVertex& at : part) {
                check_place(at, "dome");
                check_saturated(at, "dome");
            }
        for (const diagrams::FractionLine& line : chart.fractions)
            for (const auto& part : line.parts)
                for (const ChartVertex& at : part) {
                    check_place(at, "fraction");
                    if (std::fabs(at.fraction.value_or(-1) - line.fraction) > 1e-12)
                        fail("a vertex of another fraction", text(line.fraction));
                }
        for (const diagrams::ChartFamily& family : chart.families) check(family);
    }

    void check(const diagrams::ChartFamily& family) {
        const std::string quantity(diagrams::name_of(family.quantity));
        constexpr std::size_t kLeast = 3;
        if (family.lines.size() < kLeast)
            fail("a family of fewer than three lines",
                 quantity + " " + std::to_string(family.lines.size()));
        for (const diagrams::ChartLine& line : family.lines) {
            ++counts_.lines;
            const std::string where = quantity + " = " + text(line.value);
            for (const auto& part : line.parts) {
                for (const ChartVertex& at : part) check(at, family.quantity, line.value, where);
                for (std::size_t i = 1; i < part.size(); ++i)
                    probe(part[i - 1], part[i], family.quantity, line.value, where);
            }
            if (!is_told(family.quantity))
                for (const auto& part : line.parts)
                    for (const ChartVertex& at : {part.front(), part.back()}) check_end(at, where);
            for (const ChartVertex& at : line.on_dome) {
                ++counts_.crossings;
                check_saturated(at, where);
                const auto has = [&](const auto& part) {
                    return std::ranges::any_of(
                        part, [&](const ChartVertex& p) { return p.x == at.x && p.y == at.y; });
                };
                if (std::ranges::none_of(line.parts, has) && !at_edge(at))
                    fail("a crossing that is no vertex", where + " T=" + text(at.T));
            }
        }
    }

    static bool is_caloric(ChartQuantity y) { return y == Q::h || y == Q::s || y == Q::e; }

    /// A line ends at the edge of the window, or at the lowest temperature of the fluid.
    void check_end(const ChartVertex& at, const std::string& where) {
        constexpr double kNear = 1e-3;  // px
        const auto& w = chart_->window;
        const double off_x = std::min(std::fabs(X(at.x)), std::fabs(X(at.x) - X(w.x_max)));
        const double off_y = std::min(std::fabs(Y(at.y)), std::fabs(Y(at.y) - Y(w.y_max)));
        const auto triple = static_cast<double>(s().Ttriple);
        const double lowest = std::max({triple, flash_->range().low,
                                        is_caloric(row_->x.quantity) || is_caloric(row_->y.quantity)
                                            ? flash_->caloric_range().low
                                            : 0});
        if (std::min(off_x, off_y) > kNear && std::fabs(at.T / lowest - 1) > 1e-4)
            fail("a line that ends inside the window",
                 where + " T=" + text(at.T) + " p=" + text(at.p));
    }
    /// Whether something of a family is told to be missing.
    bool is_told(ChartQuantity quantity) const {
        const std::string head = std::string(diagrams::name_of(quantity)) + " = ";
        return std::ranges::any_of(
            chart_->skipped, [&](const std::string& words) { return words.starts_with(head); });
    }

    static double px(bool logarithmic, double value, double low, double high, double size) {
        if (!logarithmic) return (value - low) / (high - low) * size;
        return std::log(value / low) / std::log(high / low) * size;
    }
    double X(double x) const {
        return px(row_->x.logarithmic, x, chart_->window.x_min, chart_->window.x_max, 1000);
    }
    double Y(double y) const {
        return px(row_->y.logarithmic, y, chart_->window.y_min, chart_->window.y_max, 700);
    }

    bool at_edge(const ChartVertex& at) const {
        const auto& w = chart_->window;
        return at.x == w.x_min || at.x == w.x_max || at.y == w.y_min || at.y == w.y_max;
    }

    void check_place(const ChartVertex& at, const std::string& where) {
        ++counts_.vertices;
        const auto& w = chart_->window;
        const auto in = [](double value, double low, double high) {
            const double tolerance = 1e-9 * (high - low);
            return value >= low - tolerance && value <= high + tolerance;
        };
        if (!std::isfinite(at.x) || !std::isfinite(at.y) || !std::isfinite(at.v))
            fail("a vertex that is not finite", where);
        else if (!in(at.x, w.x_min, w.x_max) || !in(at.y, w.y_min, w.y_max))
            fail("a vertex outside of the window", where);
    }

    /// Phases at T by the saturation functions.
    struct Phases {
        double p = 0, vL = 0, vV = 0;
    };
    const std::optional<Phases>& phases(double T) {
        if (T == T_of_phases_) return phases_;
        T_of_phases_ = T;
        phases_.reset();
        if (!(T < s().Tcrit)) return phases_;
        if (const auto found = models::saturation_pressure(fluid_, T))
            phases_ = Phases{found->p, found->v[0], found->v[2]};
        return phases_;
    }
    /// Close to the critical point rounding moves volumes further apart.
    double tolerance(double T) const {
        return 1e-9 * std::max(1.0, 1e-4 / std::max(1e-12, 1 - T / s().Tcrit));
    }

    void check_saturated(const ChartVertex& at, const std::string& where) {
        if (at.T == s().Tcrit) return;
        const auto& sat = phases(at.T);
        if (!sat) return fail("no saturation at a place on the dome", where);
        const double allowed = tolerance(at.T);
        const double off_p = std::fabs(at.p / sat->p - 1);
        const double off_v = std::min(std::fabs(at.v / sat->vL - 1), std::fabs(at.v / sat->vV - 1));
        if (off_p > allowed || off_v > allowed)
            fail("a place on the dome that is not saturated",
                 where + " T=" + text(at.T) + " p " + text(off_p) + " v " + text(off_v));
    }

    std::optional<double> single(ChartQuantity y, double T, double p, double v) const {
        if (y == Q::T) return T;
        if (y == Q::p) return p;
        if (y == Q::v) return v;
        if (y == Q::Z) return p * v / (R * T);
        const auto z = models::state_functions(fluid_, reference_, around_, T, p, v);
        if (!z) return std::nullopt;
        if (y == Q::e) return z->exergies ? std::optional(z->exergies->H) : std::nullopt;
        return y == Q::h ? z->h : z->s;
    }
    std::optional<double> value(ChartQuantity y, const ChartVertex& at) {
        if (!at.fraction || at.T == s().Tcrit) return single(y, at.T, at.p, at.v);
        const auto& sat = phases(at.T);
        if (!sat) return std::nullopt;
        const auto L = single(y, at.T, sat->p, sat->vL), V = single(y, at.T, sat->p, sat->vV);
        if (!L || !V) return std::nullopt;
        return *L + *at.fraction * (*V - *L);
    }
    /// What a difference is measured by. An exergy is h less s times T of the surroundings.
    double size(ChartQuantity y, double value, double T) const {
        const double T_of_e = std::max(T, reference_.Tenv);
        const double least = y == Q::h ? R * T : y == Q::e ? R * T_of_e : y == Q::s ? R : 0;
        return std::max(std::fabs(value), least);
    }

    void check(const ChartVertex& at, ChartQuantity quantity, double constant,
               const std::string& where) {
        check_place(at, where);
        for (const auto& [y, shown] :
             {std::pair{quantity, constant}, std::pair{row_->x.quantity, at.x},
              std::pair{row_->y.quantity, at.y}}) {
            const auto is = value(y, at);
            if (!is) {
                fail("no value by the functions of states", where + " T=" + text(at.T));
                continue;
            }
            const double wanted = scale(y).value(shown);
            const double off = std::fabs(*is - wanted) / size(y, wanted, at.T);
            const double allowed = at.fraction ? 10 * tolerance(at.T) : 1e-8;
            if (y == quantity)
                counts_.worst_property =
                    std::max(counts_.worst_property, off * 1e-8 / std::max(1e-8, allowed));
            if (off > std::max(1e-8, allowed))
                fail("a vertex with another " + std::string(diagrams::name_of(y)),
                     where + " T=" + text(at.T) + " p=" + text(at.p) + " " + text(off));
        }
        if (at.fraction || !(at.T < s().Tcrit)) return;
        const auto& sat = phases(at.T);
        const double near = 1e-6;
        if (sat && at.v > sat->vL * (1 + near) && at.v < sat->vV * (1 - near))
            fail("a single phase inside the dome", where + " T=" + text(at.T) + " v=" + text(at.v));
    }

    // -- The line between two vertices against its chord

    std::optional<ChartVertex> between(const ChartVertex& a, const ChartVertex& b,
                                       ChartQuantity quantity, double constant, double share) {
        const double base = scale(quantity).value(constant);
        const auto mixed = [&](double x, double y) {
            return std::exp(std::log(x) + share * (std::log(y) - std::log(x)));
        };
        models::GivenValue given{Property::T, base}, other{Property::v, mixed(a.v, b.v)};
        // Along an isenthalp and an isentrope p runs, along isobars and isochores T, which both
        // stay in two phases.
        if (quantity == Q::h || quantity == Q::s) {
            given.property = quantity == Q::h ? Property::h : Property::s;
            other = {Property::p, mixed(a.p, b.p)};
        } else if (quantity == Q::v) {
            given.property = Property::v;
            other = {Property::T, mixed(a.T, b.T)};
        } else if (quantity == Q::p) {
            given.property = Property::p;
        }
        const auto z = (*flash_)(given, other);
        if (!z) return std::nullopt;
        const models::FlashState& state = *z;
        const auto place = [&](ChartQuantity y) -> double {
            ChartVertex at;
            at.T = state.T;
            at.p = state.p;
            at.v = state.v;
            at.fraction = state.x;
            return scale(y).shown(value(y, at).value_or(NAN));
        };
        return ChartVertex{.x = place(row_->x.quantity),
                           .y = place(row_->y.quantity),
                           .T = state.T,
                           .p = state.p,
                           .v = state.v};
    }

    void probe(const ChartVertex& a, const ChartVertex& b, ChartQuantity quantity, double constant,
               const std::string& where) {
        if (++turn_ % 3 != 0) return;
        const double share = 0.25 * static_cast<double>(1 + turn_ / 3 % 3);
        const auto m = between(a, b, quantity, constant, share);
        if (!m || !std::isfinite(m->x) || !std::isfinite(m->y)) return;
        ++counts_.probes;
        const double ux = X(b.x) - X(a.x), uy = Y(b.y) - Y(a.y);
        const double wx = X(m->x) - X(a.x), wy = Y(m->y) - Y(a.y);
        const double square = ux * ux + uy * uy;
        const double along = square > 0 ? std::clamp((wx * ux + wy * uy) / square, 0.0, 1.0) : 0;
        const double off = std::hypot(wx - along * ux, wy - along * uy);
        counts_.worst_probe = std::max(counts_.worst_probe, off);
        if (!(off < 0.3))
            fail("a line 0.3 px from its chord", where + " " + text(off) + " px, T=" + text(a.T) +
                                                     " to " + text(b.T) + ", p=" + text(a.p) +
                                                     " to " + text(b.p));
    }

    void check_width() {
        if (row_->x.quantity != Q::h && row_->x.quantity != Q::s) return;
        double low = HUGE_VAL, high = -HUGE_VAL;
        for (const auto& part : chart_->dome)
            for (const ChartVertex& at : part) {
                low = std::min(low, at.x);
                high = std::max(high, at.x);
            }
        const double share = (high - low) / (chart_->window.x_max - chart_->window.x_min);
        counts_.narrowest_dome = std::min(counts_.narrowest_dome, share);
        counts_.widest_dome = std::max(counts_.widest_dome, share);
        if (share < 0.25 || share > 0.6)
            fail("a dome that does not fill 25 to 60 % of the width", text(share));
    }

    const models::Fluid& fluid_;
    std::string name_;
    models::Units units_;
    Counts& counts_;
    models::ReferenceState reference_;
    std::optional<models::Surroundings> around_;
    std::optional<models::Flash> flash_;
    const diagrams::StateChartKind* row_ = nullptr;
    const diagrams::StateChart* chart_ = nullptr;
    long turn_ = 0;
    double T_of_phases_ = 0;
    std::optional<Phases> phases_;  ///< of the last temperature
};

}  // namespace

void Counts::fail(const std::string& kind, const std::string& where) {
    constexpr std::size_t kMost = 60;
    ++failed;
    // Some of each kind.
    if (++failed_by[kind] <= 8 && failures.size() < kMost) failures.push_back(kind + ": " + where);
}

void sweep(const models::Fluid& fluid, const std::string& name, const models::UnitChoice& units,
           Counts& counts) {
    Sweep(fluid, name, units, counts).run();
}

void sweep_all(std::size_t first, std::size_t stride, Counts& counts) {
    const std::vector<std::string> names = fluids::AllNames();
    const auto sets = models::unit_sets();
    for (std::size_t i = first; i < names.size(); i += stride) {
        const models::SubstanceRecord substance = fluids::correlated_row(names[i]);
        for (const models::Eos eos : {models::Eos::vanDerWaals, models::Eos::redlichKwong,
                                      models::Eos::soave, models::Eos::pengRobinson}) {
            const auto fluid = models::Fluid::make(substance, fluids::selection(substance, eos));
            const std::string name =
                names[i] + " " + std::string(models::equation_of(eos).name.substr(0, 14));
            if (!fluid) {
                ++counts.refused["Fluids: " + fluid.reason()];
                continue;
            }
            const std::size_t set = (i + static_cast<std::size_t>(eos)) % sets.size();
            sweep(*fluid, name, sets[set].choice, counts);
        }
    }
}

std::string told(const Counts& c) {
    std::string out = std::to_string(c.fluids) + " fluids, " + std::to_string(c.charts) +
                      " charts, " + std::to_string(c.lines) + " lines, " +
                      std::to_string(c.vertices) + " vertices, " + std::to_string(c.crossings) +
                      " crossings of the dome, " + std::to_string(c.probes) + " probes, " +
                      std::to_string(c.failed) + " failures\nlargest distance from a chord " +
                      text(c.worst_probe) + " px, of a property from its line's " +
                      text(c.worst_property) + "; dome over h and s " + text(c.narrowest_dome) +
                      " to " + text(c.widest_dome) + " of the width\n";
    for (const auto& [reason, count] : c.refused)
        out += "  refused " + std::to_string(count) + "  " + reason + "\n";
    for (const auto& [reason, count] : c.skipped)
        out += "  skipped " + std::to_string(count) + "  " + reason + "\n";
    for (const auto& [what, count] : c.failed_by)
        out += "  FAILED " + std::to_string(count) + "  " + what + "\n";
    for (const std::string& failure : c.failures) out += "FAILED " + failure + "\n";
    return out;
}

}  // namespace chart_sweep
