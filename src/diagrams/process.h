#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace quor::diagrams {

struct Diagram;

/// Kinds of process lines, in the order of their menu, with the two inputs that share its form.
enum class ProcessKind : std::uint8_t {
    straightLine,
    isotherm,
    isobar,
    isochore,
    isentropic,
    isenthalpic,
    polytropic,
    range,           ///< input of the range of a function-function diagram
    vapourFraction,  ///< input of a vapour fraction
};

/// One line of the answer of the polytropic program: T/K, p/kPa and further columns. A value that
/// is missing is not finite.
struct PolytropicPoint {
    double T = 0, p = 0;
    std::vector<double> columns;
};

struct ProcessState {
    double T = 0, p = 0;  ///< K, kPa
};

/// A process line, the range of a function-function diagram, and what was typed last of both.
struct ProcessLine {
    ProcessKind kind = ProcessKind::isotherm;
    bool vapour = true;      ///< phase at the start
    bool range_is_T = true;  ///< else the range is one of p
    double range_start = 0, range_end = 0;
    double T1 = 0, p1 = 0;
    float x1 = 0, y1 = 0, x2 = 0, y2 = 0;  ///< of a straight line, in displayed units
    bool end_to_begin = false;
    ProcessState last;  ///< last point of the last line
    double polytropic_exponent = 1.0;
    std::int16_t polytropic_mode = 1;
    bool from_calculation = false;  ///< the Calculation menu asked for the polytropic process
    double vapour_fraction = 1;     ///< of the input of a vapour fraction
    double kappa = 0;               ///< cp/cV, the partner of the exponent; 0 before a choice
    bool heterogeneous = false;     ///< the line runs inside the dome, over its tie-lines
    bool metastable = false;        ///< it follows the phase of its start into the dome
    bool ideal_gas_equation = false;
    std::array<double, 22> polytropic_values{};      ///< what the polytropic program gave back
    std::vector<PolytropicPoint> polytropic_points;  ///< the states it gave back
};

}  // namespace quor::diagrams
