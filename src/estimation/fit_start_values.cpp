#include "estimation/fit_start_values.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "estimation/fit_run.h"
#include "estimation/least_squares.h"
#include "estimation/marquardt_nash.h"

namespace quor::estimation {

namespace {

constexpr int kParts = 4;         // of a searched range; each may have a minimum of its own
constexpr int kGrid = 8;          // intervals of a part, and of the narrower ranges in it
constexpr int kCoarsePasses = 8;  // each searches half of the range before, for narrow valleys
constexpr int kFinePasses = 24;   // the same about the best of all parts

/// One set of parameters and how well the linearised model fits with it.
struct Candidate {
    Parameters par{};
    int rows = 0;                                              // points that serve
    double squares = std::numeric_limits<double>::infinity();  // of the linearised residuals

    bool better_than(const Candidate& other) const {
        return rows > other.rows || (rows == other.rows && squares < other.squares);
    }
};

struct Proposal {
    const FitState& state;
    const FitModelRow& row;
    FitProblem problem;
    std::vector<LeastSquaresRow> rows;  // of the last solution, kept for its memory

    Proposal(const FitState& s, const FitModelRow& r)
        : state(s), row(r), problem(make_problem(s, r)) {}

    /// Ranges of the free parameters that enter non-linearly; the others are out of the search.
    std::array<SearchRange, 2> searched_ranges() const {
        std::array<SearchRange, 2> ranges = row.search;
        for (SearchRange& r : ranges)
            if (r.parameter >= 0 && problem.fixed[static_cast<std::size_t>(r.parameter)])
                r.parameter = -1;
        return ranges;
    }

    /// Free parameters of the linear solution, without the last `held` of them.
    std::vector<std::size_t> unknowns(int held) const {
        std::vector<std::size_t> unknown;
        for (int i = 0; i < row.parameter_count; ++i) {
            const bool searched = i == row.search[0].parameter || i == row.search[1].parameter;
            if (!searched && !problem.fixed[static_cast<std::size_t>(i)])
                unknown.push_back(static_cast<std::size_t>(i));
        }
        unknown.resize(unknown.size() - std::min(unknown.size(), static_cast<std::size_t>(held)));
        return unknown;
    }

    /// A parameter as it stands in the linearised form.
    double in_linear_form(std::size_t i, double value) const {
        return row.logged[i] ? std::log(value) : value;
    }

    bool within_bounds(std::size_t i, double value) const {
        if (row.basis != nullptr) return std::isfinite(value);
        const double scaled = value / row.scale[i];
        return scaled >= kBounds[i].lower && scaled <= kBounds[i].upper;
    }

    /// Linear least squares for the unknowns, all other parameters as in `par`.
    Candidate solve(const Parameters& par, const std::vector<std::size_t>& unknown) {
        Candidate candidate{par};
        rows.clear();
        for (const datafiles::FitPoint& point : state.points) {
            LinearisedPoint p;
            if (!is_active(point) ||
                !row.linearised(static_cast<double>(point.x), static_cast<double>(point.y), par,
                                problem.context, p))
                continue;
            LeastSquaresRow r{};
            for (std::size_t k = 0; k < unknown.size(); ++k) {
                r[k] = p.coefficient[unknown[k]];
                p.coefficient[unknown[k]] = 0;
            }
            for (std::size_t i = 0; i < static_cast<std::size_t>(row.parameter_count); ++i)
                if (p.coefficient[i] != 0) p.target -= p.coefficient[i] * in_linear_form(i, par[i]);
            r[kMaxPar] = p.target;
            rows.push_back(r);
        }
        const auto count = static_cast<int>(rows.size());
        const ReducedProblem reduced = reduce(rows, static_cast<int>(unknown.size()));
        if (count == 0 || !reduced.regular || !std::isfinite(reduced.rest_squares))
            return candidate;
        const Parameters solved = solution(reduced);
        for (std::size_t k = 0; k < unknown.size(); ++k) {
            const std::size_t i = unknown[k];
            candidate.par[i] = row.logged[i] ? std::exp(solved[k]) : solved[k];
            if (!within_bounds(i, candidate.par[i])) return candidate;
        }
        candidate.rows = count;
        candidate.squares = reduced.rest_squares;
        return candidate;
    }

