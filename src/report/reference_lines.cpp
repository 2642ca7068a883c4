#include "report/reference_lines.h"

#include "common/numbers.h"
#include "common/single.h"
#include "common/text.h"
#include "models/model_tables.h"
#include "models/named_reference.h"

namespace quor::report {

namespace {

constexpr std::int16_t kConventional = 2;
constexpr std::int16_t kFormation = 10;

/// A value that 32 bits do not hold stands as it is.
std::string general(double value, Numbers how) {
    const bool point = how == Numbers::Point;
    if (!numbers::fits_single(value))
        return point ? numbers::general_point(value) : numbers::general(value);
    const auto single = static_cast<float>(value);
    return point ? numbers::general_point(single) : numbers::general(single);
}

std::string at(double T, double p, Numbers how) {
    return general(T, how) + " K, " + general(p, how) + " kPa";
}

std::string models_line(const models::ModelSelection& models) {
    return "Model: " + text::trim(models::eos_name(models.eos)) +
           "; ideal-gas cp: " + text::trim(models::cp_name(models.cp_form));
}

/// A state of the user's own is named by its values.
std::string own_line(const models::OwnState& own, Numbers how) {
    return "h = " + general(own.h, how) + " kJ/kmol, s = " + general(own.s, how) +
           " kJ/(kmol K) of the " + (own.vapour ? "vapour" : "liquid") + " at " +
           at(own.T, own.p, how);
}

std::string zero_line(const models::ReferenceState& r, Numbers how) {
    if (r.named == models::NamedState::own) return "Reference state: " + own_line(r.own, how);
    if (const models::NamedReference* const named = models::named_reference(r.named))
        return "Reference state: " + std::string(named->name) + ", " + std::string(named->text);
    const std::string state =
        "ideal gas at " + at(static_cast<double>(r.T0), static_cast<double>(r.p0), how);
    switch (r.mode) {
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

std::vector<std::string> reference_lines(const Made& made, bool exergies, Numbers how) {
    const models::ReferenceState& r = made.reference;
    std::vector<std::string> lines = {models_line(made.fluid.models()), zero_line(r, how)};
    if (exergies) lines.push_back("Surroundings for exergies: " + at(r.Tenv, r.penv, how));
    return lines;
}

std::vector<HeadLine> head_lines(const Made& made) {
    const models::SubstanceRecord& s = made.fluid.substance();
    std::vector<HeadLine> head = {{"Substance", text::trim(s.name + "  " + s.formula)}};
    for (const std::string& line : reference_lines(made)) {
        const std::size_t colon = line.find(": ");
        head.push_back({line.substr(0, colon), line.substr(colon + 2)});
    }
    head.push_back(
        {"Units", text::trim(made.units.v_label) + ", " + caloric_name(made.units.choice.caloric)});
    return head;
}

std::string reference_line(const Made& made) {
    std::string all;
    for (const std::string& line : reference_lines(made)) all += (all.empty() ? "" : "; ") + line;
    return all;
}

std::string model_line(const Made& made) {
    return models_line(made.fluid.models());
}

}  // namespace quor::report
