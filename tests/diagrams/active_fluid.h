#pragma once

#include <cmath>
#include <string>

#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/vapour_pressure.h"
#include "session/module2.h"
#include "support/fluids.h"
#include "support/session_test.h"

using namespace quor;

/// Equal to the digits of a 32-bit float.
inline bool Close(double a, double b) {
    return std::fabs(a - b) <= 1e-6 * std::fabs(b) + 1e-9;
}

/// Session fixture with a substance of data/substances.csv and models of one's choice.
class ActiveFluid : public SessionTest {
  protected:
    static constexpr std::int16_t kVanDerWaals = 2, kBerthelot = 3, kRedlichKwong = 4, kSoave = 5,
                                  kPengRobinson = 6, kVirial = 15, kPitzerCurl = 16;

    /// Makes a substance with an EOS, the Wagner equation and the first cp form it has active. The
    /// limits of the diagrams follow.
    static void activate(const std::string& name, std::int16_t eos = kPengRobinson);

    /// The same with a V-only equation.
    static void activate_vapour_only(const std::string& name, std::int16_t eos = kVirial) {
        activate(name, eos);
    }

    /// Units as the options set them.
    static void set_units(std::int16_t CaloricUnit, std::int16_t UnitMode);
};
