#include "calculation/iso_calculator.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "calculation/calc_batch.h"
#include "calculation/calc_modes.h"
#include "calculation/calculation_snapshot.h"
#include "calculation/list_layout.h"
#include "calculation/phase_functions.h"
#include "common/numbers.h"
#include "session/module2.h"

namespace quor::calculation {

using legacy::the_session;

namespace {

constexpr std::int16_t kFunctionsMode = 8;
constexpr std::array<const char*, 8> kLabels = {
    "V  = ", "H  = ", "S  = ", "G  = ", "U  = ", "A  = ", "E(H)=", "E(U)="};

/// Mode 8 on the direct input. Quiet calls write no list and show no remarks.
CalcCall calculate(bool quiet) {
    CalcCall call{.Mode = kFunctionsMode,
                  .Index = 0,
                  .Quiet = quiet,
                  .Interactive = !quiet,
                  .Text = mode_title(kFunctionsMode)};
    CalcBatch(call);
    return call;
}

double& sought(IsoGiven given) {
    calculation::BatchDataSet& input = legacy::the_BatchData.front();
    return given == IsoGiven::T ? input.p : input.T;
}

/// A search that varies one of T and p of the direct input.
class Search {
  public:
    Search(IsoGiven given, std::size_t position, bool liquid, double target)
        : input_(sought(given)),
          start_(input_),
          relativeStep_(given == IsoGiven::T ? 0.0005 : 0.0001),
          gridRange_(given == IsoGiven::T ? 50.0 : 4.0),
          position_(position),
          liquid_(liquid),
          target_(target) {}

    /// Newton steps with a numerical slope; where they fail though the phase exists at the start,
    /// a search for a change of sign.
    std::optional<double> solve() {
        if (!difference_at(start_)) return std::nullopt;
        const std::optional<double> x = newton();
        return x ? x : bracketed();
    }

  private:
    static constexpr double kUpperBound = 1e9;
    static constexpr double kTolerance = 1.5e-6;
    static constexpr double kSmallestStep = 0.0001;

    /// Function less target; nothing where the phase does not exist.
    std::optional<double> difference_at(double x) {
        input_ = x;
        const CalcCall call = calculate(true);
        if (call.Failed || !(liquid_ ? call.HasL : call.HasV)) return std::nullopt;
        return legacy::the_Fu[position_] - target_;
    }

    /// Slope at x from the neighbour on the side where the phase exists.
    std::optional<double> slope_at(double x, double f, double step) {
        if (const auto ahead = difference_at(x + step)) return (*ahead - f) / step;
        if (const auto behind = difference_at(x - step)) return (f - *behind) / step;
        return std::nullopt;
    }

    std::optional<double> newton() {
        constexpr int kRounds = 500;
        constexpr double kWiden = 50.0;
        double x = start_;
        double step = std::max(kSmallestStep, relativeStep_ * x);
        bool widened = false;
        for (int round = 0; round < kRounds; ++round) {
            const auto f = difference_at(x);
            if (!f) return std::nullopt;
            const auto slope = slope_at(x, *f, step);
            if (!slope || (*slope == 0.0 && widened)) return std::nullopt;
            if (*slope == 0.0) {
                step *= kWiden;
                widened = true;
                continue;
            }
            const double dx = *f / *slope;
            x -= dx;
            if (x < 0) x *= -2.0;
            if (!(x > 0) || !(x < kUpperBound)) return std::nullopt;
            if (std::fabs(dx / x) <= kTolerance)
                return difference_at(x) ? std::optional(x) : std::nullopt;
            step = std::max(kSmallestStep, std::min(relativeStep_ * x, std::fabs(dx)));
            widened = false;
        }
        return std::nullopt;
    }

    /// Neighbours of a logarithmic grid, from the start outwards, with a change of sign.
    std::optional<double> bracketed() {
        constexpr int kPoints = 150;
        const double ratio = std::pow(gridRange_, 1.0 / kPoints);
        double up = start_, down = start_;
        auto fUp = difference_at(start_), fDown = fUp;
        for (int i = 0; i < kPoints; ++i) {
            if (const auto x = advance(up, fUp, up * ratio)) return x;
            if (const auto x = advance(down, fDown, down / ratio)) return x;
        }
        return std::nullopt;
    }

    /// One step of the grid: the root between x and the next point, if there is one.
    std::optional<double> advance(double& x, std::optional<double>& f, double next) {
        const auto fNext = difference_at(next);
        const double from = x;
        const auto fFrom = f;
        x = next;
        f = fNext;
        if (!fFrom || !fNext || (*fFrom > 0) == (*fNext > 0)) return std::nullopt;
        return bisect(from, *fFrom, next, *fNext);
    }

