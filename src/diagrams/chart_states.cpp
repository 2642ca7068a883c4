#include "diagrams/chart_states.h"

#include <cmath>
#include <limits>

#include "common/constants.h"

namespace quor::diagrams {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

double exergy_of(const std::optional<models::StateValues>& values) {
    return values && values->exergies ? values->exergies->H : kNaN;
}

}  // namespace

models::Scale ChartStates::scale(ChartQuantity quantity) const {
    const auto dimension = dimension_of(quantity);
    return dimension ? units_.of(*dimension) : models::Scale{};
}

double ChartStates::value_of(const models::FlashState& z, ChartQuantity quantity) {
    switch (quantity) {
        case ChartQuantity::T:
            return z.T;
        case ChartQuantity::p:
            return z.p;
        case ChartQuantity::v:
            return z.v;
        case ChartQuantity::h:
            return z.values ? z.values->h : kNaN;
        case ChartQuantity::s:
            return z.values ? z.values->s : kNaN;
        case ChartQuantity::Z:
            return z.p * z.v / (constants::R * z.T);
        case ChartQuantity::e:
            break;
    }
    if (!z.x || !z.L || !z.V) return exergy_of(z.single);
    const double L = exergy_of(z.L->values), V = exergy_of(z.V->values);
    return L + *z.x * (V - L);
}

std::optional<ChartVertex> ChartStates::vertex(const models::FlashState& z) const {
    const ChartQuantity qx = row_.x.quantity, qy = row_.y.quantity;
    ChartVertex at{.x = shown(qx, value_of(z, qx)),
                   .y = shown(qy, value_of(z, qy)),
                   .T = z.T,
                   .p = z.p,
                   .v = z.v,
                   .fraction = z.x};
    if (!std::isfinite(at.x) || !std::isfinite(at.y)) return std::nullopt;
    return at;
}

models::Property ChartStates::property_of(ChartQuantity quantity) {
    using models::Property;
    switch (quantity) {
        case ChartQuantity::T:
            return Property::T;
        case ChartQuantity::p:
            return Property::p;
        case ChartQuantity::v:
            return Property::v;
        case ChartQuantity::h:
            return Property::h;
        default:
            return Property::s;
    }
}

}  // namespace quor::diagrams
