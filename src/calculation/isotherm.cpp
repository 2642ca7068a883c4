#include "calculation/isotherm.h"

#include <algorithm>
#include <cmath>

#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/saturation.h"

namespace quor::calculation {

namespace {

constexpr std::size_t kIsothermPoints = 400, kAreaPoints = 60;

IsothermPoint point_at(const models::EOSState& s, double T, double v) {
    return {v, models::cubic_pressure(s, T, v)};
}

/// Points evenly spaced in log(v) from v1 to v2, both included.
std::vector<IsothermPoint> sample(const models::EOSState& s, double T, double v1, double v2,
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
double steep_volume(const models::EOSState& s, double T, double p, double v) {
    double low = s.eosB, high = v;
    for (int i = 0; i < 60; ++i) {
        const double mid = 0.5 * (low + high);
        (models::cubic_pressure(s, T, mid) > p ? low : high) = mid;
    }
    return high;
}

/// p limits: the loop of the isotherm, p(LV) and p, with some room.
void set_limits(Isotherm& d, const models::EOSState& s, double vFirst, double vLast) {
    constexpr double kRoom = 0.15;
    double low = std::min(0.0, d.p), high = std::max(d.p, d.saturationPressure);
    if (d.saturationPressure > 0) {
        for (const IsothermPoint& q : sample(s, d.T, vFirst, vLast, kIsothermPoints)) {
            low = std::min(low, q.p);
            high = std::max(high, q.p);
        }
        // A deep loop at low T must not flatten the rest.
        low = std::max(low, -2.0 * high);
    } else {
        high *= 2.0;
    }
    d.pMin = low - kRoom * (high - low);
    if (low == 0.0) d.pMin = 0.0;
    d.pMax = high + kRoom * (high - low);
}

}  // namespace

Isotherm isotherm_of(const models::Fluid& fluid, const LastState& last) {
    Isotherm d;
    if (!models::is_cubic(fluid.models().EOSModel) || !(last.T > 0) || !(last.p > 0) ||
        !(last.v[0] > 0))
        return d;
    d.T = last.T;
    d.p = last.p;
    const models::EOSState s = models::eos_at(fluid, d.T);
    double vFirst = last.v[0], vLast = last.Roots < 3 ? last.v[0] : last.v[2];
    if (d.T < fluid.substance().Tcrit) {
        const models::Saturation saturation = models::saturation_pressure(fluid, d.T);
        if (saturation.status == kSuccess && saturation.nRoots == 3) {
            const auto [vL, vM, vV] = saturation.v;
            d.saturationPressure = saturation.p;
            d.areaBelow = sample(s, d.T, vL, vM, kAreaPoints);
            d.areaAbove = sample(s, d.T, vM, vV, kAreaPoints);
            vFirst = std::min(vFirst, vL);
            vLast = std::max(vLast, vV);
        }
    }
    set_limits(d, s, vFirst, vLast);
    constexpr double kBeyond = 3.0;
    const double vStart = d.pMax > models::cubic_pressure(s, d.T, vFirst)
                              ? steep_volume(s, d.T, d.pMax, vFirst)
                              : vFirst;
    d.isotherm = sample(s, d.T, vStart, vLast * kBeyond, kIsothermPoints);
    return d;
}

}  // namespace quor::calculation
