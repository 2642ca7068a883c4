#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "legacy/declare.h"

/// Curve computation, process lines, grids.
namespace quor::diagrams {

/// What `calc_curve` reports beside its points.
namespace CurveStatus {
inline constexpr std::int16_t kComplete = 0;
inline constexpr std::int16_t kFault = -1;       ///< a run-time error; the message is its text
inline constexpr std::int16_t kNoResult = -2;    ///< nothing can be drawn
inline constexpr std::int16_t kBelowTriple = 2;  ///< a part lies below the triple point
inline constexpr std::int16_t kNoCriticalVolume = 3;
inline constexpr std::int16_t kNoTieLine = 4;  ///< asked at or above the critical point
inline constexpr std::int16_t kEndedEarly = 5;
inline constexpr std::int16_t kOutside = 10;  ///< no point fell inside the window
}  // namespace CurveStatus

/// Marks in the header of a curve: which parameter the z of its points holds.
inline constexpr float kMarkT = -1;  ///< z is T/K
inline constexpr float kMarkP = -2;  ///< z is p/kPa
inline constexpr float kMarkV = -3;  ///< z is v in m^3/kmol
inline constexpr float kMarkNone = 0;

struct CurveResult {
    std::int16_t status = CurveStatus::kComplete;
    std::string message;
};

/// Points of the curve of `request.DiagramType` in the window of the request, with the state
/// parameters T/K, p/kPa, v in m^3/kmol that its kind needs. `points` gets the header and the
/// points; an empty window gives a header with a count of 0 and status 0. Database functions and
/// the slope of the vapour pressure complete the request's texts. Never throws.
CurveResult calc_curve(diagrams::DiagramRequest& request, diagrams::CurvePointArray& points,
                       double T, double p, double v);

/// Number of points behind the header.
std::size_t point_count(const diagrams::CurvePointArray& points);

/// Mark of the curves of a code; kMarkNone for an unknown one.
float mark_of(std::int16_t DiagramType);
/// True when `calc_curve` has a kind of curve for the code.
bool has_curve(std::int16_t DiagramType);
/// True for a curve with an unstable and metastable branch of its own (`SCurveRequested`).
bool has_metastable_branch(std::int16_t DiagramType);

/// What a view tells of a result, empty texts for status 0 and for what needs no word.
struct StatusText {
    std::string title, text;
};
StatusText TextOf(const CurveResult& result);
/// True when the curve is drawn in spite of its status.
bool is_drawn(std::int16_t status);

}  // namespace quor::diagrams
