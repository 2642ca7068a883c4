#include "calculation/phase_functions.h"
#include "legacy/wrappers.h"

#include "common/faults.h"
#include "common/numbers.h"
#include "session/module2.h"

namespace quor::calculation {

using legacy::the_session;

namespace {

constexpr std::size_t kUnitForms = 4;
using Labels = std::array<const char*, kUnitForms>;

constexpr Labels kExergyLabels = {"e/ (kJ/kmol)", "e/ K", "e/ (R T)", "e/ (kJ/kg) "};

/// A row of the table: the name of the function and its label by unit form (kJ/kmol, K, R T,
/// kJ/kg). Volume and speed of sound have labels of their own.
struct Row {
    Function function;
    const char* name;
    Labels labels;
};

constexpr std::array<Row, kFunctionCount> kRows = {{
    {kVolume, "Volume", {}},
    {kH, "Enthalpy", {"h/ (kJ/kmol) ", "h/ K", "h/ (R T)", "h/ (kJ/kg) "}},
    {kS, "Entropy", {"s/ (kJ/kmol/K) ", "s/ R ", "s / (1/K) ", "s / (kJ/(kg K)) "}},
    {kG, "Gibbs Function", {"g/ (kJ/kmol) ", "g/ K", "g/ (R T)", "g/ (kJ/kg) "}},
    {kU, "Internal Energy", {"u/ (kJ/kmol) ", "u/ K", "u/ (R T)", "u/ (kJ/kg) "}},
    {kA, "Helmholtz Funct.", {"a/ (kJ/kmol) ", "a/ K", "a/ (R T)", "a/ (kJ/kg)"}},
    {kExergyH, "Exergy of H", kExergyLabels},
    {kExergyU, "Exergy of U", kExergyLabels},
    {kCp, "Heat Capacity", {"cp/(kJ/kmol/K)", "cp/ R ", "cp /(1/K) ", "cp /(kJ/(kg K)) "}},
    {kCv, "cV", {"cV/(kJ/kmol/K)", "cV/R ", "cV /(1/K) ", "cV /(kJ/(kg K)) "}},
    {kSound, "Speed of Sound", {}},
}};

std::size_t unit_form() {
    const std::int16_t unit = the_session.CaloricUnit;
    return unit >= 0 && unit < static_cast<std::int16_t>(kUnitForms)
               ? static_cast<std::size_t>(unit)
               : 0;
}

std::string label_of(const Row& row) {
    if (row.function == kVolume) return "v/ (" + the_session.VolumeLabel + ")  = ";
    if (row.function == kSound) return label_field("as/ (m/s)");
    return label_field(row.labels[unit_form()]);
}

void store_phase(Job& job, const std::optional<FunctionValues>& phase, std::size_t first,
                 std::size_t sound, calculation::PhaseFunctions& record) {
    if (!phase || phase->status != kSuccess) return;
    const auto scaled = Scaled(*phase);
    for (std::size_t i = kVolume; i <= kCv; ++i) store_fu(job, first + i, scaled[i]);
    store_fu(job, sound, scaled[kSound]);
    record.caloric = phase->z;
}

std::string value_text(const std::optional<FunctionValues>& phase, Function function,
                       TableKind kind, double p) {
    if (!phase || phase->status != kSuccess) return {};
    const auto scaled = Scaled(*phase);
    if (function == kA && kind == TableKind::Page)
        return value32(scaled[kU] - the_session.CaloricFactor * p * phase->z[kVolume]);
    return value32(scaled[function]);
}

}  // namespace

FunctionValues FunctionsAt(double T, double p, double v) {
    const models::StateValues s = models::StateFunctions(T, p, v);
    return {{v, s.h, s.s, s.g, s.u, s.a, s.eH, s.eU, s.cp, s.cv, s.w}, s.table, s.status};
}

std::array<double, kFunctionCount> Scaled(const FunctionValues& molar) {
    std::array<double, kFunctionCount> z = molar.z;
    z[kVolume] *= the_session.VolumeFactor;
    for (std::size_t i = kH; i <= kCv; ++i) z[i] *= the_session.CaloricFactor;
    return z;
}

PhasePair functions_of_phases(const Job& job) {
    PhasePair pair;
    if (job.L.exists && job.L.v > 0) pair.L = FunctionsAt(job.T, job.p, job.L.v);
    if (job.V.exists && job.V.v > 0) pair.V = FunctionsAt(job.T, job.p, job.V.v);
    return pair;
}

void store_functions(Job& job, const PhasePair& pair) {
    store_phase(job, pair.L, kFuL, kFuSoundL, job.record.FuL);
    store_phase(job, pair.V, kFuV, kFuSoundV, job.record.FuV);
}

void function_table(Job& job, const PhasePair& pair, TableKind kind) {
    for (const Row& row : kRows)
        job.list.row(row.name, label_of(row),
                     {value_text(pair.L, row.function, kind, job.p),
                      value_text(pair.V, row.function, kind, job.p)});
}

const char* caloric_label(Function function) {
    return kRows[function].labels[unit_form()];
}

}  // namespace quor::calculation
