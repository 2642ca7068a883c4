#include "report/teller.h"

#include "common/numbers.h"

namespace quor::report {

using calculation::Phase;
using calculation::Reason;

std::string temperature_text(double T) {
    return "T = " + numbers::format(T, "###0.000 K");
}

std::string pressure_text(double p) {
    return "p = " + pressure_by_mask(p, "####0.000", " kPa");
}

std::string density_text(double rho) {
    return "rho = " + numbers::format(rho, "###0.0###") + " kg/m^3";
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
    const auto density = [](const std::optional<Phase>& phase) {
        return phase && phase->rho > 0.0 ? value32(*phase->rho) : std::string();
    };
    const auto volume = [&](const std::optional<Phase>& phase) {
        return phase && phase->v > 0.0 ? value32(*phase->v * t.units().v) : std::string();
    };
    const calculation::Phases& phases = t.answer.phases;
    t.list.row("density", "rho/ (kg/m^3)  = ", {density(phases.liquid), density(phases.vapour)});
    t.list.row("Volume", "v/ (" + t.units().v_label + ")  = ",
               {volume(phases.liquid), volume(phases.vapour)});
}

}  // namespace quor::report
