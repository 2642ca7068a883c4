#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

#include "diagrams/chart_states.h"

namespace quor::diagrams {

/// The window of a chart in pixels.
class ChartFrame {
  public:
    ChartFrame(const StateChartKind& row, const ChartWindow& window, double width, double height,
               double T_end)
        : window_(window),
          log_x_(row.x.logarithmic),
          log_y_(row.y.logarithmic),
          x0_(along(log_x_, window.x_min)),
          y0_(along(log_y_, window.y_min)),
          per_x_(width / (along(log_x_, window.x_max) - x0_)),
          per_y_(height / (along(log_y_, window.y_max) - y0_)),
          width_(width),
          height_(height),
          T_end_(T_end) {}

    double X(const ChartVertex& at) const { return per_x_ * (along(log_x_, at.x) - x0_); }
    double Y(const ChartVertex& at) const { return per_y_ * (along(log_y_, at.y) - y0_); }
    double width() const { return width_; }
    double height() const { return height_; }

    /// How far inside each of the limits, in pixels: left, right, below, above, and of T.
    std::array<double, 5> margins(const ChartVertex& at) const {
        const double x = X(at), y = Y(at);
        return {x, width_ - x, y, height_ - y, width_ * (at.T / T_end_ - 1)};
    }
    bool is_inside(const ChartVertex& at) const {
        const auto m = margins(at);
        return std::ranges::min(m) >= -kEdge;
    }
    /// Rounding aside, a vertex at the edge is at the edge.
    ChartVertex kept_inside(ChartVertex at) const {
        at.x = std::clamp(at.x, window_.x_min, window_.x_max);
        at.y = std::clamp(at.y, window_.y_min, window_.y_max);
        return at;
    }

    static constexpr double kEdge = 1e-8;  ///< px

  private:
    static double along(bool logarithmic, double value) {
        constexpr double kFarBelow = -1e6;
        if (!logarithmic) return value;
        return value > 0 ? std::log(value) : kFarBelow;
    }

    ChartWindow window_;
    bool log_x_, log_y_;
    double x0_, y0_, per_x_, per_y_, width_, height_, T_end_;
};

/// Follows lines: samples them until no chord is further from the line than the told distance, and
/// keeps what lies in the window, with a vertex at the edge itself.
class ChartTracer {
  public:
    ChartTracer(const ChartStates& states, const ChartFrame& frame)
        : states_(states), frame_(frame) {}

    /// Begins another line.
    void begin() {
        parts_.clear();
        open_ = false;
        gap_.reset();
    }
    /// What was followed since `begin`.
    ChartParts take() {
        std::erase_if(parts_, [](const auto& part) { return part.size() < 2; });
        return std::move(parts_);
    }
    /// Why the line has a gap inside the window, the first of them.
    const std::optional<models::NoFlash>& gap() const { return gap_; }

    /// A smooth piece of the line from t = `from` to `to`, in even parts that are divided further.
    /// `at(t)` gives `Result<FlashState, NoFlash>`. States at the ends that are known stand for
    /// those that `at` would give.
    template <class At>
    void piece(At&& at, double from, double to, int parts,
               const std::optional<ChartVertex>& start = {},
               const std::optional<ChartVertex>& end = {}) {
        nodes_.clear();
        Node last = start ? known(from, *start) : node(at, from);
        nodes_.push_back(last);
        for (int i = 1; i <= parts; ++i) {
            const double t = i == parts ? to : from + (to - from) * i / parts;
            const Node next = i == parts && end ? known(to, *end) : node(at, t);
            divide(at, last, next, kDeepest);
            nodes_.push_back(next);
            last = next;
        }
        smooth(at);
        for (std::size_t i = 1; i < nodes_.size(); ++i) keep(at, nodes_[i - 1], nodes_[i]);
    }
    /// The next piece does not join the last one.
    void cut() { open_ = false; }

