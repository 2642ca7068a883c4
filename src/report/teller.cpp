#include "report/teller.h"

namespace quor::report {

using calculation::Phase;
using calculation::Reason;

std::string with_unit(const Teller& t, Dimension dimension, double value, std::string_view mask) {
    return by_mask(t.units(), dimension, value, mask) + " " + unit_name(t.units(), dimension);
}

std::string temperature_text(const Teller& t, double T) {
    return "T = " + with_unit(t, Dimension::temperature, T, "###0.000");
}

std::string pressure_text(const Teller& t, double p) {
    return "p = " + pressure_with_unit(t, p, "####0.000");
}

std::string density_text(const Teller& t, double rho) {
    return "rho = " + with_unit(t, Dimension::density, rho, "###0.0###");
}

std::string pressure_with_unit(const Teller& t, double p, std::string_view mask) {
    return pressure_by_mask(t.units(), p, mask) + " " + unit_name(t.units(), Dimension::pressure);
}

std::string density_label(const Teller& t) {
    return label_field("rho/ (" + unit_name(t.units(), Dimension::density) + ")");
}

std::string volume_label(const Teller& t) {
    if (t.units().has_own(Dimension::volume))
        return label_field("v/ (" + unit_name(t.units(), Dimension::volume) + ")");
    return "v/ (" + t.units().v_label + ")  = ";
}

std::string error_code() {
    return " (E-1)";
}

void calculation_error(Teller& t, const std::string& text) {
    constexpr std::size_t kIndent = 25;
    t.list.add_red("Message from Sub CalcBatch" + std::string(kIndent, ' ') + text);
}

bool tell_missing(Teller& t) {
    const auto tell = [&](const char* text) {
        t.out.par1 = {text, true, false};
        return true;
    };
    switch (t.answer.reason) {
        case Reason::noT:
            return tell("no T in this data set");
        case Reason::noP:
            return tell("No p in this data set");
        case Reason::noRho:
            return tell("no rho in this data set");
        case Reason::noLiquidDensity:
            return tell("no density in this data set");
        default:
            return false;
    }
}

void density_lines(Teller& t) {
    const auto density = [&](const std::optional<Phase>& phase) {
        return phase && phase->rho > 0.0 ? value32(t.units(), Dimension::density, *phase->rho)
                                         : std::string();
    };
    const auto volume = [&](const std::optional<Phase>& phase) {
        return phase && phase->v > 0.0 ? value32(t.units(), Dimension::volume, *phase->v)
                                       : std::string();
    };
    const calculation::Phases& phases = t.answer.phases;
    t.list.row("density", density_label(t), {density(phases.liquid), density(phases.vapour)});
    t.list.row("Volume", volume_label(t), {volume(phases.liquid), volume(phases.vapour)});
}

}  // namespace quor::report
