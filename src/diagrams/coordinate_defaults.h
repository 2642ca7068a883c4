#pragma once

namespace quor::diagrams {

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

    bool operator==(const CoordinateDefaults&) const = default;
};

/// A window of a diagram in displayed units.
struct CurveWindow {
    float xMin = 0, xMax = 0, yMin = 0, yMax = 0;

    bool operator==(const CurveWindow&) const = default;
};

}  // namespace quor::diagrams