  private:
    static constexpr int kDeepest = 16, kDeepestGap = -14;
    /// Of the middle of a chord, in px; as the middle becomes a vertex, a fourth of it stays.
    static constexpr double kMost = 0.4, kStraight = 0.01, kTurned = 0.1, kLong = 4;

    struct Node {
        double t = 0;
        bool there = false;
        ChartVertex at;
        double X = 0, Y = 0;
        std::array<double, 5> margins{};

        bool inside() const { return there && std::ranges::min(margins) >= -ChartFrame::kEdge; }
    };

    Node known(double t, const ChartVertex& at) const {
        return {t, true, at, frame_.X(at), frame_.Y(at), frame_.margins(at)};
    }
    template <class At>
    Node node(At&& at, double t) {
        const auto state = at(t);
        if (!state) {
            failure_ = state.failure();
            return {.t = t, .there = false, .at = {}};
        }
        const auto vertex = states_.vertex(*state);
        if (!vertex) {
            failure_ = models::NoFlash{models::NoFlashReason::noHeatCapacity, 0, 0};
            return {.t = t, .there = false, .at = {}};
        }
        return known(t, *vertex);
    }

    static bool beyond(const Node& a, const Node& m, const Node& b) {
        for (std::size_t i = 0; i < a.margins.size(); ++i)
            if (a.margins[i] < 0 && m.margins[i] < 0 && b.margins[i] < 0) return true;
        return false;
    }
    static double distance(const Node& a, const Node& m, const Node& b) {
        const double ux = b.X - a.X, uy = b.Y - a.Y, wx = m.X - a.X, wy = m.Y - a.Y;
        const double square = ux * ux + uy * uy;
        const double share = square > 0 ? std::clamp((wx * ux + wy * uy) / square, 0.0, 1.0) : 0;
        return std::hypot(wx - share * ux, wy - share * uy);
    }

    /// Puts the vertices between two.
    template <class At>
    void divide(At&& at, const Node& a, const Node& b, int depth) {
        if (!a.there && !b.there) return;
        const double t = 0.5 * (a.t + b.t);
        if (depth <= (a.there && b.there ? 0 : kDeepestGap) || t == a.t || t == b.t) return;
        const Node m = node(at, t);
        if (!a.there || !b.there || !m.there) {
            // The end of what can be computed is come near by halving.
            divide(at, a, m, depth - 1);
            nodes_.push_back(m);
            divide(at, m, b, depth - 1);
            return;
        }
        if (beyond(a, m, b)) return;
        const double off = distance(a, m, b);
        // The middle of an S may lie on its chord: the halves of a part are looked at, too.
        if (depth < kDeepest && off <= kMost) {
            if (off > kStraight) nodes_.push_back(m);
            return;
        }
        divide(at, a, m, depth - 1);
        nodes_.push_back(m);
        divide(at, m, b, depth - 1);
    }

    /// The angle by which the way from a over m to b turns.
    static double turn(const Node& a, const Node& m, const Node& b) {
        const double ux = m.X - a.X, uy = m.Y - a.Y, wx = b.X - m.X, wy = b.Y - m.Y;
        return std::fabs(std::atan2(ux * wy - uy * wx, ux * wx + uy * wy));
    }

    /// Where the way turns more than beside a chord that is near its line, the chord is divided
    /// after all.
    template <class At>
    void smooth(At&& at) {
        const std::vector<Node> first = std::exchange(nodes_, {});
        const auto turn_at = [&](std::size_t i) {
            if (i == 0 || i + 1 >= first.size()) return 0.0;
            const Node &a = first[i - 1], &m = first[i], &b = first[i + 1];
            return a.there && m.there && b.there ? turn(a, m, b) : 0.0;
        };
        double last = 0;
        for (std::size_t i = 0; i < first.size(); ++i) {
            const double now = turn_at(i);
            if (i > 0 && first[i - 1].there && first[i].there) {
                const Node &a = first[i - 1], &b = first[i];
                const double length = std::hypot(b.X - a.X, b.Y - a.Y);
                // An arc of that length and turn is so far from its chord. At the ends of a piece
                // one of the turns is not known.
                const bool at_end = (i == 1 || i + 1 == first.size()) && length > kLong;
                const bool turned = length * std::max(last, now) / 8 > kTurned;
                if ((turned || at_end) && !beyond(a, a, b)) {
                    const Node m = node(at, 0.5 * (a.t + b.t));
                    if (m.there) {
                        divide(at, a, m, kDeepest - 1);
                        if (distance(a, m, b) > kStraight) nodes_.push_back(m);
                        divide(at, m, b, kDeepest - 1);
                    }
                }
            }
            nodes_.push_back(first[i]);
            last = now;
        }
    }

