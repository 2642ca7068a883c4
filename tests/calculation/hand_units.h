#pragma once

#include <cctype>
#include <cmath>
#include <map>
#include <stdexcept>
#include <string>

/// Units converted by hand, apart from the table of the system: a unit is read as an expression of
/// simple ones, each with its size in SI.
class HandUnits {
  public:
    /// M in kg/kmol, v(cr) in m^3/kmol.
    HandUnits(double M, double v_critical) : M_(M), v_critical_(v_critical) {}

    /// A number with its unit in SI, per kg and absolute.
    double si(double value, const std::string& unit) const {
        if (unit == "degC") return value + 273.15;
        if (unit == "degF") return (value + 459.67) / 1.8;
        if (unit.ends_with("(g)")) return value * size(unit.substr(0, unit.size() - 3)) + 101325.0;
        return value * size(unit);
    }

    /// The size of a unit in SI.
    double size(const std::string& unit) const {
        if (unit == "degC" || unit == "%") return 1.0;
        if (unit == "degF") return 1 / 1.8;
        if (unit == "V(red)") return v_critical_ / M_;
        if (unit.ends_with("(g)")) return size(unit.substr(0, unit.size() - 3));
        if (unit == "kJ/(kmol/)") return size("kJ/(kmol K)");
        std::size_t at = 0;
        const double all = product(unit, at);
        if (at != unit.size()) throw std::runtime_error("no unit: " + unit);
        return all;
    }

  private:
    double product(const std::string& s, std::size_t& at) const {
        double all = power(s, at);
        while (at < s.size() && (s[at] == '/' || s[at] == ' ')) {
            const bool divided = s[at++] == '/';
            const double next = power(s, at);
            all = divided ? all / next : all * next;
        }
        return all;
    }

    double power(const std::string& s, std::size_t& at) const {
        double base = 1;
        if (at < s.size() && s[at] == '(') {
            base = product(s, ++at);
            if (at >= s.size() || s[at++] != ')') throw std::runtime_error("no unit: " + s);
        } else {
            const std::size_t start = at;
            while (at < s.size() && std::isalnum(static_cast<unsigned char>(s[at])) != 0) ++at;
            base = simple(s.substr(start, at - start), s);
        }
        if (at < s.size() && s[at] == '^') {
            ++at;
            base = std::pow(base, s[at++] - '0');
        }
        return base;
    }

    double simple(const std::string& name, const std::string& whole) const {
        const std::map<std::string, double> sizes = {{"", 1},
                                                     {"1", 1},
                                                     {"K", 1},
                                                     {"degR", 1 / 1.8},
                                                     {"Pa", 1},
                                                     {"kPa", 1e3},
                                                     {"bar", 1e5},
                                                     {"MPa", 1e6},
                                                     {"psi", 6894.757293168361},
                                                     {"m", 1},
                                                     {"cm", 0.01},
                                                     {"ft", 0.3048},
                                                     {"l", 1e-3},
                                                     {"kg", 1},
                                                     {"t", 1000},
                                                     {"g", 1e-3},
                                                     {"lb", 0.45359237},
                                                     {"kmol", M_},
                                                     {"mol", M_ / 1000},
                                                     {"lbmol", 0.45359237 * M_},
                                                     {"J", 1},
                                                     {"kJ", 1e3},
                                                     {"BTU", 2326 * 0.45359237},
                                                     {"s", 1}};
        const auto found = sizes.find(name);
        if (found == sizes.end()) throw std::runtime_error("no unit: " + name + " in " + whole);
        return found->second;
    }

    double M_, v_critical_;
};
