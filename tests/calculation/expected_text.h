#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "calc_test.h"

using namespace quor;

/// What a calculation must show, put together from the kernels of the models and from formats of
/// the C library: a second way to the same text.
namespace expected {

struct Result {
    std::string par1, par2, co1, co2;
    std::vector<std::string> list;
    std::string phases = "   ";
    std::array<double, 42> numbers{};
    bool failed = false;
};

/// The result of a calculation by its code for an input.
Result Of(const Setting& setting, int mode, const calculation::BatchDataSet& input);

// Numbers with the decimal mark in use.

/// Seven significant digits: "%.7G" of the 32-bit value.
std::string g7(double value);
/// A fixed number of decimals.
std::string fix(double value, int decimals);
/// At least `least` and at most `most` decimals.
std::string between(double value, int least, int most);
/// Four decimals and an exponent of two digits, with a blank for the sign of a positive value.
std::string signed_exp(double value);
/// A row of two labels of 17 characters and two values of 20.
std::string row(const std::string& name, const std::string& label, const std::string& L,
                const std::string& V);
/// A pressure with `decimals`, below 0.01 with seven digits.
std::string pressure(double p, int decimals = 3);

}  // namespace expected
