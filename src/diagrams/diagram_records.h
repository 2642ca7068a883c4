#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace quor::diagrams {

/// A point of a curve: x and y in displayed units, z the parameter of the point (T, p or v).
struct CurvePoint {
    float x = 0, y = 0, z = 0;
};

/// Element 0 is a header: x holds the number of points, z the curve's type mark (-1 isothermal,
/// -2 isobaric, -3 isochoric, 0 none). Points are the elements 1 to n.
using CurvePointArray = std::vector<CurvePoint>;

/// The current 2D diagram.
struct DiagramRequest {
    std::int16_t reserved = 0;
    std::int16_t DiagramType = 0;  ///< code of the diagram or curve kind
    float xMinDefault = 0, yMinDefault = 0, xMaxDefault = 0, yMaxDefault = 0;
    float xMin = 0, yMin = 0, xMax = 0, yMax = 0;  ///< current window, displayed units
    std::string title, xLabel, yLabel, subTitle;
    std::int16_t sectionKind =
        0;                 ///< 1 isothermal, 2 isobaric, 3 isochoric, 5 projection, 7 database
    std::string axisPair;  ///< "pv", "yp", "Tv", "Tx", "pT", "yT", "yv", "yy"
    float validityLow = 0, validityHigh = 0;  ///< bounds of a database function, K
    std::int16_t PointsPerCurve = 0;          ///< resolution, 0: that of the session
};

/// Both ends of a tie-line in displayed units; z holds T/K or p/kPa.
struct TieLine {
    CurvePoint L, V;
    bool exist = false;
};

/// Default limits of each quantity, in displayed units.
struct CoordinateDefaults {
    float pvMax = 0, pvMin = 0;
    float rhoMax = 0, rhoMin = 0;
    float vMaxReserve = 0, vMinReserve = 0;
    float lnpMax = 0, lnpMin = 0;
    float invTMax = 0, invTMin = 0;
    float dlnpMax = 0, dlnpMin = 0;
    float pMax = 0, pMin = 0.001F;
    float vMax = 0, vMin = 0;
    float TMax = 0, TMin = 0;
    float funcMax = 0, funcMin = 0;
    float entropyMax = 0, entropyMin = 0;
    float cpMin = 0, cpMax = 0;
    float vaporisationMin = 0, vaporisationMax = 0;
    float TMaxResidual = 0;
    float jtMax = 0, jtMin = 0;
    float resEntropyMin = 0, resEntropyMax = 0;
    float resEnthalpyMin = 0, resEnthalpyMax = 0;
};

/// Input of a process line, of a function-function diagram's range, or of a vapour fraction.
struct ProcessLineRecord {
    std::int16_t SavedDiagramType = 0;
    std::uint8_t Kind = 1;      ///< 0 straight, 1 isotherm, 2 isobar, 3 isochore, 4 isentropic,
                                ///< 5 isenthalpic, 6 polytropic, 7 range, 8 vapour fraction
    std::int16_t Phase = 1;     ///< phase at the start, 0 L, 1 V
    std::int16_t RangeIsT = 1;  ///< 1 T range, 0 p range
    std::int16_t BaseDiagramType = 0;
    double RangeStart = 0, RangeEnd = 0;
    double T1 = 0, p1 = 0;
    float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    bool EndToBegin = false;
    double LastT = 0, LastP = 0;  ///< last point of the last run
    double PolytropicExponent = 1.0;
    std::int16_t PolytropicMode = 1;
    bool FromCalculation = false;  ///< the Calculation menu asked for the polytropic process
    double Kappa = 0;              ///< cp/cV, the partner of the exponent; 0 before a choice
    bool Heterogeneous = false;    ///< the line runs inside the dome, over its tie-lines
    bool IdealGasEquation = false;
    std::array<double, 22> PolytropicValues{};  ///< what the polytropic program gave back
};

/// One line of the answer of the polytropic program: T/K, p/kPa and further columns. A value that
/// is missing is not finite.
struct PolytropicPoint {
    double T = 0, p = 0;
    std::vector<double> columns;
};

/// Limits of a surface in displayed units; z limits of -0.01111 and 0.01111 mean no clipping.
struct Grid3D {
    float pMin = 0, pMax = 0;
    float TMin = 0, TMax = 0;
    float vMin = 0, vMax = 0;
    float zMin = -0.01111F, zMax = 0.01111F;
    friend bool operator==(const Grid3D&, const Grid3D&) = default;
};

}  // namespace quor::diagrams
