#pragma once

#include <cstdint>
#include <vector>

namespace quor::diagrams {

/// A point of a curve: x and y in displayed units, z the parameter of the point (T, p or v).
struct CurvePoint {
    float x = 0, y = 0, z = 0;
};

using CurvePoints = std::vector<CurvePoint>;

/// What the z of the points of a curve holds: T/K, p/kPa, v in m^3/kmol, or nothing.
enum class Parameter : std::uint8_t { none, T, p, v };

/// What a curve holds constant and its name tells: T/K, p/kPa, v in m^3/kmol.
struct HeldValue {
    Parameter what = Parameter::none;
    double value = 0;
    bool has_side = false;  ///< a volume that is told with its side of the critical one

    bool operator==(const HeldValue&) const = default;
};

/// The mark of a parameter in JSON: 0 none, -1 T, -2 p, -3 v.
constexpr int mark_of(Parameter parameter) {
    return -static_cast<int>(parameter);
}

}  // namespace quor::diagrams
