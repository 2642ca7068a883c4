#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "diagrams/diagram.h"
#include "models/caloric.h"

/// The kinds of surfaces: what they show, their texts, ranges and limits.
namespace quor::diagrams {

/// Limits of a surface in displayed units; z limits of -0.01111 and 0.01111 mean no clipping.
struct SurfaceLimits {
    float p_min = 0, p_max = 0;
    float T_min = 0, T_max = 0;
    float v_min = 0, v_max = 0;
    float z_min = -0.01111F, z_max = 0.01111F;
    friend bool operator==(const SurfaceLimits&, const SurfaceLimits&) = default;
};

/// One kind of surface z(x, y). Kinds without a title have no menu row.
struct SurfaceKind {
    std::int16_t code;  ///< its number in quorcalc
    std::string_view title;
    Axis x, y, z;
    bool has_s_curve = false;  ///< may show S-shaped isotherms inside the dome
    int menu_index = -1;       ///< in the menu of surfaces; a gap is a separator
    std::string_view menu_caption{};
};
std::span<const SurfaceKind> surface_kinds();
/// The row of a code; nullptr when there is none.
const SurfaceKind* find_surface(int code);

/// True for a surface of caloric values over p and T.
bool is_caloric(const SurfaceKind& surface);

struct SurfaceTexts {
    std::string title, sub_title, x_label, y_label, z_label;
    std::string note;  ///< on zero points and surroundings; empty where none matter
};
SurfaceTexts texts_of(const SurfaceKind& surface, const Basis& basis);

/// Text of an axis of a surface in units.
std::string surface_axis_text(Axis axis, const models::UnitChoice& units);

/// Limits with those of each quantity that a kind shows changed by the scale of its axis; limits of
/// z that mean no clipping stay.
SurfaceLimits converted_limits(const SurfaceLimits& limits, const SurfaceKind& surface,
                               const std::function<double(Axis, double)>& convert);

/// Default limits of a kind in displayed units; `s_curve` for the S-shaped isotherms.
SurfaceLimits default_limits(const SurfaceKind& surface, const Basis& basis, bool s_curve);

/// Limits of z that mean "no clipping".
inline constexpr float kNoLowerClip = -0.01111F;
inline constexpr float kNoUpperClip = 0.01111F;

struct Limits {
    float low = 0, high = 0;
};
/// Limits of an axis of a surface: those of its quantity, or the clipping limits of a caloric z.
Limits limits_of(const SurfaceLimits& limits, Axis axis);

/// Text of the refusal when a lower limit is not below its upper one; empty when all are right.
std::string refusal_of(const SurfaceLimits& limits, const SurfaceKind& surface);

/// The molar caloric value that a surface shows of a state.
std::optional<double> caloric_value(const SurfaceKind& surface,
                                    const std::optional<models::StateValues>& state);

/// Label of the critical point.
inline constexpr auto kCriticalMarkText = "CrP";

/// The critical point on the axes of a surface.
struct SurfaceMark {
    double x = 0, y = 0, z = 0;
    std::string text{};    ///< label of the mark
    std::string remark{};  ///< said instead of a mark, when there is none
};
SurfaceMark critical_mark(const SurfaceKind& surface, const Basis& basis);

}  // namespace quor::diagrams
