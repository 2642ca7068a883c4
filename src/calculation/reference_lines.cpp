#include "calculation/reference_lines.h"
#include "legacy/wrappers.h"

#include "common/numbers.h"
#include "common/text.h"
#include "legacy/declare.h"
#include "models/model_tables.h"
#include "models/reference_state.h"

namespace quor::calculation {

namespace {

constexpr std::int16_t kConventional = 2;
constexpr std::int16_t kFormation = 10;

std::string general(double value, Numbers how) {
    const auto single = static_cast<float>(value);
    return how == Numbers::Point ? numbers::general_point(single) : numbers::General(single);
}

std::string at(double T, double p, Numbers how) {
    return general(T, how) + " K, " + general(p, how) + " kPa";
}

std::string models_line() {
    return "Model: " + text::trim(models::EOSName(legacy::the_models.EOSModel)) +
           "; ideal-gas cp: " + text::trim(models::cp_name(legacy::the_models.CpModel));
}

std::string zero_line(const models::ReferenceState& r, Numbers how) {
    const std::string state =
        "ideal gas at " + at(static_cast<double>(r.T0), static_cast<double>(r.p0), how);
    switch (r.RefMode) {
        case kConventional:
            return "Reference state: conventional h and s, " + state;
        case kFormation:
            return "Reference state: quantities of formation, " + state;
        default:
            break;
    }
    if (r.href == 0.0 && r.sref == 0.0) return "Reference state: h = 0, s = 0, " + state;
    return "Reference state: h = " + general(r.href, how) +
           " kJ/kmol, s = " + general(r.sref, how) + " kJ/(kmol K), " + state;
}

}  // namespace

std::vector<std::string> reference_lines(bool exergies, Numbers how) {
    // Asking for the values settles T0 and p0 of the kinds that fix them.
    models::ReferenceValues(0.0);
    const models::ReferenceState& r = legacy::the_reference;
    std::vector<std::string> lines = {models_line(), zero_line(r, how)};
    if (exergies) lines.push_back("Surroundings for exergies: " + at(r.Tenv, r.penv, how));
    return lines;
}

std::string ReferenceLine() {
    std::string all;
    for (const std::string& line : reference_lines()) all += (all.empty() ? "" : "; ") + line;
    return all;
}

}  // namespace quor::calculation
