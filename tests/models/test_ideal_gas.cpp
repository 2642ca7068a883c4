#include <cmath>
#include <functional>

#include "models/caloric.h"
#include "models/model_codes.h"
#include "models/reference_state.h"
#include "support/fluids.h"

using namespace quor;

namespace {

constexpr double R = 8.31451;

using models::CpForm;

class IdealGas : public testing::Test {
  protected:
    models::SubstanceRecord s;
    CpForm form = CpForm::polynomial;
    models::ReferenceState reference;

    IdealGas() {
        s.name = "test gas";
        s.M = 30;
    }
    void polynomial(std::array<float, 5> c) { s.cp_polynomial = {c, 200, 1500}; }
    std::optional<double> cp_at(double T) const { return models::ideal_gas_cp(s, form, T); }
    std::optional<models::IdealGasState> functions(double T, double p) const {
        models::ReferenceState settled = reference;
        models::settle_reference(settled);
        return models::ideal_gas_functions(s, form, settled, T, p);
    }
    void expect_integrals_of_cp(double T, double p, const std::string& at) const;
    void expect_no_values() const;
};

/// Integral by Gauss-Legendre quadrature with five points on each of 40 pieces.
double integral(const std::function<double(double)>& f, double from, double to) {
    constexpr double x[] = {0, 0.5384693101056831, 0.9061798459386640};
    constexpr double w[] = {0.5688888888888889, 0.4786286704993665, 0.2369268850561891};
    constexpr int kPieces = 40;
    const double half = (to - from) / (2 * kPieces);
    double sum = 0;
    for (int i = 0; i < kPieces; ++i) {
        const double middle = from + (2 * i + 1) * half;
        sum += w[0] * f(middle);
        for (int k = 1; k < 3; ++k)
            sum += w[k] * (f(middle - half * x[k]) + f(middle + half * x[k]));
    }
    return sum * half;
}

void IdealGas::expect_integrals_of_cp(double T, double p, const std::string& at) const {
    const auto cp = [&](double x) { return cp_at(x).value(); };
    const double T0 = static_cast<double>(reference.T0);
    const double p0 = static_cast<double>(reference.p0);
    const auto z = functions(T, p);
    ASSERT_TRUE(z) << at;
    EXPECT_DOUBLE_EQ(z->cp, cp(T)) << at;
    const double h = integral(cp, T0, T);
    const double entropy =
        integral([&](double x) { return cp(x) / x; }, T0, T) - R * std::log(p / p0);
    EXPECT_NEAR(z->h, h, 1e-9 * std::fabs(h) + 1e-7) << at;
    EXPECT_NEAR(z->s, entropy, 1e-9 * std::fabs(entropy) + 1e-9) << at;
}

TEST_F(IdealGas, PolynomialFormsAreChosenByTheirFirstAndLastCoefficient) {
    const double T = 500;
    polynomial({30, 0.02F, 1e-5F, 2e-9F, 1e-12F});
    EXPECT_NEAR(cp_at(T).value(), 30 + 0.02 * T + 1e-5 * T * T + 2e-9 * T * T * T + 0.0625, 1e-5);
    polynomial({30, 0.02F, 1e-5F, 2e-9F, 1.0F});
    EXPECT_NEAR(cp_at(T).value(), 30 + 10 + 2.5 + 0.25 + 1.0 / (T * T), 1e-5);
    polynomial({30, 0.02F, 1e-5F, 2e-9F, -2.5e5F});
    EXPECT_NEAR(cp_at(T).value(), 30 + 10 + 2.5 + 0.25 - 1, 1e-5);
    polynomial({0, 30, 0.02F, 1e-5F, 5e5F});
    EXPECT_NEAR(cp_at(T).value(), 30 + 10 + 2.5 + 2, 1e-5);
    polynomial({9e-9F, 30, 0.02F, 1e-5F, 0.5F});
    EXPECT_NEAR(cp_at(T).value(), 30 + 10 + 2.5 + 0.5 / (T * T), 1e-5);
}

TEST_F(IdealGas, EnthalpyAndEntropyAreTheIntegralsOfEveryPolynomialForm) {
    for (const std::array<float, 5>& c : {std::array{30.0F, 0.02F, 1e-5F, -2e-8F, 1e-11F},
                                          std::array{25.0F, 0.05F, -3e-5F, 7e-9F, -3e5F},
                                          std::array{0.0F, 33.0F, 0.01F, 4e-6F, -2e5F},
                                          std::array{0.0F, 33.0F, 0.01F, 4e-6F, 0.0F}}) {
        polynomial(c);
        for (const double T : {180.0, 298.15, 298.2, 650.0, 1400.0})
            for (const double p : {0.01, 101.325, 5000.0})
                expect_integrals_of_cp(T, p,
                                       "C0 " + std::to_string(c[0]) + ", T " + std::to_string(T));
    }
}

TEST_F(IdealGas, EnthalpyAndEntropyAreTheIntegralsForEverySubstance) {
    int sets = 0;
    for (const std::string& name : fluids::AllNames()) {
        s = fluids::Row(name);
        for (const CpForm each : {CpForm::polynomial, CpForm::sinhCosh}) {
            form = each;
            if (!cp_at(300)) continue;
            ++sets;
            for (const double T : {210.0, 400.0, 900.0}) expect_integrals_of_cp(T, 250, name);
        }
    }
    EXPECT_GT(sets, 300);
}

TEST_F(IdealGas, ReferencePointHasTheReferenceValues) {
    polynomial({30, 0.02F, 0, 0, 0});
    reference.T0 = 350;
    reference.p0 = 200;
    reference.href = 1000;
    reference.sref = -3;
    const auto z = functions(350, 200);
    EXPECT_TRUE(z);
    EXPECT_EQ(z->h, 1000);
    EXPECT_EQ(z->s, -3);
}

TEST_F(IdealGas, PressureEntersTheEntropyOnce) {
    polynomial({30, 0, 0, 0, 0});
    const double low = functions(400, 100)->s;
    const double high = functions(400, 200)->s;
    EXPECT_NEAR(low - high, R * std::log(2.0), 1e-12);
}

TEST_F(IdealGas, WithoutPressureTheEntropyIsThatOfTheReferencePressure) {
    polynomial({30, 0, 0, 0, 0});
    EXPECT_NEAR(functions(400, 0)->s, functions(400, static_cast<double>(reference.p0))->s, 1e-12);
}

void IdealGas::expect_no_values() const {
    EXPECT_FALSE(cp_at(300));
    const auto z = functions(300, 100);
    EXPECT_FALSE(z);
}

TEST_F(IdealGas, NoCpFormFails) {
    polynomial({30, 0, 0, 0, 0});
    form = CpForm::none;
    expect_no_values();
    for (const int code : {3, -1}) EXPECT_FALSE(models::cp_form_of_code(code)) << code;
}

TEST_F(IdealGas, AnAbsentSetFails) {
    // A cell without a value is read as 0, one with a zero as 1E-37.
    polynomial({0, 0, 0, 0, 0});
    expect_no_values();
    polynomial({1e-37F, 1e-37F, 0, 0, 0});
    expect_no_values();
    form = CpForm::sinhCosh;
    expect_no_values();
}

TEST_F(IdealGas, SinhCoshFormFailsWhereItsExponentialsFault) {
    form = CpForm::sinhCosh;
    s.cp_sinh_cosh = {{33, 80, 1500, 40, 700}, 200, 1500};
    EXPECT_TRUE(cp_at(3));   // C2/T = 500
    EXPECT_FALSE(cp_at(2));  // C2/T = 750 overflows
    EXPECT_FALSE(functions(2, 100));
    EXPECT_FALSE(functions(0.1, 100));
    EXPECT_FALSE(functions(0, 100));
    EXPECT_FALSE(functions(-300, 100));
    s.cp_sinh_cosh.c[2] = 0;  // x/sinh(x) becomes 0/0
    EXPECT_FALSE(cp_at(300));
    s.cp_sinh_cosh.c[2] = -1500;  // the logarithm of a negative sinh
    EXPECT_FALSE(functions(300, 100));
}

TEST_F(IdealGas, PolynomialFailsWithoutATemperature) {
    polynomial({30, 0, 0, 0, 1e5F});
    EXPECT_FALSE(functions(0, 100));
    EXPECT_FALSE(functions(-10, 100));
    reference.T0 = 0;
    EXPECT_FALSE(functions(300, 100));
}

TEST_F(IdealGas, LiquidAndSolidUseThePolynomialForms) {
    EXPECT_FALSE(models::polynomial_cp(s.cpL, 300));
    EXPECT_FALSE(models::polynomial_cp(s.cpS, 300));
    s.cpL = {{100, 0.1F, 0, 0, 1e-10F}, 200, 400};
    s.cpS = {{0, 20, 0.1F, 0, 9e4F}, 100, 250};
    EXPECT_NEAR(models::polynomial_cp(s.cpL, 300).value(), 100 + 30 + 0.81, 1e-5);
    EXPECT_NEAR(models::polynomial_cp(s.cpS, 200).value(), 20 + 20 + 2.25, 1e-5);
    s.cpL.c[4] = -9e6F;
    EXPECT_NEAR(models::polynomial_cp(s.cpL, 300).value(), 100 + 30 - 100, 1e-5);
}

}  // namespace
