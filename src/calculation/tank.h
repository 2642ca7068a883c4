#pragma once

#include <string>

#include "calculation/job.h"

/// The closed tank: how its content divides between V and L, and the picture of its filling.
namespace quor::calculation {

/// Content of the tank by phases.
struct TankContent {
    double V = 0, m = 0;        ///< m^3, kg
    double VV = 0;              ///< volume of the V phase, m^3
    double rhoL = 0, rhoV = 0;  ///< kg/m^3; 0 for a phase that does not exist
    double y = 0;               ///< vapour fraction (of mass and of amount)
    /// Share of the volume that the L phase fills, per cent.
    double level() const { return (V - VV) * 100.0 / V; }
};

/// Divides volume V and mass m between phases of density rhoL and rhoV.
TankContent divide_tank(double V, double m, double rhoL, double rhoV);

/// V, m and T of the session, or false when they do not describe a tank.
bool fetch_tank(Job& job);

/// The partial method: V density from the EOS, L density by Benson's method or the database
/// equation, p from the vapour pressure equation. False after an error.
bool PartialTank(Job& job);

/// Lines of the content and `FractionV`.
void tank_lines(Job& job, const TankContent& content);

/// What `TankView` shows.
struct TankPicture {
    std::string title;    ///< of the view
    std::string caption;  ///< of the frame
    double level = 0;     ///< filling level, per cent of the volume, 0 to 100
    std::string levelText;
    std::string pText;
    std::string hint;            ///< where help on an error is, else empty
    std::string lowerText;       ///< in the filled part
    std::string upperText;       ///< in the rest
    bool supercritical = false;  ///< one colour
    bool error = false;          ///< red
    /// The smaller of the two parts for the section of the cylinder, per cent; `mirrored` when that
    /// is the V part.
    double section = 0;
    bool mirrored = false;
};

/// The picture of the last tank calculation; `answer` is the text that `CalcBatch` gave back.
TankPicture describe_tank(const std::string& answer);

}  // namespace quor::calculation
