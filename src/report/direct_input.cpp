#include "report/direct_input.h"

#include "common/constants.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "common/text.h"
#include "models/unit_text.h"

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

using models::Dimension;

/// A field of a quantity: with its told label, or with the unit that was chosen for it.
InputField field_of(const InputForm& form, Dimension dimension, const char* told,
                    const char* symbol) {
    const models::Scale& scale = form.units.of(dimension);
    if (!form.units.has_own(dimension)) return {true, told, dimension, scale};
    const std::string unit = models::pretty_unit(scale.name);
    const bool compound = unit.find('/') != std::string::npos;
    return {true, std::string(symbol) + (compound ? "/(" + unit + ") = " : "/" + unit + " = "),
            dimension, scale};
}

DirectInput reference_input(const InputForm& form) {
    return {"Input: Reference Point",
            "OK",
            {{field_of(form, Dimension::temperature, "        T/K = ", "T"),
              field_of(form, Dimension::pressure, "  p(LV)/kPa = ", "p(LV)"),
              field_of(form, Dimension::density, "rho_L/kg/m^3= ", "rho_L"),
              field_of(form, Dimension::density, "rho_V/kg/m^3= ", "rho_V")}},
            false,
            {},
            false};
}

DirectInput tank_input(const InputForm& form) {
    return {"Tank Calculation",
            "&Calculate",
            {{field_of(form, Dimension::tankVolume, "      V/m^3   ", "V"),
              form.amount ? field_of(form, Dimension::amount, "      n/kmol  ", "n")
                          : field_of(form, Dimension::mass, "      m/kg    ", "m"),
              field_of(form, Dimension::temperature, "      T/K     ", "T"),
              {}}},
            false,
            {},
            true};
}

/// Text of the frame round the choice between density and volume.
std::string volume_frame(const InputForm& form) {
    if (form.volume) return kVolumeLabels[static_cast<std::size_t>(form.units.choice.system)].frame;
    return form.units.has_own(Dimension::density) ? " Input density " : " Input density kg/m^3 ";
}

DirectInput state_input(const InputForm& form) {
    DirectInput input{"Input \"Direct calculation\" ", "&Calculate", {}, false, {}, false};
    const unsigned asks = asks_of(form.task);
    if ((asks & calculation::kAsksT) != 0)
        input.fields[kT] = field_of(form, Dimension::temperature, "      T/K     ", "T");
    if ((asks & calculation::kAsksP) != 0)
        input.fields[kP] = field_of(form, Dimension::pressure, "      p/kPa = ", "p");
    if ((asks & calculation::kAsksRho) == 0) return input;
    const auto system = static_cast<std::size_t>(form.units.choice.system);
    input.volume_frame_visible = true;
    input.volume_frame = volume_frame(form);
    input.fields[kRho] = form.volume
                             ? field_of(form, Dimension::volume, kVolumeLabels[system].label, "V")
                             : field_of(form, Dimension::density, " rho/kg/m^3 = ", "rho");
    return input;
}

/// What is typed in the visible fields, in base units; a hidden and an empty field count as 0.
Values values_of(const DirectInput& input, const std::array<std::string, 4>& texts) {
    Values values{};
    for (std::size_t i = 0; i < values.size(); ++i)
        if (input.fields[i].visible && !text::trim(texts[i]).empty())
            values[i] = input.fields[i].scale.value(numbers::val_input(texts[i]));
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

/// The density of what stands in the field of it or of a volume.
double density_of(double value, const InputForm& form, const models::Fluid& fluid) {
    if (value == 0.0 || !form.volume) return value;
    const auto M = static_cast<double>(fluid.substance().M);
    return 1 / faults::divide(value, M);
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

DirectInput describe_direct_input(const InputForm& form) {
    if (form.kind == InputKind::reference) return reference_input(form);
    if (form.kind == InputKind::tank) return tank_input(form);
    return state_input(form);
}

std::optional<TypedInput> read_input(const InputForm& form, const std::array<std::string, 4>& texts,
                                     const models::Fluid& fluid) {
    try {
        const DirectInput input = describe_direct_input(form);
        const Values v = values_of(input, texts);
        const bool state = form.kind == InputKind::state;
        if (!((state ? sum(v) : product(input, v)) > kPresent)) return std::nullopt;
        if (form.kind == InputKind::reference) return reference_of(v);
        if (!state) return tank_of(v, static_cast<double>(fluid.substance().M), form.amount);
        return DirectValues{v[kT], v[kP], numbers::to_single(density_of(v[kRho], form, fluid)),
                            substance_key(fluid)};
    } catch (const faults::Fault&) {
        // A number beyond the range of its field.
        return std::nullopt;
    }
}

}  // namespace quor::report
