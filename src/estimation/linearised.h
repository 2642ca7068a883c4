#pragma once

#include "estimation/fit_models.h"

/// The models in linearised form, for start values: sum of coefficient times parameter = target.
namespace quor::estimation {

bool LinearisedPolynomial(double x, double y, const Parameters&, const ModelContext&,
                          LinearisedPoint& row);
bool LinearisedCombi(double x, double y, const Parameters&, const ModelContext&,
                     LinearisedPoint& row);
bool LinearisedAugust(double T, double p, const Parameters&, const ModelContext& c,
                      LinearisedPoint& row);
bool LinearisedAntoine(double T, double p, const Parameters& par, const ModelContext& c,
                       LinearisedPoint& row);
bool LinearisedFrost(double T, double p, const Parameters& par, const ModelContext& c,
                     LinearisedPoint& row);
bool LinearisedFrostThodos(double T, double p, const Parameters& par, const ModelContext& c,
                           LinearisedPoint& row);
bool LinearisedRiedel(double T, double p, const Parameters& par, const ModelContext& c,
                      LinearisedPoint& row);
bool LinearisedWagner(double T, double p, const Parameters&, const ModelContext& c,
                      LinearisedPoint& row);
bool LinearisedRackett(double T, double rho, const Parameters& par, const ModelContext& c,
                       LinearisedPoint& row);
bool LinearisedLeuna(double T, double rho, const Parameters&, const ModelContext& c,
                     LinearisedPoint& row);
bool LinearisedCubic(double T, double y, const Parameters&, const ModelContext&,
                     LinearisedPoint& row);
bool LinearisedMajer(double T, double h, const Parameters&, const ModelContext& c,
                     LinearisedPoint& row);
bool LinearisedDipprVaporisation(double T, double h, const Parameters&, const ModelContext& c,
                                 LinearisedPoint& row);
bool LinearisedShomate(double T, double cp, const Parameters&, const ModelContext&,
                       LinearisedPoint& row);
bool LinearisedDipprHeatCapacity(double T, double cp, const Parameters& par, const ModelContext&,
                                 LinearisedPoint& row);

}  // namespace quor::estimation