    void put(const Node& n) {
        if (!open_) parts_.emplace_back();
        open_ = true;
        auto& part = parts_.back();
        const ChartVertex at = frame_.kept_inside(n.at);
        if (part.empty() || part.back().x != at.x || part.back().y != at.y) part.push_back(at);
    }

    /// Adds what of a chord lies in the window.
    template <class At>
    void keep(At&& at, const Node& a, const Node& b) {
        if (!a.there || !b.there) {
            const Node& end = a.there ? a : b;
            const bool at_end = std::fabs(end.margins.back()) < 1;
            if (end.inside() && !at_end && !gap_) gap_ = failure_;
            cut();
            return;
        }
        const bool a_in = a.inside(), b_in = b.inside();
        if (a_in && b_in) {
            put(a);
            put(b);
        } else if (a_in) {
            put(a);
            put(edge(at, a, b));
            cut();
        } else if (b_in) {
            cut();
            put(edge(at, b, a));
            put(b);
        } else {
            cut();
            if (const auto share = middle_inside(a, b)) {
                const Node m = node(at, a.t + *share * (b.t - a.t));
                if (!m.inside()) return;
                put(edge(at, m, a));
                put(m);
                put(edge(at, m, b));
                cut();
            }
        }
    }

    /// Where the chord between two places outside is in the middle of its way through the window.
    std::optional<double> middle_inside(const Node& a, const Node& b) const {
        double low = 0, high = 1;
        for (std::size_t i = 0; i < a.margins.size(); ++i) {
            const double from = a.margins[i], to = b.margins[i];
            if (from < 0 && to < 0) return std::nullopt;
            if (from < 0) low = std::max(low, from / (from - to));
            if (to < 0) high = std::min(high, from / (from - to));
        }
        return low < high ? std::optional(0.5 * (low + high)) : std::nullopt;
    }

    /// Where the line leaves the window between a place inside and one outside.
    template <class At>
    Node edge(At&& at, Node in, Node out) {
        constexpr int kRounds = 80;
        double weight_in = 1, weight_out = 1;
        for (int i = 0; i < kRounds; ++i) {
            // The limit that is passed by most decides; another one may take its place.
            const auto side = static_cast<std::size_t>(std::ranges::min_element(out.margins) -
                                                       out.margins.begin());
            const double f_in = std::max(0.0, in.margins[side]), f_out = out.margins[side];
            if (f_in <= ChartFrame::kEdge) break;
            double share = weight_in * f_in / (weight_in * f_in - weight_out * f_out);
            // Far away a margin says little: halving keeps the pace.
            if (i % 4 == 3) share = 0.5;
            const double t = in.t + share * (out.t - in.t);
            if (t == in.t || t == out.t) break;
            const Node m = node(at, t);
            if (!m.there) break;
            if (m.inside()) {
                in = m;
                weight_in = 1;
                weight_out *= 0.5;
            } else {
                out = m;
                weight_out = 1;
                weight_in *= 0.5;
            }
        }
        return in;
    }

    const ChartStates& states_;
    const ChartFrame& frame_;
    std::vector<Node> nodes_;
    ChartParts parts_;
    bool open_ = false;
    models::NoFlash failure_;
    std::optional<models::NoFlash> gap_;
};

}  // namespace quor::diagrams