    /// The best of a grid over the ranges, or `best` where none is better.
    Candidate scan(const std::array<SearchRange, 2>& ranges,
                   const std::vector<std::size_t>& unknown, Candidate best) {
        const auto place = [](Parameters& par, const SearchRange& r, int step) {
            if (r.parameter < 0) return;
            par[static_cast<std::size_t>(r.parameter)] = r.from + (r.to - r.from) * step / kGrid;
        };
        for (int a = 0; a <= (ranges[0].parameter < 0 ? 0 : kGrid); ++a) {
            for (int b = 0; b <= (ranges[1].parameter < 0 ? 0 : kGrid); ++b) {
                Parameters par = state.start;
                place(par, ranges[0], a);
                place(par, ranges[1], b);
                const Candidate candidate = solve(par, unknown);
                if (candidate.better_than(best)) best = candidate;
            }
        }
        return best;
    }

    /// A range of the given width about the best value.
    static SearchRange about(const Candidate& best, const SearchRange& range, double width) {
        if (range.parameter < 0) return range;
        const double centre = best.par[static_cast<std::size_t>(range.parameter)];
        return {range.parameter, centre - 0.5 * width, centre + 0.5 * width};
    }

    /// Halves the ranges about the best candidate again and again.
    Candidate refine(std::array<SearchRange, 2> ranges, int passes,
                     const std::vector<std::size_t>& unknown, Candidate best) {
        for (int pass = 0; best.rows > 0 && pass < passes; ++pass) {
            for (SearchRange& r : ranges) r = about(best, r, 0.5 * (r.to - r.from));
            best = scan(ranges, unknown, best);
        }
        return best;
    }

    static SearchRange part_of(const SearchRange& range, int part) {
        if (range.parameter < 0) return range;
        const double width = (range.to - range.from) / kParts;
        return {range.parameter, range.from + part * width, range.from + (part + 1) * width};
    }

    Candidate search(const std::vector<std::size_t>& unknown) {
        const std::array<SearchRange, 2> whole = searched_ranges();
        const auto parts = [](const SearchRange& r) { return r.parameter < 0 ? 1 : kParts; };
        if (parts(whole[0]) * parts(whole[1]) == 1) return scan(whole, unknown, {});
        Candidate best;
        std::array<SearchRange, 2> best_part{};
        for (int a = 0; a < parts(whole[0]); ++a) {
            for (int b = 0; b < parts(whole[1]); ++b) {
                const std::array<SearchRange, 2> part{part_of(whole[0], a), part_of(whole[1], b)};
                const Candidate found =
                    refine(part, kCoarsePasses, unknown, scan(part, unknown, {}));
                if (!found.better_than(best)) continue;
                best = found;
                best_part = part;
            }
        }
        return refine(best_part, kFinePasses, unknown, best);
    }

    /// True when the model itself has a value at every active point.
    bool evaluates(const Parameters& par) const {
        return std::all_of(state.points.begin(), state.points.end(), [&](const auto& point) {
            double y = 0;
            return !is_active(point) ||
                   (row.model(static_cast<double>(point.x), par, problem.context, y) &&
                    std::isfinite(y));
        });
    }
};

}  // namespace

Result<Parameters> proposed_start_values(const FitState& state) {
    const Failure none{"These points do not suffice for start values of this model."};
    const FitModelRow* row = find_model(state.model);
    if (row == nullptr) return none;
    Proposal proposal(state, *row);
    std::optional<Parameters> first;
    // Points that cannot tell all parameters apart still give the leading ones.
    const auto unknowns = static_cast<int>(proposal.unknowns(0).size());
    for (int held = 0; held < unknowns; ++held) {
        const Candidate best = proposal.search(proposal.unknowns(held));
        if (best.rows == 0) continue;
        if (proposal.evaluates(best.par)) return best.par;
        if (!first) first = best.par;
    }
    return first ? Result<Parameters>(*first) : none;
}

}  // namespace quor::estimation
