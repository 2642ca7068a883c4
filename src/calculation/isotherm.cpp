#include "calculation/isotherm.h"

#include <algorithm>
#include <cmath>

#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/saturation.h"

namespace quor::calculation {

namespace {

constexpr std::size_t kIsothermPoints = 400, kAreaPoints = 60;

IsothermPoint point_at(const models::EosState& s, double T, double v) {
    return {v, models::cubic_pressure(s, T, v)};
}

/// Points evenly spaced in log(v) from v1 to v2, both included.
std::vector<IsothermPoint> sample(const models::EosState& s, double T, double v1, double v2,
                                  std::size_t count) {
    std::vector<IsothermPoint> points;
    points.reserve(count);
    const double ratio = std::log(v2 / v1) / static_cast<double>(count - 1);
    for (std::size_t i = 0; i + 1 < count; ++i)
        points.push_back(point_at(s, T, v1 * std::exp(ratio * static_cast<double>(i))));
    points.push_back(point_at(s, T, v2));
    return points;
}

/// The volume on the steep branch beside b where the isotherm reaches p; `v` lies below p.
double steep_volume(const models::EosState& s, double T, double p, double v) {
    double low = s.b, high = v;
    for (int i = 0; i < 60; ++i) {
        const double mid = 0.5 * (low + high);
        (models::cubic_pressure(s, T, mid) > p ? low : high) = mid;
    }
    return high;
}

/// p limits: the loop of the isotherm, p(LV) and p, with some room.
void set_limits(Isotherm& d, const models::EosState& s, double v_first, double v_last) {
    constexpr double kRoom = 0.15;
    double low = std::min(0.0, d.p), high = std::max(d.p, d.saturation_pressure);
    if (d.saturation_pressure > 0) {
        for (const IsothermPoint& q : sample(s, d.T, v_first, v_last, kIsothermPoints)) {
            low = std::min(low, q.p);
            high = std::max(high, q.p);
        }
        // A deep loop at low T must not flatten the rest.
        low = std::max(low, -2.0 * high);
    } else {
        high *= 2.0;
    }
    d.p_min = low - kRoom * (high - low);
    if (low == 0.0) d.p_min = 0.0;
    d.p_max = high + kRoom * (high - low);
}

/// The constants of a record that makes no sense may give pressures beyond all numbers.
bool is_finite(const Isotherm& d) {
    const auto finite = [](const std::vector<IsothermPoint>& points) {
        return std::all_of(points.begin(), points.end(), [](const IsothermPoint& point) {
            return std::isfinite(point.v) && std::isfinite(point.p);
        });
    };
    return std::isfinite(d.p_min) && std::isfinite(d.p_max) && finite(d.isotherm) &&
           finite(d.area_below) && finite(d.area_above);
}

}  // namespace

Isotherm isotherm_of(const models::Fluid& fluid, const LastState& last) {
    Isotherm d;
    if (!models::is_cubic(fluid.models().eos) || !(last.T > 0) || !(last.p > 0) || !(last.v[0] > 0))
        return d;
    d.T = last.T;
    d.p = last.p;
    const models::EosState s = models::eos_at(fluid, d.T);
    double v_first = last.v[0], v_last = last.root_count < 3 ? last.v[0] : last.v[2];
    if (d.T < fluid.substance().Tcrit) {
        const auto saturation = models::saturation_pressure(fluid, d.T);
        if (saturation && saturation->root_count == 3) {
            const auto [vL, vM, vV] = saturation->v;
            d.saturation_pressure = saturation->p;
            d.area_below = sample(s, d.T, vL, vM, kAreaPoints);
            d.area_above = sample(s, d.T, vM, vV, kAreaPoints);
            v_first = std::min(v_first, vL);
            v_last = std::max(v_last, vV);
        }
    }
    set_limits(d, s, v_first, v_last);
    constexpr double kBeyond = 3.0;
    const double v_start = d.p_max > models::cubic_pressure(s, d.T, v_first)
                               ? steep_volume(s, d.T, d.p_max, v_first)
                               : v_first;
    d.isotherm = sample(s, d.T, v_start, v_last * kBeyond, kIsothermPoints);
    return is_finite(d) ? d : Isotherm{};
}

}  // namespace quor::calculation
