#pragma once

#include <cmath>
#include <cstdint>

using namespace quor;

/// The cubic equations as their papers write them, as an oracle for curves: van der Waals 2,
/// Berthelot 3, Redlich/Kwong 4, Soave 5, Peng/Robinson 6. K, kPa, m^3/kmol.
class Textbook {
  public:
    Textbook(int code, double Tcrit, double pcrit, double omega)
        : code_(code), Tc_(Tcrit), pc_(pcrit), omega_(omega) {}

    static constexpr double R = 8.31451;

    double b() const {
        constexpr double kFactor[] = {0.125, 0.125, 0.08664034996, 0.08664034996, 0.0777960739};
        return kFactor[code_ - 2] * R * Tc_ / pc_;
    }

    double a(double T) const {
        const double Tr = T / Tc_;
        const double scale = R * R * Tc_ * Tc_ / pc_;
        switch (code_) {
            case 2:
                return 0.421875 * scale;
            case 3:
                return 0.421875 * scale / Tr;
            case 4:
                return 0.4274802336 * scale / std::sqrt(Tr);
            case 5:
                return 0.4274802336 * scale * alpha(0.48, 1.574, 0.176, Tr);
            default:
                return 0.4572355289 * scale * alpha(0.37464, 1.54226, 0.26992, Tr);
        }
    }

    double pressure(double T, double v) const {
        const double repulsion = R * T / (v - b());
        if (code_ <= 3) return repulsion - a(T) / (v * v);
        if (code_ <= 5) return repulsion - a(T) / (v * (v + b()));
        return repulsion - a(T) / (v * (v + b()) + b() * (v - b()));
    }

    /// ln of the fugacity coefficient, from z and the pressure at T, v.
    double ln_phi(double T, double v) const {
        const double p = pressure(T, v);
        const double z = p * v / (R * T);
        const double A = a(T) * p / (R * R * T * T);
        const double B = b() * p / (R * T);
        if (code_ <= 3) return z - 1 - std::log(z - B) - A / z;
        if (code_ <= 5) return z - 1 - std::log(z - B) - A / B * std::log(1 + B / z);
        const double root = std::sqrt(2.0);
        return z - 1 - std::log(z - B) -
               A / (2 * root * B) * std::log((z + (1 + root) * B) / (z + (1 - root) * B));
    }

    /// Relative slope of the isotherm, by which an error in p becomes one in v.
    double slope(double T, double v) const {
        const double h = 1e-6 * v;
        return (pressure(T, v + h) - pressure(T, v - h)) / (2 * h);
    }

  private:
    double alpha(double m0, double m1, double m2, double Tr) const {
        const double m = m0 + m1 * omega_ - m2 * omega_ * omega_;
        const double root = 1 + m * (1 - std::sqrt(Tr));
        return root * root;
    }

    int code_;
    double Tc_, pc_, omega_;
};
