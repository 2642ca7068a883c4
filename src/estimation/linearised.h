#pragma once

#include "estimation/fit_models.h"

/// The models in linearised form, for start values: sum of coefficient times parameter = target.
namespace quor::estimation {

bool linearised_polynomial(double x, double y, const Parameters&, const ModelContext&,
                           LinearisedPoint& row);
bool linearised_combi(double x, double y, const Parameters&, const ModelContext&,
                      LinearisedPoint& row);
bool linearised_august(double T, double p, const Parameters&, const ModelContext& c,
                       LinearisedPoint& row);
bool linearised_antoine(double T, double p, const Parameters& par, const ModelContext& c,
                        LinearisedPoint& row);
bool linearised_frost(double T, double p, const Parameters& par, const ModelContext& c,
                      LinearisedPoint& row);
bool linearised_frost_thodos(double T, double p, const Parameters& par, const ModelContext& c,
                             LinearisedPoint& row);
bool linearised_riedel(double T, double p, const Parameters& par, const ModelContext& c,
                       LinearisedPoint& row);
bool linearised_wagner(double T, double p, const Parameters&, const ModelContext& c,
                       LinearisedPoint& row);
bool linearised_rackett(double T, double rho, const Parameters& par, const ModelContext& c,
                        LinearisedPoint& row);
bool linearised_leuna(double T, double rho, const Parameters&, const ModelContext& c,
                      LinearisedPoint& row);
bool linearised_cubic(double T, double y, const Parameters&, const ModelContext&,
                      LinearisedPoint& row);
bool linearised_majer(double T, double h, const Parameters&, const ModelContext& c,
                      LinearisedPoint& row);
bool linearised_dippr_vaporisation(double T, double h, const Parameters&, const ModelContext& c,
                                   LinearisedPoint& row);
bool linearised_shomate(double T, double cp, const Parameters&, const ModelContext&,
                        LinearisedPoint& row);
bool linearised_dippr_heat_capacity(double T, double cp, const Parameters& par, const ModelContext&,
                                    LinearisedPoint& row);

}  // namespace quor::estimation
