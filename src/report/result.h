#pragma once

#include "calculation/calculate.h"
#include "report/function_values.h"
#include "report/messages.h"

namespace quor::report {

/// Functions of one phase for the comparison lists.
struct PhaseRecord {
    /// v, h, s, g, u, a, e(H), e(U), cp, cv, w, as far as they are known.
    std::array<std::optional<double>, 11> caloric{};
    std::array<double, 24> extended{};  ///< values in the order of `models::function_label`
};

/// The result of one data set as 32-bit values.
struct ResultRecord {
    std::string phases = "   ";  ///< " V ", " L ", "V+L" or blanks
    float T = 0;                 ///< calculated T, K
    float p = 0;                 ///< calculated p, kPa
    float rhoV = 0, rhoL = 0;    ///< calculated densities, kg/m^3
    float hLV = 0;               ///< calculated delta(LV)h, kJ/kmol
    PhaseRecord vapour, liquid;
};

/// The record of an answer; an empty one after a failure. Throws `faults::Fault` for a number
/// beyond 32 bits.
ResultRecord record_of(const calculation::Answer& answer);

/// 0 without V phase, 100 without L phase; of a tank the share of its volume that the L phase
/// fills, per cent.
float fraction_of(const calculation::Answer& answer);

/// A calculation with all that it was made from and what is told of it.
struct TaskResult {
    Made made;
    calculation::Request request;
    calculation::Answer answer;
    Report report;
    ResultNumbers numbers{};
    ResultRecord record;
    std::size_t data_set = 0;  ///< number of the measured data set, from 1 on; 0 is a direct input

    bool failed() const { return !answer.ok() || !report.fault.empty(); }
    /// The calculation was refused: it shows nothing.
    bool refused() const { return answer.reason == calculation::Reason::tankAboveCritical; }
};

/// Calculates and makes the words. Never throws: a number that cannot be had or written is a fault
/// of the answer or of the report.
TaskResult make_result(const models::Fluid& fluid, const models::ReferenceState& reference,
                       const models::UnitChoice& units, const calculation::Request& request);

/// The same result in other units: nothing is calculated. Units that the fluid cannot have become
/// molar ones, and what was not calculated at all stays as it is. Never throws.
TaskResult told_in(const TaskResult& result, const models::UnitChoice& choice);

/// The boxes that belong to a result.
std::vector<dialogs::Message> messages(const TaskResult& result, Tell tell);

/// Results of the last calculation.
struct ResultSet {
    TaskResult current;
    std::vector<ResultRecord> rows;  ///< one for each data set
};

}  // namespace quor::report