    std::optional<double> bisect(double a, double fa, double b, double fb) {
        constexpr int kHalvings = 60;
        const double jump = std::fabs(fa - fb);
        double fMid = jump;
        for (int i = 0; i < kHalvings && std::fabs(b - a) > 1e-12 * b; ++i) {
            const double mid = 0.5 * (a + b);
            const auto f = difference_at(mid);
            if (!f) return std::nullopt;
            fMid = *f;
            if ((fMid > 0) == (fa > 0)) {
                a = mid;
                fa = fMid;
            } else {
                b = mid;
                fb = fMid;
            }
        }
        // A jump from one phase to the other is no root.
        return std::fabs(fMid) <= 1e-6 * jump ? std::optional(0.5 * (a + b)) : std::nullopt;
    }

    double& input_;
    double start_;
    double relativeStep_;
    double gridRange_;
    std::size_t position_;
    bool liquid_;
    double target_;
};

std::string shown(double value) {
    return numbers::General(static_cast<float>(value));
}

/// The fields of the view from the state that it keeps.
void refill(IsoCalculator& iso) {
    const bool givenT = iso.given == IsoGiven::T;
    iso.lblFuConst = iso_label(iso.function);
    iso.givenLabel = givenT ? "  T/K =" : "p/kPa =";
    iso.soughtLabel = givenT ? "p/kPa = " : "T/K =";
    iso.txtFuConst = shown(iso.values[iso_position(iso.function, iso.liquid)]);
    iso.txtTpVorgabe = shown(givenT ? iso.lastT : iso.lastP);
    iso.txtTpCalc = shown(givenT ? iso.lastP : iso.lastT);
}

void keep(IsoCalculator& iso) {
    iso.lastT = legacy::the_BatchData.front().T;
    iso.lastP = legacy::the_BatchData.front().p;
    iso.values = legacy::the_Fu;
}

}  // namespace

const char* iso_label(std::int16_t function) {
    return kLabels[static_cast<std::size_t>(std::clamp<int>(function, kIsoV, kIsoEU) - 1)];
}

std::size_t iso_position(std::int16_t function, bool liquid) {
    const auto index = static_cast<std::size_t>(std::clamp<int>(function, kIsoV, kIsoEU) - 1);
    return index + (liquid ? kFuL : kFuV);
}

IsoSolution iso_solve(IsoGiven given, std::int16_t function, bool liquid, double target) {
    const CalculationSnapshot before;
    Search search(given, iso_position(function, liquid), liquid, target);
    const std::optional<double> x = search.solve();
    if (!x) {
        before.restore();
        return {};
    }
    sought(given) = *x;
    calculate(false);
    return {*x, false};
}

IsoCalculator open_iso_calculator() {
    IsoCalculator iso;
    iso.function = std::clamp<std::int16_t>(the_session.IsoFunction, kIsoV, kIsoEU);
    iso.given =
        the_session.IsoTp == static_cast<std::int16_t>(IsoGiven::T) ? IsoGiven::T : IsoGiven::p;
    const CalculationSnapshot before;
    const CalcCall call = calculate(true);
    keep(iso);
    before.restore();
    iso.liquid = call.HasL && !call.HasV;
    refill(iso);
    iso.txtTpCalc.clear();
    return iso;
}

void choose_iso_function(IsoCalculator& iso, std::int16_t function) {
    iso.function = the_session.IsoFunction = std::clamp<std::int16_t>(function, kIsoV, kIsoEU);
    refill(iso);
}

void choose_iso_phase(IsoCalculator& iso, bool liquid) {
    iso.liquid = liquid;
    refill(iso);
}

void choose_iso_given(IsoCalculator& iso, IsoGiven given) {
    iso.given = given;
    the_session.IsoTp = static_cast<std::int16_t>(given);
    refill(iso);
}

bool calculate_iso(IsoCalculator& iso, const std::string& fuConst, const std::string& given) {
    const session::BusyPointer busy;
    const double target = numbers::val_input(fuConst);
    const double value = numbers::val_input(given);
    iso.txtFuConst = fuConst;
    iso.txtTpVorgabe = given;
    calculation::BatchDataSet& input = legacy::the_BatchData.front();
    const calculation::BatchDataSet before = input;
    (iso.given == IsoGiven::T ? input.T : input.p) = value;
    const IsoSolution solution = iso_solve(iso.given, iso.function, iso.liquid, target);
    if (solution.failed) {
        input = before;
        iso.txtTpCalc = "No solution found";
        return false;
    }
    keep(iso);
    iso.txtTpCalc = shown(solution.x);
    return true;
}

void reset_iso(IsoCalculator& iso) {
    calculation::BatchDataSet& input = legacy::the_BatchData.front();
    input.T = iso.lastT;
    input.p = iso.lastP;
    const CalcCall call = calculate(false);
    if (call.Failed) {
        iso.txtTpCalc = "No solution";
        return;
    }
    keep(iso);
    refill(iso);
}

}  // namespace quor::calculation
