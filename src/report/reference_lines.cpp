#include "report/reference_lines.h"

#include "common/numbers.h"
#include "common/single.h"
#include "common/text.h"
#include "models/model_tables.h"
#include "models/named_reference.h"
#include "report/quantity_text.h"

namespace quor::report {

using models::Units;

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

std::string quantity(const Units& units, Dimension dimension, double value, Numbers how) {
    return general(shown(units, dimension, value), how) + " " + unit_name(units, dimension);
}

std::string at(const Units& units, double T, double p, Numbers how) {
    return quantity(units, Dimension::temperature, T, how) + ", " +
           quantity(units, Dimension::pressure, p, how);
}

std::string caloric(const Units& units, double h, double s, Numbers how) {
    return "h = " + quantity(units, Dimension::energy, h, how) +
           ", s = " + quantity(units, Dimension::entropy, s, how);
}

std::string models_line(const models::ModelSelection& models) {
    return "Model: " + text::trim(models::eos_name(models.eos)) +
           "; ideal-gas cp: " + text::trim(models::cp_name(models.cp_form));
}

/// A state of the user's own is named by its values.
std::string own_line(const Units& units, const models::OwnState& own, Numbers how) {
    return caloric(units, own.h, own.s, how) + " of the " + (own.vapour ? "vapour" : "liquid") +
           " at " + at(units, own.T, own.p, how);
}

std::string zero_line(const Units& units, const models::ReferenceState& r, Numbers how) {
    if (r.named == models::NamedState::own)
        return "Reference state: " + own_line(units, r.own, how);
    if (const models::NamedReference* const named = models::named_reference(r.named))
        return "Reference state: " + std::string(named->name) + ", " + std::string(named->text);
    const std::string state = "ideal gas at " + at(units, digits_of(r.T0), digits_of(r.p0), how);
    switch (r.mode) {
        case kConventional:
            return "Reference state: conventional h and s, " + state;
        case kFormation:
            return "Reference state: quantities of formation, " + state;
        default:
            break;
    }
    if (r.href == 0.0 && r.sref == 0.0) return "Reference state: h = 0, s = 0, " + state;
    return "Reference state: " + caloric(units, r.href, r.sref, how) + ", " + state;
}

}  // namespace

std::vector<std::string> reference_lines(const Made& made, bool exergies, Numbers how) {
    const models::ReferenceState& r = made.reference;
    const Units units = listed_units(made.units);
    std::vector<std::string> lines = {models_line(made.fluid.models()), zero_line(units, r, how)};
    if (exergies) lines.push_back("Surroundings for exergies: " + at(units, r.Tenv, r.penv, how));
    return lines;
}

std::vector<HeadLine> head_lines(const Made& made) {
    const models::SubstanceRecord& s = made.fluid.substance();
    std::vector<HeadLine> head = {{"Substance", text::trim(s.name + "  " + s.formula)}};
    for (const std::string& line : reference_lines(made)) {
        const std::size_t colon = line.find(": ");
        head.push_back({line.substr(0, colon), line.substr(colon + 2)});
    }
    head.push_back({"Units", units_line(made.units)});
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
