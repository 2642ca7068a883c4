#include "calculation/reference_lines.h"

#include "common/numbers.h"
#include "common/text.h"
#include "models/model_tables.h"
#include "models/reference_state.h"
#include "session/declare.h"

namespace Zentrale {

namespace {

constexpr std::int16_t kConventional = 2;
constexpr std::int16_t kFormation = 10;

std::string at(double T, double p) {
    return numbers::General(static_cast<float>(T)) + " K, " +
           numbers::General(static_cast<float>(p)) + " kPa";
}

std::string models_line() {
    return "Model: " + text::Trim(Calc::EOSName(Declare::models.EOSModel)) +
           "; ideal-gas cp: " + text::Trim(Calc::CpName(Declare::models.CpModel));
}

std::string zero_line(const Declare::ReferenceState& r) {
    const std::string state =
        "ideal gas at " + at(static_cast<double>(r.T0), static_cast<double>(r.p0));
    switch (r.RefMode) {
        case kConventional:
            return "Reference state: conventional h and s, " + state;
        case kFormation:
            return "Reference state: quantities of formation, " + state;
        default:
            break;
    }
    if (r.href == 0.0 && r.sref == 0.0) return "Reference state: h = 0, s = 0, " + state;
    return "Reference state: h = " + numbers::General(static_cast<float>(r.href)) +
           " kJ/kmol, s = " + numbers::General(static_cast<float>(r.sref)) + " kJ/(kmol K), " +
           state;
}

}  // namespace

std::vector<std::string> ReferenceLines(bool exergies) {
    // Asking for the values settles T0 and p0 of the kinds that fix them.
    thermo::ReferenceValues(0.0);
    const Declare::ReferenceState& r = Declare::reference;
    std::vector<std::string> lines = {models_line(), zero_line(r)};
    if (exergies) lines.push_back("Surroundings for exergies: " + at(r.Tenv, r.penv));
    return lines;
}

std::string ReferenceLine() {
    std::string all;
    for (const std::string& line : ReferenceLines()) all += (all.empty() ? "" : "; ") + line;
    return all;
}

}  // namespace Zentrale
