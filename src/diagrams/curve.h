#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "diagrams/diagram.h"
#include "diagrams/process.h"

/// Computation of curves.
namespace quor::diagrams {

/// What became of a curve; the numbers are those of JSON.
enum class CurveStatus : std::int16_t {
    complete = 0,
    fault = -1,       ///< a run-time error; the message is its text
    noResult = -2,    ///< nothing can be drawn
    belowTriple = 2,  ///< a part lies below the triple point
    noCriticalVolume = 3,
    noTieLine = 4,  ///< asked at or above the critical point
    endedEarly = 5,
    outside = 10,  ///< no point fell inside the window
};

/// What of a kind of curve is drawn.
enum class Branch : std::uint8_t {
    stable,
    metastable,  ///< the unstable and metastable part between the phases
    tieLine,     ///< the straight line between the phases, at the parameter of the section
};

/// How curves are computed, whatever their kind.
struct CurveOptions {
    int points = 300;                 ///< of a curve
    bool real_range_only = true;      ///< nothing below the triple point
    bool s_without_tie_line = false;  ///< subcritical isotherms in p-v keep their S shape
    bool partial_gas = false;         ///< of a V-only equation only what lies below saturation

    bool operator==(const CurveOptions&) const = default;
};

/// Both ends of a tie-line in displayed units; z holds T/K or p/kPa.
struct TieLine {
    CurvePoint L, V;
};

/// Which curve is wanted, and where.
struct CurveRequest {
    const Diagram* curve = nullptr;  ///< the row that is computed
    /// The diagram on whose axes states are drawn; nullptr: that of the row.
    const Diagram* on = nullptr;
    CurveWindow window{};
    StateParameters at{};
    Branch branch = Branch::stable;
    double vapour_fraction = 1;
    CurveOptions options{};
    ProcessLine line{};  ///< of process lines; its range is that of two functions over each other
    /// Limits of p in units of the computation between which the saturation of two functions is
    /// drawn.
    float p_min = 0.001F, p_max = 0;

    const Diagram& home() const { return on != nullptr ? *on : home_of(*curve); }
    /// The row whose axes the curve has.
    const Diagram& axes() const { return curve->x == Axis::none ? home() : *curve; }
};

/// A curve with what it has to say.
struct Curve {
    CurvePoints points{};
    Parameter parameter = Parameter::none;  ///< what the z of its points holds
    CurveStatus status = CurveStatus::complete;
    std::string message{};              ///< of a fault, or why there is no result
    std::optional<TieLine> tie_line{};  ///< of a tie-line
    /// T/K at which the slope of a vapour pressure equation has its maximum.
    std::optional<double> T_of_maximum{};
    /// The last state of a process line.
    std::optional<ProcessState> last{};
};

/// Computes a curve. An empty window gives no points and status complete. Never throws. `room`
/// gives its storage to the points.
Curve curve(const Basis& basis, const CurveRequest& request, CurvePoints room = {});

/// What a view tells of a curve of a fluid, empty texts for one that is complete and for what needs
/// no word.
struct StatusText {
    std::string title, text;
};
StatusText text_of(CurveStatus status, const std::string& message, const models::Fluid& fluid);
/// True when the curve is drawn in spite of its status.
bool is_drawn(CurveStatus status);

}  // namespace quor::diagrams
