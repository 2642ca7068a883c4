#include "report/direct_input.h"

#include "common/constants.h"
#include "common/faults.h"
#include "common/numbers.h"

namespace quor::report {

using constants::kPresent;

namespace {

constexpr std::size_t kT = 0, kP = 1, kRho = 2;

using Values = std::array<double, 4>;

/// Label of a volume field and text of its frame by system of units.
struct VolumeLabels {
    const char* frame;
    const char* label;
};
constexpr VolumeLabels kVolumeLabels[] = {
    {" Input molar volume, cf. \"Options\" ", " V/m^3/kmol = "},
    {" Input specif. volume, cf. Options ", "  V/m^3/kg  = "},
    {" Input red. volume, cf. Options ", "  V/(m^3/m^3)= "}};

DirectInput reference_input() {
    return {"Input: Reference Point",
            "OK",
            {{{true, "        T/K = "},
              {true, "  p(LV)/kPa = "},
              {true, "rho_L/kg/m^3= "},
              {true, "rho_V/kg/m^3= "}}},
            false,
            {},
            false};
}

DirectInput tank_input(bool amount) {
    return {"Tank Calculation",
            "&Calculate",
            {{{true, "      V/m^3   "},
              {true, amount ? "      n/kmol  " : "      m/kg    "},
              {true, "      T/K     "},
              {}}},
            false,
            {},
            true};
}

DirectInput state_input(const InputForm& form) {
    DirectInput input{"Input \"Direct calculation\" ", "&Calculate", {}, false, {}, false};
    const unsigned asks = asks_of(form.task);
    if ((asks & calculation::kAsksT) != 0) input.fields[kT] = {true, "      T/K     "};
    if ((asks & calculation::kAsksP) != 0) input.fields[kP] = {true, "      p/kPa = "};
    if ((asks & calculation::kAsksRho) == 0) return input;
    const VolumeLabels& labels = kVolumeLabels[static_cast<std::size_t>(form.system)];
    input.volume_frame_visible = true;
    input.volume_frame = form.volume ? labels.frame : " Input density kg/m^3 ";
    input.fields[kRho] = {true, form.volume ? labels.label : " rho/kg/m^3 = "};
    return input;
}

/// What is typed in the visible fields; a hidden field counts as 0.
Values values_of(const DirectInput& input, const std::array<std::string, 4>& texts) {
    Values values{};
    for (std::size_t i = 0; i < values.size(); ++i)
        if (input.fields[i].visible) values[i] = numbers::val_input(texts[i]);
    return values;
}

double product(const DirectInput& input, const Values& values) {
    double p = 1.0;
    for (std::size_t i = 0; i < values.size(); ++i)
        if (input.fields[i].visible) p *= values[i];
    return p;
}

double sum(const Values& values) {
    double s = 0;
    for (const double v : values) s += v;
    return s;
}

double density_of(double typed, const InputForm& form, const models::Fluid& fluid,
                  const models::UnitChoice& units) {
    if (typed == 0.0 || !form.volume) return typed;
    const auto M = static_cast<double>(fluid.substance().M);
    return faults::divide(M, typed / models::make_units(units, fluid).v);
}

calculation::Tank tank_of(const Values& v, double M, bool amount) {
    return {.V = numbers::to_single(v[0]),
            .m = numbers::to_single(amount ? v[1] * M : v[1]),
            .T = numbers::to_single(v[2])};
}

models::BensonPoint reference_of(const Values& v) {
    return {numbers::to_single(v[0]), numbers::to_single(v[1]), numbers::to_single(v[2]),
            numbers::to_single(v[3])};
}

}  // namespace

models::UnitSystem volume_system(const models::UnitChoice& units, const models::Fluid& fluid) {
    const bool reduced = units.system == models::UnitSystem::reduced;
    return reduced && !(fluid.eos().vcrit_calculated > 0) ? models::UnitSystem::molar
                                                          : units.system;
}

DirectInput describe_direct_input(const InputForm& form) {
    if (form.kind == InputKind::reference) return reference_input();
    if (form.kind == InputKind::tank) return tank_input(form.amount);
    return state_input(form);
}

std::optional<TypedInput> read_input(const InputForm& form, const std::array<std::string, 4>& texts,
                                     const models::Fluid& fluid, const models::UnitChoice& units) {
    try {
        const DirectInput input = describe_direct_input(form);
        const Values v = values_of(input, texts);
        const bool state = form.kind == InputKind::state;
        if (!((state ? sum(v) : product(input, v)) > kPresent)) return std::nullopt;
        if (form.kind == InputKind::reference) return reference_of(v);
        if (!state) return tank_of(v, static_cast<double>(fluid.substance().M), form.amount);
        return DirectValues{v[kT], v[kP],
                            numbers::to_single(density_of(v[kRho], form, fluid, units)),
                            substance_key(fluid)};
    } catch (const faults::Fault&) {
        // A number beyond the range of its field.
        return std::nullopt;
    }
}

}  // namespace quor::report
