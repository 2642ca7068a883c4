#pragma once

#include <vector>

#include "calculation/result_records.h"
#include "calculation/task.h"
#include "models/reference_record.h"

namespace quor::calculation {

/// How a phase equilibrium and a liquid are described.
struct Method {
    /// Both phases by the equation of state; else only V, and L by `liquid_by_benson`.
    bool global = true;
    bool liquid_by_benson = true;   ///< L density by Benson's method, else by the database equation
    bool assumed_vle = false;       ///< the given T and p are taken as an equilibrium
    models::BensonPoint reference;  ///< second reference point of Benson's method

    bool operator==(const Method&) const = default;
};

/// What is calculated beside the task itself.
struct Pages {
    bool residual = false;     ///< Joule-Thomson coefficients, fugacities, residual functions
    bool derivatives = false;  ///< derivatives with respect to T, p, v
    bool functions = false;    ///< u, h, s, g ... of the phases

    bool tables() const { return residual || derivatives; }
    bool operator==(const Pages&) const = default;
};

/// A state along a polytropic process; a value that is missing is not finite.
struct ProcessPoint {
    double T = 0, p = 0;  ///< K, kPa
};

/// A polytropic process from T1, p1.
struct Process {
    double T1 = 0, p1 = 0;
    double exponent = 1, kappa = 0;
    bool liquid = false;  ///< L where both phases exist
    std::vector<ProcessPoint> points;
};

/// All that a calculation needs beside the fluid and its reference state.
struct Request {
    Task task = Task::none;
    BatchDataSet given;     ///< T, p and densities; 0 is not given
    bool measured = false;  ///< `given` is measured: its other values may stand in
    Method method;
    Pages pages;
    Tank tank;
    Process process;
};

}  // namespace quor::calculation
