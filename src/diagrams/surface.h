#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "diagrams/catalogue.h"
#include "legacy/declare.h"
#include "models/caloric.h"

/// The kinds of surfaces: what they show, their texts, ranges and limits.
namespace quor::Module9 {

/// One kind of surface z(x, y). Kinds without a title have no menu row.
struct SurfaceKind {
    std::int16_t kind;
    std::string_view title;
    Axis x, y, z;
    bool isClosedSystem = false;  ///< an exergy of U instead of one of H
};
std::span<const SurfaceKind> surface_kinds();
/// The row of a kind; nullptr when there is none.
const SurfaceKind* find_surface(std::int16_t Diagram3DKind);

/// True for a surface of caloric values over p and T.
bool IsCaloric(const SurfaceKind& surface);

struct SurfaceTexts {
    std::string title, subTitle, xLabel, yLabel, zLabel;
    std::string note;  ///< on zero points and surroundings; empty where none matter
};
SurfaceTexts TextsOf(const SurfaceKind& surface);

/// Default limits of a kind in displayed units; `SCurve` for the S-shaped isotherms.
diagrams::Grid3D default_grid(std::int16_t Diagram3DKind, bool SCurve);

/// Limits of z that mean "no clipping".
inline constexpr float kNoLowerClip = -0.01111F;
inline constexpr float kNoUpperClip = 0.01111F;

struct Limits {
    float low = 0, high = 0;
};
/// Limits of an axis of a surface: those of its quantity, or the clipping limits of a caloric z.
Limits limits_of(const diagrams::Grid3D& grid, Axis axis);

/// Text of the refusal when a lower limit is not below its upper one; empty when all are right.
std::string refusal_of(const diagrams::Grid3D& grid, const SurfaceKind& surface);

/// The molar caloric value that a surface shows of a state.
double caloric_value(const SurfaceKind& surface, const models::StateValues& state);

/// Label of the critical point.
inline constexpr auto kCriticalMarkText = "CrP";

/// The critical point on the axes of a surface.
struct SurfaceMark {
    double x = 0, y = 0, z = 0;
    std::string text{};    ///< label of the mark
    std::string remark{};  ///< said instead of a mark, when there is none
};
SurfaceMark critical_mark(const SurfaceKind& surface);

}  // namespace quor::Module9
